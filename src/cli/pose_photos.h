// SPDX-License-Identifier: GPL-3.0-or-later
// Photos as poses see them. Measures what is not in the caches yet and keeps it there; the commands
// around poses learn from the features or look for poses in them.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/result.h"
#include "cli/arguments.h"
#include "cli/console.h"

namespace morva {

struct PosePhoto {
    std::filesystem::path file;
    /// Empty when the photo could not be measured; `problem` says why.
    std::vector<float> features;
    std::string problem;
    /// Photos of one number show one child.
    int group = 0;
};

/// What `PosePhoto`s are made of the photos, in their order. Fails when no photo can be measured at
/// all; ends early, with fewer photos, when the user interrupts.
Result<std::vector<PosePhoto>> posePhotos(const std::vector<std::filesystem::path>& photos,
                                          int jobs, const Arguments& common, Console& console);

}  // namespace morva
