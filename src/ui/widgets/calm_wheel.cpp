// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/calm_wheel.h"

#include <QEvent>
#include <QWidget>

namespace morva {

namespace {

class WheelFilter final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Wheel) return false;
        const auto* control = static_cast<QWidget*>(watched);
        if (control->hasFocus()) return false;
        event->ignore();
        return true;
    }
};

}  // namespace

void calmWheel(QWidget& control) {
    control.setFocusPolicy(Qt::StrongFocus);
    control.installEventFilter(new WheelFilter(&control));
}

}  // namespace morva
