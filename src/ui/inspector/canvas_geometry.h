// SPDX-License-Identifier: GPL-3.0-or-later
// Where things lie on the inspector's canvas: the photo turned so that its frame is upright, scaled
// and moved by fit, zoom and pan. Pure numbers, used by the canvas for painting and for the
// pointer; changes neither photo nor crop.
#pragma once

#include <optional>

#include <QPointF>
#include <QRectF>
#include <QTransform>

#include "base/geometry.h"

namespace morva {

/// What is shown, in source pixels.
struct CropOnPhoto {
    Size photo;
    /// In the photo levelled by `rotation`; absent where there is no crop.
    std::optional<Rect> frame = {};
    double rotation = 0;  // degrees

    bool operator==(const CropOnPhoto&) const = default;
};

/// What the pointer can take hold of.
enum class CanvasPart { outside, inside, topLeft, topRight, bottomRight, bottomLeft, turn };

bool isCorner(CanvasPart part);

class CanvasGeometry {
public:
    // Lengths on the canvas in logical pixels.
    static constexpr double margin = 24;
    static constexpr double hitRadius = 16;
    static constexpr double turnRadius = 12;
    /// Of the turn handle's centre from the frame.
    static constexpr double turnDistance = 37;

    /// The part of the canvas to use, and how much of it labels need on one side of the frame; on
    /// the other the turn handle stands. `mirrored`: labels left, as text runs.
    struct Place {
        QRectF area;
        double labels = 0;
        bool mirrored = false;

        bool operator==(const Place&) const = default;
    };
    /// What was fitted is fitted again; what was in the middle stays there.
    void setPlace(const Place& place);
    const Place& place() const { return place_; }

    /// Another photo, whole.
    void show(const CropOnPhoto& shown);
    /// The same photo with another frame: the photo stays where it is, and when it is turned the
    /// frame's middle does.
    void follow(const CropOnPhoto& shown);
    /// Fits again when a fitted frame has left the area meanwhile.
    void keepInSight();
    const CropOnPhoto& shown() const { return shown_; }

    /// A part of the photo alone, as large as the area allows.
    void showPart(const CropOnPhoto& shown, const Rect& level);

    void fit();
    bool isFitted() const { return isFitted_; }
    /// Logical pixels per source pixel.
    double scale() const { return scale_; }
    /// Not further out than the whole and not closer than `closest` (logical pixels per source
    /// pixel), or four times the whole where that is closer.
    void zoom(double by, QPointF around, double closest);
    /// Never so far that nothing is left in the middle.
    void pan(QPointF by);

    QPointF toCanvas(Point level) const;
    Point toLevel(QPointF canvas) const;
    QPointF photoToCanvas(Point photo) const;
    /// From source pixels of the upright photo.
    QTransform photoTransform() const;
    /// Empty without a frame.
    QRectF frame() const;
    QRectF toCanvas(const Rect& level) const;

    /// Centre of the handle for turning, `turnedBy` degrees clockwise along its way around the
    /// frame's middle; always in the area.
    QPointF turnHandle(double turnedBy = 0) const;
    CanvasPart partAt(QPointF canvas) const;

private:
    Rect content() const;
    double fittingScale() const;
    void keepInMiddle();

    Place place_;
    CropOnPhoto shown_;
    /// canvas = offset + level * scale
    QPointF offset_;
    double scale_ = 1;
    bool isFitted_ = true;
};

}  // namespace morva
