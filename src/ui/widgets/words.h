// SPDX-License-Identifier: GPL-3.0-or-later
// Texts of the engine as the window shows them: labels, reasons, notes, alerts are formed in the
// engine in English and translated here.
#pragma once

#include <filesystem>
#include <string_view>

#include <QString>

namespace morva {

/// A text that the engine formed, in the user's language where the translation knows it. Texts
/// with names and numbers in them are known by their pattern.
QString said(std::string_view engineText);

/// A name that a person or a file system gave; never translated. Bytes that are not UTF-8 show as
/// replacement characters.
QString asGiven(std::string_view text);
QString pathText(const std::filesystem::path& path);

/// "33.0 %" as the user's language writes it. `share` 0.33 for 33 %.
QString percent(double share, int decimals = 0);
/// With the language's decimal sign.
QString number(double value, int decimals = 0);
/// "12,345".
QString count(int number);

}  // namespace morva
