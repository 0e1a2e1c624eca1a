// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/badge.h"

#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

constexpr int padding = 5;

}  // namespace

QSize badgeSize(const CropPreset& preset) {
    if (preset.badge.empty()) return {};
    const QFontMetrics metrics(fontFor(TextRole::badge));
    return {metrics.horizontalAdvance(asGiven(preset.badge)) + 2 * padding,
            std::max(16, metrics.height() + 2)};
}

QColor badgeColor(const CropPreset& preset) {
    return readable(
        QColor::fromRgbF(static_cast<float>(preset.color[0]), static_cast<float>(preset.color[1]),
                         static_cast<float>(preset.color[2])),
        Theme::current().canvas);
}

void drawBadge(QPainter& painter, const CropPreset& preset, const QPoint& place) {
    const QSize size = badgeSize(preset);
    if (size.isEmpty()) return;
    const QRect rect(place, size);
    const QColor color = badgeColor(preset);
    drawBox(painter, rect, Theme::current().canvas, color, Metrics::badgeRadius);
    painter.setPen(color);
    painter.setFont(fontFor(TextRole::badge));
    painter.drawText(rect, Qt::AlignCenter, asGiven(preset.badge));
}

QPixmap badgePixmap(const CropPreset& preset, qreal scale) {
    const QSize size = badgeSize(preset);
    if (size.isEmpty()) return {};
    QPixmap pixmap(size * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawBadge(painter, preset, {0, 0});
    return pixmap;
}

}  // namespace morva
