// The dimension chooser, against what any chooser has to do (the floor) and against its plainest
// transcription.
//
//     bench_dimensions FOLDER         prints the tables
//     bench_dimensions FOLDER SIDE    exits with the kilobytes by which its private memory grows when the
//     dialog
//                                     opens; the first form starts this one for itself
//
// FOLDER, with its closing separator, takes the files that are made.

#include <windows.h>

#include <commctrl.h>
#include <psapi.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <utility>

#include "bench/Measurement.h"
#include "bench/PlainDialog.h"
#include "bench/Sizes.h"
#include "bench/TableFloor.h"
#include "bench/TestFiles.h"
#include "bench/Transcription.h"
#include "dimensions/DimNumber.h"
#include "dimensions/DimensionSettings.h"
#include "dimensions/DimensionTable.h"
#include "dimensions/nuxChooseStdDims.h"
#include "dimensions/nuxLVSort.h"
#include "environment/InstallationPaths.h"
#include "environment/Localisation.h"
#include "framework/HResult.h"
#include "framework/Module.h"
#include "framework/RedrawPause.h"
#include "nuxStdPartsAX.h"
#include "resources/resource.h"

using namespace nux;
using namespace nux::bench;

namespace {

constexpr char catalogue[] = "Bench";
constexpr char component[] = "Sizes";

constexpr std::size_t severeRows = 10000;    ///< from here on the wanted figures count
constexpr std::size_t patientRows = 100000;  ///< from here on the transcription works once only

void Require(bool condition, const char* what) {
    if (!condition)
        throw std::runtime_error(what);
}

std::string Grouped(std::size_t number) {
    std::string text = std::to_string(number);
    if (text.size() > 3)
        text.insert(text.size() - 3, ",");
    return text;
}

enum Side { Ours, Floor, Transcription, sideCount };

/// Shows the dialog until it is closed.
void RunDialog(Side side, HWND parent, const Sizes& sizes) {
    RowReferences references;
    switch (side) {
        case Floor:
            RunPlainDialog(parent, [&](HWND list) { floor::FillRows(list, sizes, false, references); });
            break;
        case Transcription:
            RunPlainDialog(parent,
                           [&](HWND list) { transcription::FillRows(list, sizes, false, references); });
            break;
        default:
            nuxChooseStdDims(catalogue, component, sizes.names.Get(), nullptr, sizes.rows.Get(), nullptr)
                .Run(parent);
    }
}

/// The component starts with a filter that is active and refuses nothing: the button that turns it off fills
/// the list anew.
void StoreFilter() {
    nuxDimFilter standardOnly;
    standardOnly.SetNumber(FilterNone, 0.0, 0.0, DatabaseStandard);
    DimensionSettings(catalogue, component).SetFilter(DimensionCaption(SizeFile::alternating), standardOnly);
}

struct DialogSeconds {
    double opening;    ///< from the call to the painted window
    double refilling;  ///< from the press of the button to the painted list
};

DialogSeconds MeasureDialog(Side side, DialogOwner& owner, const Sizes& sizes) {
    StoreFilter();
    DialogSeconds seconds{};
    const Stopwatch sinceCall;
    owner.WhenOpen([&](HWND dialog) {
        PaintNow(dialog);
        seconds.opening = sinceCall.Seconds();
        seconds.refilling = SecondsOf([&] {
            SendMessageA(dialog, WM_COMMAND, IDC_ALL_FILTERS_OFF, 0);
            PaintNow(dialog);
        });
        PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    RunDialog(side, owner.Handle(), sizes);
    return seconds;
}

/// Kilobytes by which the private memory grows when the dialog opens.
DWORD MeasureMemory(Side side) {
    const auto privateBytes = [] {
        PROCESS_MEMORY_COUNTERS counters{};
        GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
        return counters.PagefileUsage;  // what PrivateUsage is on Windows; Wine fills this one only
    };
    const Sizes sizes;
    DialogOwner owner;
    const SIZE_T before = privateBytes();
    SIZE_T open = before;
    owner.WhenOpen([&](HWND dialog) {
        PaintNow(dialog);
        open = privateBytes();
        PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    RunDialog(side, owner.Handle(), sizes);
    return static_cast<DWORD>((open - before) / 1024);
}

/// The same in a process of its own, whose memory nothing else has touched.
double MemoryOf(Side side, const std::string& folder) {
    char program[MAX_PATH];
    GetModuleFileNameA(nullptr, program, sizeof program);
    std::string command = std::string("\"") + program + "\" " + folder + " " + std::to_string(side);
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    Require(CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                           &process),
            "can't start the program anew");
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD kilobytes = 0;
    GetExitCodeProcess(process.hProcess, &kilobytes);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return kilobytes * 1024.0;
}

/// What the wanted figures are for a work: highest ratio to the floor, lowest ratio of the transcription to
/// ours.
struct Wanted {
    std::string floor;
    std::string transcription;
};

void Row(Table& table, const std::string& what, const Wanted& wanted, const std::vector<Times>& times) {
    table.Row({Factor(Ratio(times[Ours], times[Floor])), wanted.floor,
               Factor(Ratio(times[Transcription], times[Ours])), wanted.transcription, what,
               Duration(times[Ours].Best()), Duration(times[Floor].Best()),
               Duration(times[Transcription].Best()), Spread(times[Ours], times[Floor])});
}

/// The measurements of one number of rows.
class Measurements {
public:
    explicit Measurements(std::size_t rowCount, const std::string& folder)
        : slow_(rowCount >= patientRows),
          rounds_(rowCount >= patientRows  ? 5
                  : rowCount >= severeRows ? 9
                                           : 15),
          folder_(folder),
          keys_(WriteSizes(rowCount)),
          ourTable_(catalogue, sizes_.names.Get(), sizes_.rows.Get(), nullptr) {
        for (const Side side : {Ours, Floor, Transcription}) {
            PrepareList(List(side));
            if (side != Ours)
                MakeColumns(List(side));
        }
        ourTable_.InitColumns(List(Ours));
        if (rowCount >= severeRows)
            filling_ = {"1.3", "3"};
    }

    void CompareOpening(Table& table) {
        DialogOwner owner;
        std::vector<Times> refilling(sideCount);
        const auto measure = [&](Side side) {
            const DialogSeconds seconds = MeasureDialog(side, owner, sizes_);
            refilling[side].Add(seconds.refilling);
            return seconds.opening;
        };
        Row(table, "Opening", filling_, Measure(measure));
        Row(table, "Refilling, no filter left", filling_, refilling);
    }

    void CompareRefilling(Table& table) {
        nuxDimFilter half;
        half.SetNumber(FilterEqual, 12.0, 0.0, DatabaseBoth);
        ourTable_.SetFilter(SizeFile::alternating + 1, half);
        Row(table, "Refilling, a filter leaves every second row", filling_, Measure([&](Side side) {
                return SecondsOf([&] {
                    Fill(side, true);
                    PaintNow(List(side));
                });
            }));
        ourTable_.SetFilter(SizeFile::alternating + 1, nuxDimFilter());
    }

    void CompareSorting(Table& table, const std::string& what, int dimension, bool numeric) {
        Row(table, what, {"1.5", ""}, Measure([&](Side side) {
                if (side == Floor) {
                    const RedrawPause pause(List(side));
                    floor::FillRowsWithKeys(List(side), sizes_, keys_);
                } else {
                    Fill(side, false);
                }
                return SecondsOf([&] { Sort(side, dimension + 1, numeric); });
            }));
    }

    /// The values of a column, as one of the windows that list them asks for them.
    template <class OurValues, class PlainValues>
    Times CompareValues(Table& table, const std::string& what, int dimension, OurValues ourValues,
                        PlainValues plainValues) {
        Require(slow_ || ourValues(dimension) == plainValues(dimension), "values differ");
        const auto times = Measure([&](Side side) {
            return SecondsOf([&] {
                switch (side) {
                    case Floor:
                        floor::ReadValues(sizes_, dimension);
                        break;
                    case Transcription:
                        plainValues(dimension);
                        break;
                    default:
                        ourValues(dimension);
                }
            });
        });
        Row(table, what, {}, times);
        return times[Ours];
    }

    void CompareMemory(Table& table) {
        double best[sideCount];
        for (int side = 0; side < sideCount; ++side) {
            best[side] = MemoryOf(static_cast<Side>(side), folder_);
            Require(best[side] > 0, "no memory measured");
        }
        table.Row({Factor(best[Ours] / best[Floor]), "1.3", Factor(best[Transcription] / best[Ours]), "",
                   "Private memory of an opening", Megabytes(best[Ours]), Megabytes(best[Floor]),
                   Megabytes(best[Transcription]), ""});
    }

    const DimensionTable& OurTable() const { return ourTable_; }
    const Sizes& AllSizes() const { return sizes_; }

private:
    HWND List(Side side) const { return windows_[side].List(); }

    std::vector<Times> Measure(const std::function<double(Side)>& measure) const {
        return MeasureInTurn(rounds_, {[&] { return measure(Ours); },
                                       [&] { return measure(Floor); },
                                       {[&] { return measure(Transcription); }, slow_}});
    }

    void Fill(Side side, bool half) {
        const RedrawPause pause(List(side));
        switch (side) {
            case Floor:
                floor::FillRows(List(side), sizes_, half, references_[side]);
                break;
            case Transcription:
                transcription::FillRows(List(side), sizes_, half, references_[side]);
                break;
            default:
                ourTable_.FillRows();
        }
    }

    void Sort(Side side, int column, bool numeric) {
        switch (side) {
            case Floor:
                floor::Sort(List(side));
                break;
            case Transcription:
                transcription::Sort(List(side), column, numeric);
                break;
            default:
                nuxLVSort(List(side), ourTable_.Rows(), column, numeric).Sort(true);
        }
    }

    bool slow_;
    int rounds_;
    std::string folder_;
    std::vector<int> keys_;
    Sizes sizes_;
    DimensionTable ourTable_;
    RowReferences references_[sideCount];
    ListWindow windows_[sideCount];
    Wanted filling_;
};

/// Times of the columns with half as many values as there are rows.
struct ManyValues {
    Times numbers;
    Times formatted;
    Times texts;
};

ManyValues Measure(std::size_t rowCount, const std::string& folder) {
    Heading(Grouped(rowCount) + " rows of ten columns");
    Table table({"Ours / floor", "At most", "Transcription / ours", "At least", "Work", "Ours", "Floor",
                 "Transcription", "Ours / floor by round"});
    Measurements measurements(rowCount, folder);
    measurements.CompareOpening(table);
    measurements.CompareRefilling(table);
    measurements.CompareSorting(table, "Sorting a numeric column", SizeFile::distinctNumbers, true);
    measurements.CompareSorting(table, "Sorting a text column", SizeFile::distinctTexts, false);

    const DimensionTable& ours = measurements.OurTable();
    const Sizes& sizes = measurements.AllSizes();
    const auto numbers = [&](int dimension) { return ours.CollectNumericValues(dimension + 1); };
    const auto plainNumbers = [&](int dimension) { return transcription::NumericValues(sizes, dimension); };
    const auto formatted = [&](int dimension) {
        std::vector<std::string> texts;
        for (const double number : numbers(dimension))
            texts.push_back(FormatDimNumber(number, DecimalSeparator()));
        return texts;
    };
    const auto plainFormatted = [&](int dimension) {
        std::vector<std::string> texts;
        for (const double number : plainNumbers(dimension))
            texts.push_back(transcription::FormatNumber(number));
        return texts;
    };
    const auto texts = [&](int dimension) { return ours.CollectTextValues(dimension + 1); };
    const auto plainTexts = [&](int dimension) { return transcription::TextValues(sizes, dimension); };

    const std::string many = Grouped(rowCount / 2);
    measurements.CompareValues(table, "Values of the quick filter, 20 texts", SizeFile::kindText, texts,
                               plainTexts);
    ManyValues times;
    times.numbers = measurements.CompareValues(table, "Values of the filter dialog, " + many + " numbers",
                                               SizeFile::distinctNumbers, numbers, plainNumbers);
    times.formatted = measurements.CompareValues(table, "Values of the quick filter, " + many + " numbers",
                                                 SizeFile::distinctNumbers, formatted, plainFormatted);
    times.texts = measurements.CompareValues(table, "Values of the quick filter, " + many + " texts",
                                             SizeFile::distinctTexts, texts, plainTexts);
    measurements.CompareMemory(table);
    return times;
}

void CompareGrowth(const ManyValues& few, const ManyValues& many) {
    Heading("Ten times the rows and the values: 100,000 and 50,000 against 10,000 and 5,000");
    Table table({"Times the time", "At most", "Work", "100,000 rows", "10,000 rows"});
    const auto row = [&](const char* what, const Times& ofMany, const Times& ofFew) {
        table.Row(
            {Factor(Ratio(ofMany, ofFew)), "12", what, Duration(ofMany.Best()), Duration(ofFew.Best())});
    };
    row("Values of the filter dialog, numbers", many.numbers, few.numbers);
    row("Values of the quick filter, numbers", many.formatted, few.formatted);
    row("Values of the quick filter, texts", many.texts, few.texts);
}

/// The dialogs' templates and icons are those of the registered component.
void UseResourcesOfComponent() {
    ComPtr<IUnknown> object;
    ThrowIfFailed(CoCreateInstance(CLSID_nuxStdParts, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                   object.ReceiveVoid()));
    const HMODULE module = GetModuleHandleA("nuxStdPartsAX.dll");
    SetResourceModule(module);
    Require(LoadLibraryA("nuxStdPartsAX.dll") == module, "the module can't be kept");
}

/// A language of its own translates the kinds of parts.
void InstallLanguage() {
    MakeFolder("locale");
    MakeFolder("locale\\English_United_States");
    std::string messages = "<Messages>";
    for (std::size_t i = 0; i < partKinds; ++i)
        messages +=
            "<MsgID>" + PartKind(i) + "</MsgID><Text>Pillar for guiding " + std::to_string(i) + "</Text>";
    WriteFile(std::string("locale\\English_United_States\\") + catalogue + "_Msgs.xml",
              messages + "</Messages>");
    Installation().gui = TestPath("gui\\");
    InitEnvironment();
    Require(InterfaceLanguage() == "English_United_States", "not the language of this program");
}

}  // namespace

int main(int count, char** arguments) try {
    Require(count == 2 || count == 3, "usage: bench_dimensions FOLDER");
    SetThisModule(GetModuleHandleA(nullptr));
    SetTestFolder(arguments[1]);
    OleInitialize(nullptr);
    UseResourcesOfComponent();
    InstallLanguage();
    if (count == 3)
        return static_cast<int>(MeasureMemory(static_cast<Side>(std::atoi(arguments[2]))));
    Measure(1000, arguments[1]);
    const ManyValues few = Measure(10000, arguments[1]);
    const ManyValues many = Measure(100000, arguments[1]);
    CompareGrowth(few, many);
    return EXIT_SUCCESS;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return EXIT_FAILURE;
}
