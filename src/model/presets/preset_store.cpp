// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/presets/preset_store.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "base/files.h"
#include "base/json.h"
#include "model/presets/preset_library.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

constexpr int firstVersion = 1;

/// The version that a library of `count` presets was last brought up to.
int versionIn(const fs::path& file, std::size_t count) {
    const int assumed = count == 0 ? PresetLibrary::version : firstVersion;
    const auto text = readFile(file);
    if (!text) return assumed;
    const auto start = text->find_first_not_of(" \t\r\n");
    if (start == std::string::npos) return assumed;
    int version = 0;
    const auto end = std::from_chars(text->data() + start, text->data() + text->size(), version);
    return end.ec == std::errc{} ? version : assumed;
}

struct Library {
    std::vector<CropPreset> presets;
    std::vector<Failure> problems;
};

/// One preset that cannot be read does not take the others with it.
Library presetsIn(const fs::path& file, const std::string& text) {
    Library library;
    const auto list = parsedJson(text, "the presets in " + file.string());
    if (!list || !list->is_array()) {
        library.problems.push_back(
            list ? Failure{"The presets in " + file.string() + " are not a list."} : list.error());
        return library;
    }
    for (const Json& entry : *list) {
        auto preset = valueOf<CropPreset>(entry, "a preset in " + file.string());
        if (preset)
            library.presets.push_back(std::move(*preset));
        else
            library.problems.push_back(preset.error());
    }
    return library;
}

/// The built-in presets in their order, then the user's own in theirs.
std::vector<CropPreset> renewed(const std::vector<CropPreset>& stored) {
    std::vector<CropPreset> presets = PresetLibrary::standardLibrary();
    for (const CropPreset& preset : stored) {
        if (!PresetLibrary::replacement(preset.id)) presets.push_back(preset);
    }
    return presets;
}

}  // namespace

PresetStore::PresetStore(fs::path directory) : directory_(std::move(directory)) {}

fs::path PresetStore::fileURL() const { return directory_ / "presets.json"; }
fs::path PresetStore::versionURL() const { return directory_ / "library-version.txt"; }

PresetStore::Stored PresetStore::read(std::vector<Failure>& problems, FolderAccess access) const {
    Stored stored;
    if (isThere(fileURL())) {
        const auto text = readFile(fileURL());
        if (text && !text->empty()) {
            Library library = presetsIn(fileURL(), *text);
            stored.presets = std::move(library.presets);
            if (!library.problems.empty() && access == FolderAccess::holding) {
                if (const auto moved = setAside(fileURL()); !moved)
                    library.problems.push_back(moved.error());
            }
            problems.insert(problems.end(), library.problems.begin(), library.problems.end());
        } else if (!text) {
            problems.push_back(text.error());
            stored.isRead = false;
        }
    }
    stored.version = versionIn(versionURL(), stored.presets.size());
    return stored;
}

PresetStore::Loaded PresetStore::load(
    const std::function<std::optional<fs::path>(const CropPreset&)>& suggestPlate,
    FolderAccess access) const {
    Loaded loaded;
    Stored stored = read(loaded.problems, access);
    loaded.presets = std::move(stored.presets);
    const bool old = loaded.presets.empty() || stored.version < PresetLibrary::version;
    if (old) {
        loaded.presets = renewed(loaded.presets);
        for (CropPreset& preset : loaded.presets) {
            if (suggestPlate && PresetLibrary::replacement(preset.id))
                preset.exportSettings.plateURL = suggestPlate(preset);
        }
    }
    // A file that could not even be read may be readable later: nothing is written over it.
    const bool incomplete = !isThere(fileURL()) || !isThere(versionURL());
    if ((old || incomplete) && stored.isRead && access == FolderAccess::holding) {
        if (const auto saved = save(loaded.presets); !saved)
            loaded.problems.push_back(saved.error());
    }
    return loaded;
}

Result<void> PresetStore::save(const std::vector<CropPreset>& presets) const {
    if (auto made = makeFolder(directory_); !made) return made;
    auto written = writeFileAtomically(fileURL(), jsonText(presets, 2) + "\n");
    if (!written) return written;
    return writeFileAtomically(versionURL(), std::to_string(PresetLibrary::version) + "\n");
}

std::string uniquePresetName(const std::vector<CropPreset>& presets, const std::string& base) {
    std::string name = base;
    for (int number = 2; std::ranges::find(presets, name, &CropPreset::name) != presets.end();
         ++number) {
        name = base + " " + std::to_string(number);
    }
    return name;
}

CropPreset newPreset(const std::string& name) {
    CropPreset preset = PresetLibrary::standardPreset(PresetLibrary::headshotID());
    preset.id = Uuid::random();
    preset.name = name;
    return preset;
}

}  // namespace morva
