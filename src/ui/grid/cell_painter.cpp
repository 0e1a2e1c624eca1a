// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid/cell_painter.h"

#include <cmath>

#include <QFontMetrics>
#include <QWidget>

#include "ui/grid/grid_geometry.h"
#include "ui/grid/strip_geometry.h"
#include "ui/widgets/badge.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"

namespace morva {

namespace {

constexpr int lineHeight = 20;
/// Between slot and text; the rest of the cell's foot lies below.
constexpr int textGap = 6;
constexpr int iconSide = 14;
constexpr int smallIconSide = 12;
constexpr int errorIconSide = 32;
constexpr int pieceGap = 5;

/// Not cropped yet.
constexpr double faint = 0.5;

/// Of the hatching, logical pixels across.
constexpr int hatchPeriod = 7;
constexpr double hatchBar = 2;

QBrush hatching(const Theme& theme, qreal scale) {
    const int side = static_cast<int>(std::lround(hatchPeriod * scale));
    QPixmap tile(side, side);
    tile.fill(theme.hatchDark);
    QPainter painter(&tile);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme.hatchLight, hatchBar * scale, Qt::SolidLine, Qt::FlatCap));
    // The middle bar and the corners of its neighbours, so that tiles join.
    for (const int shift : {-side, 0, side})
        painter.drawLine(QPointF(shift - 1, side + 1), QPointF(shift + side + 1, -1));
    painter.end();
    tile.setDevicePixelRatio(scale);
    return QBrush(tile);
}

}  // namespace

CellPainter::CellPainter(QPainter& painter, const QWidget& view, bool isActive)
    : painter_(painter),
      theme_(Theme::current()),
      isActive_(isActive),
      isMirrored_(view.isRightToLeft()),
      scale_(view.devicePixelRatioF()),
      nameFont_(fontFor(TextRole::body)),
      smallFont_(fontFor(TextRole::small)),
      missing_(hatching(theme_, scale_)) {}

int CellPainter::gridTextHeight() { return 2 * scaled(lineHeight); }

int CellPainter::stripTextHeight() { return scaled(lineHeight) - StripGeometry::padding + 2; }

void CellPainter::drawGridCell(const QRect& cell, const QSize& slot, const CellContent& content,
                               const CellPicture& picture, const CellState& state) {
    drawBackground(cell, state);
    constexpr int padding = GridGeometry::padding;
    const QRect photo(cell.topLeft() + QPoint(padding, padding), slot);
    drawSlot(photo, content, picture);
    const int height = scaled(lineHeight);
    const QRect first(photo.left(), photo.bottom() + 1 + textGap, slot.width(), height);
    drawFirstLine(first, content);
    drawSecondLine(first.translated(0, height), content);
}

void CellPainter::drawStripCell(const QRect& cell, const QSize& slot, const CellContent& content,
                                const CellPicture& picture, const CellState& state) {
    drawBackground(cell, state);
    constexpr int padding = StripGeometry::padding;
    const QRect photo(cell.topLeft() + QPoint(padding, padding), slot);
    drawSlot(photo, content, picture);
    const QRect line(photo.left() - 2, photo.bottom() + 2, slot.width() + 4, scaled(lineHeight));
    const QFontMetrics metrics(smallFont_);
    const QString text = metrics.elidedText(shortName(content.name), Qt::ElideMiddle,
                                            line.width() - smallIconSide - pieceGap);
    QRect middle(0, 0, smallIconSide + pieceGap + metrics.horizontalAdvance(text), line.height());
    middle.moveCenter(line.center());
    drawIcon(content.look.icon, content.look.color, leading(middle, smallIconSide));
    drawText(middle, text, smallFont_, state.isCurrent ? theme_.text : theme_.text2,
             Qt::AlignLeading, Qt::ElideNone);
}

void CellPainter::drawBackground(const QRect& cell, const CellState& state) {
    const bool isMarked = state.isSelected || state.isCurrent;
    if (!isMarked && !state.isHovered) return;
    const QColor fill = isMarked ? theme_.selected : theme_.cellHover;
    QColor ring;
    if (isMarked)
        ring = !isActive_        ? theme_.quietRing
               : state.isCurrent ? theme_.accentBright
                                 : theme_.accent;
    painter_.setRenderHint(QPainter::Antialiasing);
    drawBox(painter_, cell, fill, ring, Metrics::cellRadius, state.isCurrent ? theme_.ring : 1);
    painter_.setRenderHint(QPainter::Antialiasing, false);
}

void CellPainter::drawSlot(const QRect& slot, const CellContent& content,
                           const CellPicture& picture) {
    if (content.isError || picture.isUnreadable) {
        painter_.fillRect(slot, theme_.panel);
        const int side = std::min(errorIconSide, slot.width() / 2);
        QRect place(0, 0, side, side);
        place.moveCenter(slot.center());
        drawIcon(QStringLiteral("s-error"), theme_.off, place);
        return;
    }
    const QRectF target = fitted(picture.shape(), slot, scale_);
    if (content.isPending && !picture.isEmpty()) painter_.setOpacity(faint);
    drawPicture(painter_, target, picture, missing_, theme_.panel);
    painter_.setOpacity(1);
}

void CellPainter::drawFirstLine(QRect line, const CellContent& content) {
    if (content.preset) {
        const QSize size = badgeSize(*content.preset);
        if (!size.isEmpty()) {
            const QRect place = leading(line, size.width());
            drawBadge(painter_, *content.preset,
                      {place.left(), place.top() + (place.height() - size.height()) / 2});
        }
    }
    const int width = QFontMetrics(smallFont_).horizontalAdvance(content.confidence);
    drawText(trailing(line, width), content.confidence, smallFont_, theme_.text2, Qt::AlignTrailing,
             Qt::ElideNone);
    drawText(line, content.name, nameFont_, theme_.text, Qt::AlignLeading, Qt::ElideMiddle);
}

void CellPainter::drawSecondLine(QRect line, const CellContent& content) {
    drawIcon(content.look.icon, content.look.color, leading(line, iconSide));
    if (content.isAdjusted)
        drawIcon(QStringLiteral("adjusted"), theme_.text2, trailing(line, iconSide));
    drawText(line, content.line, smallFont_, theme_.text2, Qt::AlignLeading, Qt::ElideRight);
}

void CellPainter::drawIcon(const QString& name, const QColor& color, const QRect& place) {
    const int side = std::min(place.width(), place.height());
    painter_.drawPixmap(place.left(), place.top() + (place.height() - side) / 2,
                        iconPixmap(name, color, side, scale_));
}

QRect CellPainter::leading(QRect& line, int width) const {
    QRect piece = line;
    if (isMirrored_) {
        piece.setLeft(line.right() + 1 - width);
        line.setRight(piece.left() - 1 - pieceGap);
    } else {
        piece.setWidth(width);
        line.setLeft(piece.right() + 1 + pieceGap);
    }
    return piece;
}

QRect CellPainter::trailing(QRect& line, int width) const {
    QRect piece = line;
    if (isMirrored_) {
        piece.setWidth(width);
        line.setLeft(piece.right() + 1 + pieceGap);
    } else {
        piece.setLeft(line.right() + 1 - width);
        line.setRight(piece.left() - 1 - pieceGap);
    }
    return piece;
}

void CellPainter::drawText(const QRect& place, const QString& text, const QFont& font,
                           const QColor& color, Qt::Alignment side, Qt::TextElideMode mode) {
    painter_.setFont(font);
    painter_.setPen(color);
    const QString shown =
        mode == Qt::ElideNone ? text : QFontMetrics(font).elidedText(text, mode, place.width());
    painter_.drawText(place, static_cast<int>(side | Qt::AlignVCenter) | Qt::TextSingleLine, shown);
}

}  // namespace morva
