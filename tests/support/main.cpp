// Start of every test program of the window and COM code: one apartment for the whole run, and no live object
// left behind by any test.

#include <windows.h>

#include <gtest/gtest.h>
#include <ole2.h>

#include "framework/Module.h"

namespace {

class NothingLeftAlive : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { before_ = nux::LiveObjects(); }
    void OnTestEnd(const testing::TestInfo&) override {
        EXPECT_EQ(before_, nux::LiveObjects()) << "live objects left behind";
    }
    long before_ = 0;
};

}  // namespace

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    nux::SetThisModule(GetModuleHandleA(nullptr));
    OleInitialize(nullptr);
    testing::UnitTest::GetInstance()->listeners().Append(new NothingLeftAlive);
    const int result = RUN_ALL_TESTS();
    OleUninitialize();
    return result;
}
