// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/jobs/job_solver.h"

#include <random>

#include <gtest/gtest.h>

#include "crop/batch_test_support.h"
#include "crop/crop_rules.h"
#include "model/presets/preset_library.h"

namespace morva {
namespace {

using BatchTest::frame;

ImageItem itemOf(const std::string& name, std::optional<ImageAnalysis> analysis) {
    ImageItem item;
    item.id = name;
    item.url = "/photos/" + name;
    item.relativePath = name;
    item.analysis = std::move(analysis);
    return item;
}

/// Two frames of a child seconds apart, of which the first has four stars; somebody else later; one
/// photo not analysed and one that could not be read.
Job smallJob() {
    Job job;
    job.presetID = PresetLibrary::headshotID();
    ImageAnalysis unreadable;
    unreadable.detectionFailed = true;
    job.items = {itemOf("IMG_1.jpg", frame(0, 400, 4)), itemOf("IMG_2.jpg", frame(5, 410)),
                 itemOf("IMG_3.jpg", frame(900, 300)), itemOf("IMG_4.jpg", std::nullopt),
                 itemOf("IMG_5.jpg", unreadable)};
    job.rules = {{Uuid::random(), {RuleCondition::Rating{4}}, PresetLibrary::landscapeID(), true}};
    return job;
}

const std::vector<CropPreset>& library() { return PresetLibrary::standardLibrary(); }

std::string badges(const Job& job) {
    std::string text;
    for (const ImageItem& item : job.items) {
        const auto preset = std::ranges::find(library(), *item.presetID, &CropPreset::id);
        text += preset->badge + (item.solution ? " " : "- ");
    }
    return text;
}

TEST(JobSolver, prefersThePhotosOwnPresetThenTheRulesThenTheJobs) {
    Job job = smallJob();
    const JobPlan plan = JobSolver::solve(job, library());
    EXPECT_EQ(badges(job), "Head Head Head Head- Head- ");
    EXPECT_EQ(plan[0].faceUnit, 405);
    EXPECT_EQ(plan[1].faceUnit, 405);
    EXPECT_FALSE(plan[2].faceUnit);

    job.autoAssign = true;
    job.presetID = PresetLibrary::autoPresetID();
    EXPECT_EQ(JobSolver::solve(job, library())[0].rule, "4-star rating");
    EXPECT_EQ(badges(job), "Top Head Head Head- Head- ");

    job.items[0].presetOverride = PresetLibrary::fullLengthID();
    job.items[1].presetOverride = Uuid::random();  // of a preset that was deleted
    JobSolver::solve(job, library());
    EXPECT_EQ(badges(job), "Full Head Head Head- Head- ");
    const SolvedWith without = JobSolver::planWithoutOwnPreset(job, library(), 0);
    EXPECT_EQ(without.presetID, PresetLibrary::landscapeID());
    EXPECT_EQ(without.rule, "4-star rating");
}

/// One random change of the kinds that reach a job.
JobSolver::Changes changeSomething(Job& job, std::vector<CropPreset>& presets,
                                   std::mt19937& random) {
    const auto upTo = [&](std::size_t count) { return random() % count; };
    const std::size_t at = upTo(job.items.size());
    switch (upTo(5)) {
        case 0: {
            job.items[at].analysis =
                frame(static_cast<double>(upTo(60)), 390 + static_cast<double>(upTo(60)),
                      static_cast<int>(upTo(6)));
            return {.photos = {at}, .presets = {}};
        }
        case 1:
            job.items[at].presetOverride = presets[upTo(presets.size())].id;
            return {};
        case 2:
            job.items[at].presetOverride.reset();
            return {};
        case 3:
            job.autoAssign = !job.autoAssign;
            return {};
        default: {
            CropPreset& preset = presets[upTo(presets.size())];
            preset.faceScale *= 1.01;
            preset.steadyPerSubject = !preset.steadyPerSubject;
            return {.photos = {}, .presets = {preset.id}};
        }
    }
}

TEST(JobSolver, solvingWhatChangedEqualsSolvingEverything) {
    std::mt19937 random(7);
    std::vector<CropPreset> presets = library();
    Job job;
    job.presetID = PresetLibrary::headshotID();
    job.rules = CropRules::defaults(presets);
    for (int i = 0; i < 40; ++i)
        job.items.push_back(itemOf("IMG_" + std::to_string(i) + ".jpg",
                                   frame(i * 4.0, 380 + 3.0 * (i % 9), i % 7 == 0 ? 4 : 0)));
    JobPlan plan = JobSolver::solve(job, presets);
    std::size_t solved = 0;
    for (int round = 0; round < 300; ++round) {
        const auto changes = changeSomething(job, presets, random);
        solved += JobSolver::update(job, presets, plan, changes).size();
        Job whole = job;
        ASSERT_EQ(JobSolver::solve(whole, presets), plan) << "round " << round;
        ASSERT_EQ(whole, job) << "round " << round;
    }
    EXPECT_LT(solved, 300U * 40U);
}

}  // namespace
}  // namespace morva
