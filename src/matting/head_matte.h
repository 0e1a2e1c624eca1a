// SPDX-License-Identifier: GPL-3.0-or-later
// The matte around a head, where strands of hair lie on the backdrop: a model of hair and backdrop
// colours together with the matting Laplacian. Used inside this room only.
#pragma once

#include <optional>

#include <opencv2/core.hpp>

#include "base/geometry.h"
#include "matting/matte_layer.h"
#include "matting/photo_grid.h"
#include "matting/tuning.h"

namespace morva::HeadMatte {

/// Cells a face unit on the grid that the matte is solved on; a finer one gains nothing.
inline constexpr double gridUnit = 150;

/// What is refined around a head, in pixels of the picture, clipped to `bounds`.
Rect region(Point eyeMidpoint, double faceUnit, const Rect& bounds);

/// What the person map is asked about for it, in pixels of the picture: the region as far as the
/// seam with the whole picture's map, which takes `mapSeam` of its side on each border.
inline constexpr double mapSeam = .1;
Rect mapWindow(Point eyeMidpoint, double faceUnit);

/// The layer over the whole of `grid`, from the probability of the child and of hair on it.
/// Where the solution is not to be trusted, on patterns and in haze, it is the layer that the
/// guided filter gives, with windows measured in units of `filterUnit` cells of `grid`.
/// Nothing where too little is surely child or surely backdrop to learn their colours from.
std::optional<MatteLayer> layer(const PhotoGrid& grid, const cv::Mat& persons, const cv::Mat& hair,
                                double filterUnit, const Matting::Tuning& tuning = {});

}  // namespace morva::HeadMatte
