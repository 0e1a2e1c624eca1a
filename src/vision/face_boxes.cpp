// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/face_boxes.h"

#include <algorithm>
#include <cmath>

#include "vision/box_overlap.h"

namespace morva::FaceBoxes {

namespace {

constexpr int gridSide = 48;
constexpr double anchorStride = static_cast<double>(inputSide) / gridSide;
constexpr double sameFaceOverlap = 0.3;  // intersection over union
constexpr double partOfFaceShare = 0.6;  // intersection over the smaller box
constexpr double logitLimit = 60;        // keeps exp within range

double coveredShare(const Rect& a, const Rect& b) {
    return area(a.intersection(b)) / std::min(area(a), area(b));
}

FaceBox boxAt(std::span<const float> values, std::size_t anchor, double score) {
    const Point at{(static_cast<double>(anchor % gridSide) + 0.5) * anchorStride,
                   (static_cast<double>(anchor / gridSide) + 0.5) * anchorStride};
    const auto v = values.subspan(anchor * valuesPerAnchor, valuesPerAnchor);
    const auto point = [&](std::size_t i) { return Point{at.x + v[i], at.y + v[i + 1]}; };
    const Point center = point(0);
    const double width = v[2];
    const double height = v[3];
    return {
        {center.x - width / 2, center.y - height / 2, width, height}, point(4), point(6), score};
}

/// Average of `group`, weighted by score; the best score is kept.
FaceBox average(std::span<const FaceBox> group) {
    FaceBox sum;
    double weight = 0;
    for (const FaceBox& face : group) {
        const double w = face.score;
        sum.box = {sum.box.x + w * face.box.x, sum.box.y + w * face.box.y,
                   sum.box.width + w * face.box.width, sum.box.height + w * face.box.height};
        sum.leftEye = sum.leftEye + face.leftEye.scaled(w, w);
        sum.rightEye = sum.rightEye + face.rightEye.scaled(w, w);
        sum.score = std::max(sum.score, face.score);
        weight += w;
    }
    return {
        {sum.box.x / weight, sum.box.y / weight, sum.box.width / weight, sum.box.height / weight},
        sum.leftEye.scaled(1 / weight, 1 / weight),
        sum.rightEye.scaled(1 / weight, 1 / weight),
        sum.score};
}

void sortBestFirst(std::vector<FaceBox>& boxes) {
    std::ranges::stable_sort(boxes,
                             [](const FaceBox& a, const FaceBox& b) { return a.score > b.score; });
}

}  // namespace

std::vector<FaceBox> decoded(std::span<const float> values, std::span<const float> logits,
                             double threshold) {
    std::vector<FaceBox> found;
    for (std::size_t anchor = 0; anchor < anchorCount; ++anchor) {
        const double logit =
            std::clamp(static_cast<double>(logits[anchor]), -logitLimit, logitLimit);
        const double score = 1 / (1 + std::exp(-logit));
        if (!(score >= threshold)) continue;
        const FaceBox face = boxAt(values, anchor, score);
        // A degenerate box overlaps nothing, not even itself; NaN fails both comparisons.
        if (face.box.width > 0 && face.box.height > 0) found.push_back(face);
    }
    sortBestFirst(found);
    std::vector<FaceBox> faces;
    while (!found.empty()) {
        const Rect best = found.front().box;
        const auto others = std::stable_partition(
            found.begin() + 1, found.end(),
            [&](const FaceBox& face) { return overlap(face.box, best) > sameFaceOverlap; });
        faces.push_back(average({found.begin(), others}));
        found.erase(found.begin(), others);
    }
    return faces;
}

std::vector<FaceBox> merged(std::vector<FaceBox> boxes) {
    sortBestFirst(boxes);
    std::vector<FaceBox> kept;
    for (const FaceBox& face : boxes) {
        const bool seen = std::ranges::any_of(kept, [&](const FaceBox& better) {
            return overlap(face.box, better.box) > sameFaceOverlap ||
                   coveredShare(face.box, better.box) > partOfFaceShare;
        });
        if (!seen) kept.push_back(face);
    }
    return kept;
}

}  // namespace morva::FaceBoxes
