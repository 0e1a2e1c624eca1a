// SPDX-License-Identifier: GPL-3.0-or-later
// The photos of the selected job as a grid of cropped thumbnails, in the order and with the filter
// of the application state. Shows and selects; what is selected and shown is the state's.
#pragma once

#include "ui/grid/photo_view.h"

namespace morva {

class PhotoGrid final : public PhotoView {
    Q_OBJECT

public:
    explicit PhotoGrid(AppState& state, QWidget* parent = nullptr);

    /// Selects every photo that the filter shows; the current one stays.
    void selectAllShown();
    /// A folder is being dragged over the window: "Drop to import NAME"; empty when not.
    void setDropName(const QString& name);

signals:
    /// A context menu is asked for, the photos it is about being selected; in global coordinates.
    void contextMenuWanted(const QPoint& place);

protected:
    void arrange() override;
    QRect cellRect(int row) const override { return geometry_.cellRect(row); }
    RowRange rowsIn(const QRect& content) const override;
    QSize contentSize() const override { return {0, geometry_.height()}; }
    QSize step() const override { return {0, geometry_.pitch() / 3}; }
    QMargins surroundings() const override;
    QSize slot() const override { return geometry_.slot(); }
    void drawCell(CellPainter& painter, const QRect& place, const CellContent& content,
                  const CellPicture& picture, const CellState& state) const override;
    bool selectsMany() const override { return true; }
    QColor background() const override;

    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void describe();
    void drawFocusRing(QPainter& painter) const;
    void drawDropOffer(QPainter& painter) const;

    GridGeometry geometry_;
    QString dropName_;
};

}  // namespace morva
