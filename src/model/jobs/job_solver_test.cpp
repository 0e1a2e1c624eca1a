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

/// A solved job that changes at random, with what is kept of it between two changes.
struct ChangingJob {
    explicit ChangingJob(int photos) {
        job.presetID = PresetLibrary::headshotID();
        job.rules = CropRules::defaults(presets);
        for (int i = 0; i < photos; ++i)
            job.items.push_back(itemOf((i % 3 == 0 ? "DSC" : "IMG_") + std::to_string(i) + ".jpg",
                                       frame(i * 4.0, 380 + 3.0 * (i % 9), i % 7 == 0 ? 4 : 0)));
        plan = JobSolver::solve(job, presets);
        timeline = JobTimeline(job);
    }

    std::size_t upTo(std::size_t count) { return random() % count; }

    /// One to four photos at once, of which one in five loses its time, its stars or all.
    std::size_t measureSome() {
        std::vector<std::size_t> photos(1 + upTo(4));
        for (std::size_t& photo : photos) {
            photo = upTo(job.items.size());
            const auto time = static_cast<double>(upTo(8 * job.items.size()));
            job.items[photo].analysis =
                frame(upTo(5) == 0 ? std::nullopt : std::optional(time),
                      390 + static_cast<double>(upTo(60)), upTo(5) == 0 ? 0 : mostStars);
            if (upTo(5) == 0) job.items[photo].analysis.reset();
        }
        return JobSolver::remeasured(job, presets, plan, timeline, photos).size();
    }

    /// One change of the kinds that reach a job; returns how many photos were solved.
    std::size_t change() {
        const std::size_t at = upTo(job.items.size());
        std::vector<Uuid> edited;
        switch (upTo(6)) {
            case 0:
                job.items[at].presetOverride = presets[upTo(presets.size())].id;
                break;
            case 1:
                job.items[at].presetOverride.reset();
                break;
            case 2:
                job.autoAssign = !job.autoAssign;
                break;
            case 3: {
                CropPreset& preset = presets[upTo(presets.size())];
                preset.faceScale *= 1.01;
                preset.steadyPerSubject = !preset.steadyPerSubject;
                edited = {preset.id};
                break;
            }
            default:
                return measureSome();
        }
        return JobSolver::update(job, presets, plan, edited).size();
    }

    std::vector<CropPreset> presets = library();
    Job job;
    JobPlan plan;
    JobTimeline timeline{job};
    std::mt19937 random{7};
    /// Of the photos measured from now on.
    int mostStars = 4;
};

TEST(JobSolver, solvingWhatChangedEqualsSolvingEverything) {
    ChangingJob kept(40);
    std::size_t solved = 0;
    int changesOfUse = 0;
    for (int round = 0; round < 600; ++round) {
        // Stars go out of use, and come into use again.
        kept.mostStars = round / 100 % 2 == 0 ? 4 : 2;
        const bool wereInUse = kept.timeline.ratingsInUse();
        solved += kept.change();
        if (kept.timeline.ratingsInUse() != wereInUse) ++changesOfUse;
        Job whole = kept.job;
        ASSERT_EQ(JobSolver::solve(whole, kept.presets), kept.plan) << "round " << round;
        ASSERT_EQ(whole, kept.job) << "round " << round;
    }
    EXPECT_LT(solved, 600U * 40U);
    EXPECT_GE(changesOfUse, 2);
}

TEST(JobTimeline, reachesTheGroupsThatAPhotoLeavesAndJoins) {
    Job job;
    for (int i = 0; i < 9; ++i)
        job.items.push_back(
            itemOf("IMG_" + std::to_string(i) + ".jpg", frame(i / 3 * 60 + i, 400)));
    job.items.push_back(itemOf("DSC_1.jpg", frame(1, 400)));
    JobTimeline timeline(job);
    using Indices = std::vector<std::size_t>;
    const auto measuredAt = [&](std::size_t photo, std::optional<double> time) {
        job.items[photo].analysis->captureTime = time;
        return timeline.remeasured(job, Indices{photo});
    };
    EXPECT_EQ(measuredAt(1, 1), (Indices{0, 1, 2}));
    EXPECT_EQ(measuredAt(1, 120), (Indices{0, 1, 2, 6, 7, 8}));
    EXPECT_EQ(measuredAt(1, std::nullopt), (Indices{1, 6, 7, 8}));
    EXPECT_EQ(measuredAt(1, 1000), (Indices{1}));
}

}  // namespace
}  // namespace morva
