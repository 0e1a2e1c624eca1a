// SPDX-License-Identifier: GPL-3.0-or-later
#include "matting/windowed_colours.h"

#include <algorithm>
#include <array>
#include <vector>

#include <opencv2/imgproc.hpp>

namespace morva::WindowedColours {

namespace {

/// One of the bells that together make a window with a heavy tail; sigma in face units.
struct Bell {
    double sigma;
    double weight;
    /// Cells of the grid per cell of the copy on which it is calculated.
    int reduction;
};

constexpr std::array<Bell, 4> bells{{{.05, 1, 1}, {.12, 3e-2, 2}, {.3, 1e-3, 4}, {.8, 1e-5, 8}}};
/// Where nothing is within reach, the sums are divided by this.
constexpr float smallestWeight = 1e-12F;

/// One channel under one bell.
cv::Mat underBell(const cv::Mat& values, const Bell& bell, double unit) {
    const double sigma = std::max(.3, bell.sigma * unit / bell.reduction);
    cv::Mat result;
    if (bell.reduction == 1) {
        cv::GaussianBlur(values, result, {}, sigma, sigma, cv::BORDER_CONSTANT);
        return result;
    }
    const cv::Size size(std::max(1, values.cols / bell.reduction),
                        std::max(1, values.rows / bell.reduction));
    cv::resize(values, result, size, 0, 0, cv::INTER_AREA);
    cv::GaussianBlur(result, result, {}, sigma, sigma, cv::BORDER_CONSTANT);
    cv::resize(result, result, values.size(), 0, 0, cv::INTER_LINEAR);
    return result;
}

cv::Mat windowed(const cv::Mat& values, double unit) {
    std::vector<cv::Mat> channels;
    cv::split(values, channels);
    for (cv::Mat& channel : channels) {
        cv::Mat sum = cv::Mat::zeros(channel.size(), CV_32FC1);
        for (const Bell& bell : bells)
            cv::scaleAdd(underBell(channel, bell, unit), bell.weight, sum, sum);
        channel = sum;
    }
    cv::Mat result;
    cv::merge(channels, result);
    return result;
}

/// `values` times the mask, and the mask itself as the last channel.
cv::Mat masked(const cv::Mat& values, const cv::Mat& mask) {
    const int channels = values.channels();
    cv::Mat result(values.size(), CV_32FC(channels + 1));
    for (int y = 0; y < values.rows; ++y) {
        const auto* value = values.ptr<float>(y);
        const auto* weight = mask.ptr<float>(y);
        auto* out = result.ptr<float>(y);
        for (int x = 0; x < values.cols; ++x) {
            for (int c = 0; c < channels; ++c) *out++ = *value++ * weight[x];
            *out++ = weight[x];
        }
    }
    return result;
}

/// x y xx xy yy, r g b, xr xg xb, yr yg yb; x and y in face units from the grid's centre.
using PlaneMoments = cv::Vec<float, 14>;

cv::Vec2f placeOf(int x, int y, cv::Size size, double unit) {
    return {static_cast<float>((x - size.width / 2) / unit),
            static_cast<float>((y - size.height / 2) / unit)};
}

/// Flattens the plane where the masked cells lie on a line or a heap, squared face units.
constexpr float ridge = .02F;

cv::Vec3f planeAt(const PlaneMoments& m, const cv::Vec2f& at) {
    const float xx = m[2] - m[0] * m[0] + ridge;
    const float xy = m[3] - m[0] * m[1];
    const float yy = m[4] - m[1] * m[1] + ridge;
    const float determinant = std::max(xx * yy - xy * xy, 1e-9F);
    cv::Vec3f colour;
    for (int c = 0; c < 3; ++c) {
        const float xc = m[8 + c] - m[0] * m[5 + c];
        const float yc = m[11 + c] - m[1] * m[5 + c];
        const float slopeX = (yy * xc - xy * yc) / determinant;
        const float slopeY = (xx * yc - xy * xc) / determinant;
        colour[c] = m[5 + c] + slopeX * (at[0] - m[0]) + slopeY * (at[1] - m[1]);
    }
    return colour;
}

}  // namespace

cv::Mat mean(const cv::Mat& values, const cv::Mat& mask, double unit) {
    const cv::Mat sums = windowed(masked(values, mask), unit);
    const int channels = values.channels();
    cv::Mat result(values.size(), CV_32FC(channels));
    for (int y = 0; y < values.rows; ++y) {
        const auto* sum = sums.ptr<float>(y);
        auto* out = result.ptr<float>(y);
        for (int x = 0; x < values.cols; ++x, sum += channels + 1) {
            const float weight = sum[channels] + smallestWeight;
            for (int c = 0; c < channels; ++c) *out++ = sum[c] / weight;
        }
    }
    return result;
}

cv::Mat plane(const cv::Mat& colours, const cv::Mat& mask, double unit) {
    cv::Mat moments(colours.size(), CV_32FC(PlaneMoments::channels));
    for (int y = 0; y < colours.rows; ++y) {
        for (int x = 0; x < colours.cols; ++x) {
            const cv::Vec2f p = placeOf(x, y, colours.size(), unit);
            const auto& c = colours.at<cv::Vec3f>(y, x);
            moments.at<PlaneMoments>(y, x) = {
                p[0], p[1],        p[0] * p[0], p[0] * p[1], p[1] * p[1], c[0],        c[1],
                c[2], p[0] * c[0], p[0] * c[1], p[0] * c[2], p[1] * c[0], p[1] * c[1], p[1] * c[2]};
        }
    }
    const cv::Mat means = mean(moments, mask, unit);
    cv::Mat result(colours.size(), CV_32FC3);
    for (int y = 0; y < colours.rows; ++y) {
        for (int x = 0; x < colours.cols; ++x) {
            result.at<cv::Vec3f>(y, x) =
                planeAt(means.at<PlaneMoments>(y, x), placeOf(x, y, colours.size(), unit));
        }
    }
    return result;
}

cv::Mat distribution(const cv::Mat& colours, const cv::Mat& mask, double unit, float floor) {
    using Colours = cv::Vec<float, 9>;
    cv::Mat moments(colours.size(), CV_32FC(Colours::channels));
    for (int y = 0; y < colours.rows; ++y) {
        for (int x = 0; x < colours.cols; ++x) {
            const auto& c = colours.at<cv::Vec3f>(y, x);
            moments.at<Colours>(y, x) = {c[0],        c[1],        c[2],
                                         c[0] * c[0], c[0] * c[1], c[0] * c[2],
                                         c[1] * c[1], c[1] * c[2], c[2] * c[2]};
        }
    }
    cv::Mat result = mean(moments, mask, unit);
    for (int y = 0; y < result.rows; ++y) {
        for (int x = 0; x < result.cols; ++x) {
            auto& m = result.at<Colours>(y, x);
            m[3] = std::max(0.0F, m[3] - m[0] * m[0]) + floor;
            m[4] -= m[0] * m[1];
            m[5] -= m[0] * m[2];
            m[6] = std::max(0.0F, m[6] - m[1] * m[1]) + floor;
            m[7] -= m[1] * m[2];
            m[8] = std::max(0.0F, m[8] - m[2] * m[2]) + floor;
        }
    }
    return result;
}

}  // namespace morva::WindowedColours
