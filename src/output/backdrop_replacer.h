// SPDX-License-Identifier: GPL-3.0-or-later
// Puts the child of a photo before another backdrop: a photograph (a plate) or a generated one.
// Called by `CropRenderer` on the part of the photo that a crop shows; what the crop shows beyond
// the photo is backdrop too. Never finds the child itself and never writes.
#pragma once

#include <filesystem>
#include <optional>
#include <stop_token>
#include <vector>

#include "base/geometry.h"
#include "base/result.h"
#include "imaging/decode.h"
#include "imaging/raster.h"
#include "model/presets/export_settings.h"
#include "output/crop_view.h"
#include "output/cut_out.h"
#include "output/decoded_plates.h"

namespace morva::BackdropReplacer {

struct Options {
    /// The backdrop photograph; absent: a generated plate.
    std::optional<std::filesystem::path> plateURL;
    /// Add the reflection under the feet.
    bool floorReflection = true;
    /// Strength of the generated plate's darkening toward its edge.
    double vignette = 0.6;
    /// Of the generated plate, sRGB, 0 to 1; absent, or fewer than three: the photo's own backdrop.
    std::optional<std::vector<double>> color;
    /// Extra scale of the backdrop photograph.
    double plateZoom = 1.45;
    /// Where the head should sit, in source pixels.
    std::optional<Point> headAnchor;
    /// Keeps the photograph for other photos; null: it is decoded for this one.
    DecodedPlates* plates = nullptr;

    static Options from(const ExportSettings& settings, std::optional<Point> headAnchor,
                        DecodedPlates* plates = nullptr);

    bool operator==(const Options&) const = default;
};

struct Replaced {
    /// In the photo's colours.
    Picture picture;
    /// There was a plate to use, but it could not be read, and a generated one stands in.
    bool plateUnreadable = false;
};

/// What `view` shows of the child before its backdrop. `cropRect` is the crop rectangle in source
/// pixels, which plates are placed by. Nothing, and `photo` as it was, when the photo shows nobody.
/// `photo` is used up otherwise. Fails when the child cannot be cut out, or soon once `stop` is
/// requested.
Result<std::optional<Replaced>> replace(DecodedRegion& photo, const CropView& view,
                                        const Rect& cropRect, const Options& options,
                                        const ChildCutter& cutter,
                                        const std::stop_token& stop = {});

/// The average colour, 0 to 1 in the photo's own colours, of `area` (source pixels) where `alpha`
/// shows no child; mid grey when the child hides all of it.
Rgb sampleBackdropColor(const DecodedRegion& photo, const Mask& alpha, const Rect& area);

}  // namespace morva::BackdropReplacer
