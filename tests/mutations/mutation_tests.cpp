// Feeds mutated files, registry values and script arguments to all that reads them:
//     mutation_tests [--count=N] [--seed=N] [--reader=NAME [--first=N]]
// The inputs follow from the seed, the reader's name and the input's number alone. An input that crashes,
// hangs or is answered wrongly is told by these, and is read again alone with --reader, --seed, --first and
// --count=1.

#include <windows.h>

#include <ole2.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#include "environment/XMLAccess.h"
#include "framework/Module.h"
#include "tests/mutations/Reader.h"
#include "tests/support/HandleCount.h"
#include "tests/support/PrivateMemory.h"

namespace {

using namespace nux;

/// An input that takes longer ends the process.
constexpr ULONGLONG deadline = 30'000;  // milliseconds
/// What is told of as slow.
constexpr ULONGLONG slow = 500;  // milliseconds

// What the platform's heap may grow by over a reader's run, beside what is kept by design: its free lists and
// caches.
constexpr long long memoryLeft = 4 << 20;
/// Threads of the platform's come and go with some.
constexpr int handlesLeft = 8;

/// The input that is being read, for those who have to tell of it: the watchdog, and the end of the process.
struct Current {
    std::atomic<const char*> reader{nullptr};
    std::atomic<std::uint64_t> number{0};
    std::atomic<ULONGLONG> since{0};
    std::uint64_t seed = 0;
} current;

void TellOfCurrent(const char* what) {
    char line[MAX_PATH + 200];
    const int length = std::snprintf(
        line, sizeof line, "%s: --reader=%s --seed=%llu --first=%llu --count=1\n", what,
        current.reader ? current.reader.load() : "none", static_cast<unsigned long long>(current.seed),
        static_cast<unsigned long long>(current.number.load()));
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), line, static_cast<DWORD>(length), &written, nullptr);
}

LONG WINAPI OnCrash(EXCEPTION_POINTERS* crash) {
    HMODULE module = nullptr;
    char file[MAX_PATH] = "nowhere";
    const auto address = static_cast<const char*>(crash->ExceptionRecord->ExceptionAddress);
    if (GetModuleHandleExA(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT, address,
            &module))
        GetModuleFileNameA(module, file, sizeof file);
    char what[MAX_PATH + 60];
    std::snprintf(what, sizeof what, "CRASH %08lx in %s+%llx", crash->ExceptionRecord->ExceptionCode, file,
                  static_cast<unsigned long long>(address - reinterpret_cast<const char*>(module)));
    TellOfCurrent(what);
    TerminateProcess(GetCurrentProcess(), 3);
    return EXCEPTION_EXECUTE_HANDLER;
}

void Watch() {
    for (;;) {
        Sleep(250);
        const ULONGLONG since = current.since;
        if (since != 0 && GetTickCount64() - since > deadline) {
            TellOfCurrent("HANG");
            TerminateProcess(GetCurrentProcess(), 4);
        }
    }
}

struct State {
    long objects = LiveObjects();
    unsigned handles = HandleCount();
    long long memory = PrivateMemory();
};

/// Runs one reader. @return how many things were wrong
int Run(const ReaderKind& kind, const Samples& samples, std::uint64_t first, std::uint64_t count) {
    const long objectsBefore = LiveObjects();
    int wrong = 0;
    std::uint64_t taken = 0;
    std::uint64_t slowCount = 0;
    ULONGLONG slowest = 0;
    const ULONGLONG started = GetTickCount64();
    current.reader = kind.name;
    long long growth = 0;
    {
        const std::unique_ptr<Reader> reader = kind.make(samples);
        // The state behind the first batch is the one to come back to: the platform has loaded by then what
        // it loads at its first use.
        const std::uint64_t batch = std::clamp<std::uint64_t>(count / 4, 1, 10'000);
        std::unique_ptr<State> warm;
        for (std::uint64_t done = 0; done < count;) {
            current.number = first + done;
            Random random = RandomOf(current.seed, kind.name, first + done);
            const ULONGLONG begun = GetTickCount64();
            current.since = begun;
            try {
                taken += reader->Read(random);
            } catch (const std::exception& error) {
                TellOfCurrent(error.what());
                ++wrong;
            }
            current.since = 0;
            const ULONGLONG took = GetTickCount64() - begun;
            slowest = std::max(slowest, took);
            if (took > slow && ++slowCount <= 5)
                TellOfCurrent(("slow, " + std::to_string(took) + " ms").c_str());
            if (++done % batch != 0)
                continue;
            ClearXMLDocumentCache();
            CoFreeUnusedLibraries();
            const State now;
            if (!warm) {
                warm = std::make_unique<State>(now);
                continue;
            }
            growth = now.memory - warm->memory;
            const auto kept = static_cast<long long>((done - batch) * kind.keptByDesign);
            if (now.objects != warm->objects || static_cast<int>(now.handles - warm->handles) > handlesLeft ||
                growth > memoryLeft + kept) {
                std::printf("LEFT BEHIND by %s up to input %llu: %ld objects, %d handles, %lld bytes\n",
                            kind.name, static_cast<unsigned long long>(first + done),
                            now.objects - warm->objects, static_cast<int>(now.handles - warm->handles),
                            growth);
                ++wrong;
                warm = std::make_unique<State>(now);
            }
        }
    }
    current.reader = nullptr;
    ClearXMLDocumentCache();
    if (LiveObjects() != objectsBefore) {
        std::printf("LEFT BEHIND by %s at its end: %ld objects\n", kind.name, LiveObjects() - objectsBefore);
        ++wrong;
    }
    const ULONGLONG took = GetTickCount64() - started;
    std::printf(
        "%-14s %8llu inputs, %8llu taken, %7.1f s, %6.0f us each, slowest %llu ms (%llu slow), %+lld KB\n",
        kind.name, static_cast<unsigned long long>(count), static_cast<unsigned long long>(taken),
        static_cast<double>(took) / 1000, static_cast<double>(took) * 1000 / static_cast<double>(count),
        slowest, static_cast<unsigned long long>(slowCount), growth / 1024);
    std::fflush(stdout);
    return wrong;
}

std::string ContentOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

/// The texts of all elements of a name.
void Collect(const std::string& xml, const std::string& element, std::vector<std::string>& texts) {
    const std::string opening = "<" + element + ">";
    for (std::size_t at = 0; (at = xml.find(opening, at)) != std::string::npos;) {
        at += opening.size();
        texts.push_back(xml.substr(at, xml.find('<', at) - at));
    }
}

/// The value of an argument "--NAME=VALUE", or null.
const char* Argument(const char* argument, const char* name) {
    const std::size_t length = std::strlen(name);
    return std::strncmp(argument, name, length) == 0 && argument[length] == '=' ? argument + length + 1
                                                                                : nullptr;
}

}  // namespace

nux::Samples::Samples(const std::string& folder) {
    // In the order of their names: what number stands for which file must not depend on the disk.
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    for (const std::filesystem::path& file : files) {
        const std::string name = file.filename().string();
        const std::string parent = file.parent_path().filename().string();
        if (name == "Catalog.xml") {
            catalogues.push_back(ContentOf(file));
            Collect(catalogues.back(), "ID", ids);
        } else if (name.ends_with("_Msgs.xml")) {
            messages.push_back(ContentOf(file));
            Collect(messages.back(), "MsgID", texts);
        } else if (parent == "StdDimensions" || parent == "UsrDimensions") {
            dimensions.push_back(ContentOf(file));
        }
    }
    if (catalogues.empty() || messages.empty() || dimensions.empty())
        throw std::runtime_error("no sample installation in " + folder);
}

int main(int count, char** arguments) {
    std::uint64_t inputs = 4'000;
    std::uint64_t first = 0;
    std::string wanted;
    current.seed = 1;
    for (int i = 1; i < count; ++i) {
        if (const char* given = Argument(arguments[i], "--count"))
            inputs = std::strtoull(given, nullptr, 10);
        else if (const char* given = Argument(arguments[i], "--seed"))
            current.seed = std::strtoull(given, nullptr, 10);
        else if (const char* given = Argument(arguments[i], "--first"))
            first = std::strtoull(given, nullptr, 10);
        else if (const char* given = Argument(arguments[i], "--reader"))
            wanted = given;
        else {
            std::printf("unknown: %s\n", arguments[i]);
            return 2;
        }
    }
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    SetUnhandledExceptionFilter(OnCrash);
    ULONG stackOfTheFilter = 65'536;
    SetThreadStackGuarantee(&stackOfTheFilter);
    std::set_terminate([] {
        TellOfCurrent("END");
        TerminateProcess(GetCurrentProcess(), 3);
    });
    SetThisModule(GetModuleHandleA(nullptr));
    OleInitialize(nullptr);

    std::vector<ReaderKind> kinds;
    for (const auto readers : {DocumentReaders(), DimensionReaders(), SettingsReaders(), ScriptReaders()})
        kinds.insert(kinds.end(), readers.begin(), readers.end());
    std::uint64_t shares = 0;
    for (const ReaderKind& kind : kinds)
        shares += kind.share;
    std::printf("seed %llu\n", static_cast<unsigned long long>(current.seed));
    std::fflush(stdout);

    std::thread(Watch).detach();
    const Samples samples(NUX_SAMPLE);
    int wrong = 0;
    std::uint64_t total = 0;
    bool found = false;
    for (const ReaderKind& kind : kinds) {
        if (!wanted.empty() && wanted != kind.name)
            continue;
        found = true;
        const std::uint64_t share =
            wanted.empty() ? std::max<std::uint64_t>(1, (inputs * kind.share + shares - 1) / shares) : inputs;
        total += share;
        wrong += Run(kind, samples, first, share);
    }
    if (!found) {
        std::printf("no such reader: %s\n", wanted.c_str());
        return 2;
    }
    std::printf("%llu inputs, %d wrong\n", static_cast<unsigned long long>(total), wrong);
    std::fflush(stdout);
    OleUninitialize();
    return wrong == 0 ? 0 : 1;
}
