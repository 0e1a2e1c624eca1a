// SPDX-License-Identifier: GPL-3.0-or-later
// Solves for the alpha that is locally a linear function of colour and keeps near what is known and
// estimated. Used inside this room only.
#pragma once

#include <opencv2/core.hpp>

namespace morva::ClosedForm {

/// Alpha at every cell, floats, not limited to 0..1. `known` holds the cells that keep `start`;
/// elsewhere (L + weight) alpha = pull, with L the matting Laplacian of `colours` over windows of
/// 3 x 3 cells, and `start` is where the search begins. Weights are positive.
cv::Mat solved(const cv::Mat& colours, const cv::Mat& known, const cv::Mat& start,
               const cv::Mat& weight, const cv::Mat& pull);

}  // namespace morva::ClosedForm
