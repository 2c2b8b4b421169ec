#pragma once

#include <windows.h>

#include <initializer_list>

#include "framework/Handles.h"

namespace nux {

/// Width and height in pixels of the icons in captions, lists and menus.
inline constexpr int smallIconSize = 16;

/// Loads an icon of the resource module at the small size. Empty if there is none.
UniqueIcon LoadSmallIcon(UINT icon) noexcept;

/// An image list with these icons of the resource module, each at the index of its place; the place of an
/// icon that is missing stays blank. Empty if the platform refuses.
UniqueImageList LoadSmallIcons(std::initializer_list<UINT> icons) noexcept;

}  // namespace nux
