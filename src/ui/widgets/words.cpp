// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/words.h"

#include <optional>
#include <vector>

#include <QCoreApplication>
#include <QLocale>
#include <QRegularExpression>

#include "ui/widgets/engine_texts.h"

namespace morva {

namespace {

/// Of a text without changing parts; nothing where the language does not know it.
std::optional<QString> translatedWhole(const QString& text) {
    const QString translated = QCoreApplication::translate("engine", text.toUtf8().constData());
    return translated == text ? std::nullopt : std::optional(translated);
}

struct Pattern {
    QRegularExpression matches;
    const char* text;
};

std::vector<Pattern> makePatterns() {
    static const QRegularExpression place(QStringLiteral("%[1-9]"));
    std::vector<Pattern> patterns;
    for (const char* text : engineTexts()) {
        const QStringList fixed = QString::fromUtf8(text).split(place);
        if (fixed.size() < 2) continue;
        QStringList quoted;
        for (const QString& part : fixed) quoted.push_back(QRegularExpression::escape(part));
        patterns.push_back({QRegularExpression(QRegularExpression::anchoredPattern(
                                                   quoted.join(QLatin1String("(.+?)"))),
                                               QRegularExpression::DotMatchesEverythingOption),
                            text});
    }
    return patterns;
}

std::optional<QString> translatedByPattern(const QString& text) {
    static const std::vector<Pattern> patterns = makePatterns();
    for (const Pattern& pattern : patterns) {
        const QRegularExpressionMatch match = pattern.matches.match(text);
        if (!match.hasMatch()) continue;
        QString translated = QCoreApplication::translate("engine", pattern.text);
        if (translated == QString::fromUtf8(pattern.text)) return std::nullopt;
        // All places at once: what is filled in may itself hold a percent sign and a digit.
        const auto part = [&](int number) { return said(match.captured(number).toStdString()); };
        switch (match.lastCapturedIndex()) {
            case 1:
                return translated.arg(part(1));
            case 2:
                return translated.arg(part(1), part(2));
            default:
                return translated.arg(part(1), part(2), part(3));
        }
    }
    return std::nullopt;
}

}  // namespace

QString said(std::string_view engineText) {
    const QString text = asGiven(engineText);
    if (const auto known = translatedWhole(text)) return *known;
    if (text.contains(QLatin1Char('\n'))) {
        QStringList lines;
        for (const QString& line : text.split(QLatin1Char('\n')))
            lines.push_back(said(line.toStdString()));
        return lines.join(QLatin1Char('\n'));
    }
    return translatedByPattern(text).value_or(text);
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
