#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "framework/PixelGeometry.h"

namespace nux::webbrowser {

/// What a page looks like.
struct Picture {
    PixelSize size;
    std::vector<std::uint32_t>
        pixels;  ///< RGB from bit 16 down, the highest byte means nothing; rows from the top
};

/// Decodes a picture file of PNG format. Throws HResultError.
Picture DecodePicture(std::span<const std::uint8_t> file);

}  // namespace nux::webbrowser
