// SPDX-License-Identifier: GPL-3.0-or-later
// The second half of a photo's way, from its measurements to the finished crop: solving, export,
// guides. Called by the workers of "crop"; every photo is independent, they share
// decoded backdrops only.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "cli/arguments.h"
#include "cli/photo_outcome.h"
#include "cli/preset_selection.h"
#include "output/cut_out.h"
#include "output/decoded_plates.h"

namespace morva {

struct CropBatch {
    std::vector<std::filesystem::path> photos;
    Approval approve = Approval::all;
    bool force = false;
    bool dryRun = false;
    /// Where each photo's crop goes.
    std::map<std::filesystem::path, std::filesystem::path> destinations;
    /// Where each photo's guides go; empty when none are wanted.
    std::map<std::filesystem::path, std::filesystem::path> overlays;
    /// Makes the one who cuts out the child of an analysed photo.
    std::function<std::unique_ptr<ChildCutter>(const std::filesystem::path&, const ImageAnalysis&)>
        cutterFor;
    std::shared_ptr<DecodedPlates> plates = std::make_shared<DecodedPlates>();

    /// Safe to call from several threads at once; never throws.
    PhotoOutcome crop(std::size_t index, const ImageAnalysis& analysis,
                      const PhotoPlan& plan) const;
};

}  // namespace morva
