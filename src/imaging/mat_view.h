// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures, masks and grids as OpenCV sees them, without a copy. For rooms that calculate with it.
#pragma once

#include <cstdint>
#include <span>

#include <opencv2/core.hpp>

#include "imaging/raster.h"

namespace morva {

template <int channels>
cv::Mat viewOf(Raster<channels>& raster) {
    return {raster.height(), raster.width(), CV_8UC(channels), raster.row(0)};
}

/// Only ever read through.
template <int channels>
cv::Mat viewOf(const Raster<channels>& raster) {
    return {raster.height(), raster.width(), CV_8UC(channels),
            const_cast<std::uint8_t*>(raster.row(0))};
}

/// A square grid of floats, `side` a row; only ever read through.
inline cv::Mat viewOf(std::span<const float> values, int side) {
    return {side, side, CV_32FC1, const_cast<float*>(values.data())};
}

}  // namespace morva
