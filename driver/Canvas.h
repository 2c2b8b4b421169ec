#pragma once

#include <windows.h>

#include <commctrl.h>

#include "driver/Picture.h"

namespace driver {

/// A bitmap to draw on, to tell what a picture of the screen should show.
class Canvas {
public:
    Canvas(int width, int height, COLORREF background);
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas();

    HDC Context() const { return context_; }
    /// What has been drawn.
    Picture Drawn() const;

private:
    int width_;
    int height_;
    HDC context_;
    HBITMAP bitmap_;
    HGDIOBJ old_;
    void* bits_ = nullptr;
};

/// An icon of this program's resources at the size of 16 by 16 pixels, drawn on a background.
Picture IconResource(int id, COLORREF background);
/// The same for an icon that a window shows, and for an image of a list.
Picture DrawnIcon(HICON icon, COLORREF background);
Picture DrawnImage(HIMAGELIST images, int index, COLORREF background);

/// Whether all pixels of `part` stand somewhere in the picture.
bool Contains(const Picture& picture, const Picture& part);
/// The same, where each part of a colour may differ by so much.
bool ContainsNearly(const Picture& picture, const Picture& part, int difference);

}  // namespace driver
