// SPDX-License-Identifier: GPL-3.0-or-later
// Teaches a pose: from the prints of ticked photos and of the job's other photos to a model, with
// an honest word on how well it will do. Called on a worker thread; stores nothing.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <tl/expected.hpp>

#include "poses/pose_report.h"
#include "poses/tag_classifier.h"

namespace morva::PoseTrainer {

inline constexpr int fewestExamples = 4;
inline constexpr int fewestOthers = 8;

using Prints = std::vector<std::vector<float>>;
/// The number of each photo's group (the photos of one child); absent when nobody knows.
using GroupNumbers = std::optional<std::vector<int>>;
using Report = PoseReport;

struct Result {
    TagClassifier::Model model;
    /// The same as the model's.
    Report report;
};

struct TrainingError {
    enum class Reason { tooFewExamples, tooFewCounterExamples, featuresDisagree, noSignal };

    Reason reason;
    /// Photos there are and photos needed, where there are too few.
    int have = 0;
    int need = 0;

    /// One sentence for the user.
    std::string message() const;

    bool operator==(const TrainingError&) const = default;
};

/// The pose `tag`, taught at `taughtAt` (seconds since 1970). Prints that differ in length, are
/// empty or hold anything but finite numbers disagree.
///
/// The strength of the penalty and the threshold are those with the best balance on photos that
/// the scoring model had not seen and of whose child it had seen none. The balance is F1, the
/// harmonic mean of precision and recall, which does not reward the many photos that are rightly
/// left alone. It is averaged over thresholds up to 0.05 away, because the best single threshold
/// hugs the photos it was counted on (on test photographs held out of all this, F1 rose from 0.71
/// to 0.73 and precision from 0.67 to 0.71), and counted from what tagging every photo would
/// reach: a pose that gains nothing over that has no signal.
///
/// The report's precision and recall are counted at the chosen threshold; without a tagged photo
/// the precision is 0. The same input gives the same bits.
tl::expected<Result, TrainingError> train(const std::string& tag, const Prints& positives,
                                          const Prints& negatives,
                                          const GroupNumbers& positiveGroups,
                                          const GroupNumbers& negativeGroups, double taughtAt);

/// What to tell the user about a pose learned from `positives` examples.
std::string verdict(double precision, double recall, int positives);

}  // namespace morva::PoseTrainer
