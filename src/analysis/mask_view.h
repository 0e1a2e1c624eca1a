// SPDX-License-Identifier: GPL-3.0-or-later
// Masks and pictures as OpenCV sees them, without a copy. For the analysers' own use.
#pragma once

#include <cstdint>

#include <opencv2/core.hpp>

#include "imaging/raster.h"

namespace morva {

/// Only ever read through.
inline cv::Mat viewOf(const Mask& mask) {
    return {mask.height(), mask.width(), CV_8UC1, const_cast<std::uint8_t*>(mask.row(0))};
}
inline cv::Mat viewOf(Mask& mask) { return {mask.height(), mask.width(), CV_8UC1, mask.row(0)}; }
inline cv::Mat viewOf(Picture& picture) {
    return {picture.height(), picture.width(), CV_8UC3, picture.row(0)};
}
/// Only ever read through.
inline cv::Mat viewOf(const Picture& picture) {
    return {picture.height(), picture.width(), CV_8UC3, const_cast<std::uint8_t*>(picture.row(0))};
}

}  // namespace morva
