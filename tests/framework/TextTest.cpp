#include "framework/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace nux {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr UINT western = 1252;
constexpr UINT japanese = 932;

std::wstring_view View(const Bstr& text) {
    return {text.Get(), text.Length()};
}

TEST(Bstr, IsNullByDefaultAndReadsAsEmpty) {
    const Bstr none;
    EXPECT_FALSE(none);
    EXPECT_EQ(nullptr, none.Get());
    EXPECT_EQ(0u, none.Length());
}

TEST(Bstr, OfAnEmptyTextIsNotNull) {
    const Bstr empty(L""sv);
    EXPECT_TRUE(empty);
    EXPECT_EQ(0u, empty.Length());
}

TEST(Bstr, CopiesItsTextWithZerosInside) {
    const Bstr text(L"a\0b"sv);
    EXPECT_EQ(L"a\0b"sv, View(text));
}

TEST(Bstr, WidensFromTheCodePageThatIsTold) {
    EXPECT_EQ(L"Größe"sv, View(Bstr("Gr\xF6\xDF"
                                    "e",
                                    western)));
    EXPECT_EQ(L"\x8868\x793A"sv, View(Bstr("\x95\x5C\x8E\xA6", japanese)));
}

TEST(Bstr, GivesItsTextAwayWhenItIsMoved) {
    Bstr first(L"text"sv);
    Bstr second(std::move(first));
    EXPECT_FALSE(first);
    EXPECT_EQ(L"text"sv, View(second));
    Bstr third;
    third = std::move(second);
    EXPECT_EQ(L"text"sv, View(third));
}

TEST(Bstr, GivesUpItsTextWhenItIsDetached) {
    Bstr text(L"text"sv);
    BSTR raw = text.Detach();
    EXPECT_FALSE(text);
    EXPECT_STREQ(L"text", raw);
    SysFreeString(raw);
}

TEST(Bstr, IsEmptiedBeforeItReceives) {
    Bstr text(L"old"sv);
    BSTR* slot = text.Receive();
    EXPECT_EQ(nullptr, *slot);
    *slot = SysAllocString(L"new");
    EXPECT_EQ(L"new"sv, View(text));
}

TEST(Narrow, ReadsANullStringAsEmpty) {
    EXPECT_EQ("", Narrow(static_cast<BSTR>(nullptr)));
    EXPECT_EQ("", Narrow(static_cast<const wchar_t*>(nullptr), 0));
}

TEST(Narrow, KeepsEachUmlautAsOneByteOfTheWesternCodePage) {
    EXPECT_EQ("\xC4\xD6\xDC\xE4\xF6\xFC\xDF\x80", Narrow(L"ÄÖÜäöüß€", 8, western));
}

TEST(Narrow, TakesTheDefaultCharacterForOneThatTheCodePageLacks) {
    EXPECT_EQ("a?b", Narrow(L"a\x8868"
                            L"b",
                            3, western));
    EXPECT_EQ("a??b", Narrow(L"a\xD83D\xDE00"
                             L"b",
                             4, western));
}

TEST(Narrow, MakesTwoBytesOfADoubleByteCharacter) {
    EXPECT_EQ("\x95\x5C\x8E\xA6", Narrow(L"\x8868\x793A", 2, japanese));
    EXPECT_EQ("\xB1\xB2", Narrow(L"\xFF71\xFF72", 2, japanese));
}

TEST(Narrow, FindsRoomForTheLongestFormThatACodePageHas) {
    EXPECT_EQ("\xE2\x82\xAC\xE2\x82\xAC", Narrow(L"€€", 2, CP_UTF8));
}

TEST(Narrow, KeepsZerosInside) {
    EXPECT_EQ("a\0b"s, Narrow(L"a\0b", 3, western));
    const Bstr text(L"a\0b"sv);
    EXPECT_EQ("a\0b"s, Narrow(text.Get(), western));
}

TEST(Narrow, TakesALongTextWhole) {
    const std::size_t length = 3'000'000;
    EXPECT_EQ(std::string(length, '\xFC'), Narrow(std::wstring(length, L'ü').c_str(), length, western));
}

TEST(Widen, OfAnEmptyTextIsEmpty) {
    EXPECT_EQ(L"", Widen(""));
}

TEST(Widen, IsTheReverseOfNarrow) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    const std::wstring wide = Widen(all, western);
    EXPECT_EQ(256u, wide.size());
    EXPECT_EQ(all, Narrow(wide.data(), wide.size(), western));
    EXPECT_EQ(
        L"\x8868\xFF71"
        L"a",
        Widen("\x95\x5C\xB1"
              "a",
              japanese));
}

TEST(Widen, TakesALongTextWhole) {
    const std::size_t length = 3'000'000;
    EXPECT_EQ(std::wstring(length, L'ü'), Widen(std::string(length, '\xFC'), western));
}

TEST(ReplaceString, FreesTheOldStringAndGivesTheNew) {
    Bstr text(L"old and long"sv);
    BSTR raw = text.Detach();
    ReplaceString(&raw, "new");
    EXPECT_STREQ(L"new", raw);
    EXPECT_EQ(3u, SysStringLen(raw));
    SysFreeString(raw);
}

TEST(ReplaceString, TakesAVariableThatIsStillNull) {
    BSTR raw = nullptr;
    ReplaceString(&raw, "text");
    EXPECT_STREQ(L"text", raw);
    SysFreeString(raw);
}

TEST(ReplaceString, GivesAnEmptyTextAsAnEmptyString) {
    BSTR raw = SysAllocString(L"old");
    ReplaceString(&raw, "");
    ASSERT_NE(nullptr, raw);
    EXPECT_EQ(0u, SysStringLen(raw));
    SysFreeString(raw);
}

TEST(ReplaceString, WidensFromTheCodePageOfTheSystem) {
    BSTR raw = nullptr;
    ReplaceString(&raw, "\xFC");
    wchar_t expected = 0;
    MultiByteToWideChar(CP_ACP, 0, "\xFC", 1, &expected, 1);
    EXPECT_EQ(std::wstring(1, expected), raw);
    SysFreeString(raw);
}

}  // namespace
}  // namespace nux
