// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/person_regions.h"

#include <limits>
#include <numbers>

#include <gtest/gtest.h>

namespace morva {
namespace {

using PersonRegions::Person;

/// Output of the person detector with nothing in it; anchors are filled in one by one.
struct Output {
    std::vector<float> values =
        std::vector<float>(PersonRegions::anchorCount * PersonRegions::valuesPerAnchor);
    std::vector<float> logits = std::vector<float>(PersonRegions::anchorCount, -9.0F);

    /// A person whose box of `size` is centred on the anchor; the circle's point lies
    /// (`circleX`, `circleY`) from the hips, which lie `hips` below the box's centre.
    void put(std::size_t anchor, float size, float hips, float circleX, float circleY,
             float logit) {
        float* v = values.data() + anchor * PersonRegions::valuesPerAnchor;
        v[2] = v[3] = size;
        v[5] = hips;
        v[6] = circleX;
        v[7] = hips + circleY;
        logits[anchor] = logit;
    }
    std::vector<Person> decoded(const PictureRegion& frame) const {
        return PersonRegions::decoded(values, logits, 0.4, frame);
    }
};

constexpr double n = PersonRegions::inputSide;
const PictureRegion wholeFrame{{n / 2, n / 2}, n};

TEST(PersonRegions, readAnchorsOfEveryGridAndTurnTheBodyUpright) {
    Output output;
    output.put(0, 20, 30, 0, -40, 3);                            // first cell of 8 pixels
    output.put(28 * 28 * 2 + 14 * 14 * 2 + 5, 50, 0, 60, 0, 2);  // first cell of 32 pixels
    const auto persons = output.decoded(wholeFrame);
    ASSERT_EQ(persons.size(), 2u);
    EXPECT_EQ(persons[0].box.center(), (Point{4, 4}));
    EXPECT_EQ(persons[0].body.center, (Point{4, 34}));
    EXPECT_NEAR(persons[0].body.side, 2 * 1.25 * 40, 1e-4);
    EXPECT_NEAR(persons[0].body.radians, 0, 1e-6) << "the circle's point straight above the hips";
    EXPECT_EQ(persons[1].box.center(), (Point{16, 16}));
    EXPECT_NEAR(persons[1].body.radians, std::numbers::pi / 2, 1e-6) << "lying, head to the right";
}

TEST(PersonRegions, scaleWithTheFrameAndSurviveDegenerateBoxes) {
    Output output;
    output.put(10, 20, 10, 0, -10, 4);
    output.put(11, 21, 10, 0, -10, 3);
    output.put(40, 0, 0, 0, 0, 9);
    output.put(42, std::numeric_limits<float>::quiet_NaN(), 0, 0, 0, 9);
    const auto persons = output.decoded({{n, n}, 2 * n});
    ASSERT_EQ(persons.size(), 1u) << "one body seen twice, and two boxes without an area";
    EXPECT_NEAR(persons[0].box.width, 41, 0.2);
    EXPECT_NEAR(persons[0].body.side, 2 * 2 * 1.25 * 10, 0.2);
}

TEST(PersonRegions, givesAFaceItsOwnPersonOnly) {
    const Person left{{0, 0, 100, 100}, {{50, 150}, 300}, 0.9};
    const Person right{{300, 0, 100, 100}, {{350, 150}, 300}, 0.8};
    const std::vector<Person> both{left, right};
    EXPECT_EQ(PersonRegions::personOf({325, 15, 50, 50}, both), &both[1]);
    EXPECT_EQ(PersonRegions::personOf({165, 25, 50, 50}, both), nullptr) << "between the two";
}

}  // namespace
}  // namespace morva
