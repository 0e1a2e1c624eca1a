// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/anchor_boxes.h"

#include <algorithm>
#include <cmath>

namespace morva {

namespace {

constexpr double logitLimit = 60;  // keeps exp within range

AnchorBox boxAt(const AnchorLayout& layout, std::span<const float> values, std::size_t anchor,
                double score) {
    const Point at = layout.centers[anchor];
    const auto v = values.subspan(anchor * layout.valuesPerAnchor, layout.valuesPerAnchor);
    const auto point = [&](std::size_t i) { return Point{at.x + v[i], at.y + v[i + 1]}; };
    const Point center = point(0);
    const double width = v[2];
    const double height = v[3];
    return {{center.x - width / 2, center.y - height / 2, width, height},
            {point(layout.points[0]), point(layout.points[1])},
            score};
}

/// Average of `group`, best first, weighted by score; the best score is kept.
AnchorBox average(std::span<const AnchorBox> group) {
    AnchorBox sum;
    double weight = 0;
    for (const AnchorBox& one : group) {
        const double w = one.score;
        sum.box = {sum.box.x + w * one.box.x, sum.box.y + w * one.box.y,
                   sum.box.width + w * one.box.width, sum.box.height + w * one.box.height};
        for (std::size_t i = 0; i < sum.points.size(); ++i)
            sum.points[i] = sum.points[i] + one.points[i].scaled(w, w);
        weight += w;
    }
    return {
        {sum.box.x / weight, sum.box.y / weight, sum.box.width / weight, sum.box.height / weight},
        {sum.points[0].scaled(1 / weight, 1 / weight),
         sum.points[1].scaled(1 / weight, 1 / weight)},
        group.front().score};
}

}  // namespace

std::vector<AnchorBox> anchorBoxes(const AnchorLayout& layout, std::span<const float> values,
                                   std::span<const float> logits, double threshold) {
    std::vector<AnchorBox> found;
    for (std::size_t anchor = 0; anchor < layout.centers.size(); ++anchor) {
        const double logit =
            std::clamp(static_cast<double>(logits[anchor]), -logitLimit, logitLimit);
        const double score = 1 / (1 + std::exp(-logit));
        if (!(score >= threshold)) continue;
        const AnchorBox one = boxAt(layout, values, anchor, score);
        // A degenerate box overlaps nothing, not even itself; NaN fails both comparisons.
        if (one.box.width > 0 && one.box.height > 0) found.push_back(one);
    }
    std::ranges::stable_sort(
        found, [](const AnchorBox& a, const AnchorBox& b) { return a.score > b.score; });
    std::vector<AnchorBox> boxes;
    while (!found.empty()) {
        const Rect best = found.front().box;
        const auto others = std::stable_partition(
            found.begin() + 1, found.end(),
            [&](const AnchorBox& one) { return overlap(one.box, best) > sameBoxOverlap; });
        boxes.push_back(average({found.begin(), others}));
        found.erase(found.begin(), others);
    }
    return boxes;
}

double area(const Rect& rect) { return rect.width * rect.height; }

double overlap(const Rect& a, const Rect& b) {
    const double common = area(a.intersection(b));
    return common / (area(a) + area(b) - common);
}

}  // namespace morva
