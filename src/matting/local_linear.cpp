// SPDX-License-Identifier: GPL-3.0-or-later
#include "matting/local_linear.h"

#include <algorithm>

#include <opencv2/imgproc.hpp>

namespace morva::LocalLinear {

namespace {

/// r g b, a, rr rg rb gg gb bb, ra ga ba.
using Moments = cv::Vec<float, 13>;

/// Rows whose moments are held at a time: thirteen floats a cell of a whole grid would be the
/// largest memory of a matte.
constexpr int stripeRows = 64;

cv::Mat moments(const cv::Mat& colours, const cv::Mat& alpha) {
    cv::Mat result(colours.size(), CV_32FC(Moments::channels));
    for (int y = 0; y < colours.rows; ++y) {
        const auto* colour = colours.ptr<cv::Vec3f>(y);
        const auto* a = alpha.ptr<float>(y);
        auto* out = result.ptr<Moments>(y);
        for (int x = 0; x < colours.cols; ++x) {
            const auto& c = colour[x];
            out[x] = {c[0],        c[1],        c[2],        a[x],        c[0] * c[0],
                      c[0] * c[1], c[0] * c[2], c[1] * c[1], c[1] * c[2], c[2] * c[2],
                      c[0] * a[x], c[1] * a[x], c[2] * a[x]};
        }
    }
    return result;
}

cv::Vec4f fitted(const Moments& m, float epsilon) {
    // Colours of a window nearly lie on a line: floats would lose the smaller axes.
    const cv::Matx33d covariance(
        m[4] - m[0] * m[0] + epsilon, m[5] - m[0] * m[1], m[6] - m[0] * m[2],  //
        m[5] - m[0] * m[1], m[7] - m[1] * m[1] + epsilon, m[8] - m[1] * m[2],  //
        m[6] - m[0] * m[2], m[8] - m[1] * m[2], m[9] - m[2] * m[2] + epsilon);
    const cv::Vec3f slope(m[10] - m[0] * m[3], m[11] - m[1] * m[3], m[12] - m[2] * m[3]);
    if (slope == cv::Vec3f(0, 0, 0)) return {0, 0, 0, m[3]};
    const cv::Vec3f k = covariance.inv() * cv::Vec3d(slope);
    return {k[0], k[1], k[2], m[3] - k[0] * m[0] - k[1] * m[1] - k[2] * m[2]};
}

}  // namespace

cv::Mat coefficients(const cv::Mat& colours, const cv::Mat& alpha, int radius, double epsilon) {
    const cv::Size window(2 * radius + 1, 2 * radius + 1);
    cv::Mat fits(colours.size(), CV_32FC4);
    for (int top = 0; top < colours.rows; top += stripeRows) {
        const int bottom = std::min(top + stripeRows, colours.rows);
        const cv::Range around(std::max(0, top - radius), std::min(bottom + radius, colours.rows));
        cv::Mat means;
        cv::boxFilter(moments(colours.rowRange(around), alpha.rowRange(around)), means, -1, window);
        for (int y = top; y < bottom; ++y) {
            const auto* mean = means.ptr<Moments>(y - around.start);
            auto* fit = fits.ptr<cv::Vec4f>(y);
            for (int x = 0; x < colours.cols; ++x)
                fit[x] = fitted(mean[x], static_cast<float>(epsilon));
        }
    }
    cv::boxFilter(fits, fits, -1, window);
    return fits;
}

}  // namespace morva::LocalLinear
