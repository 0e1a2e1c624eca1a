// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/map_text_detector.h"

#include <cmath>

#include <gtest/gtest.h>

namespace morva {
namespace {

constexpr int width = 200;
constexpr int height = 120;

/// Paints a turned bar of the given likelihood into the map.
void paint(std::vector<float>& map, Point center, double length, double across, double degrees,
           float likelihood) {
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const Point at = Point{x + 0.5, y + 0.5}.rotated(center, -degrees) - center;
            if (std::abs(at.x) < length / 2 && std::abs(at.y) < across / 2)
                map[static_cast<std::size_t>(y * width + x)] = likelihood;
        }
    }
}

TEST(TextMap, readsTurnedLinesWithTheirMargins) {
    for (const double degrees : {0.0, 15.0, -40.0}) {
        SCOPED_TRACE(degrees);
        std::vector<float> map(width * height, 0.05F);
        paint(map, {100, 60}, 80, 10, degrees, 0.9F);
        const auto lines = MapTextDetector::linesInMap(map, width, height);
        ASSERT_EQ(lines.size(), 1u);
        EXPECT_NEAR(lines[0].center().distance({100, 60}), 0, 0.8);
        // The outline of the writing lies 6.7 pixels outside a core of 80 x 10.
        EXPECT_NEAR(lines[0].length(), 93, 3);
        EXPECT_NEAR(lines[0].height(), 23, 3);
        EXPECT_NEAR(lines[0].confidence, 0.9, 0.05);
    }
}

TEST(TextMap, tellsFaintPlacesFromNone) {
    std::vector<float> map(width * height, 0.05F);
    paint(map, {50, 30}, 60, 10, 0, 0.4F);
    paint(map, {50, 90}, 60, 2, 0, 0.9F);    // a scratch
    paint(map, {150, 90}, 60, 9, 0, 0.25F);  // less than a core
    const auto lines = MapTextDetector::linesInMap(map, width, height);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NEAR(lines[0].confidence, 0.4, 0.02);
}

}  // namespace
}  // namespace morva
