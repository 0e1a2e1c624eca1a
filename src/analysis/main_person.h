// SPDX-License-Identifier: GPL-3.0-or-later
// Cuts the main child out of the mask of everybody, so that no neighbour's hair, arm or prop is
// measured as the child's.
#pragma once

#include <span>

#include "analysis/analysis_image.h"
#include "analysis/record/face_geometry.h"
#include "imaging/raster.h"
#include "vision/body_pose_detector.h"

namespace morva {

/// The main child's share of a mask of all persons.
struct MainPerson {
    Mask mask;
    /// Everybody whose face was found, except the child. What neither holds is loose: a part cut
    /// off by something held in front of it, or somebody seen from behind.
    Mask others;
    /// Another person's face is so near that the line between the two is a guess.
    bool touched = false;
};

/// The part of `persons` (covering the whole photo at any resolution) that hangs together with the
/// first of `faces`, which must not be empty. Where another face hangs together with it too, each
/// pixel goes to the person whose outline among `bodies` shows it more surely; far from all
/// outlines, to the nearest face.
MainPerson mainPerson(const Mask& persons, const AnalysisImage& image,
                      std::span<const FaceGeometry> faces, std::span<const BodyObservation> bodies);

}  // namespace morva
