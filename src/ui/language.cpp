// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/language.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

static void loadTranslations() { Q_INIT_RESOURCE(translations); }

namespace morva {

void installLanguage(QApplication& application, const QLocale& locale) {
    loadTranslations();
    const auto install = [&](const QLocale& wanted, const QString& file, const QString& folder) {
        auto* texts = new QTranslator(&application);
        if (texts->load(wanted, file, QStringLiteral("_"), folder)) {
            QApplication::installTranslator(texts);
            return true;
        }
        delete texts;
        return false;
    };
    const QString own = QStringLiteral(":/translations");
    if (!install(locale, QStringLiteral("morva"), own))
        install(QLocale(QLocale::English), QStringLiteral("morva"), own);
    install(locale, QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    QApplication::setLayoutDirection(locale.textDirection());
}

}  // namespace morva
