// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/canvas_accessible.h"

#include "ui/inspector/photo_canvas.h"

namespace morva {

CanvasAccessible::CanvasAccessible(PhotoCanvas* canvas)
    : QAccessibleWidget(canvas, QAccessible::Graphic) {}

void CanvasAccessible::install() {
    static const bool done = [] {
        QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
            auto* canvas = qobject_cast<PhotoCanvas*>(object);
            return canvas ? new CanvasAccessible(canvas) : nullptr;
        });
        return true;
    }();
    Q_UNUSED(done);
}

QString CanvasAccessible::text(QAccessible::Text kind) const {
    // Screen readers read a picture's description and ask few things for a value that is no number.
    if (kind == QAccessible::Value || kind == QAccessible::Description)
        return static_cast<PhotoCanvas*>(widget())->words();
    return QAccessibleWidget::text(kind);
}

}  // namespace morva
