// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/backdrop_difference.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

#include <opencv2/imgproc.hpp>

namespace morva {

namespace {

constexpr int enoughPixels = 400;
constexpr int fitRounds = 4;
/// Pixels further from the surface than this many times the middle distance, and than the noise,
/// do not take part in the next round.
constexpr float outlierFactor = 2.5F;
constexpr float noise = 3;
constexpr int sampleStep = 3;
constexpr int terms = 10;
constexpr double shadowWeight = 0.5;
/// A floor differs from the wall by more than this over most of each row, and takes up at least a
/// share of the photo's height.
constexpr float floorDistance = 6;
constexpr double mostOfRow = 0.6;
constexpr double lowestFloor = 0.03;

std::array<double, terms> termsAt(int x, int y, const cv::Mat& lab) {
    const double u = 2.0 * x / lab.cols - 1;
    const double v = 2.0 * y / lab.rows - 1;
    return {1, u, v, u * u, u * v, v * v, u * u * u, u * u * v, u * v * v, v * v * v};
}

float distance(const cv::Vec3f& seen, const cv::Vec3f& expected) {
    cv::Vec3f difference = seen - expected;
    if (difference[0] < 0) difference[0] *= static_cast<float>(shadowWeight);
    return static_cast<float>(cv::norm(difference));
}

using Terms = std::array<double, terms>;
using Weights = cv::Matx<double, terms, 3>;

cv::Vec3f surfaceAt(const Terms& at, const Weights& weights) {
    cv::Vec3d value;
    for (int i = 0; i < terms; ++i) {
        for (int c = 0; c < 3; ++c) value[c] += at[static_cast<std::size_t>(i)] * weights(i, c);
    }
    return value;
}

struct Sample {
    Terms at;
    cv::Vec3f value;
    float error = 0;
};

Weights fitted(const std::vector<Sample>& samples, float limit) {
    cv::Matx<double, terms, terms> normal = cv::Matx<double, terms, terms>::zeros();
    Weights right = Weights::zeros();
    for (const Sample& sample : samples) {
        if (sample.error > limit) continue;
        for (int i = 0; i < terms; ++i) {
            const double weight = sample.at[static_cast<std::size_t>(i)];
            for (int j = 0; j < terms; ++j)
                normal(i, j) += weight * sample.at[static_cast<std::size_t>(j)];
            for (int c = 0; c < 3; ++c)
                right(i, c) += weight * static_cast<double>(sample.value[c]);
        }
    }
    return normal.solve(right, cv::DECOMP_SVD);
}

/// A cubic surface a channel, fitted to the backdrop by least squares with outliers dropped
/// round by round.
Weights smoothSurface(const cv::Mat& lab, const cv::Mat& backdrop) {
    std::vector<Sample> samples;
    for (int y = 0; y < lab.rows; y += sampleStep) {
        for (int x = 0; x < lab.cols; x += sampleStep) {
            if (backdrop.at<std::uint8_t>(y, x) != 0)
                samples.push_back({termsAt(x, y, lab), lab.at<cv::Vec3f>(y, x)});
        }
    }
    float limit = 0;
    Weights weights;
    for (int round = 0; round < fitRounds; ++round) {
        weights = fitted(samples, limit);
        std::vector<float> errors;
        for (Sample& sample : samples) {
            sample.error = distance(sample.value, surfaceAt(sample.at, weights));
            errors.push_back(sample.error);
        }
        const auto middle = errors.begin() + static_cast<std::ptrdiff_t>(errors.size() / 2);
        std::ranges::nth_element(errors, middle);
        limit = std::max(noise, outlierFactor * *middle);
    }
    return weights;
}

/// Whether a row's backdrop is unlike the wall for the most part and out to both ends: a board held
/// in front of the wall leaves some of it beside itself.
bool isFloor(const cv::Mat& fromWall, const cv::Mat& backdrop, int y) {
    int seen = 0;
    int unlike = 0;
    bool first = false;
    bool last = false;
    for (int x = 0; x < backdrop.cols; ++x) {
        if (backdrop.at<std::uint8_t>(y, x) == 0) continue;
        last = fromWall.at<float>(y, x) > floorDistance;
        if (seen == 0) first = last;
        ++seen;
        unlike += last ? 1 : 0;
    }
    return seen == 0 || (first && last && unlike > mostOfRow * seen);
}

/// The first row of a floor: from there down to the photo's bottom the backdrop is not like the
/// wall. Nothing without one.
std::optional<int> floorRow(const cv::Mat& fromWall, const cv::Mat& backdrop) {
    int row = backdrop.rows;
    while (row > 0 && isFloor(fromWall, backdrop, row - 1)) --row;
    if (backdrop.rows - row < lowestFloor * backdrop.rows) return std::nullopt;
    return row;
}

cv::Vec3f labOf(const std::vector<double>& color) {
    const cv::Mat rgb(1, 1, CV_32FC3, cv::Scalar(color[0], color[1], color[2]));
    cv::Mat lab;
    cv::cvtColor(rgb, lab, cv::COLOR_RGB2Lab);
    return lab.at<cv::Vec3f>(0, 0);
}

/// Takes the lesser of `result` and the distance from `expected` in all rows from `firstRow` on.
template <class Expected>
void takeNearer(cv::Mat& result, const cv::Mat& lab, int firstRow, Expected expected) {
    for (int y = firstRow; y < lab.rows; ++y) {
        for (int x = 0; x < lab.cols; ++x) {
            float& nearest = result.at<float>(y, x);
            nearest = std::min(nearest, distance(lab.at<cv::Vec3f>(y, x), expected(x, y)));
        }
    }
}

}  // namespace

cv::Mat backdropDifference(const cv::Mat& lab, const cv::Mat& backdrop,
                           const std::optional<std::vector<double>>& color) {
    if (cv::countNonZero(backdrop) < enoughPixels) return {};
    const auto surface = [&](const Weights& weights) {
        return [&](int x, int y) { return surfaceAt(termsAt(x, y, lab), weights); };
    };
    cv::Mat result(lab.size(), CV_32FC1, cv::Scalar(HUGE_VAL));
    const Weights wall = smoothSurface(lab, backdrop);
    takeNearer(result, lab, 0, surface(wall));
    if (color) takeNearer(result, lab, 0, [flat = labOf(*color)](int, int) { return flat; });
    if (const auto row = floorRow(result, backdrop)) {
        cv::Mat below = backdrop.clone();
        below.rowRange(0, *row).setTo(0);
        if (cv::countNonZero(below) >= enoughPixels)
            takeNearer(result, lab, *row, surface(smoothSurface(lab, below)));
    }
    return result;
}

}  // namespace morva
