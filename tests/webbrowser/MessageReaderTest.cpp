#include "webbrowser/MessageReader.h"

#include <gtest/gtest.h>

namespace nux::webbrowser {
namespace {

TEST(MessageReader, CutsMessagesAtTheirEnds) {
    MessageReader reader;
    EXPECT_TRUE(reader.Append(std::string_view("one\0two\0th", 10)));
    EXPECT_EQ("one", reader.Next());
    EXPECT_EQ("two", reader.Next());
    EXPECT_EQ(std::nullopt, reader.Next());
    EXPECT_TRUE(reader.Append(std::string_view("ree\0\0", 5)));
    EXPECT_EQ("three", reader.Next());
    EXPECT_EQ("", reader.Next());
    EXPECT_EQ(std::nullopt, reader.Next());
}

TEST(MessageReader, PutsAMessageOfManyPiecesTogether) {
    MessageReader reader;
    for (int i = 0; i < 1000; ++i) {
        EXPECT_TRUE(reader.Append("x"));
        EXPECT_EQ(std::nullopt, reader.Next());
    }
    EXPECT_TRUE(reader.Append(std::string_view("\0", 1)));
    EXPECT_EQ(std::string(1000, 'x'), reader.Next());
}

TEST(MessageReader, RefusesAMessageWithoutAnEnd) {
    MessageReader reader;
    const std::string piece(std::size_t{16} << 20, 'x');
    for (std::size_t size = piece.size(); size <= MessageReader::longest; size += piece.size())
        EXPECT_TRUE(reader.Append(piece));
    EXPECT_FALSE(reader.Append(piece));
    EXPECT_FALSE(reader.Append(std::string_view("\0", 1)));
    EXPECT_EQ(std::nullopt, reader.Next());
}

}  // namespace
}  // namespace nux::webbrowser
