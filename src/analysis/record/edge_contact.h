// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "analysis/record/canvas_shortfall.h"
#include "base/json.h"

namespace morva {

/// Which edges of the photo an outline touches: beyond them the child goes on, unseen.
struct EdgeContact {
    bool top = false;
    bool bottom = false;
    bool left = false;
    bool right = false;

    /// True when a touched edge also lacks canvas: no backdrop can stand in for a cut-off child.
    bool blocks(const CanvasShortfall& shortfall) const;
    /// The touched edges in words, "top, left"; empty when none is touched.
    std::string summary() const;

    bool operator==(const EdgeContact&) const = default;
};

void to_json(Json& json, const EdgeContact& contact);
void from_json(const Json& json, EdgeContact& contact);

}  // namespace morva
