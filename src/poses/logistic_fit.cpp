// SPDX-License-Identifier: GPL-3.0-or-later
#include "poses/logistic_fit.h"

namespace morva {

namespace {

constexpr double firstStep = 1;
constexpr double growth = 1.1;
constexpr int mostHalvings = 12;
/// A step that lowers the loss by less than this is the last one: it moves no probability by as
/// much as the spacing of the thresholds.
constexpr double settled = 1e-8;

/// Mean log-loss of scores `z`: log(1 + e^z) - y z, with the exponent kept from being positive.
double meanLogLoss(const Eigen::VectorXd& z, const Eigen::VectorXd& y) {
    const auto scores = z.array();
    return ((-scores.abs()).exp().log1p() + scores.max(0) - y.array() * scores).mean();
}

Eigen::VectorXd probabilitiesOf(const Eigen::VectorXd& z) {
    return (1 / (1 + (-z.array()).exp())).matrix();
}

}  // namespace

LogisticFit LogisticFit::fit(const Eigen::MatrixXd& x, const Eigen::VectorXd& y, double lambda,
                             int iterations) {
    LogisticFit model{Eigen::VectorXd::Zero(x.cols()), 0};
    if (x.rows() == 0) return model;
    Eigen::VectorXd z = Eigen::VectorXd::Zero(x.rows());
    double loss = meanLogLoss(z, y);
    double step = firstStep;
    for (int iteration = 0; iteration < iterations; ++iteration) {
        const Eigen::VectorXd error = (probabilitiesOf(z) - y) / static_cast<double>(x.rows());
        const Eigen::VectorXd slope = x.transpose() * error + lambda * model.weights;
        const double biasSlope = error.sum();
        // The scores are linear in the step, so that trying a shorter one costs no second pass
        // over the photos.
        const Eigen::VectorXd scoreSlope = ((x * slope).array() + biasSlope).matrix();
        Eigen::VectorXd triedZ;
        Eigen::VectorXd triedWeights;
        double triedLoss = loss;
        for (int halvings = 0;; ++halvings) {
            triedZ = z - step * scoreSlope;
            triedWeights = model.weights - step * slope;
            triedLoss = meanLogLoss(triedZ, y) + lambda / 2 * triedWeights.squaredNorm();
            if (triedLoss < loss || halvings == mostHalvings) break;
            step /= 2;
        }
        if (!(triedLoss < loss)) break;
        const double fall = loss - triedLoss;
        model.weights = std::move(triedWeights);
        model.bias -= step * biasSlope;
        z = std::move(triedZ);
        loss = triedLoss;
        if (fall < settled) break;
        step *= growth;
    }
    return model;
}

Eigen::VectorXd LogisticFit::probabilities(const Eigen::MatrixXd& x) const {
    return probabilitiesOf(((x * weights).array() + bias).matrix());
}

}  // namespace morva
