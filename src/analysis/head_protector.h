// SPDX-License-Identifier: GPL-3.0-or-later
// Measures on a person mask what landmarks cannot tell: how far hair and anything worn on the head
// reach, and which edges of the photo the person's outline touches.
#pragma once

#include "analysis/analysis_image.h"
#include "analysis/record/edge_contact.h"
#include "analysis/record/face_geometry.h"
#include "analysis/record/head_content.h"
#include "base/result.h"
#include "imaging/raster.h"
#include "vision/person_segmenter.h"

namespace morva::HeadProtector {

/// A mask pixel of this value or more shows a person.
inline constexpr int personThreshold = 128;

/// Mask of every person in `image`, covering all of it. The whole frame is looked at once; where
/// the main face has too few of the model's pixels there, the surroundings of the head are looked
/// at again at their own scale.
Result<Mask> personMask(const PersonSegmenter& segmenter, const AnalysisImage& image,
                        const FaceGeometry& face);

/// Outline of the main face's head with everything worn on it, in source pixels. `mask` covers the
/// whole photo at any resolution. Never fails: what cannot be measured comes back as the face box,
/// not reliable, with a note.
HeadContent headContent(const Mask& mask, const FaceGeometry& face, Size sourceSize);

/// Which edges the outline touches: enough person pixels on the outermost line, or on the next one
/// inward, since segmentation may leave a border of one pixel clear.
EdgeContact edgeContact(const Mask& mask);

}  // namespace morva::HeadProtector
