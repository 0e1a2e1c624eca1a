// SPDX-License-Identifier: GPL-3.0-or-later
// The one filter of all scaling: Lanczos with three lobes, widened when reducing. Shared by the
// straight and the turned resampler.
#pragma once

#include <cstddef>
#include <cstdint>
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

    /// The filter at evenly spaced places, one after the other, each within a thousandth of a
    /// source pixel. Counts in whole numbers, for this is the inner loop of every turn.
    class Walk {
    public:
        Tap next() {
            const auto phase = static_cast<std::size_t>(place_ >> phaseShift) & (phases - 1);
            const Tap tap{static_cast<int>(place_ >> fractionBits), weights_ + phase * taps_};
            place_ += step_;
            return tap;
        }

    private:
        friend class Table;
        std::int64_t place_;
        std::int64_t step_;
        const float* weights_;
        std::size_t taps_;
    };
    /// From `position` (source pixel i covers [i, i + 1)) in steps of `step`, both in pixels.
    Walk walk(double position, double step) const;

private:
    /// Filter positions between two source pixels.
    static constexpr std::size_t phases = 512;
    static constexpr int fractionBits = 32;
    static constexpr int phaseShift = fractionBits - 9;

    int taps_;
    std::vector<float> weights_;
};

}  // namespace morva::Lanczos
