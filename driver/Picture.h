#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace driver {

/// Pixels of the screen, row by row from the top.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<COLORREF> pixels;

    COLORREF At(int x, int y) const { return pixels[static_cast<std::size_t>(y) * width + x]; }
    /// How many pixels of the rectangle, in pixels of the picture, have this colour.
    int Count(const RECT& part, COLORREF colour) const;
    bool operator==(const Picture&) const = default;
};

/// What the screen shows in a rectangle of screen pixels, whatever windows are there. What is not painted yet
/// is painted first.
Picture TakePicture(const RECT& screen);
/// The same for a window with its frame; what covers it is in the picture too.
Picture TakePicture(HWND window);

/// The same once it has stayed unchanged for a third of a second: windows of other processes and threads
/// paint when they come to it. Throws NotSeen.
Picture TakePictureAtRest(const RECT& screen);

/// Writes a 24-bit BMP file. Throws NotSeen if that fails.
void SavePicture(const Picture& picture, const std::string& path);

}  // namespace driver
