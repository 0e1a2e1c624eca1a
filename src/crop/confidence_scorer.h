// SPDX-License-Identifier: GPL-3.0-or-later
// How sure the program is of a face's eyes and chin. Called by the solver for the main face; looks
// at landmarks only, never at where the crop ends up.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/record/face_geometry.h"
#include "analysis/record/head_content.h"
#include "crop/review_reason.h"

namespace morva::ConfidenceScorer {

/// Eye spacing of a child's face seen from the front, in face units.
inline constexpr double typicalEyeSpacingRatio = 0.53;

struct Report {
    double score = 0;  // 0 to 1
    /// Without repeats, in the order found.
    std::vector<ReviewReason> reasons;
    std::vector<std::string> notes;

    bool operator==(const Report&) const = default;
};

Report score(const FaceGeometry& face, const std::optional<HeadContent>& head);

}  // namespace morva::ConfidenceScorer
