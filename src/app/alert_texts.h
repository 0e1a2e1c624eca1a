// SPDX-License-Identifier: GPL-3.0-or-later
// Every alert of the application, titles and sentences in one place.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "app/app_types.h"
#include "base/result.h"
#include "model/presets/crop_preset.h"

namespace morva::AlertTexts {

/// Crop run.
AlertInfo alreadyCropped(const std::string& job);
AlertInfo analysisUnavailable(const std::string& reason);

/// Import.
AlertInfo noPhotos(const std::filesystem::path& folder);
AlertInfo folderUnreadable(const std::string& reason);

/// Export.
AlertInfo cropFirst();
AlertInfo insideTheJob();
AlertInfo wrongRatio(const CropPreset& preset);
/// `unchanged`: how many photos are in the folder with the same crop.
AlertInfo nothingNew(int unchanged);
AlertInfo folderNotMade(const std::string& reason);
AlertInfo notAllExported(int failed, int total);
AlertInfo reportNotWritten(const std::string& reason);
AlertInfo reviewListNotSaved(const std::string& reason);

/// Reference portrait.
AlertInfo referenceUnusable(const std::string& reason);
AlertInfo referenceNotes(std::span<const std::string> notes);

/// Poses.
AlertInfo notAPosePack(const std::filesystem::path& pack);
AlertInfo posesNotSaved(const std::string& reason);

/// Backdrops.
AlertInfo plateUnreadable(const std::filesystem::path& plate);

/// Stores.
AlertInfo notReadAtStart(std::span<const Failure> problems);
AlertInfo notSaved(const std::string& reason);
/// Nothing can be written into the data folder; `reason` says which program holds it.
AlertInfo readOnly(const std::string& reason);
/// A second task was asked for while one runs.
AlertInfo busy(const std::string& task);

}  // namespace morva::AlertTexts
