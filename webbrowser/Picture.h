#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "framework/PixelGeometry.h"

namespace nux::webbrowser {

/// What a page looks like.
struct Picture {
    PixelSize size;
    std::vector<std::uint32_t> pixels;  ///< 0x00RRGGBB, rows from the top, `size.width` each
};

/// Decodes a picture file of PNG format. Throws HResultError.
Picture DecodePicture(std::span<const std::uint8_t> file);

}  // namespace nux::webbrowser
