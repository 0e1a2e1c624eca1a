// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/manual_adjustment.h"

namespace morva {

Rect ManualAdjustment::apply(const Rect& rect, Point anchor) const {
    Rect moved = rect;
    if (scale != 1) {
        moved = {anchor.x - (anchor.x - rect.x) * scale, anchor.y - (anchor.y - rect.y) * scale,
                 rect.width * scale, rect.height * scale};
    }
    moved.x += dx * rect.height;
    moved.y += dy * rect.height;
    return moved;
}

void to_json(Json& json, const ManualAdjustment& adjustment) {
    json = {{"dx", adjustment.dx},
            {"dy", adjustment.dy},
            {"scale", adjustment.scale},
            {"rotation", adjustment.rotation}};
}

void from_json(const Json& json, ManualAdjustment& adjustment) {
    if (!json.is_object()) throw Json::type_error::create(302, "an adjustment is expected", &json);
    adjustment = {};
    readIfPresent(json, "dx", adjustment.dx);
    readIfPresent(json, "dy", adjustment.dy);
    readIfPresent(json, "scale", adjustment.scale);
    readIfPresent(json, "rotation", adjustment.rotation);
}

}  // namespace morva
