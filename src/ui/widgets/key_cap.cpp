// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/key_cap.h"

#include <algorithm>

#include "ui/widgets/morva_style.h"
#include "ui/widgets/typography.h"

namespace morva {

QSize keyCapSize(const QString& caps) {
    const QFontMetrics metrics(fontFor(TextRole::badge));
    const int height = std::max(18, metrics.height() + 4);
    return {std::max(height, metrics.horizontalAdvance(caps) + 10), height};
}

void drawKeyCap(QPainter& painter, const QString& caps, const QPoint& place, const QColor& ink) {
    const QRect rect(place, keyCapSize(caps));
    drawBox(painter, rect, QColor(), ink, Metrics::badgeRadius);
    painter.setPen(ink);
    painter.setFont(fontFor(TextRole::badge));
    painter.drawText(rect, Qt::AlignCenter, caps);
}

}  // namespace morva
