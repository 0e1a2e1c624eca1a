// SPDX-License-Identifier: GPL-3.0-or-later
// How photos are selected: by pointer, band and keys, and how the application state's selection
// shows.
#include <algorithm>
#include <numeric>

#include <QAccessible>
#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>

#include "ui/grid/photo_view.h"

namespace morva {

namespace {

std::vector<int> rowsFromTo(int one, int other) {
    const auto [first, last] = std::minmax(one, other);
    std::vector<int> rows(static_cast<std::size_t>(last - first + 1));
    std::iota(rows.begin(), rows.end(), first);
    return rows;
}

bool has(const QInputEvent& event, Qt::KeyboardModifier modifier) {
    return event.modifiers().testFlag(modifier);
}

}  // namespace

void PhotoView::showSelection() {
    isShowingSelection_ = true;
    std::vector<int> rows;
    for (const std::string& id : state_.selection())
        if (const int row = photos_.rowOf(id); row >= 0) rows.push_back(row);
    std::ranges::sort(rows);
    QItemSelection chosen;
    for (std::size_t i = 0; i < rows.size();) {
        std::size_t end = i + 1;
        while (end < rows.size() && rows[end] == rows[end - 1] + 1) ++end;
        chosen.append(QItemSelectionRange(photos_.index(rows[i]), photos_.index(rows[end - 1])));
        i = end;
    }
    selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect);
    const QModelIndex current = photos_.index(currentRow());
    if (current.isValid())
        selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    else
        selectionModel()->clearCurrentIndex();
    isShowingSelection_ = false;
    viewport()->update();
}

void PhotoView::tellSelection() {
    std::vector<int> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
    selectRows(rows, currentIndex().isValid() ? currentIndex().row() : -1);
}

void PhotoView::selectRows(const std::vector<int>& rows, int current) {
    Ids ids;
    for (const int row : rows)
        if (auto id = photos_.idAt(row)) ids.push_back(std::move(*id));
    auto chosen = photos_.idAt(current);
    if (ids.empty())
        chosen.reset();
    else if (!chosen || std::ranges::find(ids, *chosen) == ids.end())
        chosen = ids.back();
    state_.selectMany(std::move(ids), chosen);
}

void PhotoView::choose(int row, bool extend) {
    if (row < 0 || row >= photos_.rowCount()) return;
    const int start = anchor_ ? photos_.rowOf(*anchor_) : -1;
    if (extend && selectsMany() && start >= 0) return selectRows(rowsFromTo(start, row), row);
    anchor_ = photos_.idAt(row);
    state_.select(anchor_);
}

void PhotoView::takeAnchor() {
    if (!anchor_ || photos_.rowOf(*anchor_) < 0) anchor_ = state_.selectedItemID();
}

void PhotoView::toggle(int row) {
    Ids ids = state_.selection();
    const auto id = photos_.idAt(row);
    if (!id) return;
    anchor_ = id;
    auto current = id;
    if (const auto found = std::ranges::find(ids, *id); found != ids.end()) {
        ids.erase(found);
        // The others stay; the current photo is one of them.
        if (id == state_.selectedItemID())
            current = ids.empty() ? std::nullopt : std::optional(ids.back());
        else
            current = state_.selectedItemID();
    } else {
        ids.push_back(*id);
    }
    state_.selectMany(std::move(ids), current);
}

void PhotoView::mousePressEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    const bool extend = has(*event, Qt::ShiftModifier);
    const bool add = has(*event, Qt::ControlModifier);
    if (event->button() == Qt::RightButton) {
        // The menu is about what is selected, if the pointer is on it.
        if (index.isValid() && !selectionModel()->isSelected(index)) choose(index.row(), false);
        return;
    }
    if (event->button() != Qt::LeftButton) return event->ignore();
    takeAnchor();
    if (index.isValid()) {
        if (add && selectsMany())
            toggle(index.row());
        else
            choose(index.row(), extend);
    } else if (selectsMany() && !add && !extend) {
        state_.select(std::nullopt);
    }
    pressed_ = toContent(event->position().toPoint());
    beforeBand_ = add || extend ? state_.selection() : Ids();
}

void PhotoView::mouseMoveEvent(QMouseEvent* event) {
    if (!pressed_ || !event->buttons().testFlag(Qt::LeftButton) || !selectsMany()) return;
    const QPoint place = event->position().toPoint();
    const int moved = (toContent(place) - *pressed_).manhattanLength();
    if (band_ || moved >= QApplication::startDragDistance()) stretchBand(place);
}

void PhotoView::stretchBand(const QPoint& place) {
    const QRect room = viewport()->rect();
    if (place.y() < room.top() || place.y() > room.bottom()) {
        QScrollBar* bar = verticalScrollBar();
        bar->setValue(bar->value() + (place.y() < room.top() ? -1 : 1) * bar->singleStep());
    }
    band_ = QRect(*pressed_, toContent(place)).normalized();
    std::vector<int> rows;
    for (const std::string& id : beforeBand_)
        if (const int row = photos_.rowOf(id); row >= 0) rows.push_back(row);
    const RowRange near = rowsIn(*band_);
    for (int row = near.first; row < near.end; ++row)
        if (cellRect(row).intersects(*band_)) rows.push_back(row);
    std::ranges::sort(rows);
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    selectRows(rows, currentRow());
    viewport()->update();
}

void PhotoView::mouseReleaseEvent(QMouseEvent*) {
    pressed_.reset();
    if (std::exchange(band_, std::nullopt)) viewport()->update();
}

void PhotoView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !index.isValid()) return;
    choose(index.row(), false);
    emit photoActivated();
}

void PhotoView::focusInEvent(QFocusEvent* event) {
    // The list's own way would make the first photo the current one.
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

bool PhotoView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::HoverMove || event->type() == QEvent::HoverEnter)
        setHovered(indexAt(static_cast<QHoverEvent*>(event)->position().toPoint()).row());
    else if (event->type() == QEvent::HoverLeave)
        setHovered(-1);
    return QListView::viewportEvent(event);
}

void PhotoView::setHovered(int row) {
    if (row == hovered_) return;
    for (const int one : {std::exchange(hovered_, row), row})
        if (one >= 0 && one < photos_.rowCount()) update(photos_.index(one));
}

void PhotoView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QAbstractItemView::currentChanged(current, previous);
    if (QAccessible::isActive() && current.isValid() && hasFocus()) {
        QAccessibleEvent event(this, QAccessible::Focus);
        event.setChild(current.row());
        QAccessible::updateAccessibility(&event);
    }
}

void PhotoView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QAbstractItemView::selectionChanged(selected, deselected);
    // Anything but the state itself: a screen reader selects.
    if (!isShowingSelection_ && !photos_.isChanging()) tellSelection();
}

}  // namespace morva
