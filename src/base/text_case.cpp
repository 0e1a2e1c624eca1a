// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text_case.h"

#include <QString>

namespace morva {

namespace {

QString qtText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return qtText(a).compare(qtText(b), Qt::CaseInsensitive) == 0;
}

std::string withCapitalWords(std::string_view text) {
    QString capital = qtText(text);
    bool begins = true;
    for (QChar& letter : capital) {
        if (begins) letter = letter.toUpper();
        begins = letter.isSpace();
    }
    return capital.toStdString();
}

}  // namespace morva
