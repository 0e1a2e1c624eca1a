// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "base/leveling.h"
#include "imaging/dot_chart.h"
#include "imaging/resample.h"

namespace morva {
namespace {

constexpr std::array<std::uint8_t, 3> grey{128, 128, 128};

TEST(Resample, putsEveryDotWhereTheGeometryPutsIt) {
    const DotChart chart(1600, 1300, 9);
    const Point center{800.5, 650};
    const Size output{640, 500};
    for (const double degrees : {0.0, 0.25, -3.0, 12.0, 44.0, 90.0, -100.0, 183.0}) {
        for (const double scale : {0.37, 0.85, 1.0, 1.6}) {
            SCOPED_TRACE(std::to_string(degrees) + " degrees, scale " + std::to_string(scale));
            const Rect region{400.3, 320.7, output.width / scale, output.height / scale};
            const auto result =
                resampled(chart.picture, region, {center, degrees}, {grey, {}},
                          static_cast<int>(output.width), static_cast<int>(output.height));
            ASSERT_TRUE(result);
            int seen = 0;
            for (const Point& dot : chart.centers) {
                const Point levelled = Leveling::level(dot, center, degrees);
                const Point at = (levelled - Point{region.x, region.y}).scaled(scale, scale);
                const double reach = (chart.radius + 4) * scale + 2;
                if (std::min(at.x, at.y) < reach + 1 || at.x > output.width - reach - 2 ||
                    at.y > output.height - reach - 2)
                    continue;
                ++seen;
                EXPECT_LT(DotChart::found(*result, at, reach).distance(at), 0.06);
            }
            EXPECT_GT(seen, 2);
        }
    }
}

TEST(Resample, keepsARampARampAtEverySize) {
    Picture ramp(340, 24);
    for (int y = 0; y < 24; ++y)
        for (int x = 0; x < 340; ++x)
            std::fill_n(ramp.pixel(x, y), 3, static_cast<std::uint8_t>(40 + x / 2));
    for (int source = 60; source <= 300; source += 4) {
        for (int width = 24; width <= source; width += 3) {
            const Rect region{9.3, 2, source + 0.1, 20};
            const auto result = resampled(ramp, region, width, 9);
            ASSERT_TRUE(result);
            double worst = 0;
            for (int x = 0; x < width; ++x) {
                const double at = region.x + (x + 0.5) * region.width / width;
                worst = std::max(worst, std::abs(result->pixel(x, 4)[0] - (39.5 + at / 2)));
            }
            ASSERT_LT(worst, 1.6) << source << " to " << width;
        }
    }
}

TEST(Resample, cutsWithoutABandAtTheBorder) {
    // The border pixels of a crop must look as they do in the middle of a larger crop.
    Picture noise(500, 400);
    unsigned seed = 7;
    for (int y = 0; y < 400; ++y)
        for (int i = 0; i < 1500; ++i)
            noise.row(y)[i] =
                static_cast<std::uint8_t>((seed = seed * 1664525u + 1013904223u) >> 24);
    for (const double degrees : {0.0, 2.0}) {
        const Turn turn{{250, 200}, degrees};
        const auto inner = resampled(noise, {120.3, 100.2, 200, 160}, turn, {}, 100, 80);
        const auto outer = resampled(noise, {100.3, 80.2, 240, 200}, turn, {}, 120, 100);
        ASSERT_TRUE(inner && outer);
        int worst = 0;
        for (int y = 0; y < 80; ++y)
            for (int x = 0; x < 100; ++x)
                for (int c = 0; c < 3; ++c)
                    worst = std::max(
                        worst, std::abs(inner->pixel(x, y)[c] - outer->pixel(x + 10, y + 10)[c]));
        EXPECT_LE(worst, 1) << degrees;
    }
}

TEST(Resample, laysTheSurroundingsAlongTheExactPhotoEdge) {
    Picture bright(40, 40);
    std::ranges::fill_n(bright.row(0), static_cast<std::ptrdiff_t>(bright.byteCount()), 228);
    // Half of the last column and of the last row is no longer photo.
    const Surroundings around{grey, Rect{0, 0, 39.5, 39.5}};
    const auto asIs = resampled(bright, {30, 30, 20, 20}, around, 20, 20);
    ASSERT_TRUE(asIs);
    EXPECT_EQ(asIs->pixel(8, 8)[0], 228);
    EXPECT_EQ(asIs->pixel(9, 5)[0], 178);
    EXPECT_EQ(asIs->pixel(5, 9)[1], 178);
    EXPECT_EQ(asIs->pixel(9, 9)[2], 153);
    EXPECT_EQ(asIs->pixel(10, 5)[0], 128);
    EXPECT_EQ(asIs->pixel(19, 19)[0], 128);
    // Turned by a quarter the edge lies on the other side, and repeated edges show no colour.
    const auto quarter = resampled(bright, {-10, 5, 20, 20}, {{20, 20}, 90}, around, 20, 20);
    const auto repeated = resampled(bright, {-300, -300, 200, 200}, {{20, 20}, 5}, {}, 20, 20);
    ASSERT_TRUE(quarter && repeated);
    EXPECT_EQ(quarter->pixel(9, 10)[0], 128);
    EXPECT_EQ(quarter->pixel(10, 10)[0], 228);
    EXPECT_EQ(repeated->pixel(10, 10)[0], 228);
}

TEST(Resample, refusesWhatCannotBeComputed) {
    const Picture picture(4, 4);
    const double nan = std::nan("");
    EXPECT_FALSE(resampled(Picture(), {0, 0, 2, 2}, 2, 2));
    EXPECT_FALSE(resampled(picture, {0, 0, 2, nan}, 2, 2));
    EXPECT_FALSE(resampled(picture, {0, 0, 2, 2}, 0, 2));
    EXPECT_FALSE(resampled(picture, {1e12, 0, 2, 2}, 2, 2));
    EXPECT_FALSE(resampled(picture, {0, 0, 2, 2}, {{0, 0}, nan}, {}, 2, 2));
}

}  // namespace
}  // namespace morva
