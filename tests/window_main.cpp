// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the tests of the window in an application that looks like the real one.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLocale>

#include "ui/language.h"
#include "ui/widgets/theme.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Morva tests"));
    morva::installLanguage(application, QLocale(QLocale::English));
    morva::applyTheme(application, morva::Contrast::ordinary);
    return RUN_ALL_TESTS();
}
