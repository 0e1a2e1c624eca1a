// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "output/plate_placement.h"

namespace morva {
namespace {

using PlatePlacement::placed;

constexpr Rect crop{400, 300, 1000, 1500};

bool covers(const Rect& plate, const Rect& area) {
    constexpr double rounding = 1e-9;
    return plate.x <= area.x + rounding && plate.y <= area.y + rounding &&
           plate.maxX() >= area.maxX() - rounding && plate.maxY() >= area.maxY() - rounding;
}

TEST(PlacedPlate, coversTheCropWhateverItsSizeAndZoom) {
    for (const Size plate : {Size{50, 40}, Size{1000, 1500}, Size{6000, 4000}, Size{300, 9000}}) {
        for (const double zoom : {0.2, 1.0, 1.45, 4.0}) {
            for (const Point head : {Point{900, 900}, Point{-5000, 9000}}) {
                const Rect place = placed(plate, {}, zoom, {crop, head, {}});
                EXPECT_TRUE(covers(place, crop)) << plate.width << " wide, zoom " << zoom;
                EXPECT_NEAR(place.width / place.height, plate.width / plate.height, 1e-9);
            }
        }
    }
    EXPECT_DOUBLE_EQ(placed({100, 150}, {}, 0.5, {crop, {}, {}}).width, 1000) << "zoom at least 1";
    EXPECT_DOUBLE_EQ(placed({100, 150}, {}, 1.45, {crop, {}, {}}).width, 1450);
}

TEST(PlacedPlate, putsItsBrightSpotBehindTheHead) {
    // With room on all sides nothing has to be limited.
    const Rect middle = placed({1000, 1500}, {}, 2, {crop, {}, {}});
    EXPECT_DOUBLE_EQ(middle.x + 0.5 * middle.width, crop.center().x);
    EXPECT_DOUBLE_EQ(middle.y + 0.42 * middle.height, crop.y + 600);

    const PlateMarks marks{Point{0.4, 0.5}, {}};
    const Rect head = placed({1000, 1500}, marks, 2, {crop, Point{820, 1010}, {}});
    EXPECT_DOUBLE_EQ(head.x + 0.4 * head.width, 820);
    EXPECT_DOUBLE_EQ(head.y + 0.5 * head.height, 1010);
}

TEST(PlacedPlate, standsTheChildOnItsFloorWhereverTheHeadIs) {
    const PlateMarks marks{Point{0.5, 0.3}, 0.8};
    const PlatePlacement::Scene scene{crop, Point{900, 500}, 1650};
    const Rect place = placed({1000, 1500}, marks, 1.45, scene);
    EXPECT_DOUBLE_EQ(place.y + 0.8 * place.height, 1650);
    EXPECT_DOUBLE_EQ(place.x + 0.5 * place.width, 900) << "the head still decides across";

    const Rect limited = placed({1000, 1500}, marks, 1, scene);
    EXPECT_TRUE(covers(limited, crop)) << "an uncovered strip is worse than a wrong floor";
}

}  // namespace
}  // namespace morva
