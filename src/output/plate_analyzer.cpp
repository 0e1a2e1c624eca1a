// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/plate_analyzer.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include "imaging/decode.h"
#include "imaging/mat_view.h"

namespace morva::PlateAnalyzer {

namespace {

/// Longer side of the copy that is measured, in pixels.
constexpr int measuredSide = 256;

/// Blur under which the texture of a plate vanishes and its light remains, times the longer side.
constexpr double lightBlur = 0.05;
/// A plate whose light differs by less, in levels of 255, has no bright spot.
constexpr double evenLight = 6;
/// What lies within this share of the plate's range from its maximum belongs to the bright area.
constexpr double brightShare = 0.15;

/// Bands whose difference tells a floor's edge, times the plate's height.
constexpr double bandShare = 0.03;
/// A floor begins between these shares of the height.
constexpr double highestFloor = 0.4;
constexpr double lowestFloor = 0.97;
/// How much the edge stands out from the slope of light around it, in levels.
constexpr double floorStep = 6;
/// Share of the width over which the edge has the same sign.
constexpr double floorWidth = 0.75;

/// Luminance, floats from 0 to 255.
cv::Mat luminance(const Picture& plate) {
    const cv::Mat pixels = viewOf(plate);
    cv::Mat small = pixels;
    const double scale =
        measuredSide / static_cast<double>(std::max(plate.width(), plate.height()));
    if (scale < 1) cv::resize(pixels, small, {}, scale, scale, cv::INTER_AREA);
    cv::Mat light;
    cv::transform(small, light, cv::Matx13f(0.299F, 0.587F, 0.114F));
    light.convertTo(light, CV_32F);
    return light;
}

/// Mean of the rows [from, to) of every column.
cv::Mat band(const cv::Mat& light, int from, int to) {
    cv::Mat mean;
    cv::reduce(light.rowRange(from, to), mean, 0, cv::REDUCE_AVG);
    return mean;
}

struct Edge {
    double step = 0;
    /// Share of the columns that agree with its sign.
    double agreement = 0;
};

/// The difference across the line above row `y`, in the middle column.
Edge edgeAt(const cv::Mat& light, int y, int height) {
    const cv::Mat difference = band(light, y, y + height) - band(light, y - height, y);
    std::vector<float> steps(difference.begin<float>(), difference.end<float>());
    const auto middle = steps.begin() + static_cast<std::ptrdiff_t>(steps.size() / 2);
    std::nth_element(steps.begin(), middle, steps.end());
    const double step = *middle;
    const auto agreeing = std::ranges::count_if(steps, [&](float each) { return each * step > 0; });
    return {step, static_cast<double>(agreeing) / static_cast<double>(steps.size())};
}

std::optional<double> floorOf(const cv::Mat& light) {
    const int height = std::max(2, static_cast<int>(std::lround(light.rows * bandShare)));
    const int first = std::max(height, static_cast<int>(light.rows * highestFloor));
    const int last = std::min(light.rows - height, static_cast<int>(light.rows * lowestFloor));
    if (first >= last) return std::nullopt;
    std::vector<Edge> edges(static_cast<std::size_t>(light.rows));
    for (int y = height; y <= light.rows - height; ++y)
        edges[static_cast<std::size_t>(y)] = edgeAt(light, y, height);
    const auto stepAt = [&](int y) {
        return edges[static_cast<std::size_t>(std::clamp(y, height, light.rows - height))].step;
    };
    // An even slope of light has the same difference everywhere; an edge has none two bands away.
    const auto standsOut = [&](int y) {
        const double slope = (stepAt(y - 2 * height) + stepAt(y + 2 * height)) / 2;
        return std::abs(stepAt(y) - slope);
    };
    int best = first;
    for (int y = first; y < last; ++y)
        if (standsOut(y) > standsOut(best)) best = y;
    if (standsOut(best) < floorStep || edges[static_cast<std::size_t>(best)].agreement < floorWidth)
        return std::nullopt;
    return static_cast<double>(best) / light.rows;
}

std::optional<Point> brightestOf(const cv::Mat& light, std::optional<double> floorLine) {
    const double sigma = lightBlur * std::max(light.cols, light.rows);
    cv::Mat smooth;
    cv::GaussianBlur(light, smooth, {}, sigma, sigma, cv::BORDER_REPLICATE);
    const int wall =
        floorLine ? std::max(1, static_cast<int>(light.rows * *floorLine)) : light.rows;
    double low = 0;
    double high = 0;
    cv::Point peak;
    cv::minMaxLoc(smooth.rowRange(0, wall), &low, &high, nullptr, &peak);
    if (high - low < evenLight) return std::nullopt;
    const cv::Mat bright = smooth.rowRange(0, wall) > high - brightShare * (high - low);
    cv::Mat areas;
    cv::Mat stats;
    cv::Mat centers;
    cv::connectedComponentsWithStats(bright, areas, stats, centers);
    const int area = areas.at<int>(peak);
    return Point{(centers.at<double>(area, 0) + 0.5) / light.cols,
                 (centers.at<double>(area, 1) + 0.5) / light.rows};
}

/// The measurements by path. One lock for all; nothing is measured under it.
std::optional<PlateMarks> known(const std::filesystem::path& url) {
    static std::mutex one;
    static std::map<std::string, PlateMarks> measured;
    {
        const std::lock_guard lock(one);
        if (const auto found = measured.find(url.string()); found != measured.end())
            return found->second;
    }
    const auto plate = PhotoDecode::open(url, measuredSide);
    if (!plate) return std::nullopt;
    const PlateMarks marks = measure(plate->whole(measuredSide));
    const std::lock_guard lock(one);
    return measured.emplace(url.string(), marks).first->second;
}

}  // namespace

std::optional<Point> hotSpot(const std::filesystem::path& url) {
    const auto marks = known(url);
    return marks ? marks->hotSpot : std::nullopt;
}

std::optional<double> floorLine(const std::filesystem::path& url) {
    const auto marks = known(url);
    return marks ? marks->floorLine : std::nullopt;
}

PlateMarks measure(const Picture& plate) {
    if (plate.isEmpty()) return {};
    const cv::Mat light = luminance(plate);
    const std::optional<double> floorLine = floorOf(light);
    return {brightestOf(light, floorLine), floorLine};
}

}  // namespace morva::PlateAnalyzer
