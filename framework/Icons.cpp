#include "framework/Icons.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "framework/Drawing.h"
#include "framework/Module.h"

namespace nux {
namespace {

UniqueIcon LoadIconOfSize(UINT icon, int width, int height) noexcept {
    return UniqueIcon(static_cast<HICON>(
        LoadImageA(ResourceModule(), MAKEINTRESOURCEA(icon), IMAGE_ICON, width, height, LR_DEFAULTCOLOR)));
}

UniqueIcon LoadSmallIcon(UINT icon) noexcept {
    return LoadIconOfSize(icon, smallIconSize, smallIconSize);
}

/// The colours of a pixel and its transparency, in the order of a bitmap with 32 bits a pixel.
struct Pixel {
    std::uint8_t blue, green, red, alpha;
};

constexpr std::size_t pixelCount = smallIconSize * smallIconSize;

/// A bitmap of the size of a small icon. `pixels` receives its memory, which goes with it.
UniqueBitmap MakeBitmap(Pixel*& pixels) noexcept {
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = smallIconSize;
    format.bmiHeader.biHeight = smallIconSize;
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    void* memory = nullptr;
    UniqueBitmap bitmap(CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &memory, nullptr, 0));
    pixels = static_cast<Pixel*>(memory);
    return bitmap;
}

void DrawOn(HBITMAP bitmap, Pixel* pixels, HDC context, HICON icon, std::uint8_t background) noexcept {
    std::fill_n(pixels, pixelCount, Pixel{background, background, background, 0});
    const Selection selected(context, bitmap);
    DrawIconEx(context, 0, 0, icon, smallIconSize, smallIconSize, 0, nullptr, DI_NORMAL);
    GdiFlush();
}

}  // namespace

UniqueIcon LoadCaptionIcon(UINT icon) noexcept {
    return LoadIconOfSize(icon, GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON));
}

UniqueImageList LoadSmallIcons(std::initializer_list<UINT> icons) noexcept {
    const int count = static_cast<int>(icons.size());
    // Without a colour depth of its own the list would reduce the icons to 16 colours.
    UniqueImageList images(ImageList_Create(smallIconSize, smallIconSize, ILC_COLOR32 | ILC_MASK, count, 0));
    if (!images)
        return images;
    ImageList_SetImageCount(images.Get(), count);
    int index = 0;
    for (const UINT icon : icons)
        ImageList_ReplaceIcon(images.Get(), index++, LoadSmallIcon(icon).Get());
    return images;
}

UniqueBitmap LoadMenuPicture(UINT icon, bool pale) noexcept {
    const UniqueIcon loaded = LoadSmallIcon(icon);
    const UniqueMemoryContext context(CreateCompatibleDC(nullptr));
    Pixel* pixels = nullptr;
    UniqueBitmap bitmap = MakeBitmap(pixels);
    if (!loaded || !context || !bitmap)
        return {};
    // What an icon covers of a background is how much of the background's brightness is gone. That holds for
    // every kind of icon: with transparency of its own, or with a mask.
    DrawOn(bitmap.Get(), pixels, context.Get(), loaded.Get(), 255);
    std::array<Pixel, pixelCount> onWhite;
    std::copy_n(pixels, pixelCount, onWhite.begin());
    DrawOn(bitmap.Get(), pixels, context.Get(), loaded.Get(), 0);
    for (std::size_t i = 0; i < pixelCount; ++i) {
        Pixel& pixel = pixels[i];
        const int shining = std::max(
            {onWhite[i].blue - pixel.blue, onWhite[i].green - pixel.green, onWhite[i].red - pixel.red, 0});
        pixel.alpha = static_cast<std::uint8_t>(255 - shining);
        if (pale)
            pixel = {static_cast<std::uint8_t>(pixel.blue / 2), static_cast<std::uint8_t>(pixel.green / 2),
                     static_cast<std::uint8_t>(pixel.red / 2), static_cast<std::uint8_t>(pixel.alpha / 2)};
    }
    return bitmap;
}

void DrawMenuPicture(HBITMAP picture, HDC context, int x, int y) noexcept {
    const UniqueMemoryContext source(CreateCompatibleDC(context));
    if (!source)
        return;
    const Selection selected(source.Get(), picture);
    GdiAlphaBlend(context, x, y, smallIconSize, smallIconSize, source.Get(), 0, 0, smallIconSize,
                  smallIconSize, {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
}

}  // namespace nux
