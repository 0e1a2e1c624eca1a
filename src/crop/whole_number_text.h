// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdio>
#include <string>

namespace morva {

/// A number in a note: no decimals, rounded to the nearest whole number, halves to the even one.
inline std::string wholeNumberText(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.0f", value);
    return text.data();
}

}  // namespace morva
