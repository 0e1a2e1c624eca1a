// SPDX-License-Identifier: GPL-3.0-or-later
// Alpha as a linear function of colour around each place: the guided filter, and the way a matte
// solved on a small grid is carried to full size. Used inside this room only.
#pragma once

#include <opencv2/core.hpp>

namespace morva::LocalLinear {

/// Four floats a cell, k and b of alpha = k . colour + b: fitted in every square window of
/// 2 x `radius` + 1 cells with `epsilon` (squared colours from 0 to 1) against large k, then
/// averaged over the windows that hold the cell.
cv::Mat coefficients(const cv::Mat& colours, const cv::Mat& alpha, int radius, double epsilon);

}  // namespace morva::LocalLinear
