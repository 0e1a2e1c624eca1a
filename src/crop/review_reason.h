// SPDX-License-Identifier: GPL-3.0-or-later
// The closed list of findings that send a photo to review. Raised by the solver and the confidence
// scorer, shown by the window and the reports.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "base/json.h"

namespace morva {

enum class ReviewReason {
    noFaceFound,
    multipleFaces,
    lowLandmarkConfidence,
    landmarkSanity,
    unusualHeadPose,
    headContentUncertain,
    unusualHeadContent,
    headContentClipped,
    hairClippedAtSide,
    needsMoreCanvas,
    faceSitsLow,
    faceSitsHigh,
    headroomOutOfTolerance,
    lowResolution,
    lowConfidence,
    bodyNotFound,
    bodyPartlyFound,
    propClipped,
    zoomedOutForProp,
};

/// Every reason, in the order above.
std::span<const ReviewReason> allReviewReasons();
/// The case name: the text in files and reports.
std::string_view key(ReviewReason reason);
/// A short text for the window.
std::string_view title(ReviewReason reason);
/// True for the two findings that no look can wave through.
bool blocksExport(ReviewReason reason);

/// Keeps the first of each reason, in place.
void removeRepeats(std::vector<ReviewReason>& reasons);

void to_json(Json& json, ReviewReason reason);
void from_json(const Json& json, ReviewReason& reason);

}  // namespace morva
