// SPDX-License-Identifier: GPL-3.0-or-later
// What the box detectors share: reading boxes from a grid of anchors, and averaging those that show
// the same thing. Each detector has its own grid, values and names for the points.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "base/geometry.h"

namespace morva {

/// A box in pixels of the model's input, with the two points that its owner reads.
struct AnchorBox {
    Rect box;
    std::array<Point, 2> points;
    /// 0 to 1.
    double score = 0;
};

/// How one detector lays out its output.
struct AnchorLayout {
    /// Centre of each anchor.
    std::span<const Point> centers;
    /// Numbers an anchor: the box's centre and size, then points; all but the size are offsets.
    std::size_t valuesPerAnchor = 0;
    /// Where in an anchor's numbers the two points stand.
    std::array<std::size_t, 2> points{};
};

/// The boxes of at least `threshold`, best first; boxes that overlap a better one by more than 0.3
/// (intersection over union) are averaged with it by score. `values` holds
/// `layout.valuesPerAnchor` numbers an anchor, `logits` one. Boxes without an area are left out.
std::vector<AnchorBox> anchorBoxes(const AnchorLayout& layout, std::span<const float> values,
                                   std::span<const float> logits, double threshold);

double area(const Rect& rect);

/// Two boxes that overlap by more than this, intersection over union, show the same thing.
inline constexpr double sameBoxOverlap = 0.3;

/// Intersection over union, 0 to 1. Both must have an area.
double overlap(const Rect& a, const Rect& b);

}  // namespace morva
