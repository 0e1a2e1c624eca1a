// SPDX-License-Identifier: GPL-3.0-or-later
// The set-up of backdrops for a job: which crop types it will have, which plate each of them gets,
// and whether feet are shown. Part of the application state, on the main thread; the chosen plates
// end up in the presets' export settings and are remembered per crop type.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include <QObject>

#include "base/uuid.h"
#include "model/presets/crop_preset.h"
#include "output/backdrop_library.h"

namespace morva {

class AppState;
class BackdropPreview;

class BackdropSetup final : public QObject {
    Q_OBJECT

public:
    using Path = std::filesystem::path;

    /// What a crop type is going to get.
    struct Choice {
        /// The backdrop is replaced; else it stays as it is, or is no longer replaced.
        bool isOn = false;
        /// The backdrop photograph; absent: one made in the colour of each photo's own backdrop.
        std::optional<Path> plate;
        /// As in the export settings.
        double zoom = 1.45;
        double vignette = 0.6;
        bool floorReflection = true;

        bool operator==(const Choice&) const = default;
    };

    explicit BackdropSetup(AppState& state);
    ~BackdropSetup() override;

    /// The sheet is on screen.
    bool isShown() const { return isShown_; }
    /// The answer to "Is this shoot showing feet?"; absent when it was not asked.
    std::optional<bool> showsFeet() const { return showsFeet_; }
    /// Crop types that the job is likely to have, in the library's order.
    const std::vector<Uuid>& presetIDs() const { return presetIDs_; }
    /// The plates there are, and those that were added; empty until they are listed.
    const std::vector<Backdrop>& plates() const { return plates_; }
    /// The plates were looked for.
    bool isListed() const { return isListed_; }
    Choice choice(const Uuid& preset) const;
    /// Draws photos on their new backdrops.
    BackdropPreview& previews();
    /// The export settings that a crop type would have.
    ExportSettings settingsFor(const CropPreset& preset) const;

    /// Shows the sheet for the selected job and lists the plates, with the one used last or the
    /// best fitting one chosen for each crop type.
    void begin();
    void dismiss();
    void answerFeet(bool shows);
    void choose(const Uuid& preset, const Choice& choice);
    /// Takes a plate from anywhere into the list, in the background, and chooses it.
    void addPlate(const Uuid& preset, const Path& file);
    /// Gives the presets their plates, as one step to undo, and closes the sheet.
    void apply();

    /// The job's crop types may be others.
    void refreshSuggestions();

signals:
    void changed();

private:
    void beginChoices();

    AppState& state_;
    bool isShown_ = false;
    std::optional<bool> showsFeet_;
    std::vector<Uuid> presetIDs_;
    std::vector<Backdrop> plates_;
    bool isListed_ = false;
    std::unordered_map<Uuid, Choice> choices_;
    /// Made when first asked for.
    std::unique_ptr<BackdropPreview> previews_;
};

}  // namespace morva
