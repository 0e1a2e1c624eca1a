// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/backdrop_difference.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

#include <opencv2/imgproc.hpp>

#include "analysis/lab_colors.h"

namespace morva {

namespace {

constexpr int enoughPixels = 400;
constexpr int fitRounds = 3;
/// Pixels further from the surface than this many times the middle distance, and than the noise,
/// do not take part in the next round.
constexpr float outlierFactor = 2.5F;
constexpr float noise = 3;
constexpr int sampleStep = 4;
constexpr int terms = 10;
constexpr float shadowWeight = 0.5F;
/// A floor's colour differs by at least this from the wall's, three rows above against three below,
/// over the outermost columns; it begins in the lower part of the photo.
constexpr float floorStep = 8;
constexpr int floorRows = 3;
constexpr double sideShare = 0.04;
constexpr double highestFloor = 0.4;

using Terms = std::array<double, terms>;
using Weights = cv::Matx<double, terms, 3>;

/// Picture coordinates from -1 to 1.
double centered(int at, int length) { return 2.0 * at / length - 1; }

Terms termsAt(int x, int y, const cv::Mat& lab) {
    const double u = centered(x, lab.cols);
    const double v = centered(y, lab.rows);
    return {1, u, v, u * u, u * v, v * v, u * u * u, u * u * v, u * v * v, v * v * v};
}

float squaredDistance(const cv::Vec3f& seen, const cv::Vec3f& expected) {
    cv::Vec3f difference = seen - expected;
    if (difference[0] < 0) difference[0] *= shadowWeight;
    return difference.dot(difference);
}

float distance(const cv::Vec3f& seen, const cv::Vec3f& expected) {
    return std::sqrt(squaredDistance(seen, expected));
}

cv::Vec3f surfaceAt(const Terms& at, const Weights& weights) {
    cv::Vec3d value;
    for (int i = 0; i < terms; ++i) {
        for (int c = 0; c < 3; ++c) value[c] += at[static_cast<std::size_t>(i)] * weights(i, c);
    }
    return value;
}

/// The surface along one row, as a polynomial in u.
class RowSurface {
public:
    RowSurface(const Weights& w, double v) {
        for (int c = 0; c < 3; ++c) {
            powers_[0][c] =
                static_cast<float>(w(0, c) + v * (w(2, c) + v * (w(5, c) + v * w(9, c))));
            powers_[1][c] = static_cast<float>(w(1, c) + v * (w(4, c) + v * w(8, c)));
            powers_[2][c] = static_cast<float>(w(3, c) + v * w(7, c));
            powers_[3][c] = static_cast<float>(w(6, c));
        }
    }
    cv::Vec3f at(float u) const {
        return powers_[0] + u * (powers_[1] + u * (powers_[2] + u * powers_[3]));
    }

private:
    std::array<cv::Vec3f, 4> powers_;
};

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

cv::Vec3f middleColor(const std::vector<Sample>& samples) {
    cv::Vec3f color;
    std::vector<float> values(samples.size());
    for (int c = 0; c < 3; ++c) {
        std::ranges::transform(samples, values.begin(),
                               [c](const Sample& sample) { return sample.value[c]; });
        const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
        std::ranges::nth_element(values, middle);
        color[c] = *middle;
    }
    return color;
}

/// Sets every sample's error against what is `expected` of it; returns how large one may be.
template <class Expected>
float judged(std::vector<Sample>& samples, Expected expected) {
    std::vector<float> errors;
    for (Sample& sample : samples) {
        sample.error = distance(sample.value, expected(sample));
        errors.push_back(sample.error);
    }
    const auto middle = errors.begin() + static_cast<std::ptrdiff_t>(errors.size() / 2);
    std::ranges::nth_element(errors, middle);
    return std::max(noise, outlierFactor * *middle);
}

/// A cubic surface a channel, fitted to the backdrop by least squares. The first round takes what
/// lies near the middle colour, each further one what lies near the surface so far.
Weights smoothSurface(const cv::Mat& lab, const cv::Mat& backdrop) {
    std::vector<Sample> samples;
    for (int y = 0; y < lab.rows; y += sampleStep) {
        for (int x = 0; x < lab.cols; x += sampleStep) {
            if (backdrop.at<std::uint8_t>(y, x) != 0)
                samples.push_back({termsAt(x, y, lab), lab.at<cv::Vec3f>(y, x)});
        }
    }
    if (samples.empty()) return Weights::zeros();
    const cv::Vec3f middle = middleColor(samples);
    float limit = judged(samples, [&](const Sample&) { return middle; });
    Weights weights;
    for (int round = 0; round < fitRounds; ++round) {
        weights = fitted(samples, limit);
        limit = judged(samples, [&](const Sample& s) { return surfaceAt(s.at, weights); });
    }
    return weights;
}

/// Middle colour of some rows' backdrop near one side of the picture.
std::optional<cv::Vec3f> sideColor(const cv::Mat& lab, const cv::Mat& backdrop, cv::Range rows,
                                   cv::Range columns) {
    std::vector<Sample> samples;
    for (int y = rows.start; y < rows.end; ++y) {
        for (int x = columns.start; x < columns.end; ++x) {
            if (backdrop.at<std::uint8_t>(y, x) != 0)
                samples.push_back({{}, lab.at<cv::Vec3f>(y, x)});
        }
    }
    return samples.empty() ? std::nullopt : std::optional(middleColor(samples));
}

/// Where a floor begins: the row at which the colour changes most at both sides of the picture. A
/// board held in front of the wall leaves some of it beside itself, a floor does not.
std::optional<int> floorRow(const cv::Mat& lab, const cv::Mat& backdrop) {
    const int side = std::max(2, static_cast<int>(sideShare * lab.cols));
    const std::array sides{cv::Range(0, side), cv::Range(lab.cols - side, lab.cols)};
    std::optional<int> found;
    float largest = floorStep;
    const int last = lab.rows - floorRows;
    for (int y = std::max(floorRows, static_cast<int>(highestFloor * lab.rows)); y <= last; ++y) {
        float step = HUGE_VALF;
        for (const cv::Range& columns : sides) {
            const auto above = sideColor(lab, backdrop, {y - floorRows, y}, columns);
            const auto below = sideColor(lab, backdrop, {y, y + floorRows}, columns);
            if (above && below)
                step = std::min(step, static_cast<float>(cv::norm(*above - *below)));
            else
                step = 0;
        }
        if (step <= largest) continue;
        largest = step;
        found = y;
    }
    return found;
}

cv::Vec3f labOf(const std::vector<double>& color) {
    const cv::Mat rgb(1, 1, CV_32FC3, cv::Scalar(color[0], color[1], color[2]));
    return labColors(rgb).at<cv::Vec3f>(0, 0);
}

/// Takes the lesser of `result` and the squared distance from a surface in all rows from `firstRow`
/// on.
void takeNearer(cv::Mat& result, const cv::Mat& lab, int firstRow, const Weights& weights) {
    for (int y = firstRow; y < lab.rows; ++y) {
        const RowSurface surface(weights, centered(y, lab.rows));
        const auto* seen = lab.ptr<cv::Vec3f>(y);
        auto* nearest = result.ptr<float>(y);
        for (int x = 0; x < lab.cols; ++x) {
            const cv::Vec3f expected = surface.at(static_cast<float>(centered(x, lab.cols)));
            nearest[x] = std::min(nearest[x], squaredDistance(seen[x], expected));
        }
    }
}

Weights flat(const cv::Vec3f& color) {
    Weights weights = Weights::zeros();
    for (int c = 0; c < 3; ++c) weights(0, c) = static_cast<double>(color[c]);
    return weights;
}

}  // namespace

cv::Mat backdropDifference(const cv::Mat& lab, const cv::Mat& backdrop,
                           const std::optional<std::vector<double>>& color) {
    if (cv::countNonZero(backdrop) < enoughPixels) return {};
    cv::Mat result(lab.size(), CV_32FC1, cv::Scalar(HUGE_VAL));
    cv::Mat wall = backdrop.clone();
    if (const std::optional<int> floor = floorRow(lab, backdrop)) {
        wall.rowRange(*floor, wall.rows).setTo(0);
        cv::Mat below = backdrop.clone();
        below.rowRange(0, *floor).setTo(0);
        takeNearer(result, lab, *floor, smoothSurface(lab, below));
    }
    takeNearer(result, lab, 0, smoothSurface(lab, wall));
    if (color) takeNearer(result, lab, 0, flat(labOf(*color)));
    cv::sqrt(result, result);
    return result;
}

}  // namespace morva
