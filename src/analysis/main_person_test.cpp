// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/main_person.h"

#include <gtest/gtest.h>

namespace morva {
namespace {

AnalysisImage photo() { return {Picture(200, 100), {200, 100}}; }

FaceGeometry faceAt(double x, double y) {
    FaceGeometry face;
    face.leftEye = {x - 4, y};
    face.rightEye = {x + 4, y};
    face.chin = {x, y + 10};
    face.faceBox = {x - 7, y - 3, 14, 14};
    return face;
}

Mask maskOf(std::initializer_list<Rect> parts) {
    Mask mask(200, 100);
    for (int y = 0; y < 100; ++y) {
        for (int x = 0; x < 200; ++x) {
            const bool person = std::ranges::any_of(parts, [&](const Rect& part) {
                return x >= part.x && x < part.maxX() && y >= part.y && y < part.maxY();
            });
            *mask.pixel(x, y) = person ? 255 : 0;
        }
    }
    return mask;
}

/// A body whose outline is `left` to `right` of the photo's columns.
BodyObservation outlined(Point eyes, double left, double right) {
    BodyObservation body;
    body.eyes = eyes;
    body.outline = {{{100, 50}, 200}, 100, std::vector<float>(100 * 100)};
    for (std::size_t y = 0; y < 100; ++y) {
        for (std::size_t x = 0; x < 100; ++x)
            body.outline.values[y * 100 + x] =
                2.0 * static_cast<double>(x) >= left && 2.0 * static_cast<double>(x) < right ? 1.0F
                                                                                             : 0.0F;
    }
    return body;
}

int widthAt(const Mask& mask, int y) {
    int count = 0;
    for (int x = 0; x < mask.width(); ++x) count += *mask.pixel(x, y) != 0 ? 1 : 0;
    return count;
}

TEST(MainPerson, keepsWhatHangsTogetherWithTheFaceAcrossAHairBand) {
    const Mask all = maskOf({{40, 20, 40, 9}, {40, 30, 40, 70}, {120, 20, 40, 80}});
    const auto child = mainPerson(all, photo(), std::vector{faceAt(60, 40)}, {});
    EXPECT_EQ(widthAt(child.mask, 50), 40);
    EXPECT_EQ(widthAt(child.mask, 22), 40) << "parted by a line";
    EXPECT_EQ(widthAt(child.others, 50), 0) << "nobody whose face was found";
    EXPECT_FALSE(child.touched);
}

TEST(MainPerson, leavesToANeighbourWhatTheNeighboursOutlineShows) {
    const Mask all = maskOf({{40, 20, 120, 80}});
    const std::vector faces{faceAt(70, 40), faceAt(130, 40)};
    const std::vector bodies{outlined({70, 40}, 40, 90), outlined({130, 40}, 90, 160)};
    const auto child = mainPerson(all, photo(), faces, bodies);
    EXPECT_NEAR(widthAt(child.mask, 80), 50, 3) << "the line between them is not the middle";
    EXPECT_NEAR(widthAt(child.others, 80), 70, 3);
    EXPECT_FALSE(child.touched);
    const auto alone = mainPerson(all, photo(), faces, std::vector{bodies[1]});
    EXPECT_NEAR(widthAt(alone.mask, 80), 60, 3) << "without the child's outline, the nearer face";
}

TEST(MainPerson, saysWhenFacesAreTooNearToTellTheBodiesApart) {
    const Mask all = maskOf({{40, 20, 120, 80}});
    EXPECT_TRUE(mainPerson(all, photo(), std::vector{faceAt(90, 40), faceAt(110, 40)}, {}).touched);
    EXPECT_EQ(widthAt(mainPerson(maskOf({}), photo(), std::vector{faceAt(90, 40)}, {}).mask, 50),
              0);
}

}  // namespace
}  // namespace morva
