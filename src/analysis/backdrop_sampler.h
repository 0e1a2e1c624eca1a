// SPDX-License-Identifier: GPL-3.0-or-later
// The colour of the photo's own backdrop, which a generated studio plate is matched to.
#pragma once

#include <optional>
#include <vector>

#include "imaging/raster.h"

namespace morva::BackdropSampler {

/// Red, green and blue from 0 to 1, as coded in sRGB: the mean of that half of the backdrop which
/// lies nearest to its middle colour, so that a flag or a bystander does not stain it. `persons`
/// is the mask of everybody, covering all of `image` at any resolution. Nothing when people fill
/// the frame.
std::optional<std::vector<double>> color(const Picture& image, const Mask& persons);

}  // namespace morva::BackdropSampler
