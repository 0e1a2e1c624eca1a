// SPDX-License-Identifier: GPL-3.0-or-later
// The preset library, the choice of presets, rules, the reference portrait.
#include <algorithm>
#include <utility>

#include "app/alert_texts.h"
#include "app/app_state.h"
#include "app/backdrop_setup.h"
#include "crop/crop_rules.h"
#include "model/presets/preset_library.h"
#include "model/presets/reference_notes.h"

namespace morva {

namespace {

/// The presets that are new in `after` or other than in `before`.
std::vector<Uuid> changedIn(const std::vector<CropPreset>& before,
                            const std::vector<CropPreset>& after) {
    std::vector<Uuid> changed;
    for (const CropPreset& preset : after)
        if (std::ranges::find(before, preset) == before.end()) changed.push_back(preset.id);
    return changed;
}

JobChoices withReplaced(JobChoices choices, const Uuid& preset, const Uuid& replacement) {
    if (choices.presetID == preset) choices.presetID = replacement;
    for (CropRule& rule : choices.rules)
        if (rule.presetID == preset) rule.presetID = replacement;
    return choices;
}

}  // namespace

void AppState::showPreset(const Uuid& id) {
    if (id != PresetLibrary::autoPresetID() && !preset(id)) return;
    if (id == selectedPresetID_) return;
    selectedPresetID_ = id;
    emit selectedPresetChanged();
}

void AppState::choosePreset(const Uuid& id) {
    const bool isAutomatic = id == PresetLibrary::autoPresetID();
    if (!isAutomatic && !preset(id)) return;
    const WorkingJob* open = selectedJob();
    if (open && !mayChange()) return;
    showPreset(id);
    if (!open) return;
    const JobChoices before = JobChoices::of(open->job());
    JobChoices after = before;
    after.presetID = id;
    after.autoAssign = isAutomatic;
    if (after != before)
        undo_.push(new ChoicesStep(*this, "Choose Crop Type of Job", open->id(), before, after));
}

void AppState::applyChoices(const Uuid& id, const JobChoices& choices) {
    WorkingJob* job = editable(id);
    if (!job) return;
    const bool otherRules = job->job().rules != choices.rules;
    job->choices().presetID = choices.presetID;
    job->choices().autoAssign = choices.autoAssign;
    job->choices().rules = choices.rules;
    if (otherRules && id == selectedJobID_) saveRules(choices.rules);
    const Indices solved = job->update(presets_);
    saveSoon(id);
    if (id == selectedJobID_) showPreset(choices.presetID);
    backdrops_->refreshSuggestions();
    emit jobChanged(id);
    touched(*job, solved);
}

void AppState::changeLibrary(const QString& text, std::vector<CropPreset> after,
                             std::optional<Uuid> edited) {
    if (after != presets_ && mayChange())
        undo_.push(
            new LibraryStep(*this, text, presets_, std::move(after), std::move(edited), gesture_));
}

void AppState::applyLibrary(const std::vector<CropPreset>& presets) {
    const std::vector<Uuid> changed = changedIn(presets_, presets);
    presets_ = presets;
    saveLibrarySoon();
    if (selectedPresetID_ != PresetLibrary::autoPresetID() && !preset(selectedPresetID_))
        showPreset(presets_.front().id);
    for (const auto& job : jobs_) {
        if (job->id() != selectedJobID_)
            job->markStale();
        else
            touched(*job, job->update(presets_, changed));
    }
    // A preset that is dragged changes many times a second; jobs out of sight can wait.
    staleTimer_.start(0);
    emit presetsChanged();
}

void AppState::updatePreset(const CropPreset& changed, const std::string& what) {
    std::vector<CropPreset> after = presets_;
    const auto at = std::ranges::find(after, changed.id, &CropPreset::id);
    if (at == after.end()) return;
    *at = changed;
    changeLibrary(QString::fromStdString(what), std::move(after), changed.id);
}

void AppState::updatePresets(const std::vector<CropPreset>& changed, const std::string& what) {
    std::vector<CropPreset> after = presets_;
    for (const CropPreset& preset : changed)
        if (const auto at = std::ranges::find(after, preset.id, &CropPreset::id); at != after.end())
            *at = preset;
    changeLibrary(QString::fromStdString(what), std::move(after));
}

void AppState::resetPreset(const Uuid& id) {
    const CropPreset* current = preset(id);
    if (!current) return;
    CropPreset fresh = PresetLibrary::standardPreset(id);
    fresh.id = id;
    fresh.name = current->name;
    updatePresets({fresh}, "Reset Preset");
}

Uuid AppState::newPreset(const std::string& name) {
    std::vector<CropPreset> after = presets_;
    after.push_back(morva::newPreset(uniquePresetName(presets_, name)));
    Uuid id = after.back().id;
    changeLibrary("New Preset", std::move(after));
    showPreset(id);
    return id;
}

std::optional<Uuid> AppState::duplicatePreset(const Uuid& id) {
    const auto original = std::ranges::find(presets_, id, &CropPreset::id);
    if (original == presets_.end() || !mayChange()) return std::nullopt;
    CropPreset copy = *original;
    copy.id = Uuid::random();
    copy.name = uniquePresetName(presets_, original->name + " copy");
    std::vector<CropPreset> after = presets_;
    after.insert(after.begin() + (original - presets_.begin()) + 1, copy);
    changeLibrary("Duplicate Preset", std::move(after));
    showPreset(copy.id);
    return copy.id;
}

void AppState::deletePreset(const Uuid& id, const Uuid& replacement) {
    if (id == replacement || !preset(id) || !preset(replacement) || !mayChange()) return;
    undo_.beginMacro("Delete Preset");
    for (const auto& job : jobs_) {
        std::vector<DecisionsStep::Photo> photos;
        for (const ImageItem& item : job->job().items) {
            if (item.presetOverride != id) continue;
            const PhotoDecisions before = PhotoDecisions::of(item);
            PhotoDecisions after = before;
            after.presetOverride = replacement;
            photos.push_back({item.id, before, after});
        }
        if (!photos.empty())
            undo_.push(new DecisionsStep(*this, "", job->id(), std::move(photos),
                                         DecisionsStep::Merging::never));
        const JobChoices before = JobChoices::of(job->job());
        const JobChoices after = withReplaced(before, id, replacement);
        if (after != before) undo_.push(new ChoicesStep(*this, "", job->id(), before, after));
    }
    std::vector<CropPreset> rest = presets_;
    std::erase_if(rest, [&](const CropPreset& preset) { return preset.id == id; });
    changeLibrary("", std::move(rest));
    undo_.endMacro();
}

void AppState::setRules(const std::vector<CropRule>& rules) {
    const WorkingJob* open = selectedJob();
    if (!open || !mayChange()) return;
    const JobChoices before = JobChoices::of(open->job());
    JobChoices after = before;
    after.rules = rules;
    if (after != before)
        undo_.push(new ChoicesStep(*this, "Change Rules", open->id(), before, after));
}

void AppState::saveRules(const std::vector<CropRule>& rules) {
    rules_ = rules;
    saves_.soon(
        "rules",
        [this]() -> SaveQueue::Write {
            return [store = RuleStore(services_.folders.data, presets_), copy = rules_] {
                return store.save(copy);
            };
        },
        SaveQueue::Urgency::edit);
}

void AppState::addRule(const CropRule& rule) {
    changeRules([&](std::vector<CropRule>& rules) {
        std::erase_if(rules,
                      [&](const CropRule& other) { return other.condition == rule.condition; });
        CropRules::put(rules, rule);
    });
}

void AppState::removeRules(const RuleCondition& condition) {
    changeRules([&](std::vector<CropRule>& rules) {
        std::erase_if(rules, [&](const CropRule& rule) { return rule.condition == condition; });
    });
}

void AppState::changeRules(const std::function<void(std::vector<CropRule>&)>& change) {
    auto known = rules_;
    change(known);
    saveRules(known);
    for (const auto& job : jobs_) {
        change(job->choices().rules);
        touched(*job, job->update(presets_));
        saveSoon(job->id());
    }
}

void AppState::useReference(const Path& image) {
    const CropPreset* shown = preset(selectedPresetID_);
    if (!shown || referenceBusy_ || !mayChange()) return;
    referenceBusy_ = true;
    emit referenceBusyChanged();
    background_.run(
        [image, measure = services_.measureReference] { return measure(image); },
        [this, id = shown->id](const Result<ReferenceGeometry>& measured) {
            referenceBusy_ = false;
            emit referenceBusyChanged();
            if (!measured)
                return showAlert(AlertTexts::referenceUnusable(measured.error().message));
            const CropPreset* current = preset(id);
            if (!current) return;
            const auto notes = ReferenceNotes::notes(*measured, *current);
            CropPreset modelled = *current;
            modelled.apply(*measured);
            updatePresets({modelled}, "Use Reference");
            if (!notes.empty()) showAlert(AlertTexts::referenceNotes(notes));
        });
}

void AppState::clearReference() {
    const CropPreset* shown = preset(selectedPresetID_);
    if (!shown || !shown->reference) return;
    CropPreset cleared = *shown;
    cleared.reference.reset();
    updatePresets({cleared}, "Clear Reference");
}

}  // namespace morva
