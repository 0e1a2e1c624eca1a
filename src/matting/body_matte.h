// SPDX-License-Identifier: GPL-3.0-or-later
// The matte along clothes and skin, and everywhere in photos without a usable head: the person map
// drawn to the picture's edges by a guided filter. Used inside this room only.
#pragma once

#include <opencv2/core.hpp>

#include "matting/matte_layer.h"
#include "matting/photo_grid.h"

namespace morva::BodyMatte {

/// The person map's values (floats) as a first alpha: what is nearly sure becomes sure.
cv::Mat prior(const cv::Mat& persons);

/// The layer over the whole of `grid`, from the first alpha on that grid.
MatteLayer layer(const PhotoGrid& grid, const cv::Mat& prior);

/// The same filter for a finer grid, where the solved matte is not to be trusted. `unit` is what
/// `grid.unit` would be, had the grid been reduced for the filter alone from as large a unit as the
/// whole picture's.
MatteLayer onFinerGrid(const PhotoGrid& grid, const cv::Mat& prior, double unit);

/// Cells a face unit on the grid that suits the filter's window.
inline constexpr double gridUnit = 75;

}  // namespace morva::BodyMatte
