// SPDX-License-Identifier: GPL-3.0-or-later
#include "matting/outline_colours.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <opencv2/imgproc.hpp>

#include "imaging/mat_view.h"
#include "matting/colour_model.h"
#include "matting/matting.h"
#include "matting/photo_grid.h"
#include "matting/windowed_colours.h"

namespace morva {

namespace {

constexpr double gridUnit = 40;       // cells a face unit; the colours change slowly
constexpr int longestSide = 320;      // cells; for a small child in a wide photo
constexpr double onlyBackdrop = .02;  // alpha up to which a cell shows the backdrop alone
constexpr double onlyChild = .97;
constexpr int nearlyFull = 252;  // alpha of 255 beyond which a pixel keeps its colour
/// Keeps the division by a small alpha from blowing up noise: the child's mean colour wins there.
constexpr float damping = .05F;
/// Error of the backdrop's colour up to which it is taken out exactly, and how much more makes it
/// unknown: dark hair would turn to the opposite of a light that was not there.
constexpr float knownError = .03F;
constexpr float knownErrorRange = .04F;

cv::Mat flagsOf(const cv::Mat& flags) {
    cv::Mat result;
    flags.convertTo(result, CV_32F, 1.0 / 255);
    return result;
}

using Colours = cv::Vec<float, 7>;

/// The colours blended between the four cells around a place.
Colours at(const OutlineColours& field, double x, double y) {
    const double cx = std::clamp(x - .5, 0.0, field.width - 1.0);
    const double cy = std::clamp(y - .5, 0.0, field.height - 1.0);
    const auto left = static_cast<int>(cx);
    const auto top = static_cast<int>(cy);
    const auto right = std::min(left + 1, field.width - 1);
    const auto below = std::min(top + 1, field.height - 1);
    const auto cell = [&](int column, int row) {
        const auto& c = field.cells[static_cast<std::size_t>(row * field.width + column)];
        return Colours(c.child[0], c.child[1], c.child[2], c.backdrop[0], c.backdrop[1],
                       c.backdrop[2], c.backdropVariance);
    };
    const auto sx = static_cast<float>(cx - left);
    const auto sy = static_cast<float>(cy - top);
    return (cell(left, top) * (1 - sx) + cell(right, top) * sx) * (1 - sy) +
           (cell(left, below) * (1 - sx) + cell(right, below) * sx) * sy;
}

void takeOut(std::uint8_t* pixel, float alpha, const Colours& around) {
    const float gain = alpha / (alpha * alpha + damping * (1 - alpha));
    const float unknown =
        std::clamp((std::sqrt(around[6]) - knownError) / knownErrorRange, 0.0F, 1.0F);
    for (int c = 0; c < 3; ++c) {
        const float seen = static_cast<float>(pixel[c]) / 255;
        const float rest = seen - alpha * around[c] - (1 - alpha) * around[3 + c];
        const float known = std::clamp(around[c] + gain * rest, 0.0F, 1.0F);
        const float guessed = around[c] + alpha * (seen - around[c]);
        const float own = known + unknown * (guessed - known);
        pixel[c] = static_cast<std::uint8_t>(std::lround(own * 255));
    }
}

}  // namespace

OutlineColours outlineColours(const Picture& picture, const Mask& alpha, double unit) {
    const Rect whole{0, 0, static_cast<double>(picture.width()),
                     static_cast<double>(picture.height())};
    const PhotoGrid grid = PhotoGrid::reduced(picture, whole, unit, gridUnit, longestSide);
    const cv::Mat mask = viewOf(alpha);
    const cv::Rect part(0, 0, static_cast<int>(grid.place.width),
                        static_cast<int>(grid.place.height));
    cv::Mat shares;
    cv::resize(mask(part), shares, grid.colours.size(), 0, 0, cv::INTER_AREA);
    const cv::Mat child =
        WindowedColours::mean(grid.colours, flagsOf(shares > onlyChild * 255), grid.unit);
    ColourModel model;
    model.refitBackdrop(grid.colours, flagsOf(shares < onlyBackdrop * 255), grid.unit);
    OutlineColours result{grid.place, grid.width(), grid.height(), {}};
    result.cells.reserve(shares.total());
    for (int y = 0; y < grid.height(); ++y) {
        for (int x = 0; x < grid.width(); ++x) {
            const auto& c = child.at<cv::Vec3f>(y, x);
            const auto& b = model.backdrop.at<cv::Vec3f>(y, x);
            result.cells.push_back(
                {{c[0], c[1], c[2]}, {b[0], b[1], b[2]}, model.backdropVariance.at<float>(y, x)});
        }
    }
    return result;
}

namespace Matting {

void takeBackdropOut(Picture& picture, const Matte& matte) {
    const OutlineColours& field = matte.colours;
    const double stepX = field.width / field.extent.width;
    const double stepY = field.height / field.extent.height;
    for (int y = 0; y < picture.height(); ++y) {
        const std::uint8_t* alpha = matte.alpha.row(y);
        for (int x = 0; x < picture.width(); ++x) {
            if (alpha[x] == 0 || alpha[x] > nearlyFull) continue;
            takeOut(
                picture.pixel(x, y), static_cast<float>(alpha[x]) / 255,
                at(field, (x + .5 - field.extent.x) * stepX, (y + .5 - field.extent.y) * stepY));
        }
    }
}

}  // namespace Matting

}  // namespace morva
