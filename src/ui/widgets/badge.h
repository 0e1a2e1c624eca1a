// SPDX-License-Identifier: GPL-3.0-or-later
// The small tag of a preset, outlined in its colour.
#pragma once

#include <QIcon>
#include <QPainter>
#include <QSize>

#include "model/presets/crop_preset.h"

namespace morva {

/// Its size in logical pixels; empty for a preset without a badge.
QSize badgeSize(const CropPreset& preset);

/// With its top left corner at `place`.
void drawBadge(QPainter& painter, const CropPreset& preset, const QPoint& place);

/// For menus and combo boxes.
QPixmap badgePixmap(const CropPreset& preset, qreal scale);

/// The preset's colour, light enough to read on the canvas.
QColor badgeColor(const CropPreset& preset);

}  // namespace morva
