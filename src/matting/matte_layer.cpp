// SPDX-License-Identifier: GPL-3.0-or-later
#include "matting/matte_layer.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <opencv2/imgproc.hpp>

namespace morva {

namespace {

/// k, b and the limits side by side.
using Cell = cv::Vec<float, 6>;

/// Two neighbours on one axis and the share of the second.
struct Between {
    int low = 0;
    int high = 0;
    float share = 0;
};

Between between(double at, int count) {
    const double center = std::clamp(at - 0.5, 0.0, static_cast<double>(count - 1));
    const int low = static_cast<int>(center);
    return {low, std::min(low + 1, count - 1), static_cast<float>(center - low)};
}

/// The cells of one row of the picture, blended from the two rows of the grid around it.
std::vector<Cell> blendedRow(const MatteLayer& layer, const Between& rows) {
    std::vector<Cell> cells(static_cast<std::size_t>(layer.coefficients.cols));
    const auto* topFit = layer.coefficients.ptr<cv::Vec4f>(rows.low);
    const auto* lowFit = layer.coefficients.ptr<cv::Vec4f>(rows.high);
    const auto* topLimit = layer.limits.ptr<cv::Vec2f>(rows.low);
    const auto* lowLimit = layer.limits.ptr<cv::Vec2f>(rows.high);
    for (std::size_t x = 0; x < cells.size(); ++x) {
        for (int c = 0; c < 4; ++c)
            cells[x][c] = topFit[x][c] + rows.share * (lowFit[x][c] - topFit[x][c]);
        for (int c = 0; c < 2; ++c)
            cells[x][4 + c] = topLimit[x][c] + rows.share * (lowLimit[x][c] - topLimit[x][c]);
    }
    return cells;
}

float alphaOf(const Cell& low, const Cell& high, float share, const std::uint8_t* pixel) {
    const auto mixed = [&](int c) { return low[c] + share * (high[c] - low[c]); };
    const float raw =
        (mixed(0) * static_cast<float>(pixel[0]) + mixed(1) * static_cast<float>(pixel[1]) +
         mixed(2) * static_cast<float>(pixel[2])) /
            255.0F +
        mixed(3);
    const float begin = mixed(4);
    return std::clamp((raw - begin) / (mixed(5) - begin), 0.0F, 1.0F);
}

}  // namespace

void MatteLayer::row(const Picture& picture, int y, int left, std::span<float> alpha) const {
    const double stepX = coefficients.cols / place.width;
    const double atY = (y + 0.5 - place.y) * coefficients.rows / place.height;
    const auto* sure =
        certain.ptr(std::clamp(static_cast<int>(std::floor(atY)), 0, coefficients.rows - 1));
    std::vector<Cell> cells;
    for (std::size_t i = 0; i < alpha.size(); ++i) {
        const int x = left + static_cast<int>(i);
        const double at = (x + 0.5 - place.x) * stepX;
        const int cell = std::clamp(static_cast<int>(std::floor(at)), 0, coefficients.cols - 1);
        if (sure[cell] != 128) {
            alpha[i] = sure[cell] == 0 ? 0.0F : 1.0F;
            continue;
        }
        if (cells.empty()) cells = blendedRow(*this, between(atY, coefficients.rows));
        const Between columns = between(at, coefficients.cols);
        alpha[i] = alphaOf(cells[static_cast<std::size_t>(columns.low)],
                           cells[static_cast<std::size_t>(columns.high)], columns.share,
                           picture.pixel(x, y));
    }
}

void MatteLayer::findCertain(const cv::Mat& alpha, int reach) {
    const cv::Mat window(2 * reach + 1, 2 * reach + 1, CV_8U, cv::Scalar(1));
    cv::Mat highest;
    cv::Mat lowest;
    cv::dilate(alpha, highest, window);
    cv::erode(alpha, lowest, window);
    certain = cv::Mat(alpha.size(), CV_8U, cv::Scalar(128));
    certain.setTo(0, highest <= 0);
    certain.setTo(255, lowest >= 1);
}

}  // namespace morva
