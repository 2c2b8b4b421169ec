#include "webbrowser/Base64.h"

#include <gtest/gtest.h>

namespace nux::webbrowser {
namespace {

TEST(Base64, WritesEachLength) {
    EXPECT_EQ("", EncodeBase64(""));
    EXPECT_EQ("Zg==", EncodeBase64("f"));
    EXPECT_EQ("Zm8=", EncodeBase64("fo"));
    EXPECT_EQ("Zm9v", EncodeBase64("foo"));
    EXPECT_EQ("AP//", EncodeBase64(std::string_view("\0\xff\xff", 3)));
}

TEST(Base64, ReadsWhatItWrites) {
    for (std::size_t length = 0; length < 100; ++length) {
        std::string bytes;
        for (std::size_t i = 0; i < length; ++i)
            bytes += static_cast<char>(i * 37 + length);
        const auto read = DecodeBase64(EncodeBase64(bytes));
        ASSERT_TRUE(read);
        EXPECT_EQ(bytes, std::string(read->begin(), read->end()));
    }
}

TEST(Base64, RefusesWhatItDoesNotWrite) {
    for (const char* text : {"Zg=", "Z===", "====", "Zg==Zg==", "Zm9*", "Zm9v\n", "Z"})
        EXPECT_FALSE(DecodeBase64(text)) << text;
}

}  // namespace
}  // namespace nux::webbrowser
