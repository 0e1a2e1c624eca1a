// SPDX-License-Identifier: GPL-3.0-or-later
// The photos of the grid in one row below the inspector, the current one ringed and kept in view.
#pragma once

#include "ui/grid/photo_view.h"
#include "ui/grid/strip_geometry.h"

namespace morva {

class Filmstrip final : public PhotoView {
    Q_OBJECT

public:
    explicit Filmstrip(AppState& state, QWidget* parent = nullptr);

protected:
    void arrange() override;
    QRect cellRect(int row) const override;
    RowRange rowsIn(const QRect& content) const override;
    QSize contentSize() const override { return {geometry_.width(), 0}; }
    QSize step() const override { return {geometry_.pitch() / 3, 0}; }
    QMargins surroundings() const override;
    QSize slot() const override { return StripGeometry::slot; }
    void drawCell(CellPainter& painter, const QRect& place, const CellContent& content,
                  const CellPicture& picture, const CellState& state) const override;
    bool selectsMany() const override { return false; }
    QColor background() const override;

    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void takeHeight();

    StripGeometry geometry_;
};

}  // namespace morva
