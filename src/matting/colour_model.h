// SPDX-License-Identifier: GPL-3.0-or-later
// What the colours of the child and of the backdrop around an outline tell about alpha.
// Used inside this room only.
#pragma once

#include <opencv2/core.hpp>

#include "matting/trimap.h"

namespace morva {

/// Colours around each cell of a grid.
struct ColourModel {
    /// Mean and covariance of the child's colours, as `WindowedColours::distribution` gives them.
    cv::Mat child;
    /// Three floats, and the mean squared error of them where the backdrop can be seen.
    cv::Mat backdrop;
    cv::Mat backdropVariance;

    /// `colours` and `trimap` on one grid of `unit` cells a face unit.
    static ColourModel fitted(const cv::Mat& colours, const Trimap& trimap, double unit);
    /// The backdrop again, with other cells that are surely backdrop (floats 0 or 1).
    void refitBackdrop(const cv::Mat& colours, const cv::Mat& backdropCells, double unit);
    /// Fields at another size.
    ColourModel resized(cv::Size size) const;
};

/// The mean and the variance of alpha that a cell's colour suggests, floats; where the trimap is
/// settled its value, without variance.
struct AlphaEstimate {
    cv::Mat mean;
    cv::Mat variance;

    /// `model` at the size of `colours`; `prior` is the alpha that the person map suggests.
    static AlphaEstimate of(const cv::Mat& colours, const Trimap& trimap, const ColourModel& model,
                            const cv::Mat& prior);
};

}  // namespace morva
