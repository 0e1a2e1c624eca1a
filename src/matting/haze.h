// SPDX-License-Identifier: GPL-3.0-or-later
// Tells haze from hair in a solved matte: strands vary from cell to cell, a shadow or a blurred
// patch of the backdrop that passes for hair does not. Used inside this room only.
#pragma once

#include <opencv2/core.hpp>

namespace morva::Haze {

/// From 0 to 1, how surely each cell of `alpha` is haze: covered in part, without strands, and not
/// what `prior`, the alpha that the person map suggests, shows. All floats on one grid of `unit`
/// cells a face unit. `strands` is the standard deviation of a cell among its neighbours, over the
/// largest possible for their mean, from which they are strands.
cv::Mat shareOf(const cv::Mat& alpha, const cv::Mat& prior, double unit, float strands);

}  // namespace morva::Haze
