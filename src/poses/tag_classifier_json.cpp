// SPDX-License-Identifier: GPL-3.0-or-later
#include "poses/tag_classifier.h"

namespace morva {

void to_json(Json& json, const TagClassifier::Model& model) {
    json = {{"kind", model.kind}, {"revision", model.revision},
            {"tag", model.tag},   {"mean", model.mean},
            {"std", model.std},   {"weights", model.weights},
            {"bias", model.bias}, {"threshold", model.threshold}};
    putOptional(json, "taughtAt", model.taughtAt);
    putOptional(json, "report", model.report);
    putOptional(json, "origin", model.origin);
}

void from_json(const Json& json, TagClassifier::Model& model) {
    model.kind = required<std::string>(json, "kind");
    model.revision = required<int>(json, "revision");
    model.tag = required<std::string>(json, "tag");
    model.mean = required<std::vector<double>>(json, "mean");
    model.std = required<std::vector<double>>(json, "std");
    model.weights = required<std::vector<double>>(json, "weights");
    model.bias = required<double>(json, "bias");
    model.threshold = required<double>(json, "threshold");
    readIfPresent(json, "taughtAt", model.taughtAt);
    readIfPresent(json, "report", model.report);
    readIfPresent(json, "origin", model.origin);
}

}  // namespace morva
