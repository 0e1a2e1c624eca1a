// SPDX-License-Identifier: GPL-3.0-or-later
// For tests: a picture of light discs whose centres are known exactly, and where they went.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/geometry.h"
#include "imaging/raster.h"

namespace morva {

/// Discs on dark grey with soft edges: nothing clips, so that centres of mass stay exact.
struct DotChart {
    static constexpr int ground = 60;
    static constexpr int light = 200;

    double radius;
    std::vector<Point> centers = {};
    Picture picture = {};

    DotChart(int width, int height, double dotRadius) : radius(dotRadius) {
        picture = Picture(width, height);
        std::fill_n(picture.row(0), picture.byteCount(), std::uint8_t{ground});
        const int step = static_cast<int>(radius * 10);
        for (int y = step; y < height - step / 2; y += step + 7)
            for (int x = step; x < width - step / 2; x += step + 13)
                paint({x + std::fmod(x * 0.37, 1), y + std::fmod(y * 0.61, 1)});
    }

    /// Centre of mass of the light within `reach` of `expected` in a picture made from the chart.
    static Point found(const Picture& picture, Point expected, double reach) {
        double sum = 0;
        Point moment;
        for (int y = static_cast<int>(expected.y - reach); y <= expected.y + reach; ++y) {
            for (int x = static_cast<int>(expected.x - reach); x <= expected.x + reach; ++x) {
                const double value = picture.pixel(x, y)[1] - ground;
                sum += value;
                moment = moment + Point{x + 0.5, y + 0.5}.scaled(value, value);
            }
        }
        return moment.scaled(1 / sum, 1 / sum);
    }

private:
    void paint(Point center) {
        centers.push_back(center);
        const int reach = static_cast<int>(radius) + 2;
        for (int dy = -reach; dy <= reach; ++dy) {
            for (int dx = -reach; dx <= reach; ++dx) {
                const int x = static_cast<int>(center.x) + dx;
                const int y = static_cast<int>(center.y) + dy;
                const double cover =
                    std::clamp(radius + 0.5 - center.distance({x + 0.5, y + 0.5}), 0.0, 1.0);
                std::fill_n(
                    picture.pixel(x, y), 3,
                    static_cast<std::uint8_t>(std::lround(ground + (light - ground) * cover)));
            }
        }
    }
};

}  // namespace morva
