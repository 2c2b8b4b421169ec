#include "driver/Canvas.h"

#include <algorithm>
#include <cstdlib>

namespace driver {
namespace {

constexpr int iconSize = 16;

}  // namespace

Canvas::Canvas(int width, int height, COLORREF background)
    : width_(width), height_(height), context_(CreateCompatibleDC(nullptr)) {
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = width;
    format.bmiHeader.biHeight = -height;  // from the top
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    bitmap_ = CreateDIBSection(context_, &format, DIB_RGB_COLORS, &bits_, nullptr, 0);
    old_ = SelectObject(context_, bitmap_);
    const RECT whole{0, 0, width, height};
    const HBRUSH brush = CreateSolidBrush(background);
    FillRect(context_, &whole, brush);
    DeleteObject(brush);
}

Canvas::~Canvas() {
    SelectObject(context_, old_);
    DeleteObject(bitmap_);
    DeleteDC(context_);
}

Picture Canvas::Drawn() const {
    GdiFlush();
    Picture picture;
    picture.width = width_;
    picture.height = height_;
    picture.pixels.resize(static_cast<std::size_t>(width_) * height_);
    const auto* values = static_cast<const std::uint32_t*>(bits_);
    std::transform(values, values + picture.pixels.size(), picture.pixels.begin(), [](std::uint32_t value) {
        return RGB(value >> 16 & 0xFF, value >> 8 & 0xFF, value & 0xFF);
    });
    return picture;
}

Picture IconResource(int id, COLORREF background) {
    const auto icon = static_cast<HICON>(LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(id),
                                                    IMAGE_ICON, iconSize, iconSize, LR_DEFAULTCOLOR));
    const Picture picture = DrawnIcon(icon, background);
    DestroyIcon(icon);
    return picture;
}

Picture DrawnIcon(HICON icon, COLORREF background) {
    const Canvas canvas(iconSize, iconSize, background);
    DrawIconEx(canvas.Context(), 0, 0, icon, 0, 0, 0, nullptr, DI_NORMAL);
    return canvas.Drawn();
}

Picture DrawnImage(HIMAGELIST images, int index, COLORREF background) {
    const Canvas canvas(iconSize, iconSize, background);
    ImageList_Draw(images, index, canvas.Context(), 0, 0, ILD_TRANSPARENT);
    return canvas.Drawn();
}

bool Contains(const Picture& picture, const Picture& part) {
    return ContainsNearly(picture, part, 0);
}

bool ContainsNearly(const Picture& picture, const Picture& part, int difference) {
    const auto isNear = [&](int one, int other) { return std::abs(one - other) <= difference; };
    const auto alike = [&](COLORREF one, COLORREF other) {
        return isNear(GetRValue(one), GetRValue(other)) && isNear(GetGValue(one), GetGValue(other)) &&
               isNear(GetBValue(one), GetBValue(other));
    };
    const auto standsAt = [&](int left, int top) {
        for (int y = 0; y < part.height; ++y)
            for (int x = 0; x < part.width; ++x)
                if (!alike(picture.At(left + x, top + y), part.At(x, y)))
                    return false;
        return true;
    };
    for (int top = 0; top + part.height <= picture.height; ++top)
        for (int left = 0; left + part.width <= picture.width; ++left)
            if (standsAt(left, top))
                return true;
    return false;
}

}  // namespace driver
