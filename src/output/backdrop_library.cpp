// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/backdrop_library.h"

#include <algorithm>
#include <iterator>
#include <system_error>
#include <utility>

#include "analysis/image_loader.h"
#include "base/files.h"
#include "base/json.h"
#include "imaging/decode.h"

namespace morva {

namespace fs = std::filesystem;

namespace BackdropLibrary {

std::vector<fs::path> folders(const fs::path& dataFolder) {
    std::error_code none;
    const fs::path program = fs::read_symlink("/proc/self/exe", none);
    return {program.parent_path() / folderName, dataFolder / folderName};
}

std::optional<Backdrop> plate(const fs::path& file) {
    const auto read = decodeRegion(file, Rect{}, 0);
    if (!read) return std::nullopt;
    return Backdrop{file, read->sourceWidth, read->sourceHeight};
}

std::vector<Backdrop> plates(std::span<const fs::path> folders) {
    std::vector<Backdrop> found;
    for (const fs::path& folder : folders) {
        const auto files = ImageLoader::listImages(folder);
        if (!files) continue;
        for (const fs::path& file : *files) {
            if (auto read = plate(file)) found.push_back(std::move(*read));
        }
    }
    return found;
}

std::vector<Backdrop> suggestions(const std::vector<Backdrop>& plates, double aspectRatio) {
    std::vector<Backdrop> fitting;
    std::ranges::copy_if(plates, std::back_inserter(fitting), [&](const Backdrop& plate) {
        return (plate.width > plate.height) == (aspectRatio > 1);
    });
    return fitting.empty() ? plates : fitting;
}

}  // namespace BackdropLibrary

BackdropMemory::BackdropMemory(fs::path directory) : directory_(std::move(directory)) {}

fs::path BackdropMemory::fileURL() const { return directory_ / "backdrops.json"; }

Result<BackdropMemory::Plates> BackdropMemory::read() const {
    if (!isThere(fileURL())) return Plates();
    return readFile(fileURL()).and_then([&](const std::string& text) {
        return decoded<Plates>(text, "the backdrops in " + fileURL().string());
    });
}

std::optional<fs::path> BackdropMemory::plate(const Uuid& preset) const {
    const auto plates = read();
    if (!plates) return std::nullopt;
    const auto found = plates->find(preset.text());
    std::error_code none;
    if (found == plates->end() || !fs::is_regular_file(found->second, none)) return std::nullopt;
    return found->second;
}

std::optional<fs::path> BackdropMemory::plateFor(
    const Uuid& preset, double aspectRatio,
    const std::function<const std::vector<Backdrop>&()>& plates) const {
    if (auto remembered = plate(preset)) return remembered;
    const auto fitting = BackdropLibrary::suggestions(plates(), aspectRatio);
    return fitting.empty() ? std::nullopt : std::optional(fitting.front().file);
}

Result<void> BackdropMemory::remember(const Uuid& preset, const fs::path& plate) const {
    if (auto made = makeFolder(directory_); !made) return made;
    auto plates = read();
    if (!plates) {
        if (auto aside = setAside(fileURL()); !aside) return aside;
        plates = Plates();
    }
    (*plates)[preset.text()] = fs::absolute(plate).lexically_normal().string();
    try {
        return writeFileAtomically(fileURL(), Json(*plates).dump(2) + "\n");
    } catch (const Json::exception&) {
        return failure("Could not remember " + plate.string() + ": its name is not UTF-8.");
    }
}

}  // namespace morva
