// SPDX-License-Identifier: GPL-3.0-or-later
#include "poses/pose_trainer.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "poses/logistic_fit.h"
#include "poses/pose_folds.h"

namespace morva::PoseTrainer {

namespace {

using Eigen::Index;

constexpr std::array lambdas{0.03, 0.1, 0.3, 1.0, 3.0, 10.0};
constexpr int iterations = 600;
/// Thresholds are tried in steps of 1/40, beginning with 0.5.
constexpr int thresholdSteps = 40;
constexpr int firstThreshold = 20;
/// A threshold must also do well two steps to either side: new photos score a little differently.
constexpr int neighbourhood = 2;
/// Prints of one photo differ by as much between machines. A number that varies no more among the
/// photos says nothing; divided by so small a deviation it would shout.
constexpr double smallestDeviation = 1e-4;

/// All photos, the examples first.
struct Photos {
    /// One row a photo.
    Eigen::MatrixXd x;
    /// 1 for examples, 0 for others.
    Eigen::VectorXd y;
    Index examples = 0;

    Index others() const { return y.size() - examples; }
};

bool areComparable(const Prints& positives, const Prints& negatives) {
    const std::size_t length = positives.front().size();
    const auto fits = [&](const std::vector<float>& print) {
        return print.size() == length &&
               std::ranges::all_of(print, [](float value) { return std::isfinite(value); });
    };
    return length > 0 && std::ranges::all_of(positives, fits) &&
           std::ranges::all_of(negatives, fits);
}

Photos gathered(const Prints& positives, const Prints& negatives) {
    const auto examples = static_cast<Index>(positives.size());
    const auto count = examples + static_cast<Index>(negatives.size());
    Photos photos{{count, static_cast<Index>(positives.front().size())},
                  Eigen::VectorXd::Zero(count),
                  examples};
    photos.y.head(examples).setOnes();
    Index row = 0;
    for (const Prints* prints : {&positives, &negatives}) {
        for (const auto& print : *prints) {
            photos.x.row(row++) =
                Eigen::Map<const Eigen::RowVectorXf>(print.data(), photos.x.cols()).cast<double>();
        }
    }
    return photos;
}

struct Scale {
    Eigen::RowVectorXd mean;
    Eigen::RowVectorXd std;
};

Scale standardise(Eigen::MatrixXd& x) {
    Scale scale{x.colwise().mean(), {}};
    x.rowwise() -= scale.mean;
    scale.std = (x.colwise().squaredNorm() / static_cast<double>(x.rows())).cwiseSqrt();
    scale.std = (scale.std.array() < smallestDeviation).select(1, scale.std);
    x.array().rowwise() /= scale.std.array();
    return scale;
}

/// One fold held out, the others to learn from.
struct Split {
    Eigen::MatrixXd learned;
    Eigen::VectorXd learnedY;
    Eigen::MatrixXd heldOut;
    std::vector<Index> heldOutRows;
};

std::vector<Split> splitsOf(const Photos& photos, const PoseFolds& folds) {
    std::vector<Split> splits;
    for (int fold = 0; fold < folds.count; ++fold) {
        std::vector<Index> rows;
        Split split;
        for (Index row = 0; row < photos.y.size(); ++row) {
            const bool isHeldOut = folds.foldOf[static_cast<std::size_t>(row)] == fold;
            (isHeldOut ? split.heldOutRows : rows).push_back(row);
        }
        split.learned = photos.x(rows, Eigen::all);
        split.learnedY = photos.y(rows);
        split.heldOut = photos.x(split.heldOutRows, Eigen::all);
        splits.push_back(std::move(split));
    }
    return splits;
}

/// Every photo's probability from the model that had not seen its fold.
Eigen::VectorXd outOfFold(const std::vector<Split>& splits, double lambda, Index photos) {
    Eigen::VectorXd probabilities(photos);
    for (const Split& split : splits) {
        const auto model = LogisticFit::fit(split.learned, split.learnedY, lambda, iterations);
        probabilities(split.heldOutRows) = model.probabilities(split.heldOut);
    }
    return probabilities;
}

struct Counts {
    double found = 0;
    double wronglyTagged = 0;
    double examples = 0;

    double precision() const { return found > 0 ? found / (found + wronglyTagged) : 0; }
    double recall() const { return found / examples; }
    double f1() const { return 2 * found / (found + wronglyTagged + examples); }
};

Counts countsAt(double threshold, const Eigen::VectorXd& probabilities, Index examples) {
    const auto tagged = (probabilities.array() >= threshold).cast<double>();
    return {tagged.head(examples).sum(), tagged.tail(tagged.size() - examples).sum(),
            static_cast<double>(examples)};
}

double thresholdAt(int step) { return static_cast<double>(step) / thresholdSteps; }

struct Choice {
    double lambda = 0;
    double threshold = 0;
    /// Balance above that of tagging every photo.
    double gain = 0;
    Eigen::VectorXd probabilities;
};

Choice bestThreshold(double lambda, Eigen::VectorXd probabilities, const Photos& photos) {
    const auto f1At = [&](double threshold) {
        return countsAt(threshold, probabilities, photos.examples).f1();
    };
    const double everyPhoto = f1At(0);
    const auto gainAt = [&](int step) {
        double sum = 0;
        for (int near = step - neighbourhood; near <= step + neighbourhood; ++near)
            sum += f1At(thresholdAt(near)) - everyPhoto;
        return sum / (2 * neighbourhood + 1);
    };
    Choice best{lambda, thresholdAt(firstThreshold), gainAt(firstThreshold), {}};
    for (int step = 1; step < thresholdSteps; ++step) {
        const double gain = gainAt(step);
        if (gain <= best.gain) continue;
        best.threshold = thresholdAt(step);
        best.gain = gain;
    }
    best.probabilities = std::move(probabilities);
    return best;
}

Choice bestChoice(const Photos& photos, const PoseFolds& folds) {
    const std::vector<Split> splits = splitsOf(photos, folds);
    Choice best;
    for (const double lambda : lambdas) {
        Choice choice = bestThreshold(lambda, outOfFold(splits, lambda, photos.y.size()), photos);
        if (choice.gain > best.gain) best = std::move(choice);
    }
    return best;
}

Report reportOf(const Choice& choice, const Photos& photos) {
    const Counts counts = countsAt(choice.threshold, choice.probabilities, photos.examples);
    Report report;
    report.positives = static_cast<int>(photos.examples);
    report.negatives = static_cast<int>(photos.others());
    report.precision = counts.precision();
    report.recall = counts.recall();
    report.threshold = choice.threshold;
    report.verdict = verdict(report.precision, report.recall, report.positives);
    for (Index row = 0; row < photos.y.size(); ++row) {
        const bool tagged = choice.probabilities(row) >= choice.threshold;
        if (row < photos.examples && !tagged) {
            report.falseNegatives.push_back(static_cast<int>(row));
        } else if (row >= photos.examples && tagged) {
            report.falsePositives.push_back(static_cast<int>(row - photos.examples));
        }
    }
    return report;
}

template <class Vector>
std::vector<double> listOf(const Vector& values) {
    return {values.begin(), values.end()};
}

}  // namespace

tl::expected<Result, TrainingError> train(const std::string& tag, const Prints& positives,
                                          const Prints& negatives,
                                          const GroupNumbers& positiveGroups,
                                          const GroupNumbers& negativeGroups, double taughtAt) {
    using Reason = TrainingError::Reason;
    const int examples = static_cast<int>(positives.size());
    const int others = static_cast<int>(negatives.size());
    if (examples < fewestExamples)
        return tl::unexpected(TrainingError{Reason::tooFewExamples, examples, fewestExamples});
    if (others < fewestOthers)
        return tl::unexpected(TrainingError{Reason::tooFewCounterExamples, others, fewestOthers});
    if (!areComparable(positives, negatives))
        return tl::unexpected(TrainingError{Reason::featuresDisagree});

    Photos photos = gathered(positives, negatives);
    const Scale scale = standardise(photos.x);
    const Choice choice =
        bestChoice(photos, PoseFolds::dealt(examples, others, positiveGroups, negativeGroups));
    if (choice.gain <= 0) return tl::unexpected(TrainingError{Reason::noSignal});

    const auto fit = LogisticFit::fit(photos.x, photos.y, choice.lambda, iterations);
    Result result{{}, reportOf(choice, photos)};
    result.model.tag = tag;
    result.model.mean = listOf(scale.mean);
    result.model.std = listOf(scale.std);
    result.model.weights = listOf(fit.weights);
    result.model.bias = fit.bias;
    result.model.threshold = choice.threshold;
    result.model.taughtAt = taughtAt;
    result.model.report = result.report;
    return result;
}

}  // namespace morva::PoseTrainer
