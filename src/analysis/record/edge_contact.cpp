// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/record/edge_contact.h"

#include "analysis/record/joined.h"

namespace morva {

bool EdgeContact::blocks(const CanvasShortfall& shortfall) const {
    constexpr double tolerance = CanvasShortfall::tolerance;
    return (top && shortfall.top > tolerance) || (bottom && shortfall.bottom > tolerance) ||
           (left && shortfall.left > tolerance) || (right && shortfall.right > tolerance);
}

std::string EdgeContact::summary() const {
    std::vector<std::string> edges;
    if (top) edges.emplace_back("top");
    if (bottom) edges.emplace_back("bottom");
    if (left) edges.emplace_back("left");
    if (right) edges.emplace_back("right");
    return joined(edges);
}

void to_json(Json& json, const EdgeContact& contact) {
    json = {{"top", contact.top},
            {"bottom", contact.bottom},
            {"left", contact.left},
            {"right", contact.right}};
}

void from_json(const Json& json, EdgeContact& contact) {
    contact = {required<bool>(json, "top"), required<bool>(json, "bottom"),
               required<bool>(json, "left"), required<bool>(json, "right")};
}

}  // namespace morva
