// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/json.h"
#include "base/uuid.h"
#include "crop/crop_rule.h"
#include "model/jobs/image_item.h"

namespace morva {

/// One imported folder of portraits: its photos, its crop type and what was exported. The job
/// store keeps it; the application changes it on its main thread.
struct Job {
    Uuid id = Uuid::random();
    /// The folder's name at import.
    std::string name;
    std::filesystem::path folderURL;
    /// `PresetLibrary::autoPresetID` while `autoAssign` picks each photo's preset.
    Uuid presetID;
    /// In import order.
    std::vector<ImageItem> items;
    std::optional<std::filesystem::path> exportFolder;
    /// Seconds since 1970.
    std::optional<double> lastExportAt;
    double createdAt = 0;
    /// The rules pick each photo's preset.
    bool autoAssign = false;
    std::vector<CropRule> rules;
    /// The answer to "Is this shoot showing feet?"; absent when it was not asked.
    std::optional<bool> showsFeet;

    bool operator==(const Job&) const = default;
};

/// The saved form; solutions are left out. Reading requires identity, name, folder, preset, photos
/// and time of creation; job files from before automatic rules and the question about feet load.
void to_json(Json& json, const Job& job);
void from_json(const Json& json, Job& job);

/// The saved form as text, photo by photo: the whole of ten thousand photos in one tree of JSON
/// takes a third longer and ten times the memory.
std::string jobText(const Job& job);

}  // namespace morva
