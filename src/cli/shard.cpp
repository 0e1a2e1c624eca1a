// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/shard.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "base/files.h"

namespace morva {

namespace {

constexpr int mostShards = 9999;

/// Digits only; nothing for a number out of reach.
std::optional<int> numberIn(std::string_view digits) {
    int number = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    if (digits.empty() || digits.front() == '-' || error != std::errc() || stop != end)
        return std::nullopt;
    return number;
}

/// Evenly spread, and the same on every machine.
std::uint32_t spread(const std::filesystem::path& path) {
    constexpr std::size_t digits = 8;
    constexpr int hexadecimal = 16;
    const std::string sum = sha256(path.string());
    std::uint32_t number = 0;
    std::from_chars(sum.data(), sum.data() + digits, number, hexadecimal);
    return number;
}

}  // namespace

std::optional<Shard> Shard::parse(std::string_view text) {
    const std::size_t slash = text.find('/');
    if (slash == std::string_view::npos) return std::nullopt;
    const auto number = numberIn(text.substr(0, slash));
    const auto count = numberIn(text.substr(slash + 1));
    if (!number || !count || *number < 1 || *number > *count || *count > mostShards)
        return std::nullopt;
    return Shard{*number, *count};
}

std::vector<std::size_t> Shard::photosOf(
    const std::vector<std::filesystem::path>& paths,
    const std::vector<std::vector<std::size_t>>& groups) const {
    std::vector<std::size_t> own;
    for (const auto& group : groups) {
        const std::size_t first = *std::ranges::min_element(
            group, {}, [&](std::size_t place) { return paths[place].string(); });
        const auto owner = spread(paths[first]) % static_cast<std::uint32_t>(count);
        if (owner == static_cast<std::uint32_t>(number - 1))
            own.insert(own.end(), group.begin(), group.end());
    }
    std::ranges::sort(own);
    return own;
}

std::string Shard::text() const { return std::to_string(number) + " of " + std::to_string(count); }

}  // namespace morva
