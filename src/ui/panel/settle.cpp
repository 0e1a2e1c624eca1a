// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/settle.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLayout>
#include <QScrollArea>

namespace morva {

namespace {

void settle(QWidget& content) {
    for (QObject* child : content.children())
        if (auto* widget = qobject_cast<QWidget*>(child); widget && !widget->isHidden())
            settle(*widget);
    if (!content.layout()) return;
    content.layout()->invalidate();
    content.layout()->activate();
}

}  // namespace

void settleLayouts(QScrollArea& area) {
    settle(*area.widget());
    // The area gives its content the height that it has now.
    QEvent request(QEvent::LayoutRequest);
    QCoreApplication::sendEvent(&area, &request);
}

}  // namespace morva
