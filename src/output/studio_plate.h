// SPDX-License-Identifier: GPL-3.0-or-later
// A studio backdrop made by calculation: one colour that darkens outward, with the soft mottling of
// painted cloth. Called by `BackdropReplacer`; a function of the place in the photo, so that every
// size it is drawn at shows the same backdrop, and every run the same pixels.
#pragma once

#include "base/geometry.h"
#include "imaging/raster.h"
#include "model/presets/export_settings.h"
#include "output/crop_view.h"

namespace morva {

struct StudioPlate {
    Rgb color;
    /// Of the photo, in source pixels: the mottling is as coarse as its width asks for. The
    /// backdrop itself has no end.
    Size size;
    /// Of the darkening, in source pixels.
    Point center;
    /// In source pixels; the colour holds up to 0.35 of it and has turned into `edgeColor` at 1.05.
    double radius = 1;
    /// 0 to 1.
    double vignette = 0;

    Rgb edgeColor() const;

    /// What a crop shows of it. Values between two levels are spread over neighbouring pixels, for
    /// so slow a gradient would show its steps.
    Picture seen(const CropView& view) const;
};

}  // namespace morva
