// SPDX-License-Identifier: GPL-3.0-or-later
// The selected photo with its frame, painted and edited by hand. Shows what the application state
// says and hands every edit to it; keeps only how it is looked at (zoom, before or after). Takes no
// key of the key table.
#pragma once

#include <optional>

#include <QWidget>

#include "ui/inspector/canvas_geometry.h"
#include "ui/inspector/frame_drag.h"
#include "ui/inspector/inspected_photo.h"
#include "ui/inspector/photo_images.h"
#include "ui/inspector/photo_layer.h"
#include "ui/inspector/result_picture.h"

namespace morva {

class AppState;

class PhotoCanvas final : public QWidget {
    Q_OBJECT

public:
    explicit PhotoCanvas(AppState& state, QWidget* parent = nullptr);

    void zoomToFit();
    void zoomIn();
    void zoomOut();
    bool isFitted() const { return geometry_.isFitted(); }
    /// Device pixels per source pixel.
    double zoomShare() const;

    /// The finished crop: beside the photo where there is room for both, else in its place.
    void setShowsResult(bool shows);
    bool showsResult() const { return showsResult_; }

    /// Where things lie now.
    const CanvasGeometry& geometry() const { return geometry_; }
    /// The crop in words, for those who do not see it.
    const QString& words() const { return words_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void zoomChanged();
    /// In global coordinates.
    void contextMenuWanted(const QPoint& place);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    /// A button that is held over the canvas.
    struct Hold {
        Qt::MouseButton button;
        QPointF from;
        QPointF last;
        /// As it was when the button went down; absent where the photo is pulled along.
        std::optional<FrameDrag> drag;
        CanvasGeometry geometry;
        /// The pointer has moved far enough to mean it.
        bool isMoving = false;
    };

    void refresh();
    void tell();
    void arrange();
    void zoom(double by, QPointF around);
    QPointF zoomCenter() const;
    void pull(const QPointF& pointer);
    void release();
    void showCursorFor(const QPointF& pointer);
    double turnedByHand() const;

    bool hasCrop() const;
    /// Photo and result beside each other.
    bool isSplit() const;
    /// The photo is there to be seen and pulled at.
    bool showsPhoto() const;
    QRectF resultArea() const;
    void paintPhoto(QPainter& painter);
    void paintResult(QPainter& painter);
    void paintCaption(QPainter& painter, const QRectF& area, const QString& text);

    AppState& state_;
    std::optional<InspectedPhoto> photo_;
    PhotoImages images_;
    PhotoLayer layer_;
    ResultPicture result_;
    PhotoLayer resultLayer_;
    CanvasGeometry geometry_;
    CanvasGeometry resultGeometry_;
    std::optional<Hold> hold_;
    bool showsResult_ = false;
    QString words_;
};

}  // namespace morva
