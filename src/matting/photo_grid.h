// SPDX-License-Identifier: GPL-3.0-or-later
// A part of a picture, reduced to the scale at which matting calculates. Used inside this room
// only.
#pragma once

#include <opencv2/core.hpp>

#include "base/geometry.h"
#include "imaging/raster.h"

namespace morva {

struct PhotoGrid {
    /// What the grid covers, in pixels of the picture.
    Rect place;
    /// Reduced by area, never enlarged; 8 bits, red, green, blue.
    Picture picture;
    /// The same as floats from 0 to 1.
    cv::Mat colours;
    /// The face unit in cells of the grid.
    double unit = 0;

    int width() const { return colours.cols; }
    int height() const { return colours.rows; }
    /// The middle of a cell in the picture.
    Point toPicture(int x, int y) const;

    /// The part of `picture` inside `place` with a unit of at most `wantedUnit` cells and at most
    /// `longestSide` cells on its longer side. `unit` is the face unit in pixels of `picture`.
    static PhotoGrid reduced(const Picture& picture, const Rect& place, double unit,
                             double wantedUnit, int longestSide);
};

/// `values` of `extent` (pixels of the picture), bilinear at each cell of `grid`; beyond the extent
/// its border repeats. One channel of floats.
cv::Mat onGrid(const PhotoGrid& grid, const cv::Mat& values, const Rect& extent);

}  // namespace morva
