// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/jobs/job_solver.h"

#include <algorithm>
#include <cassert>

#include "crop/batch_planner.h"
#include "crop/crop_solver.h"
#include "model/presets/preset_library.h"

namespace morva::JobSolver {

namespace {

using PresetLibrary::presetWith;

void solveItem(ImageItem& item, const SolvedWith& with, std::span<const CropPreset> presets) {
    item.presetID = with.presetID;
    item.solution.reset();
    // A photo that could not be read has nothing to solve; "no face" would be another message.
    if (item.analysis && !item.analysis->detectionFailed)
        item.solution =
            CropSolver::solve(*item.analysis, *presetWith(with.presetID, presets), with.faceUnit);
}

/// The photos of a job as those who look at whole batches take them.
struct Batch {
    explicit Batch(const Job& job) {
        photos.reserve(job.items.size());
        cameras.reserve(job.items.size());
        for (const ImageItem& item : job.items) {
            photos.push_back(item.analysis ? &*item.analysis : nullptr);
            cameras.push_back(SubjectGrouping::cameraKey(item.url));
        }
    }

    std::vector<const ImageAnalysis*> photos;
    std::vector<std::string> cameras;
};

PresetChoices choicesOf(const Job& job, std::span<const CropPreset> presets,
                        std::span<const CropRule> rules) {
    return {.presets = presets,
            .fallback = fallbackPreset(job, presets).id,
            .rules = rules,
            .ownPreset = [&job](std::size_t i) { return job.items[i].presetOverride; },
            .sharesSizes = true};
}

std::span<const CropRule> rulesOf(const Job& job) {
    return job.autoAssign ? std::span(job.rules) : std::span<const CropRule>();
}

JobPlan planned(const Job& job, const PresetChoices& choices) {
    const Batch batch(job);
    JobPlan made;
    made.reserve(job.items.size());
    for (PhotoPlan& photo : BatchPlanner::plan(batch.photos, batch.cameras, choices))
        made.push_back({photo.preset->id, photo.faceUnit, std::move(photo.rule)});
    return made;
}

}  // namespace

const CropPreset& fallbackPreset(const Job& job, std::span<const CropPreset> presets) {
    assert(!presets.empty());
    if (const CropPreset* own = presetWith(job.presetID, presets)) return *own;
    const CropPreset* headshot = presetWith(PresetLibrary::headshotID(), presets);
    return headshot ? *headshot : presets.front();
}

std::vector<std::optional<std::size_t>> rulesFor(const Job& job,
                                                 std::span<const CropPreset> presets,
                                                 std::span<const CropRule> rules) {
    const Batch batch(job);
    return BatchPlanner::rulesFor(batch.photos, batch.cameras, choicesOf(job, presets, rules));
}

JobPlan plan(const Job& job, std::span<const CropPreset> presets) {
    return planned(job, choicesOf(job, presets, rulesOf(job)));
}

SolvedWith planWithoutOwnPreset(const Job& job, std::span<const CropPreset> presets,
                                std::size_t index) {
    PresetChoices choices = choicesOf(job, presets, rulesOf(job));
    choices.ownPreset = [&](std::size_t i) {
        return i == index ? std::nullopt : job.items[i].presetOverride;
    };
    return planned(job, choices)[index];
}

JobPlan solve(Job& job, std::span<const CropPreset> presets) {
    JobPlan planned = plan(job, presets);
    for (std::size_t i = 0; i < planned.size(); ++i) solveItem(job.items[i], planned[i], presets);
    return planned;
}

std::vector<std::size_t> update(Job& job, std::span<const CropPreset> presets, JobPlan& before,
                                const Changes& changes) {
    assert(before.size() == job.items.size());
    JobPlan planned = plan(job, presets);
    std::vector<bool> isDue(planned.size(), false);
    for (const std::size_t i : changes.photos) isDue[i] = true;
    std::vector<std::size_t> solved;
    for (std::size_t i = 0; i < planned.size(); ++i) {
        const bool edited =
            std::ranges::find(changes.presets, planned[i].presetID) != changes.presets.end();
        if (!isDue[i] && !edited && planned[i] == before[i]) continue;
        solveItem(job.items[i], planned[i], presets);
        solved.push_back(i);
    }
    before = std::move(planned);
    return solved;
}

}  // namespace morva::JobSolver
