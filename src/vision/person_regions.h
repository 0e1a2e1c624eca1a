// SPDX-License-Identifier: GPL-3.0-or-later
// Where the bodies are: from the raw output of the person detector to the turned window that shows
// one whole body to the landmark model.
#pragma once

#include <span>
#include <vector>

#include "base/geometry.h"
#include "vision/picture_region.h"

namespace morva::PersonRegions {

/// Side of the detector's square input, pixels.
inline constexpr int inputSide = 224;
/// Cells of 8, 16 and three times 32 pixels, two anchors each, those of 32 share one grid.
inline constexpr std::size_t anchorCount = 28 * 28 * 2 + 14 * 14 * 2 + 7 * 7 * 6;
inline constexpr std::size_t valuesPerAnchor = 12;

/// A person as the detector sees it.
struct Person {
    /// A square around head and shoulders, several faces wide.
    Rect box;
    /// Window around the whole body, head up.
    PictureRegion body;
    /// 0 to 1.
    double score = 0;
};

/// The persons of at least `threshold`, best first, overlapping boxes averaged by score. Everything
/// in pixels of the picture that `frame`, the detector's own window, was cut from. `values` holds
/// `valuesPerAnchor` numbers an anchor, `logits` one.
std::vector<Person> decoded(std::span<const float> values, std::span<const float> logits,
                            double threshold, const PictureRegion& frame);

/// The person whose head `face` (a box from brow to chin) is; null when none of them is near.
const Person* personOf(const Rect& face, std::span<const Person> persons);

/// A window for the body below `face` in proportion to the face alone, `side` face units wide: 12
/// show shoulders and chest at a fine scale, 18 a whole grown person.
PictureRegion bodyBelow(const Rect& face, double side);

/// Middle of the eyes in a box from brow to chin.
Point eyesIn(const Rect& face);

}  // namespace morva::PersonRegions
