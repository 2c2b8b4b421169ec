// What holds in a process that has just started, and how one ends.

#include <windows.h>

#include <gtest/gtest.h>

#include "framework/Handles.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TempFolder.h"

namespace nux {
namespace {

TEST(FreshProcess, HasNoDecimalSeparatorBeforeTheStart) {
    const Ended ended = RunProgram("fresh_process", "separators");
    EXPECT_EQ(0u, ended.exitCode);
    EXPECT_EQ("separators: 0\r\n", ended.output);
}

TEST(FreshProcess, EndsAtALogThatOthersForbidToRead) {
    const TempFolder folder;
    const std::string log = folder.Write("log", "before");
    const std::string entry = "log \"" + log + "\" plain text";
    {
        const UniqueFile held(
            CreateFileA(log.c_str(), GENERIC_WRITE, FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(held);
        EXPECT_EQ(0xffffffffu, RunProgram("fresh_process", entry).exitCode);
    }
    EXPECT_EQ("before", folder.Read("log"));
    EXPECT_EQ(0u, RunProgram("fresh_process", entry).exitCode);
    EXPECT_EQ("beforetext", folder.Read("log"));
}

}  // namespace
}  // namespace nux
