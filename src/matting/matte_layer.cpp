// SPDX-License-Identifier: GPL-3.0-or-later
#include "matting/matte_layer.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <opencv2/imgproc.hpp>

namespace morva {

namespace {

/// k, b, where alpha begins and how steeply it rises from there.
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
        const cv::Vec2f limit = topLimit[x] + rows.share * (lowLimit[x] - topLimit[x]);
        cells[x][4] = limit[0];
        cells[x][5] = 1 / (limit[1] - limit[0]);
    }
    return cells;
}

/// Alpha of pixels in a row between the centres of two cells; `share` of the second at the first
/// pixel, growing by `step`.
void blend(const Cell& low, const Cell& high, float share, float step, const std::uint8_t* pixel,
           std::span<float> alpha) {
    const Cell slope = high - low;
    for (float& value : alpha) {
        const auto at = [&](int c) { return low[c] + share * slope[c]; };
        const float colour = at(0) * static_cast<float>(pixel[0]) +
                             at(1) * static_cast<float>(pixel[1]) +
                             at(2) * static_cast<float>(pixel[2]);
        value = std::clamp((colour * (1.0F / 255) + at(3) - at(4)) * at(5), 0.0F, 1.0F);
        share += step;
        pixel += 3;
    }
}

}  // namespace

void MatteLayer::row(const Picture& picture, int y, int left, std::span<float> alpha) const {
    const int columns = coefficients.cols;
    const double step = columns / place.width;
    const double atY = (y + .5 - place.y) * coefficients.rows / place.height;
    const auto* sure =
        certain.ptr(std::clamp(static_cast<int>(std::floor(atY)), 0, coefficients.rows - 1));
    // The first pixel whose centre lies beyond a place of the grid.
    const auto pixelAt = [&](double column) {
        const double x = std::ceil(place.x + column / step - .5) - left;
        return std::min(alpha.size(), static_cast<std::size_t>(std::max(0.0, x)));
    };
    std::vector<Cell> cells;
    std::size_t begin = 0;
    for (int half = 0; half < 2 * columns && begin < alpha.size(); ++half) {
        const std::size_t end = half + 1 == 2 * columns ? alpha.size() : pixelAt((half + 1) / 2.0);
        if (end <= begin) continue;
        const auto part = alpha.subspan(begin, end - begin);
        if (const std::uint8_t value = sure[half / 2]; value != uncertain) {
            std::ranges::fill(part, value == 0 ? 0.0F : 1.0F);
        } else {
            if (cells.empty()) cells = blendedRow(*this, between(atY, coefficients.rows));
            const int x = left + static_cast<int>(begin);
            const int low = (half + 1) / 2 - 1;  // the cell whose centre lies before this half
            const auto cell = [&](int column) {
                return cells[static_cast<std::size_t>(std::clamp(column, 0, columns - 1))];
            };
            blend(cell(low), cell(low + 1),
                  static_cast<float>((x + .5 - place.x) * step - .5 - low),
                  static_cast<float>(step), picture.pixel(x, y), part);
        }
        begin = end;
    }
}

cv::Mat MatteLayer::alphaOf(const cv::Mat& colours) const {
    cv::Mat alpha(colours.size(), CV_32FC1);
    for (int y = 0; y < alpha.rows; ++y) {
        for (int x = 0; x < alpha.cols; ++x) {
            const unsigned char sure = certain.at<unsigned char>(y, x);
            const auto& fit = coefficients.at<cv::Vec4f>(y, x);
            const auto& limit = limits.at<cv::Vec2f>(y, x);
            const auto& colour = colours.at<cv::Vec3f>(y, x);
            const float value =
                fit[0] * colour[0] + fit[1] * colour[1] + fit[2] * colour[2] + fit[3];
            alpha.at<float>(y, x) =
                sure == uncertain
                    ? std::clamp((value - limit[0]) / (limit[1] - limit[0]), 0.0F, 1.0F)
                    : static_cast<float>(sure) / 255;
        }
    }
    return alpha;
}

void MatteLayer::findCertain(const cv::Mat& alpha, int reach) {
    const cv::Mat window(2 * reach + 1, 2 * reach + 1, CV_8U, cv::Scalar(1));
    cv::Mat highest;
    cv::Mat lowest;
    cv::dilate(alpha, highest, window);
    cv::erode(alpha, lowest, window);
    certain = cv::Mat(alpha.size(), CV_8U, cv::Scalar(uncertain));
    certain.setTo(0, highest <= 0);
    certain.setTo(255, lowest >= 1);
}

}  // namespace morva
