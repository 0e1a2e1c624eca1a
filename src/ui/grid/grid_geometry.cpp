// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid/grid_geometry.h"

#include <algorithm>

namespace morva {

GridGeometry::GridGeometry(int width, int slotHeight, int textHeight, int count)
    : width_(width), slot_(slotHeight * 4 / 5, slotHeight), textHeight_(textHeight), count_(count) {
    const int pace = cell().width() + smallestGap;
    columns_ = std::max(1, (width_ - 2 * leastSideMargin + smallestGap) / pace);
    const int spare = width_ - (columns_ * pace - smallestGap);
    margin_ = std::clamp(spare / 2, leastSideMargin, sideMargin);
}

QSize GridGeometry::cell() const {
    return {slot_.width() + 2 * padding, slot_.height() + textHeight_ + 2 * padding};
}

int GridGeometry::height() const {
    if (count_ == 0) return 0;
    const int rows = (count_ + columns_ - 1) / columns_;
    return rows * pitch() - rowGap + 2 * endMargin;
}

int GridGeometry::columnLeft(int column) const {
    const int spare = width_ - 2 * margin_ - columns_ * cell().width();
    if (columns_ == 1) return margin_ + std::max(0, spare / 2);
    // Rounded from the left edge, so that the last column ends on the margin to the pixel.
    return margin_ + column * cell().width() + spare * column / (columns_ - 1);
}

QRect GridGeometry::cellRect(int index) const {
    return {QPoint(columnLeft(index % columns_), endMargin + index / columns_ * pitch()), cell()};
}

int GridGeometry::indexAt(const QPoint& point) const {
    const RowRange rows = rowsBetween(point.y(), point.y());
    for (int index = rows.first; index < rows.end; ++index)
        if (cellRect(index).contains(point)) return index;
    return -1;
}

RowRange GridGeometry::rowsBetween(int top, int bottom) const {
    if (bottom < 0) return {};
    const int first = std::max(0, top - endMargin) / pitch();
    const int last = std::max(0, bottom - endMargin) / pitch();
    return {std::min(first * columns_, count_), std::min((last + 1) * columns_, count_)};
}

}  // namespace morva
