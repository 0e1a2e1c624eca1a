// SPDX-License-Identifier: GPL-3.0-or-later
// JSON of the shared values, and the three ways a record reads a key: required, with a default,
// optional. Readers throw nlohmann::json::exception inside; `decoded` is where that ends.
#pragma once

#include <concepts>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <nlohmann/json.hpp>

#include "base/geometry.h"
#include "base/result.h"
#include "base/uuid.h"

namespace morva {

/// Keys keep the order in which they were written: the order is part of the file formats.
using Json = nlohmann::ordered_json;

void to_json(Json& json, const Point& point);  // [x, y]
void from_json(const Json& json, Point& point);
void to_json(Json& json, const Size& size);  // [width, height]
void from_json(const Json& json, Size& size);
void to_json(Json& json, const Rect& rect);  // [[x, y], [width, height]]
void from_json(const Json& json, Rect& rect);
void to_json(Json& json, const Uuid& id);
void from_json(const Json& json, Uuid& id);

/// A whole number from `least` to `most`; fractions, booleans and others throw (the library would
/// convert them, which nothing defines for numbers too large).
std::int64_t wholeNumber(const Json& json, std::int64_t least, std::int64_t most);
/// The same in an array; anything else throws.
std::vector<int> wholeNumbers(const Json& json);

/// The value of a required key; a missing key, a wrong type or a whole number that T cannot hold
/// throws.
template <class T>
T required(const Json& json, const char* key) {
    using Limits = std::numeric_limits<T>;
    if constexpr (std::signed_integral<T>)
        return static_cast<T>(wholeNumber(json.at(key), Limits::min(), Limits::max()));
    else if constexpr (std::is_same_v<T, std::vector<int>>)
        return wholeNumbers(json.at(key));
    else
        return json.at(key).template get<T>();
}

/// Writes `value` under `key` unless it is absent; absent optionals leave no key.
template <class T>
void putOptional(Json& json, const char* key, const std::optional<T>& value) {
    if (value) json[key] = *value;
}

/// Overwrites `value` when the key is there; a wrong type throws.
template <class T>
void readIfPresent(const Json& json, const char* key, T& value) {
    if (json.contains(key)) value = required<T>(json, key);
}

template <class T>
void readIfPresent(const Json& json, const char* key, std::optional<T>& value) {
    if (const auto found = json.find(key); found != json.end() && !found->is_null())
        value = required<T>(json, key);
}

/// A record as text. Bytes that are no UTF-8, from a label of a photo or a file's name, become
/// replacement characters: a record is never lost for them. `indent` below 0 writes one line.
std::string jsonText(const Json& json, int indent = -1);

/// Reads a record that is part of a file. `what` names the file or the record in the failure's
/// sentence.
template <class T>
Result<T> valueOf(const Json& json, const std::string& what) {
    try {
        return json.get<T>();
    } catch (const Json::exception& error) {
        return failure("Could not read " + what + ": " + error.what());
    }
}

/// A text in which anything may stand. A stranger's file can be nested deeper than the stack
/// reaches: what is parsed here is neither copied nor written again, for both go level by level.
Result<Json> parsedJson(std::string_view text, const std::string& what);

/// Reads a whole record.
template <class T>
Result<T> decoded(std::string_view text, const std::string& what) {
    return parsedJson(text, what).and_then([&](const Json& json) {
        return valueOf<T>(json, what);
    });
}

}  // namespace morva
