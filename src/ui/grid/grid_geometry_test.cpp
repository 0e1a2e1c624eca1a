// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid/grid_geometry.h"

#include <gtest/gtest.h>

#include "ui/grid/strip_geometry.h"

namespace morva {
namespace {

constexpr int textHeight = 40;

TEST(GridGeometry, spreadsSpareWidthOverTheGaps) {
    struct Case {
        const char* what;
        int width;
        int slotHeight;
        int columns;
        int margin;
        int gap;
    };
    for (const Case& c : {
             Case{"five at the usual size, without a pixel to spare", 880, 180, 5, 16, 12},
             Case{"between the seams of the usual window", 878, 180, 5, 15, 12},
             Case{"margins as narrow as the scroll bar", 872, 180, 5, 12, 12},
             Case{"one pixel less takes a column", 871, 180, 4, 16, 66},
             Case{"larger thumbnails in a small window", 792, 200, 4, 16, 18},
             Case{"narrower than one cell", 100, 180, 1, 12, 0},
         }) {
        SCOPED_TRACE(c.what);
        const GridGeometry grid(c.width, c.slotHeight, textHeight, 100);
        ASSERT_EQ(grid.columns(), c.columns);
        EXPECT_EQ(grid.slot(), QSize(c.slotHeight * 4 / 5, c.slotHeight));
        if (c.columns == 1) continue;
        EXPECT_EQ(grid.cellRect(0).left(), c.margin);
        EXPECT_EQ(grid.cellRect(c.columns - 1).right() + 1, c.width - c.margin);
        for (int i = 1; i < c.columns; ++i)
            EXPECT_NEAR(grid.cellRect(i).left() - grid.cellRect(i - 1).right() - 1, c.gap, 1);
        EXPECT_EQ(grid.cellRect(c.columns).top() - grid.cellRect(0).bottom() - 1,
                  GridGeometry::rowGap);
    }
}

TEST(GridGeometry, findsTheCellsThatItPlaced) {
    const GridGeometry grid(880, 180, textHeight, 13);
    for (int index = 0; index < 13; ++index) {
        const QRect cell = grid.cellRect(index);
        EXPECT_EQ(grid.indexAt(cell.topLeft()), index);
        EXPECT_EQ(grid.indexAt(cell.bottomRight()), index);
        EXPECT_EQ(grid.indexAt(cell.topRight() + QPoint(1, 0)), -1) << "in the gap";
    }
    EXPECT_EQ(grid.indexAt(grid.cellRect(13).center()), -1) << "behind the last";
    EXPECT_EQ(grid.height(), grid.cellRect(12).bottom() + 1 + GridGeometry::endMargin);
    EXPECT_EQ(GridGeometry(880, 180, textHeight, 0).height(), 0);
}

TEST(GridGeometry, namesAllRowsThatASpanTouches) {
    const GridGeometry grid(880, 180, textHeight, 23);
    const int second = grid.cellRect(5).top();
    EXPECT_EQ(grid.rowsBetween(0, 5), (RowRange{0, 5}));
    EXPECT_EQ(grid.rowsBetween(second - 10, second), (RowRange{0, 10}));
    EXPECT_EQ(grid.rowsBetween(second, second + 2 * grid.pitch()), (RowRange{5, 20}));
    EXPECT_EQ(grid.rowsBetween(second, 1 << 20), (RowRange{5, 23}));
    EXPECT_TRUE(grid.rowsBetween(grid.height() + grid.pitch(), 1 << 20).isEmpty());
    EXPECT_TRUE(grid.rowsBetween(-5000, -4000).isEmpty());
}

TEST(StripGeometry, findsTheCellsThatItPlaced) {
    const StripGeometry strip{20, 50};
    for (const int index : {0, 7, 49}) {
        const QRect cell = strip.cellRect(index, 7);
        const RowRange at = strip.between(cell.left(), cell.right());
        EXPECT_EQ(at, (RowRange{index, index + 1}));
    }
    EXPECT_EQ(strip.between(-100, 1 << 20), (RowRange{0, 50}));
    EXPECT_EQ(strip.width(), strip.cellRect(49, 0).right() + 1 + StripGeometry::margin);
}

}  // namespace
}  // namespace morva
