// SPDX-License-Identifier: GPL-3.0-or-later
// The set-up of backdrops for a job: which crop types it will have, which plate each of them gets,
// and whether feet are shown. Part of the application state, on the main thread; the chosen plates
// end up in the presets' export settings and are remembered per crop type.
#pragma once

#include <filesystem>
#include <optional>
#include <unordered_map>
#include <vector>

#include <QObject>

#include "base/uuid.h"
#include "output/backdrop_library.h"

namespace morva {

class AppState;

class BackdropSetup final : public QObject {
    Q_OBJECT

public:
    using Path = std::filesystem::path;

    explicit BackdropSetup(AppState& state) : state_(state) {}

    /// The sheet is on screen.
    bool isShown() const { return isShown_; }
    /// The answer to "Is this shoot showing feet?"; absent when it was not asked.
    std::optional<bool> showsFeet() const { return showsFeet_; }
    /// Crop types that the job is likely to have, in the library's order.
    const std::vector<Uuid>& presetIDs() const { return presetIDs_; }
    /// The plates there are; empty until they are listed.
    const std::vector<Backdrop>& plates() const { return plates_; }
    /// The plate that a crop type is going to get; none for a crop type that stays as it is.
    std::optional<Path> chosenPlate(const Uuid& preset) const;

    /// Shows the sheet for the selected job and lists the plates, with the one used last or the
    /// best fitting one chosen for each crop type.
    void begin();
    void dismiss();
    void answerFeet(bool shows);
    void choosePlate(const Uuid& preset, const std::optional<Path>& plate);
    /// Gives the presets their plates, as one step to undo, and closes the sheet.
    void apply();

    /// The job's crop types may be others.
    void refreshSuggestions();

signals:
    void changed();

private:
    void choosePlates();

    AppState& state_;
    bool isShown_ = false;
    std::optional<bool> showsFeet_;
    std::vector<Uuid> presetIDs_;
    std::vector<Backdrop> plates_;
    std::unordered_map<Uuid, std::optional<Path>> chosen_;
};

}  // namespace morva
