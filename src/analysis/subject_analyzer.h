// SPDX-License-Identifier: GPL-3.0-or-later
// Measures the child together with everything it holds: cards, boards, balls, instruments. The
// person's own outline comes from the mask; what hangs on it and is not backdrop is a prop.
#pragma once

#include <optional>
#include <vector>

#include "analysis/analysis_image.h"
#include "analysis/main_person.h"
#include "analysis/record/face_geometry.h"
#include "analysis/record/subject_content.h"

namespace morva::SubjectAnalyzer {

/// Longer side at which the outline is looked at, pixels; a larger image is reduced to it.
inline constexpr int workingSide = 256;

/// The extent of `child` with its props, in source pixels; nothing when the mask shows nobody.
/// `persons` is the mask of everybody, `backdrop` the sampled colour of the photo's backdrop
/// (absent when people fill the frame). `propReach` is in face units: how far props reach beyond
/// the bounds of the child's own outline, on the side where they reach furthest. The result is
/// not reliable, with a note, when held things cannot be told from what is behind the child.
std::optional<SubjectContent> subject(const AnalysisImage& image, const MainPerson& child,
                                      const Mask& persons, const FaceGeometry& face,
                                      const std::optional<std::vector<double>>& backdrop);

}  // namespace morva::SubjectAnalyzer
