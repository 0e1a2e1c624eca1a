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

/// A face surer than this needs no look for its landmarks.
inline constexpr double landmarkWorthReview = 0.65;
/// The two chin estimates need a look further apart than this, in face units.
inline constexpr double chinWorthReview = 0.08;
/// Head angles that need a look, in degrees.
inline constexpr double yawWorthReview = 32;
inline constexpr double pitchWorthReview = 30;
inline constexpr double tiltWorthReview = 30;

/// What the score is the product of.
enum class Part { landmarks, chin, eyeSpacing, yaw, pitch, hair };
struct Factor {
    Part part = Part::landmarks;
    /// The landmarks' confidence, the chin estimates' distance and the eye spacing in face units,
    /// degrees; 1 for a hair outline that is trusted, else 0.
    double measured = 0;
    /// 0 to 1; 1 costs nothing.
    double factor = 1;

    bool operator==(const Factor&) const = default;
};

struct Report {
    double score = 0;  // 0 to 1
    /// What the face has, in the order of `Part`; angles and hair only where they were measured.
    std::vector<Factor> factors;
    /// Without repeats, in the order found.
    std::vector<ReviewReason> reasons;
    std::vector<std::string> notes;

    bool operator==(const Report&) const = default;
};

Report score(const FaceGeometry& face, const std::optional<HeadContent>& head);

}  // namespace morva::ConfidenceScorer
