// SPDX-License-Identifier: GPL-3.0-or-later
// What there is to draw of one photo's crop: the thumbnail as it shall be, or, until that is made,
// others of the same photo laid where they belong. Drawn by the cells of the grid and the
// filmstrip.
#pragma once

#include <optional>

#include <QColor>
#include <QPainter>
#include <QPixmap>

#include "base/geometry.h"

namespace morva {

/// A part of a photo: a rectangle of the photo turned about its centre, in its full pixels.
struct PhotoFrame {
    Rect rect;
    /// Degrees, as in `Leveling`.
    double rotation = 0;
    Size source;

    /// The whole photo.
    static PhotoFrame whole(Size source) {
        return {{0, 0, source.width, source.height}, 0, source};
    }
    /// What of `other` lies on the photo lies in this too.
    bool covers(const PhotoFrame& other) const;

    bool operator==(const PhotoFrame&) const = default;
};

/// A picture of a part of a photo.
struct FramedPixmap {
    QPixmap pixmap = {};
    PhotoFrame frame = {};
};

struct CellPicture {
    /// What the cell shall show; absent for the whole of a photo that was not measured.
    std::optional<PhotoFrame> frame = {};
    /// The colour outside the photo; invalid where there is none.
    QColor fill = {};
    /// Canvas is missing that nothing may fill.
    bool lacksCanvas = false;
    /// Just that; null while it is being made.
    QPixmap exact = {};
    /// The same photo cropped as before, and all of it; null when there is none.
    FramedPixmap before = {};
    FramedPixmap whole = {};
    /// The photo cannot be read.
    bool isUnreadable = false;

    bool isEmpty() const {
        return exact.isNull() && before.pixmap.isNull() && whole.pixmap.isNull();
    }
    /// Width by height; only its proportions count.
    QSizeF shape() const;
};

/// The largest rectangle of a shape in the middle of a slot, on whole pixels of the device.
QRectF fitted(const QSizeF& shape, const QRect& slot, qreal scale);

/// Fills `target`, which has the picture's shape. `missing` is laid over canvas that is missing,
/// `empty` where nothing is known yet.
void drawPicture(QPainter& painter, const QRectF& target, const CellPicture& picture,
                 const QBrush& missing, const QColor& empty);

}  // namespace morva
