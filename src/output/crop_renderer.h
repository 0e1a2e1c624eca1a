// SPDX-License-Identifier: GPL-3.0-or-later
// From decoded pixels to the finished picture of a crop: fills what the crop shows outside the
// photo, or replaces the backdrop, then turns, cuts and scales. Called by the exporter and, on a
// reduced photo, by previews of a backdrop; never writes.
#pragma once

#include <filesystem>
#include <optional>
#include <stop_token>
#include <string_view>
#include <vector>

#include "base/geometry.h"
#include "base/result.h"
#include "imaging/decode.h"
#include "imaging/raster.h"
#include "model/presets/export_settings.h"
#include "output/crop_geometry.h"
#include "output/cut_out.h"
#include "output/decoded_plates.h"

namespace morva {

/// What was done otherwise than asked. The crop counts as done; the reports tell it.
enum class ExportFallback {
    /// The child could not be cut out, so the photo's edges are repeated.
    matteFailed,
    /// Nobody was found to cut out, so the photo's edges are repeated.
    nobodyToCutOut,
    /// The backdrop photograph could not be read, so a generated one is used.
    plateUnreadable,
    /// The file carries no colour profile.
    profileNotEmbedded,
};

/// The case name: the text in JSON.
std::string_view key(ExportFallback fallback);
/// One short text for reports and the list at the end of a run.
std::string_view title(ExportFallback fallback);

struct RenderedCrop {
    Picture picture;
    std::vector<ExportFallback> fallbacks;
};

namespace CropRenderer {

/// What a crop asks of its renderer, from the export request.
struct Wanted {
    /// The crop rectangle in source pixels, and as it will be cut.
    Rect rect;
    CropGeometry geometry;
    const ExportSettings& settings;
    std::optional<Point> headAnchor;
    /// Null: nobody can be cut out here, which counts as a failed matte.
    const ChildCutter* cutter = nullptr;
    /// Once requested, `render` fails soon.
    std::stop_token stop = {};
    /// Keeps the backdrop photographs of a run; may be null.
    DecodedPlates* plates = nullptr;
};

/// `photo` is used up. Fails only when nothing can be drawn.
Result<RenderedCrop> render(DecodedRegion photo, const Wanted& wanted);

/// The same composition from a reduced photo (of full size `photoSize`), in sRGB and
/// `outputHeight` pixels high: what the finished file will look like. `wanted.geometry` plays no
/// part. Fails with a sentence when the photo cannot be read or the rectangle is empty.
Result<RenderedCrop> preview(const std::filesystem::path& file, Size photoSize,
                             double rotationDegrees, Wanted wanted, int outputHeight);

}  // namespace CropRenderer

}  // namespace morva
