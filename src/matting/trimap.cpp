// SPDX-License-Identifier: GPL-3.0-or-later
#include "matting/trimap.h"

#include <opencv2/imgproc.hpp>

namespace morva {

namespace {

// Chosen on photographs with known alpha; lengths in face units. The errors change little with
// them: by 4 % between half and one and a half times.
constexpr float outline = .5F;       // probability on the person's outline
constexpr float surelyChild = .95F;  // probabilities beyond which a cell may be settled
constexpr float surelyBackdrop = .05F;
constexpr float innerBand = .03F;  // open inside the outline
constexpr float outerBand = .05F;  // and outside
constexpr float innerHairBand = .09F;
constexpr float outerHairBand = .18F;
constexpr float likelyHair = .3F;
constexpr float hairReach = .22F;    // around likely hair the band is as wide as for hair
constexpr float hairFadeout = .05F;  // over which it narrows beyond

constexpr float farAway = 1e3F;

}  // namespace

cv::Mat distanceTo(const cv::Mat& mask, double unit) {
    if (cv::countNonZero(mask) == 0) return {mask.size(), CV_32FC1, cv::Scalar(farAway)};
    cv::Mat distance;
    cv::distanceTransform(mask == 0, distance, cv::DIST_L2, cv::DIST_MASK_PRECISE);
    return distance / unit;
}

Trimap Trimap::around(const cv::Mat& persons, const cv::Mat& hair, double unit) {
    Trimap map;
    const cv::Mat inside = persons > outline;
    map.depth = distanceTo(~inside, unit);
    map.away = distanceTo(inside, unit);
    const cv::Mat toHair = distanceTo(hair > likelyHair, unit);
    map.cells = cv::Mat(persons.size(), CV_8U, cv::Scalar(open));
    for (int y = 0; y < persons.rows; ++y) {
        for (int x = 0; x < persons.cols; ++x) {
            const float far = (toHair.at<float>(y, x) - hairReach) / hairFadeout;
            const float nearHair = 1 - std::clamp(far, 0.0F, 1.0F);
            const float inner = innerBand + nearHair * (innerHairBand - innerBand);
            const float outer = outerBand + nearHair * (outerHairBand - outerBand);
            const float p = persons.at<float>(y, x);
            auto& cell = map.cells.at<unsigned char>(y, x);
            if (p > surelyChild && map.depth.at<float>(y, x) > inner) cell = child;
            if (p < surelyBackdrop && map.away.at<float>(y, x) > outer) cell = backdrop;
        }
    }
    return map;
}

cv::Mat Trimap::only(unsigned char value) const {
    cv::Mat result;
    cv::Mat(cells == value).convertTo(result, CV_32F, 1.0 / 255);
    return result;
}

}  // namespace morva
