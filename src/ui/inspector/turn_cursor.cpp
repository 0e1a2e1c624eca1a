// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/turn_cursor.h"

#include <cmath>

#include <QPainter>
#include <QPixmap>

#include "ui/widgets/icons.h"

namespace morva {

QCursor turnCursor(qreal scale) {
    constexpr int side = 24;
    constexpr int iconSide = 20;
    const QString name = QStringLiteral("turn");
    QPixmap pixmap(static_cast<int>(std::lround(side * scale)),
                   static_cast<int>(std::lround(side * scale)));
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    const QPixmap dark = iconPixmap(name, Qt::black, iconSide, scale);
    const QPointF middle((side - iconSide) / 2.0, (side - iconSide) / 2.0);
    // A black edge around the white drawing, to be seen on any photo.
    for (const QPointF away : {QPointF(-1, 0), QPointF(1, 0), QPointF(0, -1), QPointF(0, 1)})
        painter.drawPixmap(middle + away, dark);
    painter.drawPixmap(middle, iconPixmap(name, Qt::white, iconSide, scale));
    painter.end();
    return QCursor(pixmap, side / 2, side / 2);
}

}  // namespace morva
