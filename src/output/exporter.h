// SPDX-License-Identifier: GPL-3.0-or-later
// Turns one photo and its settled crop into one finished JPEG. Called by the export flow, from
// several threads at once; keeps nothing between requests and never changes a source photo.
#pragma once

#include <filesystem>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include <tl/expected.hpp>

#include "base/geometry.h"
#include "base/result.h"
#include "model/presets/export_settings.h"
#include "output/crop_renderer.h"
#include "output/cut_out.h"
#include "output/decoded_plates.h"
#include "output/export_error.h"
#include "output/export_paths.h"

namespace morva::Exporter {

/// One photo to export.
struct Request {
    std::filesystem::path sourceURL;
    /// From `destinationURLs`. What is there is replaced once the new file is complete.
    std::filesystem::path destinationURL;
    /// The crop in the frame levelled by `rotationDegrees`, in source pixels of the upright photo;
    /// it may reach outside the photo.
    Rect rect;
    double rotationDegrees = 0;
    ExportSettings settings;
    /// Where the head should sit on a backdrop, in source pixels.
    std::optional<Point> headAnchor;
    /// Keeps the backdrop photographs of the run that the photo belongs to; may be null.
    DecodedPlates* plates = nullptr;
};

/// A crop that was written.
struct Exported {
    std::vector<ExportFallback> fallbacks;
};

/// Writes the destination, and the folders that lead to it. It appears under its name only when
/// complete. The first thing that fails, in this order, is returned: empty crop, destination is the
/// source, unreadable source, rendering, folder, writing. `cutter` cuts out the child of this
/// photo; only `BackdropMode::replace` calls it.
tl::expected<Exported, ExportError> exportPhoto(const Request& request,
                                                const ChildCutter* cutter = nullptr);

// The two halves of `exportPhoto`, for a run that can be cancelled: up to the second one nothing of
// a crop is on disk.

/// A crop that is ready to be written.
struct Finished {
    /// The whole file.
    std::string jpeg;
    std::vector<ExportFallback> fallbacks;
};
/// Fails with `cancelled` once `stop` is requested, which is looked at between the steps.
tl::expected<Finished, ExportError> finish(const Request& request, const ChildCutter* cutter,
                                           const std::stop_token& stop);
tl::expected<void, ExportError> write(const Request& request, const std::string& jpeg);

/// Leaves `ImageLoader::exportMarkerName` in `folder`, by which an import passes over it.
Result<void> markExportFolder(const std::filesystem::path& folder);

}  // namespace morva::Exporter
