// The log as scripts see it.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <regex>

#include "framework/Handles.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/Installation.h"
#include "tests/support/ThreadLocale.h"

namespace nux {
namespace {

constexpr char logKey[] = "Software\\Orvenna\\Tarnvale\\";

class DebugLog : public InstallationTest {
protected:
    HRESULT LogTo(const std::string& file) {
        return parts->put_DebugSessionStatusAndLogFile(Bstr(folder.Path() + file, CP_ACP).Get());
    }
    HRESULT WriteEntry(const std::wstring& text) { return parts->WriteDebugString(Bstr(text).Get()); }
    long Status() {
        long status = -1;
        EXPECT_EQ(S_OK, parts->get_DebugSessionStatus(&status));
        return status;
    }
    bool Exists(const std::string& file) {
        return GetFileAttributesA((folder.Path() + file).c_str()) != INVALID_FILE_ATTRIBUTES;
    }
    /// The log without its stamps, each of which reads "#".
    std::string Unstamped(const std::string& file) {
        static const std::regex stamp("[0-9]{2}/[0-9]{2}/[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2} ");
        return std::regex_replace(folder.Read(file), stamp, "#");
    }
};

int opened = 0;

HANDLE WINAPI CountOpened(const char*, DWORD, DWORD, SECURITY_ATTRIBUTES*, DWORD, DWORD, HANDLE) {
    ++opened;
    return INVALID_HANDLE_VALUE;
}

TEST_F(DebugLog, WithoutALogFileNothingIsWritten) {
    const ImportPatch patch(LoadedModule(), "KERNEL32.dll", "CreateFileA",
                            reinterpret_cast<void*>(CountOpened));
    ASSERT_TRUE(patch);
    opened = 0;
    EXPECT_EQ(S_OK, WriteEntry(L"nowhere"));
    EXPECT_EQ(S_OK, parts->WriteDebugString(nullptr));
    EXPECT_EQ(0, opened);
    EXPECT_EQ(0, Status());
}

BOOL WINAPI WriteNothing(HANDLE, const void*, DWORD, DWORD* written, OVERLAPPED*) {
    *written = 0;
    return FALSE;
}

TEST_F(DebugLog, AWriteThatFailsIsIgnored) {
    LogTo("log");
    {
        const ImportPatch patch(LoadedModule(), "KERNEL32.dll", "WriteFile",
                                reinterpret_cast<void*>(WriteNothing));
        ASSERT_TRUE(patch);
        EXPECT_EQ(S_OK, WriteEntry(L"lost"));
    }
    EXPECT_EQ(S_OK, WriteEntry(L"kept"));
    EXPECT_EQ("#kept", Unstamped("log"));
}

TEST_F(DebugLog, TheTextIsNarrowedToTheCodePageOfTheThread) {
    LogTo("log");
    const ThreadLocale locale(russian);
    WriteEntry(L"\u0416");
    EXPECT_EQ("#\xc6", Unstamped("log"));
}

TEST_F(DebugLog, AnEntryIsAStampAndTheTextAndNothingElse) {
    EXPECT_EQ(S_OK, LogTo("log"));
    SYSTEMTIME before;
    SYSTEMTIME after;
    std::string entry;
    do {  // a stamp of one second, so that it can be told
        folder.Write("log", "");
        GetLocalTime(&before);
        EXPECT_EQ(S_OK, WriteEntry(L"text"));
        GetLocalTime(&after);
        entry = folder.Read("log");
    } while (before.wSecond != after.wSecond);
    char expected[40];
    std::snprintf(expected, sizeof expected, "%02u/%02u/%02u %02u:%02u:%02u text", before.wMonth, before.wDay,
                  before.wYear % 100u, before.wHour, before.wMinute, before.wSecond);
    EXPECT_EQ(expected, entry);
}

TEST_F(DebugLog, EntriesAreAppendedAndOnlyTheScriptsLineFeedsPartThem) {
    folder.Write("log", "old\n");
    LogTo("log");
    WriteEntry(L"one");
    WriteEntry(L"two\n");
    WriteEntry(L"");
    EXPECT_EQ(S_OK, parts->WriteDebugString(nullptr));
    EXPECT_EQ("old\n#one#two\n##", Unstamped("log"));
}

TEST_F(DebugLog, TheTextIsNarrowed) {
    LogTo("log");
    WriteEntry(L"Gr\u00f6\u00dfe \u4e2d");
    EXPECT_EQ(
        "#Gr\xf6\xdf"
        "e ?",
        Unstamped("log"));
}

TEST_F(DebugLog, OthersMayReadAndWriteTheFileMeanwhile) {
    const std::string path = folder.Write("log", "");
    LogTo("log");
    const UniqueFile other(CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                       nullptr));
    ASSERT_TRUE(other);
    WriteEntry(L"shared");
    EXPECT_EQ("#shared", Unstamped("log"));
}

TEST_F(DebugLog, TheStatusIsZeroOrOne) {
    LogTo("log");
    EXPECT_EQ(1, Status());
    for (const long value : {5L, -1L, 1L}) {
        EXPECT_EQ(S_OK, parts->put_DebugSessionStatus(0));
        EXPECT_EQ(0, Status());
        EXPECT_EQ(S_OK, parts->put_DebugSessionStatus(value));
        EXPECT_EQ(1, Status());
    }
    EXPECT_EQ(E_INVALIDARG, parts->get_DebugSessionStatus(nullptr));
}

TEST_F(DebugLog, TheStatusBelongsToEachObjectAndTheFileToAll) {
    LogTo("log");
    const ComPtr<InuxStdParts> second = CreateParts();
    long status = -1;
    EXPECT_EQ(S_OK, second->get_DebugSessionStatus(&status));
    EXPECT_EQ(0, status);
    EXPECT_EQ(S_OK, second->WriteDebugString(Bstr(L"second").Get()));
    EXPECT_EQ("#second", Unstamped("log"));
}

TEST_F(DebugLog, StatusZeroLeavesTheLogOn) {
    LogTo("log");
    parts->put_DebugSessionStatus(0);
    WriteEntry(L"still");
    EXPECT_EQ("#still", Unstamped("log"));
}

TEST_F(DebugLog, AnEmptyLogFileClearsTheStatusAndNotTheFile) {
    LogTo("log");
    EXPECT_EQ(S_OK, parts->put_DebugSessionStatusAndLogFile(Bstr(L"").Get()));
    EXPECT_EQ(0, Status());
    WriteEntry(L"one");
    LogTo("log");
    EXPECT_EQ(S_OK, parts->put_DebugSessionStatusAndLogFile(nullptr));
    EXPECT_EQ(0, Status());
    WriteEntry(L"two");
    EXPECT_EQ("#one#two", Unstamped("log"));
}

TEST_F(DebugLog, AnotherLogFileReplacesTheFirst) {
    LogTo("first");
    LogTo("second");
    WriteEntry(L"x");
    EXPECT_FALSE(Exists("first"));
    EXPECT_EQ("#x", Unstamped("second"));
}

TEST_F(DebugLog, TheStatusAloneLogsFourFoldersAboveThePages) {
    const std::string pages = folder.MakeFolder("one\\two\\three\\gui");
    SetPaths(parts, catalogs, data, pages, custom);
    EXPECT_EQ(S_OK, parts->put_DebugSessionStatus(1));
    EXPECT_FALSE(Exists("brask_log")) << "nothing is opened yet";
    WriteEntry(L"x");
    EXPECT_EQ("#x", Unstamped("brask_log"));
}

TEST_F(DebugLog, TheStatusBeforeThePathsLogsRelativeToTheCurrentFolder) {
    char before[MAX_PATH];
    GetCurrentDirectoryA(sizeof before, before);
    ASSERT_TRUE(SetCurrentDirectoryA(folder.MakeFolder("one\\two\\three\\four").c_str()));
    const ComPtr<InuxStdParts> fresh = CreateParts();
    EXPECT_EQ(S_OK, fresh->put_DebugSessionStatus(1));
    EXPECT_EQ(S_OK, fresh->WriteDebugString(Bstr(L"x").Get()));
    SetCurrentDirectoryA(before);
    EXPECT_EQ("#x", Unstamped("brask_log"));
}

TEST_F(DebugLog, TheStatusKeepsALogFileThatIsSet) {
    LogTo("log");
    parts->put_DebugSessionStatus(1);
    WriteEntry(L"x");
    EXPECT_EQ("#x", Unstamped("log"));
    EXPECT_FALSE(Exists("brask_log"));
}

TEST_F(DebugLog, TheRegistrysLogFileIsTakenWhenThePathsAreSet) {
    UniqueKey key;
    ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExA(HKEY_LOCAL_MACHINE, logKey, 0, nullptr, 0, KEY_ALL_ACCESS,
                                             nullptr, key.Receive(), nullptr));
    const std::string path = folder.Path() + "registry_log";
    RegSetValueExA(key.Get(), "DebugOutputFile", 0, REG_SZ, reinterpret_cast<const BYTE*>(path.c_str()),
                   static_cast<DWORD>(path.size() + 1));
    LogTo("log");
    UseInstallation();
    parts->put_DebugSessionStatus(1);
    WriteEntry(L"one");
    EXPECT_EQ("#one", Unstamped("registry_log"));
    RegDeleteValueA(key.Get(), "DebugOutputFile");
    UseInstallation();
    WriteEntry(L"two");
    EXPECT_EQ("#one#two", Unstamped("registry_log")) << "a missing value leaves the file that is set";
}

TEST_F(DebugLog, TheEndOfAnObjectTurnsTheLogOff) {
    LogTo("log");
    CreateParts().Reset();
    WriteEntry(L"lost");
    EXPECT_EQ(1, Status());
    EXPECT_FALSE(Exists("log"));
}

using DebugLogDeathTest = DebugLog;

TEST_F(DebugLogDeathTest, ALogFileThatCannotBeOpenedEndsTheProcessAtTheFirstEntryOnly) {
    EXPECT_EQ(S_OK, LogTo("missing\\log"));
    EXPECT_EQ(S_OK, parts->put_DebugSessionStatus(1));
    EXPECT_EQ(S_OK, UseInstallation());
    EXPECT_EXIT(WriteEntry(L"x"), testing::ExitedWithCode(-1), "");
}

TEST_F(DebugLogDeathTest, ExitHandlersRunAtThatEnd) {
    LogTo("missing\\log");
    const auto endWithHandler = [&] {
        std::atexit([] { std::fputs("exit handler ran\n", stderr); });
        WriteEntry(L"x");
    };
    EXPECT_EXIT(endWithHandler(), testing::ExitedWithCode(-1), "exit handler ran");
}

}  // namespace
}  // namespace nux
