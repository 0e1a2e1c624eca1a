// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/jobs/job_solver.h"

#include <algorithm>
#include <cassert>
#include <numeric>
#include <unordered_set>

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

using Indices = std::vector<std::size_t>;

Indices allOf(const Job& job) {
    Indices all(job.items.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    return all;
}

/// Photos of a job as those who look at whole batches take them.
struct Batch {
    Batch(const Job& job, const Indices& indices) {
        photos.reserve(indices.size());
        cameras.reserve(indices.size());
        for (const std::size_t i : indices) {
            const ImageItem& item = job.items[i];
            photos.push_back(item.analysis ? &*item.analysis : nullptr);
            cameras.push_back(SubjectGrouping::cameraKey(item.url));
        }
    }

    std::vector<const ImageAnalysis*> photos;
    std::vector<std::string> cameras;
};

/// For a batch of these photos.
PresetChoices choicesOf(const Job& job, std::span<const CropPreset> presets,
                        std::span<const CropRule> rules, const Indices& photos) {
    return {.presets = presets,
            .fallback = fallbackPreset(job, presets).id,
            .rules = rules,
            .ownPreset = [&](std::size_t i) { return job.items[photos[i]].presetOverride; },
            .sharesSizes = true};
}

std::span<const CropRule> rulesOf(const Job& job) {
    return job.autoAssign ? std::span(job.rules) : std::span<const CropRule>();
}

JobPlan planned(const Batch& batch, const PresetChoices& choices) {
    JobPlan made;
    made.reserve(batch.photos.size());
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
    const Indices all = allOf(job);
    const Batch batch(job, all);
    return BatchPlanner::rulesFor(batch.photos, batch.cameras, choicesOf(job, presets, rules, all));
}

JobPlan plan(const Job& job, std::span<const CropPreset> presets) {
    const Indices all = allOf(job);
    return planned(Batch(job, all), choicesOf(job, presets, rulesOf(job), all));
}

SolvedWith planWithoutOwnPreset(const Job& job, std::span<const CropPreset> presets,
                                std::size_t index) {
    const Indices all = allOf(job);
    PresetChoices choices = choicesOf(job, presets, rulesOf(job), all);
    choices.ownPreset = [&](std::size_t i) {
        return i == index ? std::nullopt : job.items[i].presetOverride;
    };
    return planned(Batch(job, all), choices)[index];
}

JobPlan solve(Job& job, std::span<const CropPreset> presets) {
    JobPlan planned = plan(job, presets);
    for (std::size_t i = 0; i < planned.size(); ++i) solveItem(job.items[i], planned[i], presets);
    return planned;
}

std::vector<std::size_t> update(Job& job, std::span<const CropPreset> presets, JobPlan& before,
                                std::span<const Uuid> edited) {
    assert(before.size() == job.items.size());
    JobPlan planned = plan(job, presets);
    Indices solved;
    for (std::size_t i = 0; i < planned.size(); ++i) {
        const bool isEdited = std::ranges::find(edited, planned[i].presetID) != edited.end();
        if (!isEdited && planned[i] == before[i]) continue;
        solveItem(job.items[i], planned[i], presets);
        solved.push_back(i);
    }
    before = std::move(planned);
    return solved;
}

std::vector<std::size_t> remeasured(Job& job, std::span<const CropPreset> presets, JobPlan& before,
                                    JobTimeline& timeline, std::span<const std::size_t> photos) {
    assert(before.size() == job.items.size());
    const bool wereInUse = timeline.ratingsInUse();
    Indices reached = timeline.remeasured(job, photos);
    // Ratings that come into use speak for every photo.
    if (timeline.ratingsInUse() != wereInUse) reached = allOf(job);
    PresetChoices choices = choicesOf(job, presets, rulesOf(job), reached);
    choices.ratingsInUse = timeline.ratingsInUse();
    JobPlan planned = JobSolver::planned(Batch(job, reached), choices);

    const std::unordered_set<std::size_t> due(photos.begin(), photos.end());
    Indices solved;
    for (std::size_t k = 0; k < reached.size(); ++k) {
        const std::size_t i = reached[k];
        if (planned[k] == before[i] && !due.contains(i)) continue;
        before[i] = std::move(planned[k]);
        solveItem(job.items[i], before[i], presets);
        solved.push_back(i);
    }
    return solved;
}

}  // namespace morva::JobSolver
