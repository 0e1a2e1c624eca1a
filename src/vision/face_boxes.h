// SPDX-License-Identifier: GPL-3.0-or-later
// From the raw output of the box model to face boxes: decoding, suppression, and merging what
// several windows saw.
#pragma once

#include <array>
#include <span>
#include <vector>

#include "base/geometry.h"

namespace morva {

/// A face as the box model sees it.
struct FaceBox {
    Rect box;
    /// Eye at the picture's left and at its right; good to a tenth of their distance, enough to
    /// find the tilt.
    Point leftEye;
    Point rightEye;
    /// 0 to 1.
    double score = 0;
};

namespace FaceBoxes {

/// Side of the model's square input, pixels.
inline constexpr int inputSide = 192;
inline constexpr std::size_t anchorCount = 48 * 48;
inline constexpr std::size_t valuesPerAnchor = 16;

/// Boxes of at least `threshold` in model pixels, overlapping ones averaged by score. `values`
/// holds `valuesPerAnchor` numbers an anchor, `logits` one.
std::vector<FaceBox> decoded(std::span<const float> values, std::span<const float> logits,
                             double threshold);

/// Drops every box that lies mostly on a better one, as parts of a large face do that another
/// window saw.
std::vector<FaceBox> merged(std::vector<FaceBox> boxes);

}  // namespace FaceBoxes

}  // namespace morva
