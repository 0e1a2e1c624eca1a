// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/words.h"

#include <QCoreApplication>
#include <QLocale>

namespace morva {

QString said(std::string_view engineText) {
    const std::string text(engineText);
    return QCoreApplication::translate("engine", text.c_str());
}

QString asGiven(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString pathText(const std::filesystem::path& path) { return asGiven(path.native()); }

QString percent(double share, int decimals) {
    return QCoreApplication::translate("words", "%1 %").arg(number(share * 100, decimals));
}

QString number(double value, int decimals) { return QLocale().toString(value, 'f', decimals); }

QString count(int number) { return QLocale().toString(number); }

}  // namespace morva
