// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/text_detector.h"

#include <algorithm>

namespace morva {

namespace {

/// Width of a character as a share of its line's height, both measured on the rectangle. Of 48
/// words of two characters in eight typefaces 3 count as three, of 48 words of three 8 (as narrow
/// as "Ill") as two.
constexpr double characterWidth = 0.45;

}  // namespace

Point TextLine::center() const { return corners[0].midpoint(corners[2]); }

double TextLine::length() const {
    return std::max(corners[0].distance(corners[1]), corners[1].distance(corners[2]));
}

double TextLine::height() const {
    return std::min(corners[0].distance(corners[1]), corners[1].distance(corners[2]));
}

double TextLine::estimatedCharacters() const {
    return height() > 0 ? length() / height() / characterWidth : 0;
}

}  // namespace morva
