// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include <opencv2/core.hpp>

namespace morva {

/// How far each pixel of `lab` (CIE L*a*b*, three floats) lies from the backdrop expected there, in
/// units of L*a*b*; darkening alone counts half, since it may be a shadow. `backdrop` is 255 where
/// the picture surely shows no person. A studio's backdrop is expected to change smoothly over the
/// picture or, like a wall above a floor, from row to row, or to have one colour, `color` (red,
/// green and blue from 0 to 1): the nearest of these is taken. Empty when too little backdrop is
/// seen.
cv::Mat backdropDifference(const cv::Mat& lab, const cv::Mat& backdrop,
                           const std::optional<std::vector<double>>& color);

}  // namespace morva
