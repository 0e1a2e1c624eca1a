// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/crop_geometry.h"

#include <algorithm>
#include <cmath>

#include "base/leveling.h"

namespace morva {

namespace {

/// Ratios that differ by no more are the same: one step of rounding in the height.
constexpr double ratioTolerance = 0.002;

/// No JPEG is longer.
constexpr double longestSide = 65500;

}  // namespace

std::optional<CropGeometry> CropGeometry::of(const Rect& rect, double rotationDegrees,
                                             int pixelWidth, int pixelHeight) {
    if (pixelWidth < 1 || pixelHeight < 1) return std::nullopt;
    const double ratio = rect.width / rect.height;
    double height = pixelHeight;
    if (std::abs(pixelWidth / height - ratio) > ratioTolerance)
        height = std::trunc(pixelWidth / ratio);
    if (!(height >= 1 && height <= longestSide && pixelWidth <= longestSide)) return std::nullopt;
    const double scale = height / rect.height;
    return CropGeometry{.cut = {rect.x, rect.y, pixelWidth / scale, rect.height},
                        .rotationDegrees = rotationDegrees,
                        .width = pixelWidth,
                        .height = static_cast<int>(height),
                        .scale = scale};
}

Rect CropGeometry::sourceArea(Size photo) const {
    const double margin = std::trunc(4 / scale) + 4;
    const Rect grown{cut.x - margin, cut.y - margin, cut.width + 2 * margin,
                     cut.height + 2 * margin};
    const Point center{photo.width / 2, photo.height / 2};
    auto corners = grown.corners();
    std::ranges::transform(corners, corners.begin(), [&](Point corner) {
        return Leveling::unlevel(corner, center, rotationDegrees);
    });
    return Rect::bounding(corners);
}

}  // namespace morva
