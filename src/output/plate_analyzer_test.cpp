// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "output/backdrop_test_support.h"
#include "output/plate_analyzer.h"

namespace morva {
namespace {

/// A plate from a function of the place, as fractions from the left and from the top, with grain.
template <class Light>
Picture plate(int width, int height, const Light& light) {
    Picture picture(width, height);
    unsigned grain = 1;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            for (int c = 0; c < 3; ++c) {
                grain = grain * 1664525 + 1013904223;
                const double value = light((x + 0.5) / width, (y + 0.5) / height) +
                                     static_cast<double>(grain >> 24) / 32 - 4;
                picture.pixel(x, y)[c] = static_cast<std::uint8_t>(std::clamp(value, 0.0, 255.0));
            }
    return picture;
}

double glow(double x, double y, double atX, double atY) {
    return 70 + 110 * std::exp(-((x - atX) * (x - atX) + (y - atY) * (y - atY)) / 0.08);
}

TEST(PlateMeasurement, findsTheLightOnTheWallAndTheFloorsEdge) {
    struct Case {
        const char* what;
        Picture plate;
        std::optional<Point> hotSpot;
        std::optional<double> floorLine;
    };
    const Case cases[] = {
        {"painted cloth lit from the left",
         plate(600, 900, [](double x, double y) { return glow(x, y, 0.35, 0.4); }),
         Point{0.35, 0.4},
         {}},
        {"the same before a dark floor",
         plate(900, 600, [](double x, double y) { return y < 0.8 ? glow(x, y, 0.6, 0.35) : 40; }),
         Point{0.6, 0.35}, 0.8},
        {"a floor brighter than the wall",
         plate(600, 900, [](double x, double y) { return y < 0.75 ? glow(x, y, 0.5, 0.3) : 230; }),
         Point{0.5, 0.3}, 0.75},
        {"even paper", plate(600, 900, [](double, double) { return 128; }), {}, {}},
        {"light that falls off downward",
         plate(600, 900, [](double, double y) { return 220 - 120 * y; }),
         Point{0.5, 0.08},
         {}},
        {"a chair, which is no floor",
         plate(600, 900,
               [](double x, double y) {
                   return x > 0.4 && x < 0.6 && y > 0.7 ? 20 : glow(x, y, 0.5, 0.4);
               }),
         Point{0.5, 0.4},
         {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const PlateMarks found = PlateAnalyzer::measure(c.plate);
        ASSERT_EQ(found.hotSpot.has_value(), c.hotSpot.has_value());
        if (c.hotSpot) {
            EXPECT_NEAR(found.hotSpot->x, c.hotSpot->x, 0.05);
            EXPECT_NEAR(found.hotSpot->y, c.hotSpot->y, 0.06);
        }
        ASSERT_EQ(found.floorLine.has_value(), c.floorLine.has_value())
            << found.floorLine.value_or(0);
        if (c.floorLine) {
            EXPECT_NEAR(*found.floorLine, *c.floorLine, 0.01);
        }
    }
}

using PlateFiles = BackdropFiles;

TEST_F(PlateFiles, areLookedAtOnceByManyThreads) {
    const auto file =
        saved(plate(300, 400, [](double x, double y) { return glow(x, y, 0.3, 0.5); }), "a.png");
    std::vector<std::thread> workers;
    workers.reserve(4);
    for (int i = 0; i < 4; ++i)
        workers.emplace_back([&] { EXPECT_NEAR(PlateAnalyzer::hotSpot(file)->x, 0.3, 0.05); });
    for (std::thread& worker : workers) worker.join();
    std::filesystem::remove(file);
    EXPECT_TRUE(PlateAnalyzer::hotSpot(file)) << "remembered";
    EXPECT_FALSE(PlateAnalyzer::hotSpot(folder / "missing.png"));
    EXPECT_FALSE(PlateAnalyzer::floorLine(folder / "missing.png"));
}

}  // namespace
}  // namespace morva
