// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid/cell_picture.h"

#include <algorithm>
#include <cmath>

#include <QPainterPath>
#include <QTransform>

#include "base/leveling.h"

namespace morva {

namespace {

/// Rounding of rectangles is no reason to fetch a photo.
constexpr double slack = 0.5;

Point centerOf(const PhotoFrame& frame) {
    return {frame.source.width / 2, frame.source.height / 2};
}

/// From full pixels of the photo to the target that shows `frame`.
QTransform photoTo(const PhotoFrame& frame, const QRectF& target) {
    const Point center = centerOf(frame);
    QTransform map;
    map.translate(target.x(), target.y());
    map.scale(target.width() / frame.rect.width, target.height() / frame.rect.height);
    map.translate(center.x - frame.rect.x, center.y - frame.rect.y);
    map.rotate(-frame.rotation);
    map.translate(-center.x, -center.y);
    return map;
}

QPainterPath photoIn(const PhotoFrame& frame, const QRectF& target) {
    QPainterPath path;
    path.addPolygon(photoTo(frame, target)
                        .map(QPolygonF(QRectF(0, 0, frame.source.width, frame.source.height))));
    path.closeSubpath();
    return path;
}

void drawStandIn(QPainter& painter, const FramedPixmap& standIn, const QTransform& fromPhoto) {
    if (standIn.pixmap.isNull()) return;
    const QSizeF size(standIn.pixmap.width(), standIn.pixmap.height());
    painter.setTransform(photoTo(standIn.frame, QRectF({}, size)).inverted() * fromPhoto, true);
    painter.drawPixmap(QRectF({}, size), standIn.pixmap, QRectF({}, size));
}

/// The other pictures of the photo, each where it belongs in the frame, and nothing made up.
void drawStandIns(QPainter& painter, const QRectF& target, const CellPicture& picture,
                  const QColor& empty) {
    const QPainterPath photo = photoIn(*picture.frame, target);
    const QTransform fromPhoto = photoTo(*picture.frame, target);
    painter.save();
    painter.setClipRect(target, Qt::IntersectClip);
    painter.fillRect(target, picture.fill.isValid() ? picture.fill : empty);
    if (picture.fill.isValid()) painter.fillPath(photo, empty);
    if (!photo.contains(target)) painter.setClipPath(photo, Qt::IntersectClip);
    for (const FramedPixmap* standIn : {&picture.whole, &picture.before}) {
        painter.save();
        drawStandIn(painter, *standIn, fromPhoto);
        painter.restore();
    }
    painter.restore();
}

}  // namespace

bool PhotoFrame::covers(const PhotoFrame& other) const {
    const Point center = centerOf(*this);
    for (const Point corner : other.rect.corners()) {
        // A corner beyond the photo shows nothing; its nearest point on the photo stands for it.
        const Point onPhoto = Leveling::unlevel(corner, center, other.rotation);
        const Point nearest{std::clamp(onPhoto.x, 0.0, source.width),
                            std::clamp(onPhoto.y, 0.0, source.height)};
        const Point here = Leveling::level(nearest, center, rotation);
        if (here.x < rect.x - slack || here.x > rect.maxX() + slack || here.y < rect.y - slack ||
            here.y > rect.maxY() + slack)
            return false;
    }
    return true;
}

QSizeF CellPicture::shape() const {
    if (frame) return {frame->rect.width, frame->rect.height};
    return exact.size();
}

QRectF fitted(const QSizeF& shape, const QRect& slot, qreal scale) {
    if (shape.isEmpty()) return slot;
    const QSizeF room = QSizeF(slot.size()) * scale;
    const double factor = std::min(room.width() / shape.width(), room.height() / shape.height());
    const auto pixels = [&](double length, double most) {
        return std::clamp(std::round(length * factor), 1.0, std::max(1.0, std::round(most)));
    };
    const QSizeF size(pixels(shape.width(), room.width()), pixels(shape.height(), room.height()));
    const QPointF offset(std::floor((room.width() - size.width()) / 2),
                         std::floor((room.height() - size.height()) / 2));
    return {QPointF(slot.topLeft()) + offset / scale, size / scale};
}

void drawPicture(QPainter& painter, const QRectF& target, const CellPicture& picture,
                 const QBrush& missing, const QColor& empty) {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (!picture.exact.isNull())
        painter.drawPixmap(target, picture.exact, QRectF(picture.exact.rect()));
    else if (picture.frame)
        drawStandIns(painter, target, picture, empty);
    else
        painter.fillRect(target, empty);
    if (!picture.frame || !picture.lacksCanvas) return;
    QPainterPath outside;
    outside.addRect(target);
    outside -= photoIn(*picture.frame, target);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrushOrigin(target.topLeft());
    painter.fillPath(outside, missing);
    painter.restore();
}

}  // namespace morva
