// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/person_regions.h"

#include <array>
#include <cmath>
#include <numbers>

#include "vision/anchor_boxes.h"

namespace morva::PersonRegions {

namespace {

struct Layer {
    int stride;
    int anchorsPerCell;
};
constexpr std::array<Layer, 3> layers{{{8, 2}, {16, 2}, {32, 6}}};
/// Where an anchor's numbers hold the hips and the point on the circle round the body.
constexpr std::array<std::size_t, 2> hipsAndCircle{4, 6};
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

Person person(const AnchorBox& found, const PictureRegion& frame) {
    const double scale = frame.side / inputSide;
    const Point corner = frame.toPicture({found.box.x, found.box.y}, inputSide);
    const Point hips = frame.toPicture(found.points[0], inputSide);
    const Point circle = frame.toPicture(found.points[1], inputSide);
    const double radius = hips.distance(circle);
    const double turn = std::numbers::pi / 2 - std::atan2(-(circle.y - hips.y), circle.x - hips.x);
    return {{corner.x, corner.y, found.box.width * scale, found.box.height * scale},
            {hips, windowScale * radius, turn},
            found.score};
}

}  // namespace

std::vector<Person> decoded(std::span<const float> values, std::span<const float> logits,
                            double threshold, const PictureRegion& frame) {
    static const std::vector<Point> centers = anchors();
    std::vector<Person> persons;
    for (const AnchorBox& found :
         anchorBoxes({centers, valuesPerAnchor, hipsAndCircle}, values, logits, threshold))
        persons.push_back(person(found, frame));
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
