// SPDX-License-Identifier: GPL-3.0-or-later
// Letters in either case, in every script, for texts in UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace morva {

bool equalIgnoringCase(std::string_view a, std::string_view b);

/// "reading a book" as "Reading A Book"; only the first letter of a word changes.
std::string withCapitalWords(std::string_view text);

}  // namespace morva
