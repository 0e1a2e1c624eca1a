// SPDX-License-Identifier: GPL-3.0-or-later
// The backdrop photographs that are offered, and which one each crop type used last. Called by the
// backdrop set-up and the command line; opens plates only for their size.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/result.h"
#include "base/uuid.h"

namespace morva {

struct Backdrop {
    std::filesystem::path file;
    /// Upright, in pixels.
    int width = 0;
    int height = 0;

    bool operator==(const Backdrop&) const = default;
};

namespace BackdropLibrary {

/// Name of the folders that plates are found in.
inline constexpr const char* folderName = "Backdrops";

/// Beside the program, then in the user's data folder; they need not exist.
std::vector<std::filesystem::path> folders(const std::filesystem::path& dataFolder);

/// One plate, from wherever it lies; nothing when it cannot be read.
std::optional<Backdrop> plate(const std::filesystem::path& file);

/// The plates of the folders and below, in natural order folder by folder. Files that cannot be
/// read are left out.
std::vector<Backdrop> plates(std::span<const std::filesystem::path> folders);

/// Those that lie like a crop of that ratio (width over height): landscape when it is wider than
/// high, else portrait. All of them when none does. The first is the one to suggest.
std::vector<Backdrop> suggestions(const std::vector<Backdrop>& plates, double aspectRatio);

}  // namespace BackdropLibrary

/// The plate that each crop type used last, by the preset's identity, in "backdrops.json".
class BackdropMemory {
public:
    explicit BackdropMemory(std::filesystem::path directory);

    std::filesystem::path fileURL() const;

    /// Nothing where none is remembered, its file is gone, or the memory cannot be understood.
    std::optional<std::filesystem::path> plate(const Uuid& preset) const;

    /// The plate to offer for a crop type of that ratio: the remembered one, else the best of those
    /// listed. `plates` is asked only when it matters.
    std::optional<std::filesystem::path> plateFor(
        const Uuid& preset, double aspectRatio,
        const std::function<const std::vector<Backdrop>&()>& plates) const;

    /// Writes the memory, making the directory if need be. A file that cannot be understood is
    /// first moved aside, as "backdrops.unreadable.json".
    Result<void> remember(const Uuid& preset, const std::filesystem::path& plate) const;

private:
    using Plates = std::map<std::string, std::string>;
    Result<Plates> read() const;

    std::filesystem::path directory_;
};

}  // namespace morva
