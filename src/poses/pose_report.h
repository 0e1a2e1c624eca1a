// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "base/json.h"

namespace morva {

/// How well a pose was learned, estimated on photos that the estimate's models had not seen. Made
/// by the trainer, kept with the model, shown to the user.
struct PoseReport {
    /// Ticked examples and other photos that took part.
    int positives = 0;
    int negatives = 0;
    /// Share of the tagged photos that are right, and of the examples that are found.
    double precision = 0;
    double recall = 0;
    double threshold = 0;
    /// The sentence for the user.
    std::string verdict;
    /// Places in the list of other photos that were tagged, and in the list of examples that were
    /// missed.
    std::vector<int> falsePositives;
    std::vector<int> falseNegatives;

    bool operator==(const PoseReport&) const = default;
};

void to_json(Json& json, const PoseReport& report);
/// Every key is required; throws.
void from_json(const Json& json, PoseReport& report);

}  // namespace morva
