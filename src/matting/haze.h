// SPDX-License-Identifier: GPL-3.0-or-later
// Tells what only looks like hair in a solved matte: a shadow or a blurred patch of the backdrop
// outside the child, dark or shining hair inside that passes for gaps. Used inside this room only.
#pragma once

#include <opencv2/core.hpp>

namespace morva::Haze {

/// From 0 to 1, how surely each cell of `alpha` is haze: covered in part, without strands, and not
/// what `prior`, the alpha that the person map suggests, shows. Strands vary from cell to cell,
/// haze does not. `texture` is 1 where the backdrop is textured: there, haze close to the child's
/// edge is told from the edge itself; on plain ones that would take defocused hair for haze.
/// All floats on one grid of `unit` cells a face unit. `strands` is the standard deviation of a
/// cell among its neighbours, over the largest possible for their mean, from which they are
/// strands.
cv::Mat shareOf(const cv::Mat& alpha, const cv::Mat& prior, const cv::Mat& texture, double unit,
                float strands);

/// From 0 to 1, how surely what `alpha` lacks in each cell is no gap in the hair: `drawn`, the
/// alpha of the guided filter, is full there, and the backdrop shows nowhere around within the
/// child's outline in `prior`. Hair of another shade lacks something everywhere and everything
/// nowhere.
cv::Mat shareWithoutGaps(const cv::Mat& alpha, const cv::Mat& drawn, const cv::Mat& prior,
                         double unit);

}  // namespace morva::Haze
