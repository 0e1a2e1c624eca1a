// SPDX-License-Identifier: GPL-3.0-or-later
// What every target for a JSON format asks of it: whatever was read can be saved, and comes back
// as the same value.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/json.h"

namespace morva {

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// Ends the program unless `text`, saved from `value`, is read as `value`.
template <class T>
void expectReadAs(const T& value, const std::string& text) {
    const Result<T> again = decoded<T>(text, "what was saved");
    if (!again || !(*again == value)) std::abort();
}

template <class T>
void expectRoundTrip(const T& value) {
    expectReadAs(value, jsonText(Json(value)));
}

}  // namespace morva
