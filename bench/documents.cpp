// The document layer and the message tables, against the same calls of the bare DOM.
//
//     documents FOLDER
//
// FOLDER, with its closing separator, takes the files that are made for it.

#include <windows.h>

#include <msxml2.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>

#include "bench/Measurement.h"
#include "bench/TestFiles.h"
#include "environment/InstallationPaths.h"
#include "environment/Localisation.h"
#include "environment/MessageTable.h"
#include "environment/XMLAccess.h"
#include "framework/Automation.h"

using namespace nux;
using namespace nux::bench;

namespace {

void Require(bool condition, const char* what) {
    if (!condition)
        throw std::runtime_error(what);
}

/// What any program has to do to get a document.
ComPtr<IXMLDOMDocument> LoadBare(const std::string& url) {
    ComPtr<IXMLDOMDocument> document;
    Require(SUCCEEDED(CoCreateInstance(CLSID_DOMDocument30, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument,
                                       document.ReceiveVoid())),
            "no DOM");
    document->put_async(VARIANT_FALSE);
    Variant source;
    source.bstrVal = Bstr(url, CP_THREAD_ACP).Detach();
    source.vt = VT_BSTR;
    VARIANT_BOOL succeeded = VARIANT_FALSE;
    Require(document->load(source, &succeeded) == S_OK, "bare load failed");
    return document;
}

double SecondsOfBareLoad(const std::string& url) {
    ComPtr<IXMLDOMDocument> document;
    return SecondsOf([&] { document = LoadBare(url); });
}

void CompareLoads(Table& table, const char* size, std::size_t parts) {
    const std::string name = "load.xml";
    WriteFile(name, CatalogueFile(parts));
    const std::string url = TestUrl(name);
    constexpr int hits = 10000;
    const auto times = MeasureInTurn(15, {
        [&] { return SecondsOfBareLoad(url); },
        [&] {
            ComPtr<IXMLDOMDocument> document;
            const double seconds =
                SecondsOf([&] { Require(LoadXMLDocument(url, document.Receive()), "load failed"); });
            ClearXMLDocumentCache();
            return seconds;
        },
        [&] {
            ComPtr<IXMLDOMDocument> document;
            LoadXMLDocument(url, document.Receive());
            const double seconds = SecondsOf([&] {
                for (int i = 0; i < hits; ++i)
                    LoadXMLDocument(url, document.Receive());
            });
            ClearXMLDocumentCache();
            return seconds / hits;
        }});
    const std::string file = std::string(" of a file of ") + size;
    table.Row({Factor(Ratio(times[1], times[0])), "", "`LoadXMLDocument`, miss," + file,
               Duration(times[1].Best()), Duration(times[0].Best()), Spread(times[1], times[0])});
    table.Row({Factor(Ratio(times[2], times[0])), "", "`LoadXMLDocument`, hit," + file,
               Duration(times[2].Best()), Duration(times[0].Best()), Spread(times[2], times[0])});
}

void CompareMessages(Table& table, bool shuffled) {
    constexpr std::size_t entries = 100000;
    constexpr int rounds = 7;
    const std::string order = shuffled ? "shuffled" : "sorted";
    const std::string catalogue = "Bench" + order;
    const std::string folder = "locale\\" + InterfaceLanguage() + "\\";
    const std::string text = MessageFile(entries, shuffled);

    // A catalogue's table is built once in a process: each round asks for a catalogue of its own.
    int round = 0;
    std::string current;
    const auto times = MeasureInTurn(rounds, {
        [&] {
            if (!current.empty())
                DeleteFileA(TestPath(folder + current + "_Msgs.xml").c_str());
            current = catalogue + std::to_string(round++);
            WriteFile(folder + current + "_Msgs.xml", text);
            return SecondsOfBareLoad(TestUrl(folder + current + "_Msgs.xml"));
        },
        [&] {
            const double seconds = SecondsOf([&] {
                Require(GetLocalizedMessage(current, MessageId(77)) == Translation(77), "wrong translation");
            });
            ClearXMLDocumentCache();
            return seconds;
        },
        [&] {
            const ComPtr<IXMLDOMDocument> document = LoadBare(TestUrl(folder + current + "_Msgs.xml"));
            return SecondsOf([&] { MessageTable::Read(document.Get()); });
        }});
    DeleteFileA(TestPath(folder + current + "_Msgs.xml").c_str());

    const std::string what = " of 100,000 messages, file " + order;
    table.Row({Factor(Ratio(times[2], times[0])), "1.5", "Reading the table" + what + ", alone",
               Duration(times[2].Best()), Duration(times[0].Best()), Spread(times[2], times[0])});
    table.Row({Factor(Ratio(times[1], times[0])), "", "First `GetLocalizedMessage`" + what + ": load and read",
               Duration(times[1].Best()), Duration(times[0].Best()), Spread(times[1], times[0])});

    std::vector<std::string> ids;
    for (std::size_t i = 0; i < entries; ++i)
        ids.push_back(MessageId(i * 7919 % entries));
    std::size_t bytes = 0;
    const auto lookups = MeasureInTurn(rounds, {
        [&] {
            return SecondsOf([&] {
                       for (const std::string& id : ids)
                           bytes += std::string(id).size();
                   }) / entries;
        },
        [&] {
            return SecondsOf([&] {
                       for (const std::string& id : ids)
                           bytes += GetLocalizedMessage(current, id).size();
                   }) / entries;
        }});
    Require(bytes != 0, "nothing found");
    table.Row({Factor(lookups[1].Best() / 2e-6), "1", "One `GetLocalizedMessage`" + what, 
               Duration(lookups[1].Best()), "2 us allowed", Spread(lookups[1], lookups[0])});
}

}  // namespace

int main(int count, char** arguments) try {
    Require(count == 2, "usage: documents FOLDER");
    SetTestFolder(arguments[1]);
    OleInitialize(nullptr);
    MakeFolder("locale");
    MakeFolder("locale\\English_United_States");
    Installation().gui = TestPath("gui\\");
    Installation().catalog = TestPath("");
    InitEnvironment();
    Require(InterfaceLanguage() == "English_United_States", "not the language of this bench");
    Table table({"Ratio", "Wanted", "Work", "Ours", "Floor", "Rounds"});
    CompareLoads(table, "20 kB", 220);
    CompareLoads(table, "1 MB", 11000);
    CompareMessages(table, false);
    CompareMessages(table, true);
    return EXIT_SUCCESS;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return EXIT_FAILURE;
}
