// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid/photo_view.h"

#include <algorithm>

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include "ui/widgets/theme.h"

namespace morva {

PhotoView::PhotoView(AppState& state, QWidget* parent)
    : QListView(parent), state_(state), photos_(state), pictures_(state) {
    viewport()->setAttribute(Qt::WA_Hover);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    fetchTimer_.setSingleShot(true);
    connect(&fetchTimer_, &QTimer::timeout, this, &PhotoView::fetch);
    connect(&pictures_, &CellPictures::arrived, this, &PhotoView::repaintItem);
    connect(&photos_, &PhotoListModel::rowsSettled, this, [this] {
        rearrange();
        showSelection();
    });
    connect(&photos_, &PhotoListModel::photosChanged, &pictures_, &CellPictures::changed);
    connect(&state_, &AppState::selectionChanged, this, &PhotoView::showSelection);
    connect(&state_, &AppState::presetsChanged, this, [this] {
        pictures_.allChanged();
        viewport()->update();
    });
}

void PhotoView::begin() {
    // All this lays out, and so calls what the two do differently.
    setFrameShape(QFrame::NoFrame);
    setSelectionMode(selectsMany() ? ExtendedSelection : SingleSelection);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setUniformItemSizes(true);
    setModel(&photos_);
    showSelection();
}

QRect PhotoView::toViewport(const QRect& content) const {
    QRect place = content.translated(-horizontalOffset(), -verticalOffset());
    if (isRightToLeft())
        place.moveLeft(width() - place.x() - place.width() - viewport()->geometry().left());
    return place;
}

QPoint PhotoView::toContent(const QPoint& place) const {
    const int x =
        isRightToLeft() ? width() - 1 - place.x() - viewport()->geometry().left() : place.x();
    return {x + horizontalOffset(), place.y() + verticalOffset()};
}

QRect PhotoView::visualRect(const QModelIndex& index) const {
    return index.isValid() ? toViewport(cellRect(index.row())) : QRect();
}

QModelIndex PhotoView::indexAt(const QPoint& place) const {
    const QPoint point = toContent(place);
    const RowRange rows = rowsIn({point, QSize(1, 1)});
    for (int row = rows.first; row < rows.end; ++row)
        if (cellRect(row).contains(point)) return photos_.index(row);
    return {};
}

int PhotoView::horizontalOffset() const { return horizontalScrollBar()->value(); }

int PhotoView::verticalOffset() const { return verticalScrollBar()->value(); }

void PhotoView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (!index.isValid()) return;
    updateGeometries();
    const QRect cell = cellRect(index.row()).marginsAdded(surroundings());
    const auto bring = [&](QScrollBar* bar, int from, int to) {
        const int page = bar->pageStep();
        if (hint == PositionAtCenter)
            bar->setValue((from + to - page) / 2);
        else if (from < bar->value() || hint == PositionAtTop)
            bar->setValue(from);
        else if (to - page > bar->value() || hint == PositionAtBottom)
            bar->setValue(to - page);
    };
    bring(verticalScrollBar(), cell.top(), cell.bottom() + 1);
    bring(horizontalScrollBar(), cell.left(), cell.right() + 1);
}

void PhotoView::doItemsLayout() {
    rearrange();
    QAbstractItemView::doItemsLayout();
}

void PhotoView::reset() {
    pictures_.clear();
    hovered_ = -1;
    band_.reset();
    pressed_.reset();
    QListView::reset();
}

void PhotoView::rearrange() {
    // What is looked at: the current photo if it can be seen, else the first that can.
    const QRect view(QPoint(horizontalOffset(), verticalOffset()), viewport()->size());
    const RowRange seen = rowsIn(view);
    const int current = currentRow();
    const bool seesCurrent = current >= seen.first && current < seen.end;
    const int kept = seesCurrent ? current : seen.first;
    const bool isPlaced = kept >= 0 && kept < photos_.rowCount() && !seen.isEmpty();
    const QRect before = isPlaced ? cellRect(kept) : QRect();
    arrange();
    pictures_.setSlot(slot(), devicePixelRatioF());
    updateGeometries();
    if (isPlaced) {
        const QPoint moved = cellRect(kept).topLeft() - before.topLeft();
        if (!moved.isNull() && (verticalOffset() > 0 || seesCurrent))
            verticalScrollBar()->setValue(verticalOffset() + moved.y());
        if (!moved.isNull()) horizontalScrollBar()->setValue(horizontalOffset() + moved.x());
        if (seesCurrent && cellRect(kept) != before) scrollTo(photos_.index(current));
    }
    viewport()->update();
    fetchSoon();
}

void PhotoView::updateGeometries() {
    const QSize room = viewport()->size();
    const QSize content = contentSize();
    const auto set = [](QScrollBar* bar, int all, int page, int single) {
        bar->setRange(0, std::max(0, all - page));
        bar->setPageStep(page);
        bar->setSingleStep(single);
    };
    set(verticalScrollBar(), content.height(), room.height(), step().height());
    set(horizontalScrollBar(), content.width(), room.width(), step().width());
    QAbstractItemView::updateGeometries();
}

void PhotoView::scrollContentsBy(int dx, int dy) {
    viewport()->scroll(isRightToLeft() ? -dx : dx, dy);
    setHovered(-1);
    fetchSoon();
}

int PhotoView::currentRow() const {
    const auto& id = state_.selectedItemID();
    return id ? photos_.rowOf(*id) : -1;
}

bool PhotoView::event(QEvent* event) {
    if (event->type() == QEvent::Paint) {
        // Behind the scroll bar.
        QPainter painter(this);
        painter.fillRect(rect(), background());
    }
    return QListView::event(event);
}

void PhotoView::paintEvent(QPaintEvent* event) {
    // The window may have been moved to a screen of another scale.
    if (pictures_.setSlot(slot(), devicePixelRatioF())) fetchSoon();
    QPainter painter(viewport());
    CellPainter cells(painter, *this, isActiveWindow());
    const QRect dirty = event->rect();
    painter.fillRect(dirty, background());
    const QRect content =
        QRect(toContent(dirty.topLeft()), toContent(dirty.bottomRight())).normalized();
    const RowRange rows = rowsIn(content);
    const int current = currentRow();
    for (int row = rows.first; row < rows.end; ++row) {
        const auto item = photos_.itemAt(row);
        const QRect place = toViewport(cellRect(row));
        if (!item || !place.intersects(dirty)) continue;
        const CellState look{.isSelected = selectionModel()->isSelected(photos_.index(row)),
                             .isCurrent = row == current,
                             .isHovered = row == hovered_};
        drawCell(cells, place, contentOf(state_, *item), pictures_.picture(*item), look);
    }
    if (band_) {
        const Theme& theme = Theme::current();
        QColor veil = theme.accent;
        veil.setAlphaF(0.15F);
        const QRect band = toViewport(*band_);
        painter.fillRect(band, veil);
        painter.setPen(theme.accent);
        painter.drawRect(band.adjusted(0, 0, -1, -1));
    }
}

void PhotoView::resizeEvent(QResizeEvent* event) {
    QAbstractItemView::resizeEvent(event);
    rearrange();
}

void PhotoView::showEvent(QShowEvent* event) {
    QListView::showEvent(event);
    rearrange();
}

void PhotoView::hideEvent(QHideEvent* event) {
    QListView::hideEvent(event);
    fetchTimer_.stop();
    pictures_.want({}, 0);
}

void PhotoView::changeEvent(QEvent* event) {
    QListView::changeEvent(event);
    switch (event->type()) {
        case QEvent::FontChange:
        case QEvent::StyleChange:
        case QEvent::LayoutDirectionChange:
            rearrange();
            break;
        case QEvent::ActivationChange:
        case QEvent::PaletteChange:
            viewport()->update();
            break;
        default:
            break;
    }
}

void PhotoView::dataChanged(const QModelIndex& first, const QModelIndex& last,
                            const QList<int>& roles) {
    QAbstractItemView::dataChanged(first, last, roles);
    fetchSoon();
}

void PhotoView::repaintItem(std::size_t item) {
    const int row = photos_.rowOf(item);
    if (row >= 0) viewport()->update(toViewport(cellRect(row)));
}

void PhotoView::fetchSoon() {
    if (isVisible() && !fetchTimer_.isActive()) fetchTimer_.start(0);
}

void PhotoView::fetch() {
    if (!isVisible()) return;
    const QRect view(QPoint(horizontalOffset(), verticalOffset()), viewport()->size());
    const bool isUpright = contentSize().height() > view.height();
    const QPoint screen = isUpright ? QPoint(0, view.height()) : QPoint(view.width(), 0);
    std::vector<std::size_t> wanted;
    std::size_t onScreen = 0;
    RowRange seen = rowsIn(view);
    const auto add = [&](int first, int end) {
        for (int row = first; row < end; ++row)
            if (const auto item = photos_.itemAt(row)) wanted.push_back(*item);
    };
    add(seen.first, seen.end);
    onScreen = wanted.size();
    add(seen.end, rowsIn(view.translated(screen)).end);
    add(rowsIn(view.translated(-screen)).first, seen.first);
    pictures_.want(wanted, onScreen);
}

}  // namespace morva
