// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/studio_plate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

namespace morva {

namespace {

/// Share of the colour that full vignetting takes away at the edge.
constexpr double darkening = 0.65;
/// Where the darkening begins and ends, times the radius.
constexpr double innerRadius = 0.35;
constexpr double outerRadius = 1.05;

/// Blur of the mottling's noise: the photo's width over this, but not less than the second.
constexpr double mottlesAcross = 60;
constexpr double finestMottle = 20;
/// The mottling multiplies the colour by 0.94 to 1.06.
constexpr float mottleLow = 0.94F;
constexpr float mottleSpan = 0.12F;
/// Standard deviation of the mottling within its 0 to 1: blurred noise would be all but flat, so it
/// is stretched until its extremes come near the limits.
constexpr double mottleDeviation = 0.12;

/// Noise cells per blur radius; between them the blurred noise is as good as straight.
constexpr double cellsPerBlur = 4;
/// The noise repeats after this many cells, 128 blur radii: over twice the width of any photo.
constexpr int noiseSide = 512;
/// Any number: one and the same cloth for every photo, as in a studio.
constexpr std::uint64_t noiseSeed = 20260901;

/// Blurred noise that can be laid side by side, as factors of the colour.
cv::Mat mottling() {
    cv::Mat noise(noiseSide, noiseSide, CV_32F);
    cv::RNG random(noiseSeed);
    random.fill(noise, cv::RNG::UNIFORM, 0.0, 1.0);
    const int margin = static_cast<int>(4 * cellsPerBlur);
    cv::Mat around;
    cv::copyMakeBorder(noise, around, margin, margin, margin, margin, cv::BORDER_WRAP);
    cv::GaussianBlur(around, around, {}, cellsPerBlur);
    around(cv::Rect(margin, margin, noiseSide, noiseSide)).copyTo(noise);
    cv::Scalar mean;
    cv::Scalar deviation;
    cv::meanStdDev(noise, mean, deviation);
    noise = (noise - mean[0]) * (mottleDeviation / deviation[0]) + 0.5;
    noise = cv::min(cv::max(noise, 0.0), 1.0);
    return noise * mottleSpan + mottleLow;
}

/// Added to places before they are cut to whole cells, so that none is negative.
constexpr double farAway = noiseSide * 65536.0;

/// The factor at a place of the endless cloth, in cells.
float mottle(const cv::Mat& cloth, double x, double y) {
    const double along = x + farAway;
    const double down = y + farAway;
    const int column = static_cast<int>(along);
    const int row = static_cast<int>(down);
    const auto fx = static_cast<float>(along - column);
    const auto fy = static_cast<float>(down - row);
    const float* upper = cloth.ptr<float>(row & (noiseSide - 1));
    const float* lower = cloth.ptr<float>((row + 1) & (noiseSide - 1));
    const int from = column & (noiseSide - 1);
    const int to = (column + 1) & (noiseSide - 1);
    const float above = upper[from] + (upper[to] - upper[from]) * fx;
    const float below = lower[from] + (lower[to] - lower[from]) * fx;
    return above + (below - above) * fy;
}

std::uint32_t mixed(std::uint32_t seed) {
    seed = (seed ^ seed >> 15) * 0x2C1B3C6DU;
    seed = (seed ^ seed >> 12) * 0x297A2D39U;
    return seed ^ seed >> 15;
}

constexpr std::size_t ditherSide = 4096;

/// Values from 0 to 1 without order: what is added before fractions are cut off.
std::vector<float> ditherValues() {
    std::vector<float> values(2 * ditherSide + 16);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = static_cast<float>(mixed(static_cast<std::uint32_t>(i) * 0x9E3779B1U) >> 8) *
                    (1.0F / 16777216.0F);
    return values;
}

/// Pixels of a row over which the plate is as good as straight, from the pixels of a noise cell.
int straightSpan(double cell) { return static_cast<int>(std::clamp(cell / 2, 1.0, 16.0)); }

using LevelsAt = std::array<float, 3>;

/// Fills `count` pixels, the levels growing from `level` by `step`, and `added` to each.
void spread(LevelsAt level, const LevelsAt& step, const float* added, int count,
            std::uint8_t* pixel) {
    for (int i = 0; i < count; ++i) {
        for (std::size_t c = 0; c < level.size(); ++c) {
            *pixel++ = static_cast<std::uint8_t>(std::min(level[c] + added[i], 255.0F));
            level[c] += step[c];
        }
    }
}

}  // namespace

Rgb StudioPlate::edgeColor() const {
    Rgb edge = color;
    for (double& component : edge) component *= 1 - darkening * vignette;
    return edge;
}

Picture StudioPlate::seen(const CropView& view) const {
    static const cv::Mat cloth = mottling();
    static const std::vector<float> dither = ditherValues();
    const double perCell = cellsPerBlur / std::max(size.width / mottlesAcross, finestMottle);
    const double perSpan = 1 / ((outerRadius - innerRadius) * radius);
    const Rgb edge = edgeColor();
    // The three levels at a place in source pixels.
    const auto levels = [&](Point at) {
        const double away = at.distance(center) - innerRadius * radius;
        const double outward = std::clamp(away * perSpan, 0.0, 1.0);
        const float factor = 255 * mottle(cloth, at.x * perCell, at.y * perCell);
        LevelsAt result{};
        for (std::size_t c = 0; c < result.size(); ++c)
            result[c] = factor * static_cast<float>(color[c] + (edge[c] - color[c]) * outward);
        return result;
    };
    const int span = straightSpan(view.crop.scale / perCell);
    const Point step = view.source(1, 0) - view.source(0, 0);
    Picture plate(view.width(), view.height());
    for (int y = 0; y < plate.height(); ++y) {
        const Point start = view.source(0.5, y + 0.5);
        // Every row begins elsewhere in the values.
        const float* added = dither.data() + mixed(static_cast<std::uint32_t>(y)) % ditherSide;
        LevelsAt left = levels(start);
        for (int x = 0; x < plate.width(); x += span) {
            const LevelsAt right = levels(start + step.scaled(x + span, x + span));
            LevelsAt slope{};
            for (std::size_t c = 0; c < slope.size(); ++c)
                slope[c] = (right[c] - left[c]) / static_cast<float>(span);
            spread(left, slope, added + static_cast<std::size_t>(x) % ditherSide,
                   std::min(span, plate.width() - x), plate.pixel(x, y));
            left = right;
        }
    }
    return plate;
}

}  // namespace morva
