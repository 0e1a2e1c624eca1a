// SPDX-License-Identifier: GPL-3.0-or-later
// The user's preset library on disk: the built-in crop types, which improve from version to
// version, and the user's own, which are never changed. A file that cannot be understood is moved
// aside and never overwritten.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/files.h"
#include "base/result.h"
#include "model/presets/crop_preset.h"

namespace morva {

class PresetStore {
public:
    /// Presets are kept in `directory`.
    explicit PresetStore(std::filesystem::path directory);

    /// "presets.json" and "library-version.txt" in the directory.
    std::filesystem::path fileURL() const;
    std::filesystem::path versionURL() const;

    struct Loaded {
        std::vector<CropPreset> presets;
        /// What could not be read or written, in sentences; the library is usable all the same.
        std::vector<Failure> problems;
    };
    /// The library, brought up to the program's version and saved. A first start gives the built-in
    /// presets. Built-in presets of an older library are replaced by their current version, missing
    /// ones come back, own presets stay as they are. `suggestPlate` gives a renewed built-in preset
    /// its backdrop image; absent for none. A library of a newer program is read and left alone,
    /// and any that is only looked at.
    Loaded load(const std::function<std::optional<std::filesystem::path>(const CropPreset&)>&
                    suggestPlate = {},
                FolderAccess access = FolderAccess::holding) const;

    /// Writes the library and the current version, making the directory if need be.
    Result<void> save(const std::vector<CropPreset>& presets) const;

private:
    struct Stored {
        std::vector<CropPreset> presets;
        int version = 0;
        /// False when a file is there and the disk does not give it.
        bool isRead = true;
    };
    Stored read(std::vector<Failure>& problems, FolderAccess access) const;

    std::filesystem::path directory_;
};

/// `base`, or "base 2", "base 3" and so on where presets of that name are there.
std::string uniquePresetName(const std::vector<CropPreset>& presets, const std::string& base);

/// A copy of the built-in headshot under a fresh identity.
CropPreset newPreset(const std::string& name);

}  // namespace morva
