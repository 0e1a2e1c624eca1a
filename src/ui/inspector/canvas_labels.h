// SPDX-License-Identifier: GPL-3.0-or-later
// Words on the canvas: small boxes beside lines, and what is said in place of a crop.
#pragma once

#include <QPainter>

#include "ui/inspector/photo_words.h"

namespace morva {

/// A small box with words on the canvas; `icon` may be empty.
void drawLabel(QPainter& painter, const QRectF& box, const QString& text, const QColor& ink,
               const QString& icon = {}, const QColor& iconInk = {});
QSizeF labelSize(const QString& text, bool hasIcon = false);

/// Icon, title and sentence in the middle of `area`, or at its foot over a photo.
void drawExplanation(QPainter& painter, const QRectF& area, const Explanation& why, bool overPhoto);

}  // namespace morva
