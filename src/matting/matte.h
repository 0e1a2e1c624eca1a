// SPDX-License-Identifier: GPL-3.0-or-later
// A child cut out of a photo: how much of each pixel it covers, and what is needed to take the old
// backdrop out of the pixels it covers in part. Made by `Matting::matte`, used by the replacement
// of backdrops; holds no pixel of the photo itself.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "base/geometry.h"
#include "imaging/raster.h"

namespace morva {

/// Colours of the child and of its backdrop near each place, on a coarse grid stretched over a
/// picture. They are good near the outline, where both are near, and mean little elsewhere.
struct OutlineColours {
    struct Cell {
        /// 0 to 1, in the picture's own colour space.
        std::array<float, 3> child{};
        std::array<float, 3> backdrop{};
        /// Mean squared error of `backdrop`: how textured the backdrop is.
        float backdropVariance = 0;
    };
    /// Part of the picture that the grid covers, in pixels of the picture.
    Rect extent;
    int width = 0;
    int height = 0;
    std::vector<Cell> cells;
};

struct Matte {
    /// As large as the picture; 255 where there is only the child.
    Mask alpha;
    /// The lowest line of the child, in pixels of the picture; may lie outside the picture.
    std::optional<double> feetLine;
    OutlineColours colours;
};

}  // namespace morva
