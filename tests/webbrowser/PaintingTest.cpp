#include <gtest/gtest.h>

#include "tests/webbrowser/OpenedPage.h"

namespace nux::webbrowser {
namespace {

/// The colour of a pixel of what was painted last, 0xffffffff where nothing was.
std::uint32_t ColourAt(const OpenedPage& page, int x, int y) {
    if (!page.picture || x >= page.picture->size.width || y >= page.picture->size.height)
        return 0xffffffff;
    return page.picture->pixels[static_cast<std::size_t>(y) * page.picture->size.width + x] & 0xffffff;
}

TEST(Painting, ShowsThePageInItsSize) {
    OpenedPage page({200, 100});
    page.Show(
        "<body style='margin:0; background:#fff'><div style='width:50px; height:20px; background:#123456'>");
    EXPECT_TRUE(page.Await([&] { return ColourAt(page, 10, 10) == 0x123456; }));
    EXPECT_EQ((PixelSize{200, 100}), page.picture->size);
    EXPECT_EQ(0x123456U, ColourAt(page, 49, 19));
    EXPECT_EQ(0xffffffU, ColourAt(page, 50, 19));
    EXPECT_EQ(0xffffffU, ColourAt(page, 49, 20));
    EXPECT_EQ(page.picture, page->LastPicture());
    EXPECT_EQ(L"200 100", page.Text(L"innerWidth + ' ' + innerHeight"));
}

TEST(Painting, FollowsEachChange) {
    OpenedPage page;
    page.Show("<body style='background:#fff'>");
    for (const auto& [name, colour] :
         {std::pair(L"red", 0xff0000U), {L"lime", 0x00ff00U}, {L"blue", 0x0000ffU}}) {
        page->Execute(L"document.body.style.background = '" + std::wstring(name) + L"'");
        EXPECT_TRUE(page.Await([&] { return ColourAt(page, 10, 10) == colour; }));
    }
}

TEST(Painting, EndsAtTheLastSizeOfMany) {
    OpenedPage page({300, 300});
    page.Show("<body style='margin:0; background:#123456'>");
    for (int width = 301; width <= 340; ++width) {
        page->Resize({width, 200});
        page.Await([pumped = false]() mutable { return std::exchange(pumped, true); });
    }
    EXPECT_TRUE(page.Await([&] { return page.picture && page.picture->size == PixelSize{340, 200}; }));
    EXPECT_EQ(0x123456U, ColourAt(page, 339, 199));
}

TEST(Painting, RestsWhileThePageCantBeSeen) {
    OpenedPage page;
    page.Show("<body style='background:red'>");
    ASSERT_TRUE(page.Await([&] { return ColourAt(page, 10, 10) == 0xff0000; }));
    page->SetVisible(false);
    page.Text(L"1");  // what was painted before that has come
    const auto last = page.picture;
    page->Execute(
        L"var done = false; document.body.style.background = 'lime'; setTimeout(() => done = true, 300); 1");
    EXPECT_TRUE(page.Await([&] { return page.Text(L"done") == L"true"; }));
    EXPECT_EQ(last, page.picture);
    page->SetVisible(true);
    EXPECT_TRUE(page.Await([&] { return ColourAt(page, 10, 10) == 0x00ff00; }));
}

}  // namespace
}  // namespace nux::webbrowser
