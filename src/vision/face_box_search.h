// SPDX-License-Identifier: GPL-3.0-or-later
// Where the box model looks: the whole frame, tiles of it, and, when nothing was found, smaller
// tiles and the picture on its side or head.
#pragma once

#include <vector>

#include "base/result.h"
#include "imaging/raster.h"
#include "vision/face_boxes.h"
#include "vision/inference_model.h"

namespace morva::FaceBoxSearch {

/// Faces on the whole frame and, unless one of them fills a large part of it, on four overlapping
/// tiles. In pixels of `picture`.
Result<std::vector<FaceBox>> firstLook(const InferenceModel& model, const Picture& picture);

/// Faces on sixteen tiles, for very small faces that the first look missed.
Result<std::vector<FaceBox>> closerLook(const InferenceModel& model, const Picture& picture);

/// Faces on the frame alone, of a picture that may lie on its side.
Result<std::vector<FaceBox>> frameLook(const InferenceModel& model, const Picture& picture);

}  // namespace morva::FaceBoxSearch
