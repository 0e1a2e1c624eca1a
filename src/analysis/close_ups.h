// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "base/geometry.h"
#include "imaging/raster.h"

namespace morva {

/// The photo at any size up to that of its pixels, from which only a part is ever made.
struct CloseUps {
    /// Longer side of the photo at its finest, pixels.
    int finestSide = 0;
    /// Size of the whole photo when its longer side has `longestSide` pixels.
    std::function<Size(int longestSide)> size;
    /// The pixels [x, x + width) x [y, y + height) of that; always asked for inside it.
    std::function<Picture(int longestSide, int x, int y, int width, int height)> cut;
};

}  // namespace morva
