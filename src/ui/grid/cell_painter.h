// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the cells of the grid and the filmstrip from values alone. Made for one paint of a view, so
// that colours, fonts and measures are looked up once for all its cells.
#pragma once

#include <QFont>
#include <QPainter>
#include <QPixmap>
#include <QRect>

#include "ui/grid/cell_content.h"
#include "ui/grid/cell_picture.h"

namespace morva {

struct Theme;

struct CellState {
    bool isSelected = false;
    bool isCurrent = false;
    bool isHovered = false;
};

class CellPainter {
public:
    /// `isActive`: the window has the focus of the desktop.
    CellPainter(QPainter& painter, const QWidget& view, bool isActive);

    /// Heights of what stands below the slots.
    static int gridTextHeight();
    static int stripTextHeight();

    /// Of the given rectangle, whose slot lies `padding` inside at its top.
    void drawGridCell(const QRect& cell, const QSize& slot, const CellContent& content,
                      const CellPicture& picture, const CellState& state);
    void drawStripCell(const QRect& cell, const QSize& slot, const CellContent& content,
                       const CellPicture& picture, const CellState& state);

private:
    void drawBackground(const QRect& cell, const CellState& state);
    void drawSlot(const QRect& slot, const CellContent& content, const CellPicture& picture);
    void drawFirstLine(QRect line, const CellContent& content);
    void drawSecondLine(QRect line, const CellContent& content);
    void drawIcon(const QString& name, const QColor& color, const QRect& place);
    /// Takes a piece of that width, and a gap, off the side that text begins at, or ends.
    QRect leading(QRect& line, int width) const;
    QRect trailing(QRect& line, int width) const;
    void drawText(const QRect& place, const QString& text, const QFont& font, const QColor& color,
                  Qt::Alignment side, Qt::TextElideMode mode);

    QPainter& painter_;
    const Theme& theme_;
    bool isActive_;
    bool isMirrored_;
    qreal scale_;
    QFont nameFont_;
    QFont smallFont_;
    QBrush missing_;
};

}  // namespace morva
