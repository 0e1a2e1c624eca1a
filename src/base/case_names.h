// SPDX-License-Identifier: GPL-3.0-or-later
// How an enumeration is written in files: a table of its cases and their texts, and the two ways
// through it. Every stored enumeration has one such table and no other spelling of its cases.
#pragma once

#include <string>
#include <string_view>

#include "base/json.h"

namespace morva {

/// The entry of `value` in a table whose entries have a field `value`; every case must be listed.
template <class Table, class Case>
constexpr const auto& entryOf(const Table& table, Case value) {
    for (const auto& entry : table)
        if (entry.value == value) return entry;
    return *table.begin();
}

/// The case that a stored text names; an unknown text throws, so that the record is refused.
/// `what` names the enumeration in the sentence. Entries have the fields `value` and `key`.
template <class Table>
auto caseNamed(const Table& table, const Json& json, const std::string& what) {
    const auto text = json.get<std::string>();
    for (const auto& entry : table)
        if (entry.key == text) return entry.value;
    throw Json::other_error::create(501, "\"" + text + "\" is not a " + what, &json);
}

}  // namespace morva
