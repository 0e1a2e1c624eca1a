// SPDX-License-Identifier: GPL-3.0-or-later
// What the analysis needs of a body detector: for each face given, the joints and the outline of
// the body below it.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "base/geometry.h"
#include "base/result.h"
#include "imaging/raster.h"
#include "vision/region_map.h"

namespace morva {

/// "Left" and "right" are the person's own.
enum class BodyJoint : std::size_t {
    leftShoulder,
    rightShoulder,
    leftHip,
    rightHip,
    leftKnee,
    rightKnee,
    leftAnkle,
    rightAnkle
};
inline constexpr std::size_t bodyJointCount = 8;

struct JointObservation {
    /// Pixels of the picture searched; may lie outside it.
    Point place;
    /// 0 to 1; 0 when the joint lies outside the picture.
    float confidence = 0;
};

struct BodyObservation {
    std::array<JointObservation, bodyJointCount> joints;
    /// Middle of the eyes as the body model sees them, pixels of the picture: tells whose body
    /// this is.
    Point eyes;
    /// How surely each place shows this person; another person who touches is partly included.
    RegionMap outline;

    const JointObservation& joint(BodyJoint which) const {
        return joints[static_cast<std::size_t>(which)];
    }
};

class BodyPoseDetector {
public:
    virtual ~BodyPoseDetector() = default;
    /// The bodies found below `faces` (boxes from brow to chin, pixels of `picture`): at most one
    /// for each face, in their order; a face without a believable body has none. Fails only when
    /// the detector cannot run. Safe to call from several threads at once.
    virtual Result<std::vector<BodyObservation>> bodies(const Picture& picture,
                                                        std::span<const Rect> faces) const = 0;
};

}  // namespace morva
