#include "driver/Picture.h"

#include <fstream>
#include <utility>

#include "driver/Application.h"
#include "driver/Canvas.h"
#include "driver/Waiting.h"

namespace driver {
namespace {

BOOL CALLBACK Paint(HWND window, LPARAM) {
    if (IsWindowVisible(window))
        RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    return TRUE;
}

void PaintAll() {
    EnumWindows(Paint, 0);
    GdiFlush();
}

}  // namespace

int Picture::Count(const RECT& part, COLORREF colour) const {
    int count = 0;
    for (int y = part.top; y < part.bottom; ++y)
        for (int x = part.left; x < part.right; ++x)
            count += At(x, y) == colour;
    return count;
}

Picture TakePicture(const RECT& screen) {
    PaintAll();
    const int width = screen.right - screen.left;
    const int height = screen.bottom - screen.top;
    const Canvas canvas(width, height, 0);
    const HDC source = GetDC(nullptr);
    BitBlt(canvas.Context(), 0, 0, width, height, source, screen.left, screen.top, SRCCOPY);
    ReleaseDC(nullptr, source);
    return canvas.Drawn();
}

Picture TakePicture(HWND window) {
    RECT bounds{};
    GetWindowRect(window, &bounds);
    return TakePicture(bounds);
}

Picture TakePictureAtRest(const RECT& screen) {
    constexpr ULONGLONG rest = 300;  // milliseconds
    Picture picture = TakePicture(screen);
    ULONGLONG since = GetTickCount64();
    WaitFor("a picture that stays the same", [&] {
        Picture now = TakePicture(screen);
        if (now.pixels != picture.pixels) {
            picture = std::move(now);
            since = GetTickCount64();
        }
        return GetTickCount64() - since >= rest;
    });
    return picture;
}

void SavePicture(const Picture& picture, const std::string& path) {
    const int rowBytes = (picture.width * 3 + 3) / 4 * 4;
    BITMAPINFOHEADER format{};
    format.biSize = sizeof format;
    format.biWidth = picture.width;
    format.biHeight = picture.height;
    format.biPlanes = 1;
    format.biBitCount = 24;
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof file + sizeof format;
    file.bfSize = file.bfOffBits + rowBytes * picture.height;
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(&file), sizeof file);
    out.write(reinterpret_cast<const char*>(&format), sizeof format);
    std::string row(rowBytes, '\0');
    for (int y = picture.height - 1; y >= 0; --y) {
        for (int x = 0; x < picture.width; ++x) {
            const COLORREF colour = picture.At(x, y);
            row[3 * x] = static_cast<char>(GetBValue(colour));
            row[3 * x + 1] = static_cast<char>(GetGValue(colour));
            row[3 * x + 2] = static_cast<char>(GetRValue(colour));
        }
        out.write(row.data(), rowBytes);
    }
    if (!out.flush())
        throw NotSeen("a picture to be written to " + path);
}

}  // namespace driver
