#include "framework/Icons.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "driver/Canvas.h"
#include "tests/framework/resource.h"

namespace nux {
namespace {

constexpr COLORREF paper = RGB(200, 100, 50);

driver::Picture Drawn(HBITMAP picture) {
    const driver::Canvas canvas(smallIconSize, smallIconSize, paper);
    DrawMenuPicture(picture, canvas.Context(), 0, 0);
    return canvas.Drawn();
}

TEST(MenuPicture, ShowsTheIconOnAnyBackground) {
    const UniqueBitmap picture = LoadMenuPicture(IDI_SAMPLE, false);
    ASSERT_TRUE(picture);
    EXPECT_TRUE(driver::ContainsNearly(Drawn(picture.Get()), driver::IconResource(IDI_SAMPLE, paper), 2));
}

TEST(MenuPicture, IsHalfTransparentIfPale) {
    const UniqueBitmap picture = LoadMenuPicture(IDI_SAMPLE, true);
    driver::Picture pale = driver::IconResource(IDI_SAMPLE, paper);
    for (COLORREF& pixel : pale.pixels)
        pixel = RGB((GetRValue(pixel) + GetRValue(paper)) / 2, (GetGValue(pixel) + GetGValue(paper)) / 2,
                    (GetBValue(pixel) + GetBValue(paper)) / 2);
    EXPECT_TRUE(driver::ContainsNearly(Drawn(picture.Get()), pale, 3));
}

TEST(MenuPicture, HasItsColoursMultipliedByItsTransparency) {
    const UniqueBitmap picture = LoadMenuPicture(IDI_SAMPLE, false);
    DIBSECTION memory{};
    ASSERT_EQ(GetObjectA(picture.Get(), sizeof memory, &memory), static_cast<int>(sizeof memory));
    ASSERT_EQ(32, memory.dsBm.bmBitsPixel);
    const auto* bytes = static_cast<const BYTE*>(memory.dsBm.bmBits);
    int transparent = 0, opaque = 0;
    for (int i = 0; i < smallIconSize * smallIconSize; ++i, bytes += 4) {
        EXPECT_LE(std::max({bytes[0], bytes[1], bytes[2]}), bytes[3]) << i;
        transparent += bytes[3] == 0;
        opaque += bytes[3] == 255;
    }
    EXPECT_GT(transparent, 20);
    EXPECT_GT(opaque, 20);
}

TEST(MenuPicture, OfAnIconThatIsMissingIsNone) {
    EXPECT_FALSE(LoadMenuPicture(9999, false));
}

TEST(CaptionIcon, HasTheSizeThatTheSystemShows) {
    const UniqueIcon icon = LoadCaptionIcon(IDI_SAMPLE);
    ICONINFO parts{};
    ASSERT_TRUE(GetIconInfo(icon.Get(), &parts));
    const UniqueBitmap colours(parts.hbmColor), mask(parts.hbmMask);
    BITMAP bitmap{};
    GetObjectA(colours.Get(), sizeof bitmap, &bitmap);
    EXPECT_EQ(bitmap.bmWidth, GetSystemMetrics(SM_CXSMICON));
    EXPECT_EQ(bitmap.bmHeight, GetSystemMetrics(SM_CYSMICON));
}

}  // namespace
}  // namespace nux
