// SPDX-License-Identifier: GPL-3.0-or-later
// Where a crop of the levelled frame lies on the photo itself, and the adjusted crop.
#include <algorithm>
#include <cmath>

#include "base/leveling.h"
#include "crop/crop_solver.h"

namespace morva::CropSolver {

namespace {

Point centerOf(Size source) { return {source.width / 2, source.height / 2}; }

/// Below this slope the levelled column runs along the photo's edge and never meets it.
constexpr double flatColumn = 1e-9;

}  // namespace

double pinnedBottom(Size sourceSize, double rollDegrees, double cropWidth, double centerX) {
    if (rollDegrees == 0) return sourceSize.height;
    const Point center = centerOf(sourceSize);
    const auto photoY = [&](double x, double y) {
        return Leveling::unlevel({x, y}, center, rollDegrees).y;
    };
    const bool leftHangsLower = photoY(centerX + 1, 0) <= photoY(centerX - 1, 0);
    const double cornerX = centerX + (leftHangsLower ? -cropWidth / 2 : cropWidth / 2);
    const double y0 = photoY(cornerX, 0);
    const double slope = photoY(cornerX, 1) - y0;
    return std::abs(slope) > flatColumn ? (sourceSize.height - y0) / slope : sourceSize.height;
}

SideShortfall sideShortfall(const Rect& rect, double rollDegrees, Point center, Size source) {
    SideShortfall missing;
    for (const Point corner : rect.corners()) {
        const double x = Leveling::unlevel(corner, center, rollDegrees).x;
        missing.left = std::max(missing.left, -x);
        missing.right = std::max(missing.right, x - source.width);
    }
    return missing;
}

Rect finalRect(const CropSolution& solution, const ManualAdjustment& adjustment, Size sourceSize) {
    Rect rect = adjustment.apply(solution.rect, solution.anchor);
    if (adjustment.rotation == 0 || !(sourceSize.width > 0 && sourceSize.height > 0)) return rect;
    const Point center = centerOf(sourceSize);
    const Point onPhoto = Leveling::unlevel(rect.center(), center, solution.rotationDegrees);
    const Point turned = Leveling::level(onPhoto, center, finalRotation(solution, adjustment));
    rect.x = turned.x - rect.width / 2;
    rect.y = turned.y - rect.height / 2;
    return rect;
}

double finalRotation(const CropSolution& solution, const ManualAdjustment& adjustment) {
    return solution.rotationDegrees + adjustment.rotation;
}

std::optional<CanvasShortfall> shortfall(const Rect& rect, double rotationDegrees,
                                         Size sourceSize) {
    CanvasShortfall missing;
    for (const Point corner : rect.corners()) {
        const Point p = Leveling::unlevel(corner, centerOf(sourceSize), rotationDegrees);
        missing.left = std::max(missing.left, -p.x);
        missing.top = std::max(missing.top, -p.y);
        missing.right = std::max(missing.right, p.x - sourceSize.width);
        missing.bottom = std::max(missing.bottom, p.y - sourceSize.height);
    }
    if (missing.isEmpty()) return std::nullopt;
    return missing;
}

}  // namespace morva::CropSolver
