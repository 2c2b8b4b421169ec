#pragma once

#include <windows.h>

#include <initializer_list>

#include "framework/Handles.h"

namespace nux {

/// Width and height in pixels of the icons in lists and menus.
inline constexpr int smallIconSize = 16;

/// Loads an icon of the resource module at the size that the system shows in captions. Empty if there is
/// none.
UniqueIcon LoadCaptionIcon(UINT icon) noexcept;

/// An image list with these icons of the resource module, each at the index of its place; the place of an
/// icon that is missing stays blank. Empty if the platform refuses.
UniqueImageList LoadSmallIcons(std::initializer_list<UINT> icons) noexcept;

/// A picture of an icon of the resource module for a menu: 32 bits a pixel, with the transparency in the
/// fourth byte and the colours multiplied by it. Empty if there is no such icon or the platform refuses.
/// @param pale  half transparent, for an item that can't be chosen
UniqueBitmap LoadMenuPicture(UINT icon, bool pale) noexcept;
/// Draws such a picture, for a menu that doesn't heed its transparency.
void DrawMenuPicture(HBITMAP picture, HDC context, int x, int y) noexcept;

}  // namespace nux
