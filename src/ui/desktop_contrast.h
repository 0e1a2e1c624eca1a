// SPDX-License-Identifier: GPL-3.0-or-later
// Whether the desktop asks programs for high contrast, by its settings portal on the session bus
// (org.freedesktop.appearance, contrast). Made once by the program; silent where there is no bus or
// no portal.
#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

#include "ui/widgets/theme.h"

namespace morva {

class DesktopContrast final : public QObject {
    Q_OBJECT

public:
    explicit DesktopContrast(QDBusConnection bus = QDBusConnection::sessionBus());

signals:
    /// What the desktop asks for: once soon after the start, and at every change.
    void told(Contrast contrast);

private slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void tell(QVariant value);
};

}  // namespace morva
