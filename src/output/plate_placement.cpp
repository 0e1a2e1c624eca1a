// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/plate_placement.h"

#include <algorithm>

namespace morva::PlatePlacement {

namespace {

/// Where the head is taken to be in a crop that does not say, below its top.
constexpr double headInCrop = 0.4;

/// `start` of a span of `length`, moved so that it covers the span from `low` to `high`.
double covering(double start, double length, double low, double high) {
    return std::min(std::max(start, high - length), low);
}

}  // namespace

Rect placed(Size plate, const PlateMarks& marks, double zoom, const Scene& scene) {
    const Rect& crop = scene.crop;
    const double cover = std::max(crop.height / plate.height, crop.width / plate.width);
    const double scale = std::max(zoom, 1.0) * cover;
    const Size size{plate.width * scale, plate.height * scale};
    const Point hot = marks.hotSpot.value_or(defaultHotSpot);
    const Point anchor =
        scene.headAnchor.value_or(Point{crop.center().x, crop.y + headInCrop * crop.height});
    double y = anchor.y - hot.y * size.height;
    // The child must stand on the floor, wherever that leaves the bright spot.
    if (marks.floorLine && scene.feetLine) y = *scene.feetLine - *marks.floorLine * size.height;
    return {covering(anchor.x - hot.x * size.width, size.width, crop.x, crop.maxX()),
            covering(y, size.height, crop.y, crop.maxY()), size.width, size.height};
}

}  // namespace morva::PlatePlacement
