// SPDX-License-Identifier: GPL-3.0-or-later
// The four usual errors of a matte against a true one, taken over a band around the true outline.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include <opencv2/imgproc.hpp>

namespace morva {

/// SAD and connectivity in thousands, mean squared error x 1000, gradient in thousands.
struct MattingErrors {
    double sad = 0;
    double mse = 0;
    double gradient = 0;
    double connectivity = 0;

    MattingErrors& operator+=(const MattingErrors& other) {
        sad += other.sad;
        mse += other.mse;
        gradient += other.gradient;
        connectivity += other.connectivity;
        return *this;
    }
    MattingErrors operator/(double count) const {
        return {sad / count, mse / count, gradient / count, connectivity / count};
    }
};

/// Where the true alpha is neither 0 nor 1, grown by 0.08 face units; 255 inside.
inline cv::Mat outlineBand(const cv::Mat& truth, double unit) {
    const cv::Mat soft = (truth > .02) & (truth < .98);
    cv::Mat distance;
    cv::distanceTransform(soft == 0, distance, cv::DIST_L2, cv::DIST_MASK_PRECISE);
    return distance <= .08 * unit;
}

/// Length of the gradient of a blurred alpha, sigma 1.4 pixels.
inline cv::Mat gradientLength(const cv::Mat& alpha) {
    constexpr double sigma = 1.4;
    constexpr int reach = 5;
    cv::Mat bell(1, 2 * reach + 1, CV_32FC1);
    cv::Mat slope(1, 2 * reach + 1, CV_32FC1);
    for (int i = -reach; i <= reach; ++i) {
        const double value =
            std::exp(-i * i / (2 * sigma * sigma)) / (sigma * std::sqrt(2 * CV_PI));
        bell.at<float>(i + reach) = static_cast<float>(value);
        slope.at<float>(i + reach) = static_cast<float>(-i * value / (sigma * sigma));
    }
    slope /= std::sqrt(cv::sum(slope.mul(slope))[0] * cv::sum(bell.mul(bell))[0]);
    cv::Mat across;
    cv::Mat down;
    cv::sepFilter2D(alpha, across, CV_32F, slope, bell);
    cv::sepFilter2D(alpha, down, CV_32F, bell, slope);
    cv::Mat length;
    cv::magnitude(across, down, length);
    return length;
}

/// The highest threshold at which each pixel hangs together with the body that both mattes share.
inline cv::Mat connectedLevel(const cv::Mat& alpha, const cv::Mat& truth) {
    cv::Mat level = cv::Mat::zeros(alpha.size(), CV_32FC1);
    for (int step = 1; step <= 10; ++step) {
        const double threshold = step / 10.0;
        cv::Mat labels;
        cv::Mat stats;
        cv::Mat centers;
        const int count = cv::connectedComponentsWithStats(
            (alpha >= threshold) & (truth >= threshold), labels, stats, centers, 4);
        int largest = 0;
        for (int i = 1; i < count; ++i)
            if (largest == 0 ||
                stats.at<int>(i, cv::CC_STAT_AREA) > stats.at<int>(largest, cv::CC_STAT_AREA))
                largest = i;
        if (largest > 0) level.setTo(threshold, labels == largest);
    }
    return level;
}

inline cv::Mat connectivity(const cv::Mat& alpha, const cv::Mat& level) {
    const cv::Mat off = alpha - level;
    cv::Mat counted;
    cv::threshold(off, counted, .15, 0, cv::THRESH_TOZERO);
    return 1 - counted;
}

/// Both alphas as floats from 0 to 1.
inline MattingErrors mattingErrors(const cv::Mat& alpha, const cv::Mat& truth,
                                   const cv::Mat& band) {
    cv::Mat off = cv::abs(alpha - truth);
    MattingErrors errors;
    off.setTo(0, band == 0);
    errors.sad = cv::sum(off)[0] / 1e3;
    errors.mse = cv::sum(off.mul(off))[0] / cv::countNonZero(band) * 1e3;
    cv::Mat slopes = gradientLength(alpha) - gradientLength(truth);
    slopes.setTo(0, band == 0);
    errors.gradient = cv::sum(slopes.mul(slopes))[0] / 1e3;
    const cv::Mat level = connectedLevel(alpha, truth);
    cv::Mat apart = cv::abs(connectivity(alpha, level) - connectivity(truth, level));
    apart.setTo(0, band == 0);
    errors.connectivity = cv::sum(apart)[0] / 1e3;
    return errors;
}

}  // namespace morva
