// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/icon_label.h"

#include <QPainter>

#include "ui/widgets/icons.h"

namespace morva {

IconLabel::IconLabel(const QString& icon, QColor Theme::*ink, int side, QWidget* parent)
    : QWidget(parent), icon_(icon), ink_(ink), side_(side) {
    setFixedSize(side, side);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void IconLabel::setLook(const QString& icon, QColor Theme::*ink) {
    icon_ = icon;
    ink_ = ink;
    update();
}

void IconLabel::paintEvent(QPaintEvent*) {
    if (icon_.isEmpty()) return;
    QPainter painter(this);
    painter.drawPixmap(0, 0, iconPixmap(icon_, Theme::current().*ink_, side_, devicePixelRatioF()));
}

}  // namespace morva
