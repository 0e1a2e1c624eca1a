// SPDX-License-Identifier: GPL-3.0-or-later
// A quick look at a crop for thumbnails and the inspector, in sRGB, from a reduced photo. Shows the
// same cut and turn as the exporter; never writes.
#pragma once

#include <filesystem>
#include <optional>
#include <span>

#include "base/geometry.h"
#include "imaging/raster.h"

namespace morva::PreviewRenderer {

/// The crop `rect` of the frame levelled by `rotationDegrees`, both in pixels of the full photo of
/// `sourceSize`, drawn `outputHeight` pixels high from `image`, the whole photo reduced. Outside
/// the photo lies `fill` (red, green, blue, 0 to 1), or grey when it has not exactly three
/// components. Nothing for an empty rectangle.
std::optional<Picture> cropPreview(const Picture& image, const Rect& rect, double rotationDegrees,
                                   Size sourceSize, int outputHeight,
                                   std::span<const double> fill = {});

/// The same from the file, decoded with its longer side at most `decodeMaxPixel`. Nothing when it
/// cannot be read.
std::optional<Picture> cropPreview(const std::filesystem::path& file, const Rect& rect,
                                   double rotationDegrees, Size sourceSize, int outputHeight,
                                   int decodeMaxPixel, std::span<const double> fill = {});

}  // namespace morva::PreviewRenderer
