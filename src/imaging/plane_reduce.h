// SPDX-License-Identifier: GPL-3.0-or-later
// Reduces one plane by area, rows on demand, so that any part of a reduced picture can be had
// without the rest and equals the same part of the whole, bit for bit. Used by `PhotoDecode` only.
#pragma once

#include <cstdint>
#include <vector>

#include "imaging/orientation.h"
#include "imaging/row_kernels.h"
#include "imaging/stored_photo.h"

namespace morva {

/// Output i of `target` covers [i, i + 1) * cover / target of an axis of `count` pixels and is
/// their mean; where pixels are enlarged instead (chroma of low resolution), it lies on the line
/// between the two nearest. Makes the outputs [begin, end), with weights that add up to `total`.
ReduceTaps reduceTaps(int count, double cover, int target, int begin, int end, int total);

/// The rectangle `part` of `plane` reduced to targetWidth x targetHeight.
class PlaneReducer {
public:
    PlaneReducer(const Plane& plane, int targetWidth, int targetHeight, const PixelRect& part);

    /// Writes row `y` of the part (0 is its top) into `out`, padded(part.width) bytes.
    void row(int y, std::uint8_t* out);

private:
    const Plane& plane_;
    ReduceTaps across_;
    ReduceTaps down_;
    int firstColumn_ = 0;
    std::size_t columns_ = 0;
    std::vector<std::int16_t> sums_;         // of the columns that the part needs, and padding
    std::vector<const std::uint8_t*> rows_;  // that make the row at hand
    std::vector<std::int16_t> rowWeights_;
};

}  // namespace morva
