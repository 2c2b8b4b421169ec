#include "dimensions/nuxQFWindowMessageFilter.h"

#include <gtest/gtest.h>

namespace nux {
namespace {

TEST(nuxQFWindowMessageFilter, KeepsTheMessagesFromAllWindowsButItsThree) {
    const auto window = [](LONG_PTR number) { return reinterpret_cast<HWND>(number); };
    nuxQFWindowMessageFilter filter({window(1), window(2), window(3)});
    struct {
        LONG_PTR window;
        bool kept;
    } const cases[] = {{0, false}, {1, false}, {2, false}, {3, false}, {4, true}, {-1, true}};
    for (const auto& [number, kept] : cases) {
        for (const UINT message : {WM_MOUSEMOVE, WM_RBUTTONUP, WM_NULL, WM_QUIT}) {
            MSG posted{};
            posted.hwnd = window(number);
            posted.message = message;
            EXPECT_EQ(filter.PreTranslateMessage(posted), kept) << number << " " << message;
        }
    }
}

}  // namespace
}  // namespace nux
