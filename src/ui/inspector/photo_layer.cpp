// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/photo_layer.h"

#include <cmath>

namespace morva {

namespace {

/// Device pixels per source pixel.
double scaleOf(const QTransform& transform, qreal scale) {
    return std::sqrt(std::abs(transform.determinant())) * scale;
}

/// Each pixel the mean of four.
QImage halved(const QImage& image) {
    return image.scaled((image.width() + 1) / 2, (image.height() + 1) / 2, Qt::IgnoreAspectRatio,
                        Qt::SmoothTransformation);
}

}  // namespace

void PhotoLayer::setImage(const QImage& image) {
    reduced_.clear();
    if (!image.isNull()) reduced_.push_back(image);
    drawn_ = {};
}

const QImage& PhotoLayer::imageFor(double share) {
    std::size_t level = 0;
    // Reducing by more than two in one step would lose lines between the pixels looked at.
    while (share * std::exp2(level + 1) <= 1) {
        if (++level == reduced_.size()) reduced_.push_back(halved(reduced_.back()));
    }
    return reduced_[level];
}

QPixmap PhotoLayer::drawn(const QTransform& photoToCanvas, Size size, const QRectF& area,
                          qreal scale) {
    QPixmap pixmap((area.size() * scale).toSize());
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.translate(-area.topLeft());
    painter.setTransform(photoToCanvas, true);
    const double share = scaleOf(photoToCanvas, scale) * size.width / reduced_.front().width();
    painter.drawImage(QRectF(0, 0, size.width, size.height), imageFor(share));
    return pixmap;
}

void PhotoLayer::draw(QPainter& painter, const QTransform& photoToCanvas, Size size,
                      const QRectF& area, const QRectF& part) {
    if (isEmpty() || part.isEmpty()) return;
    const qreal scale = painter.device()->devicePixelRatioF();
    const QRectF whole = area.toAlignedRect();
    if (drawn_.isNull() || drawnFor_ != photoToCanvas || drawnIn_ != whole ||
        drawn_.devicePixelRatio() != scale) {
        drawn_ = drawn(photoToCanvas, size, whole, scale);
        drawnFor_ = photoToCanvas;
        drawnIn_ = whole;
    }
    const QPointF from = (part.topLeft() - whole.topLeft()) * scale;
    painter.drawPixmap(part, drawn_, QRectF(from, part.size() * scale));
}

void PhotoLayer::drawRepeatedEdges(QPainter& painter, const QTransform& photoToCanvas, Size size,
                                   const QRectF& area) const {
    if (isEmpty()) return;
    const QImage& image = reduced_.front();
    const double reach = (area.width() + area.height()) / scaleOf(photoToCanvas, 1);
    const double columns = image.width();
    const double rows = image.height();
    // Half a pixel below the photo, so that no seam shows at its softened edge.
    const double under = size.width / columns;
    struct Band {
        QRectF to, from;
    };
    const QRectF left(-reach, 0, reach + under, size.height);
    const QRectF right(size.width - under, 0, reach + under, size.height);
    const QRectF above(0, -reach, size.width, reach + under);
    const QRectF below(0, size.height - under, size.width, reach + under);
    painter.save();
    painter.setClipRect(area, Qt::IntersectClip);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setTransform(photoToCanvas, true);
    for (const auto& [x, column] : {std::pair{left, 0.0}, std::pair{right, columns - 1}}) {
        for (const auto& [y, row] : {std::pair{above, 0.0}, std::pair{below, rows - 1}})
            painter.fillRect(QRectF(x.x(), y.y(), x.width(), y.height()),
                             image.pixelColor(static_cast<int>(column), static_cast<int>(row)));
    }
    for (const Band& band :
         {Band{left, {0, 0, 1, rows}}, Band{right, {columns - 1, 0, 1, rows}},
          Band{above, {0, 0, columns, 1}}, Band{below, {0, rows - 1, columns, 1}}})
        painter.drawImage(band.to, image, band.from);
    painter.restore();
}

}  // namespace morva
