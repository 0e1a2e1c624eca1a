// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/metadata_reader.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <string_view>

namespace morva::MetadataReader {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// The whole text as a number, without sign or blanks.
std::optional<int> digits(std::string_view text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !isDigit(text.front()))
        return std::nullopt;
    return value;
}

/// Whole seconds since 1970.
std::optional<double> seconds(std::string_view text) {
    constexpr std::string_view form = "dddd:dd:dd dd:dd:dd";
    const auto fits = [](char c, char expected) {
        return expected == 'd' ? isDigit(c) : c == expected;
    };
    if (!std::ranges::equal(text, form, fits)) return std::nullopt;
    const auto number = [&](std::size_t at, std::size_t count) {
        return *digits(text.substr(at, count));
    };
    const std::chrono::year_month_day date{std::chrono::year(number(0, 4)),
                                           std::chrono::month(static_cast<unsigned>(number(5, 2))),
                                           std::chrono::day(static_cast<unsigned>(number(8, 2)))};
    const int hour = number(11, 2);
    const int minute = number(14, 2);
    const int second = number(17, 2);
    if (!date.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
    const auto days = static_cast<double>(std::chrono::sys_days(date).time_since_epoch().count());
    return days * 86400.0 + hour * 3600.0 + minute * 60.0 + second;
}

/// Digits after the decimal point, blanks around them allowed; 0 for anything else.
double fraction(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return 0;
    text = text.substr(first, text.find_last_not_of(blanks) - first + 1);
    if (!std::ranges::all_of(text, isDigit)) return 0;
    const std::string number = "0." + std::string(text);
    double value = 0;
    std::from_chars(number.data(), number.data() + number.size(), value);
    return value;
}

}  // namespace

PhotoMetadata read(const std::filesystem::path& file) {
    const auto properties = readProperties(file);
    if (!properties) return {};
    return {rating(*properties), captureTime(*properties), properties->xmpLabel,
            camera(*properties)};
}

std::optional<int> rating(const PhotoProperties& properties) {
    if (!properties.xmpRating) return std::nullopt;
    std::string_view text = *properties.xmpRating;
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    if (text.empty()) return std::nullopt;
    const std::optional<int> value = digits(text);
    if (!value) return std::nullopt;
    return negative ? -*value : *value;
}

std::optional<double> captureTime(const PhotoProperties& properties) {
    if (!properties.dateTimeOriginal) return std::nullopt;
    const std::optional<double> whole = seconds(*properties.dateTimeOriginal);
    if (!whole) return std::nullopt;
    return *whole + fraction(properties.subsecTimeOriginal.value_or(std::string()));
}

std::optional<std::string> camera(const PhotoProperties& properties) {
    if (!properties.cameraSerial) return std::nullopt;
    return properties.cameraMake.value_or("") + " " + properties.cameraModel.value_or("") + " " +
           *properties.cameraSerial;
}

}  // namespace morva::MetadataReader
