// SPDX-License-Identifier: GPL-3.0-or-later
// The constants of the matte around a head that its errors depend on most. They were chosen on
// photographs with known alpha; only `bench/matting` passes others, to see how well they were.
#pragma once

namespace morva::Matting {

/// Alphas and colours from 0 to 1; weights against the matting Laplacian.
struct Tuning {
    /// Of the alpha that colours alone suggest.
    float dataWeight = .04F;
    /// Of the person map, everywhere.
    float mapWeight = .01F;
    /// Further weight of the person map where child and backdrop are alike in colour, so that a
    /// shadow beside dark hair does not pass for hair.
    float mapWeightLikeColours = .6F;
    /// Variation among neighbours from which they are strands and not haze, see `Haze::shareOf`.
    float strands = .16F;

    bool operator==(const Tuning&) const = default;
};

}  // namespace morva::Matting
