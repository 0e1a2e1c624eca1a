// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/frame_drag.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "crop/crop_solver.h"

namespace morva {

namespace {

/// A frame pulled through its anchor stays a frame; the application's own limit is far above.
constexpr double smallestScale = 0.01;

Point cornerOf(const Rect& rect, CanvasPart part) {
    switch (part) {
        case CanvasPart::topRight:
            return {rect.maxX(), rect.y};
        case CanvasPart::bottomRight:
            return {rect.maxX(), rect.maxY()};
        case CanvasPart::bottomLeft:
            return {rect.x, rect.maxY()};
        default:
            return {rect.x, rect.y};
    }
}

/// From the frame as solved to the frame as turned by hand and back.
Point vectorTurned(Point vector, double degrees) { return vector.rotated({0, 0}, degrees); }

double angle(Point vector) { return std::atan2(vector.y, vector.x) * 180 / std::numbers::pi; }

}  // namespace

FrameDrag::FrameDrag(CanvasPart part, const CropSolution& solution,
                     const ManualAdjustment& adjustment, Size photo, Point grip)
    : part_(part), before_(adjustment), grip_(grip), unit_(solution.rect.height) {
    const Rect rect = CropSolver::finalRect(solution, adjustment, photo);
    middle_ = rect.center();
    const Point fromAnchor =
        vectorTurned(solution.rect.center() - solution.anchor, -adjustment.rotation);
    const Point corner = cornerOf(rect, part) - middle_;
    toCorner_ = fromAnchor + corner.scaled(1 / adjustment.scale, 1 / adjustment.scale);
}

ManualAdjustment FrameDrag::to(Point pointer) const {
    if (part_ == CanvasPart::inside) return moved(pointer - grip_);
    if (part_ == CanvasPart::turn) return turned(pointer);
    return isCorner(part_) ? zoomed(pointer - grip_) : before_;
}

ManualAdjustment FrameDrag::moved(Point by) const {
    ManualAdjustment after = before_;
    const Point solved = vectorTurned(by, before_.rotation);
    after.dx += solved.x / unit_;
    after.dy += solved.y / unit_;
    return after;
}

ManualAdjustment FrameDrag::zoomed(Point by) const {
    ManualAdjustment after = before_;
    const Point wanted = toCorner_.scaled(before_.scale, before_.scale) + by;
    const double length = toCorner_.x * toCorner_.x + toCorner_.y * toCorner_.y;
    if (length > 0)
        after.scale =
            std::max(smallestScale, (wanted.x * toCorner_.x + wanted.y * toCorner_.y) / length);
    return after;
}

ManualAdjustment FrameDrag::turned(Point pointer) const {
    ManualAdjustment after = before_;
    // A photo turned clockwise is one whose frame is turned the other way.
    after.rotation -= std::remainder(angle(pointer - middle_) - angle(grip_ - middle_), 360.0);
    return after;
}

}  // namespace morva
