#include "webbrowser/KeyNames.h"

#include <gtest/gtest.h>

namespace nux::webbrowser {
namespace {

TEST(KeyNames, AreThoseOfPages) {
    EXPECT_EQ("KeyA", KeyNameOf('A', false).code);
    EXPECT_EQ("Digit1", KeyNameOf('1', false).code);
    EXPECT_EQ("F12", KeyNameOf(0x7b, false).key);
    EXPECT_EQ("Tab", KeyNameOf(0x09, false).key);
    EXPECT_EQ("", KeyNameOf(0xff, false).code);
}

TEST(KeyNames, TellKeysOfTheSameMeaningApart) {
    EXPECT_EQ("ControlLeft", KeyNameOf(0x11, false).code);
    EXPECT_EQ("ControlRight", KeyNameOf(0x11, true).code);
    EXPECT_EQ("NumpadEnter", KeyNameOf(0x0d, true).code);
    EXPECT_EQ("Enter", KeyNameOf(0x0d, false).code);
    EXPECT_EQ(3, KeyNameOf(0x25, false).location);
    EXPECT_EQ(0, KeyNameOf(0x25, true).location);
    EXPECT_EQ(3, KeyNameOf(0x60, false).location);
}

}  // namespace
}  // namespace nux::webbrowser
