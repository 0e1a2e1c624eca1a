// SPDX-License-Identifier: GPL-3.0-or-later
// Identity of presets and jobs. Text based: one identity that marks an automatic choice is not
// hexadecimal.
#pragma once

#include <compare>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace morva {

class Uuid {
public:
    /// The empty identity, equal to no generated one.
    Uuid() = default;
    /// Letters and digits in groups of 8-4-4-4-12; kept in upper case. Nothing for any other text.
    static std::optional<Uuid> parse(std::string_view text);
    /// For identities known at compile time; asserts the form that `parse` checks.
    static Uuid fixed(std::string_view text);
    /// A new random version 4 UUID.
    static Uuid random();

    const std::string& text() const { return text_; }

    auto operator<=>(const Uuid&) const = default;

private:
    std::string text_;
};

}  // namespace morva

template <>
struct std::hash<morva::Uuid> {
    std::size_t operator()(const morva::Uuid& id) const noexcept {
        return std::hash<std::string>{}(id.text());
    }
};
