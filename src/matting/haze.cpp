// SPDX-License-Identifier: GPL-3.0-or-later
#include "matting/haze.h"

#include <algorithm>
#include <cmath>

#include <opencv2/imgproc.hpp>

namespace morva::Haze {

namespace {

constexpr double strandWidth = .01;  // face units; what is wider than this is no strand
constexpr double window = .07;       // face units, side of what is looked at for strands
constexpr float surelyHaze = .7F;    // of the variation from which there are strands
constexpr float settled = .05F;      // mean x (1 - mean) below which a place is not covered in part
/// Alpha beyond the person map, or short of it, that makes the doubt full: gaps between curls are
/// smoother than strands, and are there more often than they are not.
constexpr float doubtedBeyond = .1F;
constexpr float doubtedInside = .3F;

float unitRange(float value) { return std::clamp(value, 0.0F, 1.0F); }

cv::Mat meansOf(const cv::Mat& values, double side) {
    const int cells = 2 * static_cast<int>(side / 2) + 1;
    cv::Mat result;
    cv::boxFilter(values, result, -1, {cells, cells});
    return result;
}

}  // namespace

cv::Mat shareOf(const cv::Mat& alpha, const cv::Mat& prior, double unit, float strands) {
    cv::Mat smooth;
    cv::GaussianBlur(alpha, smooth, {}, strandWidth * unit);
    const cv::Mat fine = alpha - smooth;
    const cv::Mat squares = meansOf(fine.mul(fine), window * unit);
    const cv::Mat means = meansOf(alpha, window * unit);
    cv::Mat share(alpha.size(), CV_32FC1);
    for (int y = 0; y < alpha.rows; ++y) {
        for (int x = 0; x < alpha.cols; ++x) {
            const float mean = means.at<float>(y, x);
            const float largest = std::max(mean * (1 - mean), 1e-4F);
            const float variation = std::sqrt(squares.at<float>(y, x) / largest);
            const float even = (1 - variation / strands) / (1 - surelyHaze);
            const float off = alpha.at<float>(y, x) - prior.at<float>(y, x);
            share.at<float>(y, x) = unitRange(even) * unitRange(largest / settled) *
                                    unitRange(off > 0 ? off / doubtedBeyond : -off / doubtedInside);
        }
    }
    return share;
}

}  // namespace morva::Haze
