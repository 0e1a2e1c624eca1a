// SPDX-License-Identifier: GPL-3.0-or-later
// The photo on the canvas, scaled and turned: drawn once for each place it takes and remembered, so
// that moving the frame paints no photo anew. Owned by the canvas, used on the main thread only.
#pragma once

#include <vector>

#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QTransform>

#include "base/geometry.h"

namespace morva {

class PhotoLayer {
public:
    /// The whole photo, reduced; null for none.
    void setImage(const QImage& image);
    bool isEmpty() const { return reduced_.empty(); }

    /// Draws the photo of `size` source pixels within `part`; nothing without an image. What lies
    /// in `area`, which holds the part, is remembered.
    void draw(QPainter& painter, const QTransform& photoToCanvas, Size size, const QRectF& area,
              const QRectF& part);
    /// Repeats the border of the photo outward within `area`.
    void drawRepeatedEdges(QPainter& painter, const QTransform& photoToCanvas, Size size,
                           const QRectF& area) const;

private:
    /// The smallest of the reduced images that still has the `share` of the first one's pixels.
    const QImage& imageFor(double share);
    QPixmap drawn(const QTransform& photoToCanvas, Size size, const QRectF& area, qreal scale);

    /// The image, half of it, a quarter, as far as asked for.
    std::vector<QImage> reduced_;
    QPixmap drawn_;
    QTransform drawnFor_;
    QRectF drawnIn_;
};

}  // namespace morva
