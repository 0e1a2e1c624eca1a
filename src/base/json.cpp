// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/json.h"

#include <cstdint>

namespace morva {

namespace {

/// Exactly two elements, as the formats give every pair.
const Json& pairOf(const Json& json) {
    if (!json.is_array() || json.size() != 2)
        throw Json::type_error::create(302, "a pair is expected", &json);
    return json;
}

}  // namespace

void to_json(Json& json, const Point& point) { json = Json::array({point.x, point.y}); }

void from_json(const Json& json, Point& point) {
    point = {pairOf(json)[0].get<double>(), json[1].get<double>()};
}

void to_json(Json& json, const Size& size) { json = Json::array({size.width, size.height}); }

void from_json(const Json& json, Size& size) {
    size = {pairOf(json)[0].get<double>(), json[1].get<double>()};
}

void to_json(Json& json, const Rect& rect) {
    json = Json::array({Point{rect.x, rect.y}, Size{rect.width, rect.height}});
}

void from_json(const Json& json, Rect& rect) {
    const auto origin = pairOf(json)[0].get<Point>();
    const auto size = json[1].get<Size>();
    rect = {origin.x, origin.y, size.width, size.height};
}

void to_json(Json& json, const Uuid& id) { json = id.text(); }

void from_json(const Json& json, Uuid& id) {
    const auto parsed = Uuid::parse(json.get<std::string>());
    if (!parsed) throw Json::type_error::create(302, "an identity is expected", &json);
    id = *parsed;
}

std::int64_t wholeNumber(const Json& json, std::int64_t least, std::int64_t most) {
    const auto outside = [&] {
        return Json::type_error::create(302, "a whole number is expected", &json);
    };
    if (!json.is_number_integer()) throw outside();
    if (json.is_number_unsigned() && json.get<std::uint64_t>() > INT64_MAX) throw outside();
    const auto value = json.get<std::int64_t>();
    if (value < least || value > most) throw outside();
    return value;
}

std::vector<int> wholeNumbers(const Json& json) {
    if (!json.is_array()) throw Json::type_error::create(302, "an array is expected", &json);
    std::vector<int> numbers;
    numbers.reserve(json.size());
    for (const Json& number : json)
        numbers.push_back(static_cast<int>(wholeNumber(number, INT32_MIN, INT32_MAX)));
    return numbers;
}

Result<Json> parsedJson(std::string_view text, const std::string& what) {
    try {
        return Json::parse(text);
    } catch (const Json::exception& error) {
        return failure("Could not read " + what + ": " + error.what());
    }
}

std::string jsonText(const Json& json, int indent) {
    return json.dump(indent, ' ', false, Json::error_handler_t::replace);
}

}  // namespace morva
