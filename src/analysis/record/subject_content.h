// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "analysis/record/edge_contact.h"
#include "base/geometry.h"
#include "base/json.h"

namespace morva {

/// The extent of the child together with everything it holds.
struct SubjectContent {
    /// Source pixels.
    Rect bounds;
    /// False when the outline could not be trusted; `note` then says why.
    bool reliable = false;
    /// How far held props reach beyond the head and body; the unit is the subject analyser's.
    double propReach = 0;
    std::optional<std::string> note;
    EdgeContact edges;

    bool operator==(const SubjectContent&) const = default;
};

void to_json(Json& json, const SubjectContent& subject);
void from_json(const Json& json, SubjectContent& subject);

}  // namespace morva
