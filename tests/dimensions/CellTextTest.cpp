#include "dimensions/CellText.h"

#include <gtest/gtest.h>

#include "tests/dimensions/DimensionChooserFixture.h"

namespace nux {
namespace {

std::string TextOf(std::wstring_view wide) {
    CellText text;
    text.Assign(wide);
    return std::string(text.View());
}

TEST(CellText, IsTheFirst127BytesOfAValue) {
    EXPECT_EQ("12.50", TextOf(L"12.50"));
    EXPECT_EQ(std::string(127, 'x'), TextOf(std::wstring(127, L'x') + L"y"));
}

TEST(CellText, IsInTheCodePage) {
    if (DoubleByteCodePage())
        GTEST_SKIP() << "code page 932 has no umlauts";
    EXPECT_EQ(
        "Gr\xF6\xDF"
        "e \x80",
        TextOf(L"Gr\u00F6\u00DFe \u20AC"));
    EXPECT_EQ(std::string(127, '\xF6'), TextOf(std::wstring(200, L'\u00F6')));
}

TEST(CellText, EndsBeforeADoubleByteCharacterThatWouldBeCutApart) {
    if (!DoubleByteCodePage())
        GTEST_SKIP() << "needs a code page of double-byte characters";
    const std::wstring wide(200, L'\u8868');
    EXPECT_EQ(TextOf(wide), TextOf(wide.substr(0, 63)));
    EXPECT_EQ(126u, TextOf(wide).size());
    EXPECT_EQ(127u, TextOf(L"x" + wide).size());
}

TEST(CellText, OfAValueThatIsNoStringIsEmpty) {
    CellText text;
    text.Assign(L"old");
    Variant number;
    number.SetNumber(12);
    text.Assign(number);
    EXPECT_EQ("", text.View());
}

}  // namespace
}  // namespace nux
