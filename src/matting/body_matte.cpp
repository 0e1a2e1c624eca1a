// SPDX-License-Identifier: GPL-3.0-or-later
#include "matting/body_matte.h"

#include <algorithm>
#include <cmath>

#include <opencv2/imgproc.hpp>

#include "matting/local_linear.h"

namespace morva::BodyMatte {

namespace {

constexpr double priorBegin = .1;  // map values taken as alpha 0 and 1
constexpr double priorFull = .9;
constexpr double windowRadius = .04;  // face units; larger ones lose corners, smaller ones edges
constexpr double epsilon = 1e-4;      // squared colour differences below this are noise
/// The filter leaves a haze and a lack of this much around and inside the outline.
constexpr float begin = .08F;
constexpr float full = .92F;

int radiusOf(double unit) {
    return std::max(1, static_cast<int>(std::lround(windowRadius * unit)));
}

/// Alpha of each cell as coefficients that look at no colour any more.
cv::Mat settledAlpha(const cv::Mat& fits, const cv::Mat& colours) {
    cv::Mat settled(fits.size(), CV_32FC4);
    for (int y = 0; y < fits.rows; ++y) {
        for (int x = 0; x < fits.cols; ++x) {
            const auto& k = fits.at<cv::Vec4f>(y, x);
            const auto& colour = colours.at<cv::Vec3f>(y, x);
            settled.at<cv::Vec4f>(y, x) = {
                0, 0, 0, k[0] * colour[0] + k[1] * colour[1] + k[2] * colour[2] + k[3]};
        }
    }
    return settled;
}

cv::Mat limited(const cv::Mat& values, double low, double high) {
    cv::Mat result = (values - low) / (high - low);
    cv::min(cv::max(result, 0.0), 1.0, result);
    return result;
}

}  // namespace

cv::Mat prior(const cv::Mat& persons) { return limited(persons, priorBegin, priorFull); }

MatteLayer layer(const PhotoGrid& grid, const cv::Mat& prior) {
    MatteLayer layer;
    layer.place = grid.place;
    const int radius = radiusOf(grid.unit);
    layer.coefficients = LocalLinear::coefficients(grid.colours, prior, radius, epsilon);
    layer.limits = cv::Mat(prior.size(), CV_32FC2, cv::Scalar(begin, full));
    layer.findCertain(prior, 2 * radius + 1);
    return layer;
}

MatteLayer onFinerGrid(const PhotoGrid& grid, const cv::Mat& prior) {
    const double factor = std::min(1.0, gridUnit / grid.unit);
    cv::Mat colours;
    cv::Mat values;
    cv::resize(grid.colours, colours, {}, factor, factor, cv::INTER_AREA);
    cv::resize(prior, values, {}, factor, factor, cv::INTER_AREA);
    MatteLayer layer;
    layer.place = grid.place;
    const cv::Mat fits =
        LocalLinear::coefficients(colours, values, radiusOf(grid.unit * factor), epsilon);
    const cv::Mat settled = settledAlpha(fits, colours);
    cv::resize(settled, layer.coefficients, grid.colours.size(), 0, 0, cv::INTER_LINEAR);
    layer.limits = cv::Mat(prior.size(), CV_32FC2, cv::Scalar(begin, full));
    return layer;
}

}  // namespace morva::BodyMatte
