// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/natural_order.h"

#include <algorithm>

#include <QCollator>
#include <QFile>
#include <QLocale>

namespace morva {

void sortNaturally(std::vector<std::filesystem::path>& paths) {
    // The C locale compares bytes and cannot compare numbers by value; English stands in for it.
    const QLocale locale =
        QLocale::system().language() == QLocale::C ? QLocale(QLocale::English) : QLocale::system();
    QCollator collator(locale);
    collator.setNumericMode(true);
    std::ranges::sort(paths, [&](const auto& a, const auto& b) {
        const int order =
            collator.compare(QFile::decodeName(a.c_str()), QFile::decodeName(b.c_str()));
        return order != 0 ? order < 0 : a < b;
    });
}

}  // namespace morva
