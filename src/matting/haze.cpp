// SPDX-License-Identifier: GPL-3.0-or-later
#include "matting/haze.h"

#include <algorithm>
#include <cmath>

#include <opencv2/imgproc.hpp>

#include "matting/ramp.h"

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

// Haze at the child's edge. The edge varies more than strands do: alphas are cut off, which leaves
// a low step of it, and more variation is forgiven.
constexpr double edgeCut = .35;
constexpr double edgeWindow = .04;
constexpr float edgeStrands = 1.5F;

constexpr double gapWindow = .07;  // face units, side of what is looked at for a gap
constexpr double gapBegin = .15;   // least alpha around that rules out a gap, and by how much more
constexpr double gapRange = .1;    // for sure
constexpr double outline = .5;     // of the person map's alpha
constexpr double fullBegin = .85;  // alpha of the guided filter that is full
constexpr double fullRange = .1;

int windowOf(double side) { return 2 * static_cast<int>(side / 2) + 1; }

cv::Mat meansOf(const cv::Mat& values, double side) {
    cv::Mat result;
    cv::boxFilter(values, result, -1, {windowOf(side), windowOf(side)});
    return result;
}

/// Mean square around each cell of what is finer than strands are wide.
cv::Mat fineSquares(const cv::Mat& alpha, double side, double unit) {
    cv::Mat smooth;
    cv::GaussianBlur(alpha, smooth, {}, strandWidth * unit);
    const cv::Mat fine = alpha - smooth;
    return meansOf(fine.mul(fine), side * unit);
}

/// How surely a place that varies by this mean square is even, from 0 to 1.
float evenness(float squares, float largest, float strands) {
    return unitRange((1 - std::sqrt(squares / largest) / strands) / (1 - surelyHaze));
}

}  // namespace

cv::Mat shareOf(const cv::Mat& alpha, const cv::Mat& prior, const cv::Mat& texture, double unit,
                float strands) {
    const cv::Mat squares = fineSquares(alpha, window, unit);
    // On the plain backdrops of studios the edge is not asked about.
    const cv::Mat cutSquares = cv::countNonZero(texture) > 0
                                   ? fineSquares(cv::min(alpha, edgeCut), edgeWindow, unit)
                                   : squares;
    const cv::Mat means = meansOf(alpha, window * unit);
    cv::Mat share(alpha.size(), CV_32FC1);
    for (int y = 0; y < alpha.rows; ++y) {
        for (int x = 0; x < alpha.cols; ++x) {
            const float mean = means.at<float>(y, x);
            const float largest = std::max(mean * (1 - mean), 1e-4F);
            const float off = alpha.at<float>(y, x) - prior.at<float>(y, x);
            float even = evenness(squares.at<float>(y, x), largest, strands);
            if (off > 0)
                even = std::max(
                    even, texture.at<float>(y, x) *
                              evenness(cutSquares.at<float>(y, x), largest, edgeStrands * strands));
            share.at<float>(y, x) = even * unitRange(largest / settled) *
                                    unitRange(off > 0 ? off / doubtedBeyond : -off / doubtedInside);
        }
    }
    return share;
}

cv::Mat shareWithoutGaps(const cv::Mat& alpha, const cv::Mat& drawn, const cv::Mat& prior,
                         double unit) {
    cv::Mat least = alpha.clone();
    least.setTo(1, prior < outline);
    const int cells = windowOf(gapWindow * unit);
    cv::erode(least, least, cv::Mat::ones(cells, cells, CV_8U));
    return ramp(least, gapBegin, gapRange).mul(ramp(drawn, fullBegin, fullRange));
}

}  // namespace morva::Haze
