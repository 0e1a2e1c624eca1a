// SPDX-License-Identifier: GPL-3.0-or-later
#include "poses/pose_trainer.h"

#include <limits>
#include <random>
#include <set>

#include <gtest/gtest.h>

#include "poses/pose_folds.h"
#include "poses/pose_test_support.h"

namespace morva {
namespace {

using PoseTrainer::GroupNumbers;
using PoseTrainer::Prints;
using Reason = PoseTrainer::TrainingError::Reason;

/// Prints of `length` numbers around zero, the first one moved by `shift`.
Prints scattered(int count, float shift, unsigned seed, std::size_t length = 6) {
    std::mt19937 random(seed);
    // By hand, because the library's distributions differ between systems.
    const auto draw = [&] { return static_cast<float>(random() % 20001) / 10000 - 1; };
    Prints prints(static_cast<std::size_t>(count), std::vector<float>(length));
    for (auto& print : prints) {
        for (float& value : print) value = draw();
        print[0] += shift;
    }
    return prints;
}

std::string refusal(const Prints& positives, const Prints& negatives) {
    const auto result = PoseTrainer::train("pose", positives, negatives, {}, {}, 0);
    return result ? "learned" : result.error().message();
}

TEST(PoseTrainer, saysWhatIsMissing) {
    Prints unequal = scattered(4, 0, 1);
    unequal[2].pop_back();
    Prints broken = scattered(4, 0, 1);
    broken[1][3] = std::numeric_limits<float>::quiet_NaN();
    const std::string disagree =
        "Those photos could not be measured the same way. Re-run Crop Photos and try again.";
    struct Case {
        const char* what;
        Prints positives, negatives;
        std::string message;
    };
    for (const Case& c : {
             Case{"both short: the examples are named", scattered(3, 0, 1), scattered(7, 0, 2),
                  "Tick at least 4 photos of this pose (3 so far)."},
             Case{"no photos", {}, {}, "Tick at least 4 photos of this pose (0 so far)."},
             Case{"others short", scattered(4, 0, 1), scattered(7, 0, 2),
                  "This needs at least 8 other photos in the job to compare against (7 so far)."},
             Case{"unequal lengths", unequal, scattered(8, 0, 2), disagree},
             Case{"other lengths", scattered(4, 0, 1), scattered(8, 0, 2, 5), disagree},
             Case{"not a number", broken, scattered(8, 0, 2), disagree},
             Case{"empty prints", Prints(4), Prints(8), disagree},
             Case{"all photos alike", Prints(4, {1, 2, 3}), Prints(8, {1, 2, 3}),
                  "Morva could not tell this pose apart from the rest of the job. Try ticking more "
                  "examples of it."},
         }) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(refusal(c.positives, c.negatives), c.message);
    }
}

TEST(PoseTrainer, verdictsTurnAtTheirBorders) {
    struct Case {
        double precision, recall;
        int positives;
        std::string verdict;
    };
    for (const Case& c : {
             Case{0.9, 0.9, 30,
                  "Learned cleanly from 30 photos. It should find this pose on its own from now "
                  "on."},
             Case{0.9, 0.89, 12,
                  "Learned from 12 photos. Expect it to miss about 11 in 100 and to need a "
                  "correction on about 10 in 100 — worth checking the first job."},
             Case{0.8, 0.7, 5,
                  "Learned from 5 photos. Expect it to miss about 30 in 100 and to need a "
                  "correction on about 20 in 100 — worth checking the first job."},
             Case{0.85, 0.65, 9,
                  "Learned from only 9 photos, so it is still unsure. Tick more examples of this "
                  "pose to sharpen it."},
             Case{0.85, 0.65, 10,
                  "This pose looks a lot like the rest of the job — it would get about 15 in 100 "
                  "wrong. Consider ticking more examples, or telling the crop types apart by "
                  "hand."},
             Case{0.79, 1, 6,
                  "Learned from only 6 photos, so it is still unsure. Tick more examples of this "
                  "pose to sharpen it."},
         }) {
        EXPECT_EQ(PoseTrainer::verdict(c.precision, c.recall, c.positives), c.verdict);
    }
}

TEST(PoseTrainer, findsAPoseThatStandsApartAndKeepsItsNumbers) {
    const Prints positives = scattered(12, 4, 1);
    const Prints negatives = scattered(40, 0, 2);
    const auto learned = PoseTrainer::train("cap and gown", positives, negatives, {}, {}, 1.7e9);
    ASSERT_TRUE(learned);
    const TagClassifier::Model& model = learned->model;
    EXPECT_TRUE(model.isUsable());
    EXPECT_EQ(model.tag, "cap and gown");
    EXPECT_EQ(model.taughtAt, 1.7e9);
    EXPECT_EQ(model.report, learned->report);
    EXPECT_FALSE(model.origin);
    EXPECT_EQ(learned->report.precision, 1);
    EXPECT_EQ(learned->report.recall, 1);
    EXPECT_EQ(model.threshold, learned->report.threshold);
    int right = 0;
    for (const auto& print : scattered(50, 4, 3))
        right += TagClassifier::probability(print, model) >= model.threshold;
    for (const auto& print : scattered(50, 0, 4))
        right += TagClassifier::probability(print, model) < model.threshold;
    EXPECT_EQ(right, 100);
}

TEST(PoseTrainer, namesThePhotosItGotWrong) {
    Prints positives = scattered(12, 6, 1);
    Prints negatives = scattered(40, 0, 2);
    positives[5] = negatives[0];
    negatives[7] = positives[0];
    const auto learned = PoseTrainer::train("pose", positives, negatives, {}, {}, 0);
    ASSERT_TRUE(learned);
    const PoseReport& report = learned->report;
    EXPECT_EQ(report.falseNegatives, std::vector{5});
    EXPECT_EQ(report.falsePositives, std::vector{7});
    EXPECT_NEAR(report.precision, 11.0 / 12, 1e-12);
    EXPECT_NEAR(report.recall, 11.0 / 12, 1e-12);
    EXPECT_EQ(report.positives, 12);
    EXPECT_EQ(report.negatives, 40);
}

TEST(PoseTrainer, doesNotTrustWhatItKnowsFromTheSameChild) {
    // Each child has a look of its own and half of them, by chance, strike the pose: with one
    // child on both sides of a split, its look would pass for the pose.
    Prints positives;
    Prints negatives;
    std::vector<int> posing;
    std::vector<int> others;
    for (int child = 0; child < 12; ++child) {
        std::vector<float> look(12, 0);
        look[static_cast<std::size_t>(child)] = 1;
        for (int photo = 0; photo < 4; ++photo) {
            (child % 2 == 0 ? positives : negatives).push_back(look);
            (child % 2 == 0 ? posing : others).push_back(child);
        }
    }
    const auto blind = PoseTrainer::train("pose", positives, negatives, {}, {}, 0);
    ASSERT_TRUE(blind);
    EXPECT_EQ(blind->report.recall, 1);
    const auto honest = PoseTrainer::train("pose", positives, negatives, posing, others, 0);
    EXPECT_LT(honest ? honest->report.precision : 0, 0.7);
}

TEST(PoseTrainer, toleratesNumbersThatNeverChange) {
    Prints positives = scattered(6, 3, 1);
    Prints negatives = scattered(12, 0, 2);
    for (Prints* prints : {&positives, &negatives})
        for (auto& print : *prints) print.push_back(0.25F);
    const auto learned = PoseTrainer::train("pose", positives, negatives, {}, {}, 0);
    ASSERT_TRUE(learned);
    EXPECT_TRUE(learned->model.isUsable());
    auto other = positives.front();
    other.back() += 0.001F;  // on another machine
    EXPECT_NEAR(TagClassifier::probability(other, learned->model),
                TagClassifier::probability(positives.front(), learned->model), 1e-3);
}

TEST(PoseTrainer, givesTheSameBytesForTheSamePhotos) {
    const auto bytes = [] {
        const auto learned =
            PoseTrainer::train("pose", scattered(9, 0.6F, 1), scattered(30, 0, 2), {}, {}, 1.7e9);
        return learned ? Json(learned->model).dump() : "";
    };
    EXPECT_FALSE(bytes().empty());
    EXPECT_EQ(bytes(), bytes());
}

TEST(PoseFolds, keepChildrenTogetherAndExamplesApart) {
    const PoseFolds folds =
        PoseFolds::dealt(6, 8, {{1, 1, 1, 2, 3, 4}}, {{1, 5, 5, 6, 7, 8, 8, 9}});
    EXPECT_EQ(folds.count, 5);
    ASSERT_EQ(folds.foldOf.size(), 14u);
    EXPECT_EQ(folds.foldOf[0], folds.foldOf[1]);
    EXPECT_EQ(folds.foldOf[0], folds.foldOf[6]) << "one child, ticked and not ticked";
    EXPECT_EQ(folds.foldOf[11], folds.foldOf[12]);
    EXPECT_EQ(std::set(folds.foldOf.begin(), folds.foldOf.begin() + 6).size(), 4u)
        << "four children with examples in four folds";
    struct Case {
        const char* what;
        GroupNumbers examples, others;
        int count;
    };
    for (const Case& c : {
             Case{"one child", {{1, 1, 1, 1}}, {{1, 1, 1, 1, 1, 1, 1, 1}}, 2},
             Case{"two children", {{1, 1, 1, 1}}, {{2, 2, 2, 2, 2, 2, 2, 2}}, 2},
             Case{"three children", {{1, 1, 1, 1}}, {{2, 2, 2, 2, 3, 3, 3, 3}}, 3},
             Case{"unknown", {}, {}, 5},
         }) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(PoseFolds::dealt(4, 8, c.examples, c.others).count, c.count);
    }
}

}  // namespace
}  // namespace morva
