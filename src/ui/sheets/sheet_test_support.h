// SPDX-License-Identifier: GPL-3.0-or-later
// A window with a field below its sheets, and pictures of it for those who want to look.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPixmap>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>

#include "app/state_test_support.h"
#include "ui/sheets/sheet_set.h"
#include "ui/widgets/sheet.h"

namespace morva {

/// Writes what `window` shows where MORVA_SHOTS names a folder.
inline void shoot(QWidget& window, const QString& name) {
    const QString folder = qEnvironmentVariable("MORVA_SHOTS");
    if (folder.isEmpty()) return;
    QTest::qWait(30);
    window.grab().save(folder + "/" + name + ".png");
}

class SheetTest : public StateTest {
protected:
    SheetTest() {
        window.resize(1440, 900);
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&field);
        window.show();
        window.activateWindow();
        field.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    Sheet* top() const { return Sheet::openIn(&window); }
    QWidget* focused() const { return window.focusWidget(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    /// The control of that class whose accessible name or text begins with `name`.
    template <class Control>
    Control* find(const QString& name) const {
        for (Control* control : window.findChildren<Control*>())
            if (control->isVisible() && textOf(control).startsWith(name)) return control;
        return nullptr;
    }
    /// Tab until `wanted` has the focus; false when it never gets it.
    bool tabTo(const QWidget* wanted) {
        for (int i = 0; i < 200 && QApplication::focusWidget() != wanted; ++i) press(Qt::Key_Tab);
        return QApplication::focusWidget() == wanted;
    }

    QWidget window;
    QLineEdit field;

private:
    static QString textOf(const QWidget* control) {
        const QString text = control->property("text").toString();
        return control->accessibleName().isEmpty() ? text : control->accessibleName();
    }
};

}  // namespace morva
