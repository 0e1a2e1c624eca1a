// SPDX-License-Identifier: GPL-3.0-or-later
// Where the cells of the grid lie: columns, gaps and rows from a width and the size of a thumbnail.
// Plain arithmetic for the grid view; knows no widget. Left to right; the view mirrors.
#pragma once

#include <QRect>
#include <QSize>

namespace morva {

/// The first row of a list that is meant and the one behind the last.
struct RowRange {
    int first = 0;
    int end = 0;

    bool isEmpty() const { return first >= end; }
    bool operator==(const RowRange&) const = default;
};

/// All lengths in logical pixels.
class GridGeometry {
public:
    /// Around the slot of a cell, and below its text.
    static constexpr int padding = 8;
    static constexpr int smallestGap = 12;
    static constexpr int rowGap = 4;
    /// Beside the outer columns; less, down to the scroll bar's width, where that saves a column.
    static constexpr int sideMargin = 16;
    static constexpr int leastSideMargin = 12;
    static constexpr int endMargin = 8;

    GridGeometry() = default;
    /// For `count` cells on a width; `slotHeight` of the thumbnails, which are four wide and five
    /// high, and the height of the text below each.
    GridGeometry(int width, int slotHeight, int textHeight, int count);

    int columns() const { return columns_; }
    QSize slot() const { return slot_; }
    QSize cell() const;
    /// From the top of a row to the top of the next.
    int pitch() const { return cell().height() + rowGap; }
    /// Of everything.
    int height() const;

    QRect cellRect(int index) const;
    /// The cell at a point; -1 between cells.
    int indexAt(const QPoint& point) const;
    /// The cells of all rows that a span of heights touches.
    RowRange rowsBetween(int top, int bottom) const;

private:
    int columnLeft(int column) const;

    int width_ = 0;
    int margin_ = sideMargin;
    QSize slot_;
    int textHeight_ = 0;
    int count_ = 0;
    int columns_ = 1;
};

}  // namespace morva
