// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/backdrop_setup.h"

#include <algorithm>
#include <unordered_set>

#include "app/app_state.h"

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

std::optional<BackdropSetup::Path> BackdropSetup::chosenPlate(const Uuid& preset) const {
    const auto found = chosen_.find(preset);
    return found == chosen_.end() ? std::nullopt : found->second;
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
    choosePlates();
    emit changed();
}

void BackdropSetup::begin() {
    const WorkingJob* job = state_.selectedJob();
    if (!job || !state_.mayChange()) return;
    isShown_ = true;
    showsFeet_ = job->job().showsFeet;
    chosen_.clear();
    refreshSuggestions();
    state_.background().run(
        [folder = state_.services().folders.data] {
            return BackdropLibrary::plates(BackdropLibrary::folders(folder));
        },
        [this](std::vector<Backdrop> plates) {
            plates_ = std::move(plates);
            choosePlates();
            emit changed();
        });
}

void BackdropSetup::choosePlates() {
    if (plates_.empty()) return;
    const BackdropMemory memory(state_.services().folders.data);
    for (const Uuid& id : presetIDs_) {
        if (chosen_.contains(id)) continue;
        const CropPreset* preset = state_.preset(id);
        chosen_[id] = memory.plateFor(id, preset->aspectRatio(),
                                      [&]() -> const std::vector<Backdrop>& { return plates_; });
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

void BackdropSetup::choosePlate(const Uuid& preset, const std::optional<Path>& plate) {
    chosen_[preset] = plate;
    emit changed();
}

void BackdropSetup::apply() {
    const WorkingJob* job = state_.selectedJob();
    if (!job || !state_.mayChange()) return;
    const BackdropMemory memory(state_.services().folders.data);
    std::vector<CropPreset> changed;
    for (const Uuid& id : presetIDs_) {
        const auto plate = chosenPlate(id);
        const CropPreset* preset = state_.preset(id);
        if (!plate || !preset) continue;
        changed.push_back(*preset);
        changed.back().exportSettings.backdrop = BackdropMode::replace;
        changed.back().exportSettings.plateURL = *plate;
        // Only a convenience for the next job: the preset itself holds the plate.
        static_cast<void>(memory.remember(id, *plate));
    }
    state_.setShowsFeet(job->id(), showsFeet_);
    dismiss();
    if (!changed.empty()) state_.updatePresets(changed, "Set Up Backdrops");
}

}  // namespace morva
