#include "environment/DiagnosticLog.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "framework/Handles.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/HandleCount.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/TempFolder.h"

namespace nux {
namespace {

using namespace std::string_literals;

constexpr std::uint32_t minusOne = 0xFFFFFFFF;
const std::string stamp = R"(\d\d/\d\d/\d\d \d\d:\d\d:\d\d )";

/// Local time in the form of a stamp, without its last blank.
std::string Now() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    char date[16];
    char time[16];
    GetDateFormatA(LOCALE_INVARIANT, 0, &now, "MM'/'dd'/'yy", date, sizeof date);
    GetTimeFormatA(LOCALE_INVARIANT, TIME_FORCE24HOURFORMAT, &now, "HH':'mm':'ss", time, sizeof time);
    return date + " "s + time;
}

class DiagnosticLog : public testing::Test {
protected:
    DiagnosticLog() { SetLogFile(path_); }
    ~DiagnosticLog() override { ClearLogFile(); }

    std::string Content() const { return folder_.Read("log"); }
    /// Writes entries in a process of their own.
    Ended Write(const std::string& path, const std::string& kindAndTexts) const {
        return RunProgram("fresh_process", "log \"" + path + "\" " + kindAndTexts);
    }

    const TempFolder folder_;
    const std::string path_ = folder_.Path() + "log";
};

TEST_F(DiagnosticLog, IsEnabledWhileAFileIsSet) {
    EXPECT_TRUE(IsLoggingEnabled());
    ClearLogFile();
    EXPECT_FALSE(IsLoggingEnabled());
    SetLogFile("x");
    SetLogFile("");
    EXPECT_FALSE(IsLoggingEnabled());
}

TEST_F(DiagnosticLog, OpensNothingUntilAnEntryIsWritten) {
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA(path_.c_str()));
    EXPECT_EQ(0, WriteLogEntry(false, 1, 2, 3, ""));
    EXPECT_NE(INVALID_FILE_ATTRIBUTES, GetFileAttributesA(path_.c_str()));
}

TEST_F(DiagnosticLog, WritesNothingWithoutAFile) {
    ClearLogFile();
    EXPECT_EQ(0, WriteLogEntry(false, 0, 0, 0, "text"));
    EXPECT_EQ(0, WriteLogEntry(true, 0, 0, 0, "even a fatal entry"));
    WriteStampedLogEntry("text");
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA(path_.c_str()));
}

TEST_F(DiagnosticLog, AppendsAnEntryWithNothingBehindIt) {
    folder_.Write("log", "old ");
    EXPECT_EQ(0, WriteLogEntry(false, 0, 0, 0, "new"));
    EXPECT_EQ("old new", Content());
}

TEST_F(DiagnosticLog, AppendsToALogBeyondFourGigabytes) {
    folder_.Write("log", "start");
    constexpr LONGLONG end = 0x1'0000'0000 + 10;
    const auto open = [&] {
        return UniqueFile(CreateFileA(path_.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    };
    {
        const UniqueFile log = open();
        LARGE_INTEGER position{};
        position.QuadPart = end;
        ASSERT_TRUE(SetFilePointerEx(log.Get(), position, nullptr, FILE_BEGIN));
        ASSERT_TRUE(SetEndOfFile(log.Get())) << "takes no room on the disk";
    }
    EXPECT_EQ(0, WriteLogEntry(false, 0, 0, 0, "new"));
    const UniqueFile log = open();
    LARGE_INTEGER size{};
    EXPECT_TRUE(GetFileSizeEx(log.Get(), &size));
    EXPECT_EQ(end + 3, size.QuadPart);
    char start[5];
    DWORD read = 0;
    EXPECT_TRUE(ReadFile(log.Get(), start, sizeof start, &read, nullptr));
    EXPECT_EQ("start", std::string(start, read));
}

TEST_F(DiagnosticLog, WritesItsTextByteByByte) {
    WriteLogEntry(false, 0, 0, 0, "%s %d \r\n\xFC\0z"s, 1, "not read");
    EXPECT_EQ("%s %d \r\n\xFC\0z"s, Content());
}

TEST_F(DiagnosticLog, StampsAnEntryWithLocalDateAndTime) {
    SYSTEMTIME local;
    SYSTEMTIME universal;
    GetLocalTime(&local);
    GetSystemTime(&universal);
    ASSERT_NE(local.wHour, universal.wHour) << "needs a time zone in which the two clocks can be told apart";
    const std::string before = Now();
    WriteStampedLogEntry("text");
    const std::string after = Now();
    const std::string content = Content();
    EXPECT_TRUE(content == before + " text" || content == after + " text") << content;
}

TEST_F(DiagnosticLog, GivesTheStampTwoDigitsEach) {
    WriteStampedLogEntry("");
    EXPECT_TRUE(std::regex_match(Content(), std::regex(stamp))) << Content();
    EXPECT_EQ(18u, Content().size());
}

TEST_F(DiagnosticLog, MakesOneLineOfTwoEntriesWithoutLineFeed) {
    WriteStampedLogEntry("one ");
    WriteStampedLogEntry("two");
    EXPECT_TRUE(std::regex_match(Content(), std::regex(stamp + "one " + stamp + "two"))) << Content();
}

TEST_F(DiagnosticLog, KeepsTheLineFeedThatItIsGiven) {
    WriteStampedLogEntry("one\n");
    WriteStampedLogEntry("two\r\n");
    EXPECT_TRUE(std::regex_match(Content(), std::regex(stamp + "one\n" + stamp + "two\r\n"))) << Content();
}

TEST_F(DiagnosticLog, TakesALongText) {
    const std::string text(3'000'000, 'x');
    WriteLogEntry(false, 0, 0, 0, text);
    EXPECT_EQ(text, Content());
}

BOOL WINAPI WriteNothing(HANDLE, const void*, DWORD, DWORD* written, OVERLAPPED*) {
    *written = 0;
    return FALSE;
}

TEST_F(DiagnosticLog, IgnoresAWriteThatFails) {
    const unsigned handles = HandleCount();
    {
        const ImportPatch patch(GetModuleHandleA(nullptr), "KERNEL32.dll", "WriteFile",
                                reinterpret_cast<void*>(WriteNothing));
        ASSERT_TRUE(patch);
        EXPECT_EQ(0, WriteLogEntry(false, 0, 0, 0, "lost"));
        WriteStampedLogEntry("lost");
    }
    EXPECT_EQ(handles, HandleCount());
    EXPECT_TRUE(IsLoggingEnabled());
    WriteLogEntry(false, 0, 0, 0, "kept");
    EXPECT_EQ("kept", Content());
}

TEST_F(DiagnosticLog, SharesItsFileWithAnotherThatReadsAndWrites) {
    const UniqueFile other(CreateFileA(path_.c_str(), GENERIC_READ | GENERIC_WRITE,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, CREATE_ALWAYS, 0,
                                       nullptr));
    ASSERT_TRUE(other);
    DWORD size = 0;
    WriteFile(other.Get(), "theirs ", 7, &size, nullptr);
    WriteLogEntry(false, 0, 0, 0, "ours");
    EXPECT_EQ("theirs ours", Content());
}

TEST_F(DiagnosticLog, ClosesItsFileAfterEachEntry) {
    WriteLogEntry(false, 0, 0, 0, "x");
    const unsigned before = HandleCount();
    for (int i = 0; i < 20; ++i)
        WriteLogEntry(false, 0, 0, 0, "x");
    EXPECT_EQ(before, HandleCount());
    EXPECT_TRUE(DeleteFileA(path_.c_str()));
}

TEST_F(DiagnosticLog, GoesToTheFileThatWasSetLast) {
    SetLogFile(folder_.Path() + "other");
    WriteLogEntry(false, 0, 0, 0, "text");
    EXPECT_EQ("", Content());
    EXPECT_EQ("text", folder_.Read("other"));
}

TEST_F(DiagnosticLog, EndsTheProcessAfterAFatalEntryWithoutAnyCleanUp) {
    const Ended ended = Write(path_, "fatal first second");
    EXPECT_EQ(minusOne, ended.exitCode);
    EXPECT_EQ("", ended.output);
    EXPECT_EQ("first\n", Content());
}

TEST_F(DiagnosticLog, EndsTheProcessThroughItsExitHandlersWhenTheFileCannotBeOpened) {
    folder_.MakeFolder("folder");
    for (const char* name : {"no such folder\\log", "folder", "nul?"}) {
        for (const char* kind : {"plain", "stamped", "fatal"}) {
            const Ended ended = Write(folder_.Path() + name, kind + " text"s);
            EXPECT_EQ(minusOne, ended.exitCode) << name << " " << kind;
            EXPECT_EQ("exit handlers ran\r\n", ended.output) << name << " " << kind;
        }
    }
}

TEST_F(DiagnosticLog, EndsTheProcessWhenAnotherHoldsTheFileAlone) {
    const UniqueFile held(
        CreateFileA(path_.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS, 0, nullptr));
    ASSERT_TRUE(held);
    EXPECT_EQ(minusOne, Write(path_, "plain text").exitCode);
}

TEST_F(DiagnosticLog, LeavesTheProcessAloneUntilAnEntryIsWrittenToAFileThatCannotBeOpened) {
    const Ended ended = Write(folder_.Path() + "no such folder\\log", "none text");
    EXPECT_EQ(0u, ended.exitCode);
    EXPECT_EQ("exit handlers ran\r\n", ended.output);
}

TEST_F(DiagnosticLog, LetsTheProcessGoOnAfterAnOrdinaryEntry) {
    const Ended ended = Write(path_, "plain one two");
    EXPECT_EQ(0u, ended.exitCode);
    EXPECT_EQ("entry written\r\nentry written\r\nexit handlers ran\r\n", ended.output);
    EXPECT_EQ("onetwo", Content());
}

}  // namespace
}  // namespace nux
