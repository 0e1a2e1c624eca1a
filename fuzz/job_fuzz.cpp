// SPDX-License-Identifier: GPL-3.0-or-later
// Job files, which hold a photographer's decisions: they are read or refused, and what is read can
// be solved and saved without changing anything that was decided.
#include <array>

#include "json_round_trip.h"
#include "model/jobs/job.h"
#include "model/jobs/job_solver.h"
#include "model/presets/preset_library.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace morva;
    const auto read = decoded<Job>(textOf(data, size), "the job");
    if (!read) return 0;
    expectReadAs(*read, jobText(*read));
    Job job = *read;
    const auto presets = PresetLibrary::standardLibrary();
    JobPlan plan = JobSolver::solve(job, presets);
    if (plan.size() != job.items.size()) std::abort();
    JobSolver::rulesFor(job, presets, job.rules);
    for (const ImageItem& item : job.items) {
        item.status(BackdropMode::keep);
        item.status(BackdropMode::replace);
    }
    JobSolver::update(job, presets, plan, {&presets.front().id, 1});
    expectReadAs(*read, jobText(job));
    if (job.items.empty()) return 0;
    // Following one photo that changes must lead where planning everything anew does.
    JobTimeline timeline(job);
    job.items.front().analysis.reset();
    JobSolver::remeasured(job, presets, plan, timeline, std::array{std::size_t{0}});
    if (JobSolver::plan(job, presets) != plan) std::abort();
    return 0;
}
