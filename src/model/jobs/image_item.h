// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "analysis/image_loader.h"
#include "analysis/record/image_analysis.h"
#include "base/json.h"
#include "base/uuid.h"
#include "crop/crop_solution.h"
#include "crop/manual_adjustment.h"
#include "model/presets/crop_preset.h"

namespace morva {

/// The state of a file when it was analysed; another one means that it must be analysed again.
using FileStamp = FileSignature;

/// Where a photo stands. Derived, never stored.
enum class ItemStatus { pending, ready, review, approved, failed, error };

/// What a person reads for it, "Not cropped yet".
std::string_view label(ItemStatus status);

/// One photo of a job: what was measured, what the user decided, what was written.
struct ImageItem {
    /// Stable within the job; plain text, unlike a path.
    std::string id;
    std::filesystem::path url;
    /// Below the job's folder.
    std::filesystem::path relativePath;
    std::optional<ImageAnalysis> analysis;
    ManualAdjustment adjustment;
    bool approved = false;
    /// Seconds since 1970.
    std::optional<double> exportedAt;
    std::optional<Rect> approvedRect;
    std::optional<Rect> exportedRect;
    std::optional<int> exportedHeight;
    /// A preset chosen for this photo alone.
    std::optional<Uuid> presetOverride;
    std::optional<FileStamp> analyzedStamp;

    // Not saved; computed again after loading.

    /// The preset that `solution` was solved with.
    std::optional<Uuid> presetID;
    std::optional<CropSolution> solution;

    bool hasAdjustment() const { return !adjustment.isIdentity(); }
    /// Without an analysis of the current kind, or with one of an older state of the file.
    bool needsAnalysis(const std::optional<FileStamp>& current) const;
    /// `backdrop`: how the preset that applies fills what lies outside the photo.
    ItemStatus status(BackdropMode backdrop) const;
    /// The crop as adjusted lacks canvas that no backdrop may stand in for.
    bool lacksCanvas(BackdropMode backdrop) const;

    bool operator==(const ImageItem&) const = default;
};

void to_json(Json& json, const FileStamp& stamp);
void from_json(const Json& json, FileStamp& stamp);
/// Reading requires identity, file and relative path. An analysis that cannot be read counts as
/// absent: it can be made again, the user's decisions beside it cannot.
void to_json(Json& json, const ImageItem& item);
void from_json(const Json& json, ImageItem& item);

}  // namespace morva
