// SPDX-License-Identifier: GPL-3.0-or-later
// A matte calculated on a small grid, ready to be read at the picture's full size, row by row.
// Used inside this room only.
#pragma once

#include <span>

#include <opencv2/core.hpp>

#include "imaging/raster.h"
#include "matting/photo_grid.h"

namespace morva {

struct MatteLayer {
    /// What the grid covers, in pixels of the picture.
    Rect place;
    /// Floats k and b of alpha = k . colour + b at each cell.
    cv::Mat coefficients;
    /// Two floats a cell: the value at which alpha begins, and the one at which it is full.
    cv::Mat limits;
    static constexpr unsigned char uncertain = 128;
    /// 0 or 255 where a cell and all around it is surely backdrop or child, else `uncertain`.
    cv::Mat certain;

    /// Alpha from 0 to 1 of the pixels from `left` in row `y` of `picture`.
    void row(const Picture& picture, int y, int left, std::span<float> alpha) const;

    /// Alpha from 0 to 1 at each cell, whose colour `colours` (three floats) gives.
    cv::Mat alphaOf(const cv::Mat& colours) const;

    /// Marks in `certain` what `alpha` (floats) holds at exactly 0 or 1 in the whole square of
    /// 2 x `reach` + 1 cells.
    void findCertain(const cv::Mat& alpha, int reach);
};

}  // namespace morva
