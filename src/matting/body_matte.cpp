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

MatteLayer onFinerGrid(const PhotoGrid& grid, const cv::Mat& prior, double unit) {
    const double factor = std::min(1.0, gridUnit / unit);
    PhotoGrid small{grid.place, {}, {}, unit * factor};
    cv::Mat values;
    cv::resize(grid.colours, small.colours, {}, factor, factor, cv::INTER_AREA);
    cv::resize(prior, values, small.colours.size(), 0, 0, cv::INTER_AREA);
    MatteLayer result = layer(small, values);
    const cv::Size size = grid.colours.size();
    cv::resize(result.coefficients, result.coefficients, size, 0, 0, cv::INTER_LINEAR);
    cv::resize(result.limits, result.limits, size, 0, 0, cv::INTER_NEAREST);
    cv::resize(result.certain, result.certain, size, 0, 0, cv::INTER_NEAREST);
    return result;
}

}  // namespace morva::BodyMatte
