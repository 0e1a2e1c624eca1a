// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop_contrast.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace morva {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settings = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString contrastKey = QStringLiteral("contrast");

/// The portal's number for "higher contrast"; 0 is "no preference".
constexpr uint higher = 1;

}  // namespace

DesktopContrast::DesktopContrast(QDBusConnection bus) {
    if (!bus.isConnected()) return;
    // Before it is known, the signal's connection is refused.
    qRegisterMetaType<QDBusVariant>();
    bus.connect(service, path, settings, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question =
        QDBusMessage::createMethodCall(service, path, settings, QStringLiteral("Read"));
    question << appearance << contrastKey;
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        // Older portals do not know the key.
        if (reply.isValid()) tell(reply.value().variant());
        answer->deleteLater();
    });
}

void DesktopContrast::settingChanged(const QString& group, const QString& key,
                                     const QDBusVariant& value) {
    if (group == appearance && key == contrastKey) tell(value.variant());
}

void DesktopContrast::tell(QVariant value) {
    // Read wraps its answer twice.
    if (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    emit told(value.toUInt() == higher ? Contrast::high : Contrast::ordinary);
}

}  // namespace morva
