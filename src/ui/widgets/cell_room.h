// SPDX-License-Identifier: GPL-3.0-or-later
// How wide the cells of a list in icon mode may be together.
#pragma once

#include <QListView>
#include <QScrollBar>
#include <QStyle>

namespace morva {

/// In pixels. The list keeps the place of its bar free whether it shows it or not; cells that are
/// spread over that as well would lose a column.
inline int roomForCells(const QListView& list) {
    // Cells that fill it to the last pixel are one too many.
    return list.maximumViewportSize().width() - 1 -
           list.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, list.verticalScrollBar());
}

}  // namespace morva
