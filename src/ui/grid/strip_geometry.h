// SPDX-License-Identifier: GPL-3.0-or-later
// Where the cells of the filmstrip lie, side by side. Plain arithmetic; left to right, the view
// mirrors.
#pragma once

#include <algorithm>

#include <QRect>
#include <QSize>

#include "ui/grid/grid_geometry.h"

namespace morva {

/// All lengths in logical pixels.
struct StripGeometry {
    static constexpr int padding = 6;
    static constexpr int gap = 4;
    static constexpr int margin = 10;
    static constexpr QSize slot{56, 70};

    int textHeight = 0;
    int count = 0;

    QSize cell() const {
        return {slot.width() + 2 * padding, slot.height() + textHeight + 2 * padding};
    }
    int pitch() const { return cell().width() + gap; }
    int width() const { return count == 0 ? 0 : count * pitch() - gap + 2 * margin; }
    /// `top` of all cells.
    QRect cellRect(int index, int top) const {
        return {QPoint(margin + index * pitch(), top), cell()};
    }
    RowRange between(int left, int right) const {
        const auto place = [&](int x) { return std::max(0, x - margin) / pitch(); };
        return {std::min(place(left), count), std::min(place(right) + 1, count)};
    }
};

}  // namespace morva
