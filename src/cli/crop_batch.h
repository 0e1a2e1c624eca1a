// SPDX-License-Identifier: GPL-3.0-or-later
// One photo from file to finished crop: analysis, solving, export, guides. Called by the workers
// of "crop"; every photo is independent, nothing is shared but the detectors.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <vector>

#include "cli/arguments.h"
#include "cli/photo_outcome.h"
#include "model/presets/crop_preset.h"
#include "vision/vision_services.h"

namespace morva {

struct CropBatch {
    std::vector<std::filesystem::path> photos;
    CropPreset preset;
    Approval approve = Approval::all;
    bool force = false;
    bool dryRun = false;
    /// Where each photo's crop goes.
    std::map<std::filesystem::path, std::filesystem::path> destinations;
    /// Where each photo's guides go; empty when none are wanted.
    std::map<std::filesystem::path, std::filesystem::path> overlays;
    VisionServices vision;

    /// Safe to call from several threads at once; never throws.
    PhotoOutcome crop(std::size_t index) const;
};

}  // namespace morva
