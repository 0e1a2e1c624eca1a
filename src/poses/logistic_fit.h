// SPDX-License-Identifier: GPL-3.0-or-later
// Logistic regression with a penalty on the weights, by gradient descent. Used by the trainer;
// knows nothing of photos.
#pragma once

#include <Eigen/Core>

namespace morva {

struct LogisticFit {
    Eigen::VectorXd weights;
    double bias = 0;

    /// Lowers mean log-loss + lambda / 2 * sum of squared weights, the bias free, beginning at
    /// zero. One row of `x` a photo; `y` is 1 for examples and 0 for others. Ends after
    /// `iterations`, or as soon as no step lowers the loss any more. The same input gives the same
    /// bits.
    static LogisticFit fit(const Eigen::MatrixXd& x, const Eigen::VectorXd& y, double lambda,
                           int iterations);

    /// 0 to 1 for every row.
    Eigen::VectorXd probabilities(const Eigen::MatrixXd& x) const;
};

}  // namespace morva
