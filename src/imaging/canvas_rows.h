// SPDX-License-Identifier: GPL-3.0-or-later
// The endless canvas around a picture, row by row. Used by the resamplers only, so that no padded
// copy of a photo is ever made.
#pragma once

#include <cstdint>
#include <vector>

#include "imaging/raster.h"
#include "imaging/resample.h"

namespace morva {

class CanvasRows {
public:
    /// `picture` must outlive the rows and not be empty.
    CanvasRows(const Picture& picture, const Surroundings& surroundings);

    /// The pixels [left, right) of row `y`, interleaved; any whole numbers. The pointer leads into
    /// the picture where no canvas shows, else into `scratch`.
    const std::uint8_t* row(int y, int left, int right, std::vector<std::uint8_t>& scratch) const;

private:
    double rowCover(int y) const;
    void copyClamped(int y, int left, int right, std::uint8_t* out) const;
    void paintOutside(int left, int right, std::uint8_t* out) const;

    const Picture& picture_;
    Surroundings surroundings_;
    Rect photo_;
    /// Columns that are pixels of the picture and wholly photo.
    int solidLeft_ = 0;
    int solidRight_ = 0;
};

}  // namespace morva
