// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/record/canvas_shortfall.h"

#include <cmath>

#include "analysis/record/joined.h"

namespace morva {

bool CanvasShortfall::isEmpty() const {
    return left <= tolerance && top <= tolerance && right <= tolerance && bottom <= tolerance;
}

std::string CanvasShortfall::summary() const {
    std::vector<std::string> sides;
    const auto add = [&](double pixels, const char* where) {
        if (pixels <= tolerance) return;
        sides.push_back(std::to_string(std::llround(pixels)) + " px " + where);
    };
    add(top, "above");
    add(bottom, "below");
    add(left, "left");
    add(right, "right");
    return joined(sides);
}

void to_json(Json& json, const CanvasShortfall& shortfall) {
    json = {{"left", shortfall.left},
            {"top", shortfall.top},
            {"right", shortfall.right},
            {"bottom", shortfall.bottom}};
}

void from_json(const Json& json, CanvasShortfall& shortfall) {
    shortfall = {required<double>(json, "left"), required<double>(json, "top"),
                 required<double>(json, "right"), required<double>(json, "bottom")};
}

}  // namespace morva
