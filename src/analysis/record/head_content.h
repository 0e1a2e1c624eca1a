// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "base/json.h"

namespace morva {

/// The outline of the main face's hair and whatever is worn on it, in source pixels.
/// `leftX` and `rightX` are its widest places between the top and the eye line.
struct HeadContent {
    double topY = 0;
    /// Where along the outline the highest point lies.
    double topX = 0;
    double leftX = 0;
    double rightX = 0;
    /// False when the outline could not be trusted; `note` then says why.
    bool reliable = false;
    std::optional<std::string> note;
    /// Lower end of the whole outline (the feet, when the photo shows them).
    std::optional<double> bottomY;

    bool operator==(const HeadContent&) const = default;
};

void to_json(Json& json, const HeadContent& head);
void from_json(const Json& json, HeadContent& head);

}  // namespace morva
