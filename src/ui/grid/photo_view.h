// SPDX-License-Identifier: GPL-3.0-or-later
// What the grid and the filmstrip have in common: the photos that the application state shows, its
// selection, thumbnails that come and go with scrolling, selection by pointer and keys. A list view
// for screen readers and scrolling; places and draws its cells itself.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QListView>
#include <QTimer>

#include "ui/grid/cell_painter.h"
#include "ui/grid/cell_pictures.h"
#include "ui/grid/grid_geometry.h"
#include "ui/grid/photo_list_model.h"

namespace morva {

class PhotoView : public QListView {
    Q_OBJECT

public:
    explicit PhotoView(AppState& state, QWidget* parent);

    const PhotoListModel& photos() const { return photos_; }
    CellPictures& pictures() { return pictures_; }

    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& place) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void doItemsLayout() override;
    void reset() override;

signals:
    /// A photo was double-clicked.
    void photoActivated();

protected:
    // What the two arrange differently; content coordinates, left to right, from 0.

    virtual void arrange() = 0;
    virtual QRect cellRect(int row) const = 0;
    virtual RowRange rowsIn(const QRect& content) const = 0;
    virtual QSize contentSize() const = 0;
    /// How far a step of the wheel's third goes.
    virtual QSize step() const = 0;
    /// Kept free around a cell that is brought into view.
    virtual QMargins surroundings() const = 0;
    virtual QSize slot() const = 0;
    virtual void drawCell(CellPainter& painter, const QRect& place, const CellContent& content,
                          const CellPicture& picture, const CellState& state) const = 0;
    /// Several photos may be selected.
    virtual bool selectsMany() const = 0;
    virtual QColor background() const = 0;

    /// Shows the photos; to be called once, at the end of construction.
    void begin();
    AppState& state() const { return state_; }
    /// The current photo's row; -1 when none is or it is not shown.
    int currentRow() const;
    /// Makes a row the current one; `extend` selects from where the selection began.
    void choose(int row, bool extend);
    /// Without a place where a selection began, it begins at the current photo.
    void takeAnchor();
    /// Arranges anew and keeps in its place what is looked at.
    void rearrange();

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void dataChanged(const QModelIndex& first, const QModelIndex& last,
                     const QList<int>& roles) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    int horizontalOffset() const override;
    int verticalOffset() const override;

private:
    using Ids = std::vector<std::string>;

    /// Between content and viewport.
    QRect toViewport(const QRect& content) const;
    QPoint toContent(const QPoint& place) const;

    void showSelection();
    void tellSelection();
    void selectRows(const std::vector<int>& rows, int current);
    void toggle(int row);
    void stretchBand(const QPoint& place);
    void setHovered(int row);
    void repaintItem(std::size_t item);
    void fetchSoon();
    void fetch();

    AppState& state_;
    PhotoListModel photos_;
    CellPictures pictures_;
    /// Where a range begins.
    std::optional<std::string> anchor_;
    /// While a band is drawn, in content coordinates: where it began, and its other corner.
    std::optional<QPoint> pressed_;
    std::optional<QRect> band_;
    /// Selected before the band.
    Ids beforeBand_;
    int hovered_ = -1;
    bool isShowingSelection_ = false;
    QTimer fetchTimer_;
};

}  // namespace morva
