// SPDX-License-Identifier: GPL-3.0-or-later
// Fields of comma-separated text that survive commas, quotes, line breaks and being opened in a
// spreadsheet. Used by the reports.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace morva::Csv {

/// A text from outside, such as a file name, as it may stand in a cell: valid UTF-8, and with an
/// apostrophe before a first sign that would make it a formula (= + - @, tab or line break).
std::string cell(std::string_view text);

/// In double quotes, whatever it holds.
std::string quoted(std::string_view field);

/// Joined by commas; only fields that need it are quoted.
std::string line(std::span<const std::string> fields);

/// Joined by commas, every field quoted.
std::string quotedLine(std::span<const std::string> fields);

/// A number with that many decimals and a point, whatever the language of the system.
std::string number(double value, int decimals);

}  // namespace morva::Csv
