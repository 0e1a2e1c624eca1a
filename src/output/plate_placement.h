// SPDX-License-Identifier: GPL-3.0-or-later
// Where a backdrop photograph lies behind the child. Pure numbers; called by `BackdropReplacer`.
#pragma once

#include <optional>

#include "base/geometry.h"

namespace morva {

/// What was found in a backdrop photograph, as fractions of its width and height from the left and
/// from the top.
struct PlateMarks {
    /// The brightest area, which the head is put before.
    std::optional<Point> hotSpot;
    /// Where the floor begins.
    std::optional<double> floorLine;

    bool operator==(const PlateMarks&) const = default;
};

namespace PlatePlacement {

/// Where the head is put in a plate without a bright area.
inline constexpr Point defaultHotSpot{0.5, 0.42};

/// What a plate is placed for; all in source pixels of the upright photo.
struct Scene {
    Rect crop;
    std::optional<Point> headAnchor;
    std::optional<double> feetLine;
};

/// The plate's rectangle in source pixels. It always covers the crop, is never stretched, and is
/// larger than it need be by `zoom` where that is above 1. Its bright spot comes to lie behind the
/// head, or its floor under the feet, as far as it goes on covering the crop.
Rect placed(Size plate, const PlateMarks& marks, double zoom, const Scene& scene);

}  // namespace PlatePlacement

}  // namespace morva
