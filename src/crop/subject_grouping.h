// SPDX-License-Identifier: GPL-3.0-or-later
// Which frames of a shoot show one child: same camera, seconds apart, faces of nearly one size.
// Those frames share one face unit, so that a child who tips the head between them keeps its size.
// Called before the photos of a batch are solved; sees measurements only, never a photo.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "analysis/record/image_analysis.h"

namespace morva {

/// The photos of a batch in their order; null where a photo has no analysis.
using Analyses = std::span<const ImageAnalysis* const>;

namespace SubjectGrouping {

/// Largest time between two consecutive frames of a group, seconds.
inline constexpr double defaultGapSeconds = 12.0;
/// Face units up to this share above the smallest of a run count as one child.
inline constexpr double steadyTolerance = 0.08;

/// One group of photo indices.
using Group = std::vector<std::size_t>;

/// The file's name without extension and without the digits at its end, "IMG_" for "IMG_0042.jpg";
/// a name of digits only is kept whole. Stands for the camera where the photo does not name it.
std::string cameraKey(const std::filesystem::path& photo);

/// All photos in groups: camera by camera in the order of their names, by capture time within.
/// A photo without a capture time is a group of its own, behind the timed ones of its camera.
/// `cameras`: one name per photo; with any other number of names all photos count as one camera's.
std::vector<Group> groups(Analyses photos, std::span<const std::string> cameras,
                          double gapSeconds = defaultGapSeconds);

/// The number of each photo's group, for photos and cameras as above.
std::vector<int> groupNumbers(Analyses photos, std::span<const std::string> cameras);

/// The face unit in pixels that photos share, by index; photos without an entry keep their own.
/// Only photos with a face for which `isEligible` holds take part.
std::map<std::size_t, double> steadyFaceUnits(Analyses photos, std::span<const std::string> cameras,
                                              double gapSeconds,
                                              const std::function<bool(std::size_t)>& isEligible);

}  // namespace SubjectGrouping

}  // namespace morva
