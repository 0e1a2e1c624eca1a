// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/backdrop_setup.h"

#include <algorithm>
#include <unordered_set>

#include "app/alert_texts.h"
#include "app/app_state.h"
#include "app/backdrop_preview.h"

namespace morva {

namespace {

/// The crop types that a job can come to, as far as its choices tell.
std::unordered_set<Uuid> cropTypesOf(const Job& job, const std::vector<CropPreset>& presets) {
    std::unordered_set<Uuid> used{JobSolver::fallbackPreset(job, presets).id};
    for (const CropRule& rule : job.rules)
        if (job.autoAssign && rule.enabled) used.insert(rule.presetID);
    for (const ImageItem& item : job.items)
        if (item.presetOverride) used.insert(*item.presetOverride);
    return used;
}

}  // namespace

BackdropSetup::BackdropSetup(AppState& state) : state_(state) {}
BackdropSetup::~BackdropSetup() = default;

BackdropPreview& BackdropSetup::previews() {
    if (!previews_)
        previews_ =
            std::make_unique<BackdropPreview>(state_.services().cutterFor, callbacksOf(*this));
    return *previews_;
}

BackdropSetup::Choice BackdropSetup::choice(const Uuid& preset) const {
    const auto found = choices_.find(preset);
    return found == choices_.end() ? Choice{} : found->second;
}

ExportSettings BackdropSetup::settingsFor(const CropPreset& preset) const {
    ExportSettings settings = preset.exportSettings;
    const Choice chosen = choice(preset.id);
    if (!chosen.isOn) {
        if (settings.backdrop == BackdropMode::replace) settings.backdrop = BackdropMode::keep;
        return settings;
    }
    settings.backdrop = BackdropMode::replace;
    settings.plateURL = chosen.plate;
    settings.plateZoom = chosen.zoom;
    settings.backdropVignette = chosen.vignette;
    settings.floorReflection = chosen.floorReflection;
    return settings;
}

void BackdropSetup::refreshSuggestions() {
    presetIDs_.clear();
    const WorkingJob* job = state_.selectedJob();
    if (job) {
        std::unordered_set<Uuid> used = cropTypesOf(job->job(), state_.presets());
        for (const CropPreset& preset : state_.presets()) {
            const bool showsFeet = preset.framing == Framing::fullLength;
            const bool suggested = showsFeet && showsFeet_ ? *showsFeet_ : used.contains(preset.id);
            if (suggested) presetIDs_.push_back(preset.id);
        }
    }
    beginChoices();
    emit changed();
}

void BackdropSetup::begin() {
    const WorkingJob* job = state_.selectedJob();
    if (!job || !state_.mayChange()) return;
    isShown_ = true;
    showsFeet_ = job->job().showsFeet;
    choices_.clear();
    plates_.clear();
    isListed_ = false;
    refreshSuggestions();
    state_.background().run(
        [folder = state_.services().folders.data] {
            return BackdropLibrary::plates(BackdropLibrary::folders(folder));
        },
        [this](std::vector<Backdrop> plates) {
            plates_ = std::move(plates);
            isListed_ = true;
            beginChoices();
            emit changed();
        });
}

void BackdropSetup::beginChoices() {
    if (!isListed_) return;
    const BackdropMemory memory(state_.services().folders.data);
    for (const Uuid& id : presetIDs_) {
        if (choices_.contains(id)) continue;
        const CropPreset* preset = state_.preset(id);
        const ExportSettings& now = preset->exportSettings;
        const bool isReplaced = now.backdrop == BackdropMode::replace;
        Choice begun{.isOn = isReplaced,
                     .plate = isReplaced ? now.plateURL : std::nullopt,
                     .zoom = now.plateZoom,
                     .vignette = now.backdropVignette,
                     .floorReflection = now.floorReflection};
        if (!isReplaced) {
            begun.plate =
                memory.plateFor(id, preset->aspectRatio(),
                                [&]() -> const std::vector<Backdrop>& { return plates_; });
            begun.isOn = begun.plate.has_value();
        }
        choices_[id] = begun;
    }
}

void BackdropSetup::dismiss() {
    isShown_ = false;
    emit changed();
}

void BackdropSetup::answerFeet(bool shows) {
    showsFeet_ = shows;
    refreshSuggestions();
}

void BackdropSetup::choose(const Uuid& preset, const Choice& choice) {
    choices_[preset] = choice;
    emit changed();
}

void BackdropSetup::addPlate(const Uuid& preset, const Path& file) {
    state_.background().run([file] { return BackdropLibrary::plate(file); },
                            [this, preset, file](const std::optional<Backdrop>& plate) {
                                if (!plate)
                                    return state_.showAlert(AlertTexts::plateUnreadable(file));
                                const auto same =
                                    std::ranges::find(plates_, plate->file, &Backdrop::file);
                                if (same == plates_.end()) plates_.push_back(*plate);
                                Choice chosen = choice(preset);
                                chosen.isOn = true;
                                chosen.plate = plate->file;
                                choose(preset, chosen);
                            });
}

void BackdropSetup::apply() {
    const WorkingJob* job = state_.selectedJob();
    if (!job || !state_.mayChange()) return;
    const BackdropMemory memory(state_.services().folders.data);
    std::vector<CropPreset> edited;
    for (const Uuid& id : presetIDs_) {
        const CropPreset* preset = state_.preset(id);
        if (!preset || !choices_.contains(id)) continue;
        CropPreset after = *preset;
        after.exportSettings = settingsFor(*preset);
        if (after != *preset) edited.push_back(after);
        // Only a convenience for the next job: the preset itself holds the plate.
        const Choice chosen = choice(id);
        if (chosen.isOn && chosen.plate) static_cast<void>(memory.remember(id, *chosen.plate));
    }
    state_.setShowsFeet(job->id(), showsFeet_);
    dismiss();
    if (!edited.empty()) state_.updatePresets(edited, "Set Up Backdrops");
}

}  // namespace morva
