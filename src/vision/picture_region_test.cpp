// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/picture_region.h"

#include <cmath>
#include <numbers>
#include <vector>

#include <gtest/gtest.h>

namespace morva {
namespace {

constexpr int inputSide = 64;

/// A soft bright spot on black: its centroid in a sample tells where a picture point went.
Picture spotAt(Point at, double radius) {
    Picture picture(900, 600);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const double d = Point{x + 0.5, y + 0.5}.distance(at) / radius;
            const auto value = static_cast<std::uint8_t>(250 * std::exp(-d * d));
            for (int c = 0; c < 3; ++c) picture.pixel(x, y)[c] = value;
        }
    }
    return picture;
}

Point centroid(const std::vector<float>& input) {
    double sum = 0;
    Point at;
    for (int y = 0; y < inputSide; ++y) {
        for (int x = 0; x < inputSide; ++x) {
            const double value = input[static_cast<std::size_t>((y * inputSide + x) * 3)];
            at = at + Point{x + 0.5, y + 0.5}.scaled(value, value);
            sum += value;
        }
    }
    return at.scaled(1 / sum, 1 / sum);
}

TEST(PictureRegion, samplesAndMapsTheSamePlace) {
    struct Case {
        const char* what;
        PictureRegion region;
    };
    for (const Case& c : {
             Case{"smaller than the model's input", {{400, 300}, 50}},
             Case{"turned", {{410, 280}, 120, 0.4}},
             Case{"turned, mirrored and reduced eight times", {{390, 310}, 520, -0.3, true}},
             Case{"reaching past the picture", {{500, 420}, 600, 0.2}},
         }) {
        SCOPED_TRACE(c.what);
        const Point spot{405.5, 297.25};
        std::vector<float> input(inputSide * inputSide * 3);
        sample(spotAt(spot, c.region.side / 16), c.region, inputSide, {0, 1}, input);
        const Point found = c.region.toPicture(centroid(input), inputSide);
        EXPECT_NEAR(found.distance(spot), 0, 0.03 * c.region.side / inputSide);
    }
}

TEST(PictureRegion, cutsAPatchThatMapsBackExactly) {
    const Picture picture = spotAt({700.5, 401.25}, 30);
    const Patch patch = cutPatch(picture, {300, 100, 555, 480}, 100);
    EXPECT_EQ(patch.scale, 4);
    EXPECT_GE(patch.picture.width(), 100);
    const Point point{612.3, 345.6};
    EXPECT_NEAR(patch.toPicture(patch.fromPicture(point)).distance(point), 0, 1e-9);
}

TEST(PictureRegion, turnsByQuarters) {
    Picture picture(3, 2);
    for (int i = 0; i < 6; ++i) {
        for (int c = 0; c < 3; ++c) picture.pixel(i % 3, i / 3)[c] = static_cast<std::uint8_t>(i);
    }
    const Picture clockwise = onItsSide(picture, true);
    ASSERT_EQ(clockwise.width(), 2);
    EXPECT_EQ(*clockwise.pixel(0, 0), 3);
    EXPECT_EQ(*clockwise.pixel(1, 2), 2);
    EXPECT_EQ(*onItsSide(picture, false).pixel(0, 0), 2);
}

}  // namespace
}  // namespace morva
