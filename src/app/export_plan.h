// SPDX-License-Identifier: GPL-3.0-or-later
// Which photos of a job an export would write, and where. Made for the export sheet and again when
// the export begins; writes nothing.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <span>
#include <vector>

#include "app/working_job.h"
#include "model/presets/crop_preset.h"

namespace morva {

struct ExportPlan {
    struct Wishes {
        std::filesystem::path destination;
        bool approvedOnly = false;
        bool replaceExisting = false;
    };

    /// Edges of a crop that moved less than this many pixels are where they were: solving again may
    /// land a trifle beside.
    static constexpr double sameCrop = 0.5;

    /// Photos to write, in the job's order, by index.
    std::vector<std::size_t> write;
    /// Approved or ready photos whose file is there with the same crop.
    int unchanged = 0;
    /// Photos that wait for a look, and without a face or unreadable; ready ones too where only
    /// approved photos are wanted.
    int review = 0;
    /// Not cropped yet.
    int pending = 0;
    /// The file of every photo to write, by its source.
    std::map<std::filesystem::path, std::filesystem::path> destinations;

    /// `isThere` tells whether a file exists.
    static ExportPlan of(const WorkingJob& job, std::span<const CropPreset> presets,
                         const Wishes& wishes,
                         const std::function<bool(const std::filesystem::path&)>& isThere);

    /// The same without `destinations`, for one look at what would be written. `isThere` tells it
    /// of the file of the photo at an index.
    static ExportPlan counted(const WorkingJob& job, std::span<const CropPreset> presets,
                              const Wishes& wishes,
                              const std::function<bool(std::size_t)>& isThere);

    /// The photos to write or left untouched.
    int candidates() const { return static_cast<int>(write.size()) + unchanged; }
};

/// Whether a photo would be exported, were everything replaced.
bool isExportCandidate(ItemStatus status, bool approvedOnly);

}  // namespace morva
