// SPDX-License-Identifier: GPL-3.0-or-later
// The one way from RGB to CIE Lab, for analysers that compare colours as eyes do. Safe to call from
// several threads at once, which the library's own conversion is not.
#pragma once

#include <opencv2/core.hpp>

namespace morva {

/// Takes three channels of 0 to 1 as floats; returns L of 0 to 100, a and b.
cv::Mat labColors(const cv::Mat& rgb);

}  // namespace morva
