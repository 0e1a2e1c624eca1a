// SPDX-License-Identifier: GPL-3.0-or-later
// What tests of the window share.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QWidget>

namespace morva {

/// On screen and with the keyboard, also where no window manager gives it.
inline void bringUp(QWidget& window) {
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QApplication::setActiveWindow(&window);
    ASSERT_TRUE(window.isActiveWindow());
}

/// Into the widget that has the focus.
inline void pressKey(QWidget& window, Qt::Key key, Qt::KeyboardModifiers held = {}) {
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus ? focus : &window, key, held);
}

}  // namespace morva
