// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid/filmstrip.h"

#include <QCoreApplication>
#include <QScrollBar>
#include <QWheelEvent>

#include "ui/widgets/theme.h"

namespace morva {

namespace {

/// Above and below the cells.
constexpr int endMargin = 7;

}  // namespace

Filmstrip::Filmstrip(AppState& state, QWidget* parent) : PhotoView(state, parent) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The keys beside it are the inspector's.
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(tr("Filmstrip"));
    setAccessibleDescription(tr("The photos that the grid shows"));
    takeHeight();
    begin();
}

void Filmstrip::takeHeight() {
    arrange();
    setFixedHeight(geometry_.cell().height() + 2 * endMargin);
}

void Filmstrip::arrange() { geometry_ = {CellPainter::stripTextHeight(), photos().rowCount()}; }

QRect Filmstrip::cellRect(int row) const { return geometry_.cellRect(row, endMargin); }

RowRange Filmstrip::rowsIn(const QRect& content) const {
    return geometry_.between(content.left(), content.right());
}

QMargins Filmstrip::surroundings() const {
    // A neighbour on each side shows that there are more.
    const int side = std::min(geometry_.pitch(), viewport()->width() / 4) + StripGeometry::margin;
    return {side, 0, side, 0};
}

void Filmstrip::drawCell(CellPainter& painter, const QRect& place, const CellContent& content,
                         const CellPicture& picture, const CellState& state) const {
    painter.drawStripCell(place, slot(), content, picture, state);
}

QColor Filmstrip::background() const { return Theme::current().strip; }

void Filmstrip::wheelEvent(QWheelEvent* event) {
    // A wheel that only turns up and down moves the strip too.
    const QPoint turned = event->angleDelta();
    if (qAbs(turned.x()) >= qAbs(turned.y())) return PhotoView::wheelEvent(event);
    QWheelEvent across(event->position(), event->globalPosition(), event->pixelDelta().transposed(),
                       turned.transposed(), event->buttons(), event->modifiers(), event->phase(),
                       event->inverted(), event->source());
    QCoreApplication::sendEvent(horizontalScrollBar(), &across);
    event->accept();
}

void Filmstrip::changeEvent(QEvent* event) {
    PhotoView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) takeHeight();
}

}  // namespace morva
