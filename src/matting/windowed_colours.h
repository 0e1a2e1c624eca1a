// SPDX-License-Identifier: GPL-3.0-or-later
// Means of colours around every place, taken over a part of a picture only: near pixels count most,
// and where none are near, far ones do. Used inside this room only.
#pragma once

#include <opencv2/core.hpp>

namespace morva::WindowedColours {

/// Mean of `values` (any number of float channels) over the cells where `mask` (floats 0 or 1) is
/// 1, at every cell. `unit` is the face unit in cells.
cv::Mat mean(const cv::Mat& values, const cv::Mat& mask, double unit);

/// The colour that the plane through the masked cells' colours has at every cell: a smooth backdrop
/// carried on behind the child.
cv::Mat plane(const cv::Mat& colours, const cv::Mat& mask, double unit);

/// Colours of the masked cells as a distribution: three floats of mean, then the covariance rr rg
/// rb gg gb bb, `floor` added to its diagonal.
cv::Mat distribution(const cv::Mat& colours, const cv::Mat& mask, double unit, float floor);

}  // namespace morva::WindowedColours
