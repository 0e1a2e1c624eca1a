// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/record/head_content.h"

namespace morva {

void to_json(Json& json, const HeadContent& head) {
    json = {{"topY", head.topY},
            {"topX", head.topX},
            {"leftX", head.leftX},
            {"rightX", head.rightX},
            {"reliable", head.reliable}};
    putOptional(json, "note", head.note);
    putOptional(json, "bottomY", head.bottomY);
}

void from_json(const Json& json, HeadContent& head) {
    head.topY = required<double>(json, "topY");
    head.topX = required<double>(json, "topX");
    head.leftX = required<double>(json, "leftX");
    head.rightX = required<double>(json, "rightX");
    head.reliable = required<bool>(json, "reliable");
    readIfPresent(json, "note", head.note);
    readIfPresent(json, "bottomY", head.bottomY);
}

}  // namespace morva
