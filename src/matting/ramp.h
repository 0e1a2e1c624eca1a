// SPDX-License-Identifier: GPL-3.0-or-later
// Soft thresholds of alphas, shares and distances. Used inside this room only.
#pragma once

#include <algorithm>

#include <opencv2/core.hpp>

namespace morva {

inline float unitRange(float value) { return std::clamp(value, 0.0F, 1.0F); }

/// 0 up to `begin`, 1 from `range` beyond it, of every cell; floats.
inline cv::Mat ramp(const cv::Mat& values, double begin, double range) {
    return cv::min(cv::max((values - begin) / range, 0.0), 1.0);
}

}  // namespace morva
