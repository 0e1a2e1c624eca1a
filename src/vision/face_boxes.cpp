// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/face_boxes.h"

#include <algorithm>
#include <array>

#include "vision/anchor_boxes.h"

namespace morva::FaceBoxes {

namespace {

constexpr int gridSide = 48;
constexpr double anchorStride = static_cast<double>(inputSide) / gridSide;
constexpr double partOfFaceShare = 0.6;  // intersection over the smaller box
/// Where an anchor's numbers hold the eye at the picture's left and the one at its right.
constexpr std::array<std::size_t, 2> eyes{4, 6};

double coveredShare(const Rect& a, const Rect& b) {
    return area(a.intersection(b)) / std::min(area(a), area(b));
}

std::vector<Point> anchors() {
    std::vector<Point> centers;
    for (int y = 0; y < gridSide; ++y)
        for (int x = 0; x < gridSide; ++x)
            centers.push_back({(x + 0.5) * anchorStride, (y + 0.5) * anchorStride});
    return centers;
}

void sortBestFirst(std::vector<FaceBox>& boxes) {
    std::ranges::stable_sort(boxes,
                             [](const FaceBox& a, const FaceBox& b) { return a.score > b.score; });
}

}  // namespace

std::vector<FaceBox> decoded(std::span<const float> values, std::span<const float> logits,
                             double threshold) {
    static const std::vector<Point> centers = anchors();
    std::vector<FaceBox> faces;
    for (const AnchorBox& one :
         anchorBoxes({centers, valuesPerAnchor, eyes}, values, logits, threshold))
        faces.push_back({one.box, one.points[0], one.points[1], one.score});
    return faces;
}

std::vector<FaceBox> merged(std::vector<FaceBox> boxes) {
    sortBestFirst(boxes);
    std::vector<FaceBox> kept;
    for (const FaceBox& face : boxes) {
        const bool seen = std::ranges::any_of(kept, [&](const FaceBox& better) {
            return overlap(face.box, better.box) > sameBoxOverlap ||
                   coveredShare(face.box, better.box) > partOfFaceShare;
        });
        if (!seen) kept.push_back(face);
    }
    return kept;
}

}  // namespace morva::FaceBoxes
