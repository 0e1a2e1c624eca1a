// SPDX-License-Identifier: GPL-3.0-or-later
// A key as a person sees it on the keyboard, in an outlined cap.
#pragma once

#include <QColor>
#include <QPainter>
#include <QString>

namespace morva {

QSize keyCapSize(const QString& caps);
/// `ink`: colour of outline and text.
void drawKeyCap(QPainter& painter, const QString& caps, const QPoint& place, const QColor& ink);

}  // namespace morva
