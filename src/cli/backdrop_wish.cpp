// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/backdrop_wish.h"

#include <charconv>
#include <optional>

#include "imaging/decode.h"
#include "output/backdrop_library.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

constexpr const char* colorMark = "color:";

std::optional<Rgb> colorOf(std::string_view text) {
    if (text.size() != 7 || text[0] != '#') return std::nullopt;
    unsigned value = 0;
    const auto [end, error] = std::from_chars(text.data() + 1, text.data() + 7, value, 16);
    if (error != std::errc() || end != text.data() + 7) return std::nullopt;
    return Rgb{(value >> 16) / 255.0, (value >> 8 & 255) / 255.0, (value & 255) / 255.0};
}

void replaceBy(ExportSettings& settings, std::optional<fs::path> plate, std::optional<Rgb> color) {
    settings.backdrop = BackdropMode::replace;
    settings.plateURL = std::move(plate);
    settings.backdropColor = color;
}

std::vector<std::string> giveSuggested(PresetSelection& selection, const fs::path& dataFolder) {
    const BackdropMemory memory(dataFolder);
    std::optional<std::vector<Backdrop>> library;
    std::vector<std::string> told;
    const auto listed = [&]() -> const std::vector<Backdrop>& {
        if (!library) library = BackdropLibrary::plates(BackdropLibrary::folders(dataFolder));
        return *library;
    };
    selection.changeThoseInUse([&](CropPreset& preset) {
        auto plate = memory.plateFor(preset.id, preset.aspectRatio(), listed);
        told.push_back("Backdrop of " + preset.name + ": " +
                       (plate ? plate->string() : "generated, in the colour of each photo") + ".");
        replaceBy(preset.exportSettings, std::move(plate), {});
    });
    return told;
}

}  // namespace

Result<BackdropWish> BackdropWish::parse(const std::string& text) {
    if (text == "keep") return BackdropWish{BackdropMode::keep};
    if (text == "repeat") return BackdropWish{BackdropMode::repeatEdges};
    if (text == "auto") return BackdropWish{Automatic{}};
    if (text.empty()) return failure("must not be empty");
    if (!text.starts_with(colorMark)) return BackdropWish{fs::path(text)};
    const auto color = colorOf(std::string_view(text).substr(std::string_view(colorMark).size()));
    if (!color) return failure("\"" + text + "\" is no colour; write color:#rrggbb");
    return BackdropWish{*color};
}

Result<std::vector<std::string>> BackdropWish::apply(PresetSelection& selection,
                                                     const fs::path& dataFolder) const {
    if (std::holds_alternative<Automatic>(what)) return giveSuggested(selection, dataFolder);
    if (const auto* plate = std::get_if<fs::path>(&what)) {
        if (const auto read = decodeRegion(*plate, Rect{}, 0); !read)
            return tl::unexpected(read.error());
    }
    selection.changeThoseInUse([&](CropPreset& preset) {
        ExportSettings& settings = preset.exportSettings;
        if (const auto* mode = std::get_if<BackdropMode>(&what))
            settings.backdrop = *mode;
        else if (const auto* color = std::get_if<Rgb>(&what))
            replaceBy(settings, {}, *color);
        else
            replaceBy(settings, fs::absolute(std::get<fs::path>(what)), {});
    });
    return std::vector<std::string>();
}

Result<void> BackdropWish::remember(const PresetSelection& selection,
                                    const fs::path& dataFolder) const {
    const auto* plate = std::get_if<fs::path>(&what);
    if (!plate) return {};
    const BackdropMemory memory(dataFolder);
    for (const CropPreset* preset : selection.inUse())
        if (auto kept = memory.remember(preset->id, *plate); !kept) return kept;
    return {};
}

}  // namespace morva
