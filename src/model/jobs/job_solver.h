// SPDX-License-Identifier: GPL-3.0-or-later
// Solves the photos of a job: each with the preset chosen for it (its own, else by the rules of an
// automatic job, else the job's) and with the face size of its child. Called whenever measurements,
// presets or choices change; opens no photo and keeps nothing.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "model/jobs/job.h"
#include "model/jobs/job_timeline.h"
#include "model/presets/crop_preset.h"

namespace morva {

/// What one photo's solution was made from, beside its analysis.
struct SolvedWith {
    Uuid presetID;
    /// Face unit in pixels that the photo shares with others.
    std::optional<double> faceUnit;
    /// Title of the rule that chose the preset; absent for any other choice.
    std::optional<std::string> rule;

    bool operator==(const SolvedWith&) const = default;
};

/// For all photos of a job, in their order.
using JobPlan = std::vector<SolvedWith>;

namespace JobSolver {

/// The preset of photos that no rule speaks for: the job's, else the headshot, else the first of
/// the library, which must not be empty.
const CropPreset& fallbackPreset(const Job& job, std::span<const CropPreset> presets);

/// How each photo is to be solved. Frames belong together by their file names' common part, for a
/// job does not know its cameras.
JobPlan plan(const Job& job, std::span<const CropPreset> presets);

/// How the photo at `index` would be solved without a preset of its own.
SolvedWith planWithoutOwnPreset(const Job& job, std::span<const CropPreset> presets,
                                std::size_t index);

/// For each photo the place in `rules` of the rule that would choose its preset, were the job
/// automatic with these rules; absent where none would.
std::vector<std::optional<std::size_t>> rulesFor(const Job& job,
                                                 std::span<const CropPreset> presets,
                                                 std::span<const CropRule> rules);

/// Gives every photo its preset and, where it is analysed, its solution. Returns the plan that they
/// were solved by.
JobPlan solve(Job& job, std::span<const CropPreset> presets);

/// After a change of choices or presets, of which `edited` keep their identity: leaves the job as
/// `solve` would, but solves only photos that can come out differently. `before` is the plan of the
/// same photos in the same order and becomes the new one. Returns the photos solved, in rising
/// order.
std::vector<std::size_t> update(Job& job, std::span<const CropPreset> presets, JobPlan& before,
                                std::span<const Uuid> edited);

/// The same after the analyses of `photos` alone became others. A photo can give the others of its
/// child another size or crop type; no further ones are looked at, unless ratings come into use.
/// `timeline` is of the same photos as `before` and follows.
std::vector<std::size_t> remeasured(Job& job, std::span<const CropPreset> presets, JobPlan& before,
                                    JobTimeline& timeline, std::span<const std::size_t> photos);

}  // namespace JobSolver

}  // namespace morva
