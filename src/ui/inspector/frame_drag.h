// SPDX-License-Identifier: GPL-3.0-or-later
// What pulling at the frame does to the hand adjustment. Made by the canvas when the button goes
// down and asked with every move of the pointer; a value, changes nothing itself.
#pragma once

#include "base/geometry.h"
#include "crop/crop_solution.h"
#include "crop/manual_adjustment.h"
#include "ui/inspector/canvas_geometry.h"

namespace morva {

class FrameDrag {
public:
    /// `grip`: where the pointer took hold. This and every other place is in the photo as levelled
    /// when the drag began, in source pixels.
    FrameDrag(CanvasPart part, const CropSolution& solution, const ManualAdjustment& adjustment,
              Size photo, Point grip);

    CanvasPart part() const { return part_; }
    const ManualAdjustment& before() const { return before_; }

    /// The adjustment that brings what was taken hold of to the pointer. Inside, the frame goes
    /// with it; a corner goes with it as far as a zoom about the anchor allows; at the turn handle
    /// the photo turns with it about the frame's middle. Without the limits of adjustments, the
    /// scale always positive.
    ManualAdjustment to(Point pointer) const;

private:
    ManualAdjustment moved(Point by) const;
    ManualAdjustment zoomed(Point by) const;
    ManualAdjustment turned(Point pointer) const;

    CanvasPart part_;
    ManualAdjustment before_;
    Point grip_;
    Point middle_;
    /// Height of the solved crop: the unit of a nudge.
    double unit_;
    /// From the point that a zoom leaves where it is to the corner, at scale 1.
    Point toCorner_;
};

}  // namespace morva
