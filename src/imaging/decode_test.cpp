// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "imaging/orientation.h"
#include "imaging/plane_reduce.h"

namespace morva {
namespace {

TEST(Orientation, everyWayOfLyingComesUprightAndMapsBack) {
    // Upright: three columns, two rows, numbered. What each tag value means for the file.
    const std::vector<std::vector<int>> stored{
        {0, 1, 2, 3, 4, 5}, {2, 1, 0, 5, 4, 3}, {5, 4, 3, 2, 1, 0}, {3, 4, 5, 0, 1, 2},
        {0, 3, 1, 4, 2, 5}, {2, 5, 1, 4, 0, 3}, {5, 2, 4, 1, 3, 0}, {3, 0, 4, 1, 5, 2}};
    for (int tag = 1; tag <= 8; ++tag) {
        SCOPED_TRACE(tag);
        const Orientation orientation = Orientation::fromExif(tag);
        Picture file(tag >= 5 ? 2 : 3, tag >= 5 ? 3 : 2);
        for (int i = 0; i < 6; ++i)
            for (int c = 0; c < 3; ++c)
                file.pixel(i % file.width(), i / file.width())[c] = static_cast<std::uint8_t>(
                    stored[static_cast<std::size_t>(tag - 1)][static_cast<std::size_t>(i)] * 10 +
                    c);
        const Picture upright = orientation.upright(file.copy());
        ASSERT_EQ(upright.width(), 3);
        ASSERT_EQ(upright.height(), 2);
        for (int y = 0; y < 2; ++y) {
            for (int x = 0; x < 3; ++x) {
                EXPECT_EQ(*upright.pixel(x, y), (y * 3 + x) * 10);
                const PixelRect lies =
                    orientation.toStored({x, y, 1, 1}, file.width(), file.height());
                EXPECT_EQ(*file.pixel(lies.x, lies.y), (y * 3 + x) * 10);
                EXPECT_EQ(orientation.toUpright(lies, file.width(), file.height()),
                          (PixelRect{x, y, 1, 1}));
            }
        }
    }
}

/// A plane whose value grows steadily from left to right, so that a value tells a position.
Plane ramp(double cover) {
    Plane plane = Plane::sized(cover, 3, static_cast<std::size_t>(std::ceil(cover)), 3);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < plane.width; ++x)
            plane.row(y)[x] =
                static_cast<std::uint8_t>(std::lround(255.0 * (x + 0.5) / plane.width));
    return plane;
}

TEST(PlaneReducer, coversTheWholePlaneAndNothingMore) {
    for (const auto& [cover, target] :
         {std::pair{230.0, 71}, {230.0, 229}, {120.5, 64}, {33.0, 100}}) {
        SCOPED_TRACE(target);
        const Plane plane = ramp(cover);
        std::vector<std::uint8_t> row(padded(static_cast<std::size_t>(target)));
        PlaneReducer(plane, target, 3, {0, 0, target, 3}).row(1, row.data());
        for (int x = 0; x < target; ++x) {
            const double position = (x + 0.5) * cover / target;
            const double level = 255.0 * std::clamp(position, 0.5, plane.width - 0.5) / plane.width;
            EXPECT_NEAR(row[static_cast<std::size_t>(x)], level, 1.2) << "at " << x;
        }
    }
}

TEST(PlaneReducer, aFlatPlaneStaysFlatAtEveryRatio) {
    for (const int target : {1, 2, 3, 17, 63, 64, 65, 127, 300}) {
        Plane plane = Plane::sized(127, 127, 127, 127);
        std::fill_n(plane.bytes.get(), 127 * 127, std::uint8_t{255});
        std::vector<std::uint8_t> row(padded(static_cast<std::size_t>(target)));
        PlaneReducer reducer(plane, target, target, {0, 0, target, target});
        for (int y = 0; y < target; ++y) {
            reducer.row(y, row.data());
            EXPECT_EQ(*std::min_element(row.begin(), row.begin() + target), 255)
                << target << " row " << y;
        }
    }
}

}  // namespace
}  // namespace morva
