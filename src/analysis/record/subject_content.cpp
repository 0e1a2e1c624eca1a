// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/record/subject_content.h"

namespace morva {

void to_json(Json& json, const SubjectContent& subject) {
    json = {{"bounds", subject.bounds},
            {"reliable", subject.reliable},
            {"propReach", subject.propReach}};
    putOptional(json, "note", subject.note);
    json["edges"] = subject.edges;
}

void from_json(const Json& json, SubjectContent& subject) {
    subject.bounds = required<Rect>(json, "bounds");
    subject.reliable = required<bool>(json, "reliable");
    subject.propReach = required<double>(json, "propReach");
    readIfPresent(json, "note", subject.note);
    subject.edges = required<EdgeContact>(json, "edges");
}

}  // namespace morva
