// SPDX-License-Identifier: GPL-3.0-or-later
// The one filter of all scaling: Lanczos with three lobes, widened when reducing. Shared by the
// straight and the turned resampler.
#pragma once

#include <cstddef>
#include <vector>

#include "base/geometry.h"

namespace morva::Lanczos {

inline constexpr int lobes = 3;

/// Pixels on each side of a region that the filter may read, for a reduction of `step` source
/// pixels per output pixel: the lobes and a little to spare.
int margin(double step);

/// Whether region and size are finite, not empty and small enough to be computed.
bool isFeasible(const Rect& region, int width, int height);

/// Filter weights at finely spaced positions between two source pixels.
class Table {
public:
    /// `step`: source pixels per output pixel.
    explicit Table(double step);

    int taps() const { return taps_; }

    struct Tap {
        /// The first source pixel under the filter.
        int first;
        /// `taps()` weights that add up to 1.
        const float* weights;
    };
    /// The filter centred on `position`, where source pixel i covers [i, i + 1). Placed to within
    /// a thousandth of a source pixel.
    Tap at(double position) const;

private:
    int taps_;
    std::vector<float> weights_;
};

}  // namespace morva::Lanczos
