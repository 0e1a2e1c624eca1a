// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/person_regions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "vision/box_overlap.h"

namespace morva::PersonRegions {

namespace {

struct Layer {
    int stride;
    int anchorsPerCell;
};
constexpr std::array<Layer, 3> layers{{{8, 2}, {16, 2}, {32, 6}}};
constexpr double samePersonOverlap = 0.3;  // intersection over union
constexpr double logitLimit = 60;          // keeps exp within range
/// The two points span half of the body's circle; the window leaves a quarter more.
constexpr double windowScale = 2 * 1.25;
/// A face this far from the centre of a person's box, as a share of the box, is that person's;
/// usual are 0.15 to 0.2.
constexpr double ownFaceDistance = 0.3;
// A window made from the face alone, in face units, which a box from brow to chin is 1.37 of wide.
constexpr double faceUnitsPerBox = 1.37;
// Of a window's side, from the eyes to its centre; the rest leaves room for hair above.
constexpr double dropShare = 0.37;
constexpr double headroom = 0.2;
constexpr double eyesInBox = 0.23;  // of the box's height, from its top

/// One candidate in pixels of the detector's input.
struct Candidate {
    Rect box;
    Point hips;
    Point circle;
    double score = 0;
};

std::vector<Point> anchors() {
    std::vector<Point> centers;
    for (const Layer layer : layers) {
        const int cells = inputSide / layer.stride;
        for (int y = 0; y < cells; ++y)
            for (int x = 0; x < cells; ++x)
                for (int i = 0; i < layer.anchorsPerCell; ++i)
                    centers.push_back({(x + 0.5) * layer.stride, (y + 0.5) * layer.stride});
    }
    return centers;
}

std::vector<Candidate> candidates(std::span<const float> values, std::span<const float> logits,
                                  double threshold) {
    static const std::vector<Point> centers = anchors();
    std::vector<Candidate> found;
    for (std::size_t i = 0; i < anchorCount; ++i) {
        const double logit = std::clamp(static_cast<double>(logits[i]), -logitLimit, logitLimit);
        const double score = 1 / (1 + std::exp(-logit));
        if (!(score >= threshold)) continue;
        const auto v = values.subspan(i * valuesPerAnchor, valuesPerAnchor);
        const auto point = [&](std::size_t at) {
            return Point{centers[i].x + v[at], centers[i].y + v[at + 1]};
        };
        const Point center = point(0);
        const double width = v[2];
        const double height = v[3];
        // A degenerate box overlaps nothing, not even itself; NaN fails both comparisons.
        if (!(width > 0 && height > 0)) continue;
        found.push_back({{center.x - width / 2, center.y - height / 2, width, height},
                         point(4),
                         point(6),
                         score});
    }
    std::ranges::stable_sort(
        found, [](const Candidate& a, const Candidate& b) { return a.score > b.score; });
    return found;
}

Candidate average(std::span<const Candidate> group) {
    Candidate sum;
    double weight = 0;
    for (const Candidate& one : group) {
        const double w = one.score;
        sum.box = {sum.box.x + w * one.box.x, sum.box.y + w * one.box.y,
                   sum.box.width + w * one.box.width, sum.box.height + w * one.box.height};
        sum.hips = sum.hips + one.hips.scaled(w, w);
        sum.circle = sum.circle + one.circle.scaled(w, w);
        weight += w;
    }
    const double share = 1 / weight;
    return {{sum.box.x * share, sum.box.y * share, sum.box.width * share, sum.box.height * share},
            sum.hips.scaled(share, share),
            sum.circle.scaled(share, share),
            group.front().score};
}

Person person(const Candidate& candidate, const PictureRegion& frame) {
    const double scale = frame.side / inputSide;
    const Point corner = frame.toPicture({candidate.box.x, candidate.box.y}, inputSide);
    const Point hips = frame.toPicture(candidate.hips, inputSide);
    const Point circle = frame.toPicture(candidate.circle, inputSide);
    const double radius = hips.distance(circle);
    const double turn = std::numbers::pi / 2 - std::atan2(-(circle.y - hips.y), circle.x - hips.x);
    return {{corner.x, corner.y, candidate.box.width * scale, candidate.box.height * scale},
            {hips, windowScale * radius, turn},
            candidate.score};
}

}  // namespace

std::vector<Person> decoded(std::span<const float> values, std::span<const float> logits,
                            double threshold, const PictureRegion& frame) {
    std::vector<Candidate> found = candidates(values, logits, threshold);
    std::vector<Person> persons;
    while (!found.empty()) {
        const Rect best = found.front().box;
        const auto others = std::stable_partition(
            found.begin() + 1, found.end(),
            [&](const Candidate& one) { return overlap(one.box, best) > samePersonOverlap; });
        persons.push_back(person(average({found.begin(), others}), frame));
        found.erase(found.begin(), others);
    }
    return persons;
}

const Person* personOf(const Rect& face, std::span<const Person> persons) {
    const Person* nearest = nullptr;
    double least = ownFaceDistance;
    for (const Person& person : persons) {
        const double distance = person.box.center().distance(face.center()) / person.box.width;
        if (distance > least) continue;
        least = distance;
        nearest = &person;
    }
    return nearest;
}

PictureRegion bodyBelow(const Rect& face, double side) {
    const double unit = face.width / faceUnitsPerBox;
    return {eyesIn(face) + Point{0, (dropShare * side - headroom) * unit}, side * unit};
}

Point eyesIn(const Rect& face) { return {face.center().x, face.y + eyesInBox * face.height}; }

}  // namespace morva::PersonRegions
