// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the layers of the inspector's canvas. Lines keep their width at every zoom and lie on whole
// pixels of the device. Made for one paint by the canvas; keeps nothing.
#pragma once

#include <QPainter>

#include "ui/inspector/canvas_geometry.h"
#include "ui/inspector/inspected_photo.h"
#include "ui/inspector/photo_layer.h"

namespace morva {

class CanvasPainter {
public:
    CanvasPainter(QPainter& painter, const CanvasGeometry& geometry, const InspectedPhoto& photo);

    /// What stands for canvas that the photo lacks, then the photo, dimmed around the frame; before
    /// it has come, what the grid shows of it (null for a plain slot).
    void drawPhoto(PhotoLayer& layer, const QImage& thumbnail);
    void drawGuides();
    /// `turnedBy`: how far the turn handle was pulled, in degrees clockwise.
    void drawFrame(double turnedBy);
    /// Names and values of the guides, beside the frame.
    void drawGuideLabels();
    void drawMissing();
    /// "2.5°" at the turn handle.
    void drawTurn(double turnedBy);

    /// The finished crop as far as the photo alone tells it, or `picture` where it is made.
    void drawResult(PhotoLayer& layer, const QImage& picture);

    /// Room that labels need beside the frame.
    static double labelRoom();

private:
    void drawSlot(const QImage& thumbnail);
    void drawFilling(const PhotoLayer& layer);
    void hatch(const QRectF& rect);
    void line(double y);
    /// Where the words about a part beyond the photo stand.
    QRectF missingLabel(const QPolygonF& part, QSizeF size) const;
    double onPixel(double at) const;
    QRectF onPixels(const QRectF& rect) const;

    QPainter& painter_;
    const CanvasGeometry& geometry_;
    const InspectedPhoto& photo_;
    QRectF frame_;
};

}  // namespace morva
