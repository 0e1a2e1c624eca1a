// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop_contrast.h"

#include <gtest/gtest.h>

#include <QDBusMessage>
#include <QProcess>
#include <QSignalSpy>

namespace morva {
namespace {

/// A desktop that answers as a settings portal does.
class Portal final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    uint contrast = 0;

public slots:
    QDBusVariant Read(const QString& group, const QString& key) const {
        const bool isAsked = group == "org.freedesktop.appearance" && key == "contrast";
        return QDBusVariant(QVariant::fromValue(QDBusVariant(isAsked ? contrast : 7U)));
    }
};

/// A bus of the test's own.
class ContrastOfTheDesktop : public testing::Test {
protected:
    void SetUp() override {
        daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        ASSERT_TRUE(daemon.waitForStarted() && daemon.waitForReadyRead()) << "no dbus-daemon";
        address = QString::fromUtf8(daemon.readAllStandardOutput()).trimmed();
    }
    void TearDown() override {
        for (const char* name : {"asking", "answering"}) QDBusConnection::disconnectFromBus(name);
        daemon.kill();
        daemon.waitForFinished();
    }
    QDBusConnection bus(const char* name) const {
        return QDBusConnection::connectToBus(address, name);
    }

    QProcess daemon;
    QString address;
};

Contrast last(const QSignalSpy& spy) { return spy.back().front().value<Contrast>(); }

TEST_F(ContrastOfTheDesktop, isReadAtTheStartAndFollowed) {
    Portal portal;
    portal.contrast = 1;
    QDBusConnection answering = bus("answering");
    ASSERT_TRUE(answering.registerObject("/org/freedesktop/portal/desktop", &portal,
                                         QDBusConnection::ExportAllSlots));
    ASSERT_TRUE(answering.registerService("org.freedesktop.portal.Desktop"));

    const DesktopContrast desktop(bus("asking"));
    QSignalSpy told(&desktop, &DesktopContrast::told);
    ASSERT_TRUE(told.wait());
    EXPECT_EQ(last(told), Contrast::high);

    const auto change = [&](const char* key, uint value) {
        auto news = QDBusMessage::createSignal("/org/freedesktop/portal/desktop",
                                               "org.freedesktop.portal.Settings", "SettingChanged");
        news << "org.freedesktop.appearance" << key << QVariant::fromValue(QDBusVariant(value));
        ASSERT_TRUE(answering.send(news));
    };
    change("color-scheme", 1);
    change("contrast", 0);
    ASSERT_TRUE(told.wait());
    EXPECT_EQ(told.count(), 2) << "the colour scheme is none of its business";
    EXPECT_EQ(last(told), Contrast::ordinary);
}

TEST_F(ContrastOfTheDesktop, nobodyToAskIsNoReasonToSayAnything) {
    const DesktopContrast withoutPortal(bus("asking"));
    const DesktopContrast withoutBus(QDBusConnection("nowhere"));
    QSignalSpy told(&withoutPortal, &DesktopContrast::told);
    EXPECT_FALSE(told.wait(200));
}

}  // namespace
}  // namespace morva

#include "desktop_contrast_window_test.moc"
