// SPDX-License-Identifier: GPL-3.0-or-later
// Cuts a child out of a photo, softly where hair meets the backdrop. Called by the replacement of
// backdrops; decides neither which person is the child nor what lies behind it afterwards.
#pragma once

#include <optional>

#include "base/geometry.h"
#include "base/result.h"
#include "imaging/raster.h"
#include "matting/matte.h"
#include "matting/tuning.h"
#include "vision/person_segmenter.h"

namespace morva::Matting {

/// The head around which the outline is refined, in pixels of the picture.
struct Head {
    Point eyeMidpoint;
    /// Distance from the eye midpoint to the chin.
    double faceUnit = 0;
};

/// Who is cut out. The masks cover the same place at any resolution, 255 where sure.
struct Child {
    const Mask& mask;
    /// Everybody else, kept out of the refined outline; absent when the child is alone.
    const Mask* others = nullptr;
    /// What the masks cover, in pixels of the picture; it may reach beyond the picture, when that
    /// is only a part of the photo.
    Rect extent;
    /// Absent without a face: the outline then follows colours everywhere as it does on clothes.
    std::optional<Head> head;
};

/// The matte of `child` in `picture`; nothing when the mask holds nobody. Fails only when the
/// segmenter fails. The same input gives the same bytes.
Result<std::optional<Matte>> matte(const Picture& picture, const Child& child,
                                   const PersonSegmenter& segmenter, const Tuning& tuning = {});

/// Replaces the colours of pixels that the child covers in part by the child's own, without the
/// light of the old backdrop. `picture` is the one that the matte was made of. To be laid on a new
/// backdrop as alpha x colour + (1 - alpha) x backdrop.
void takeBackdropOut(Picture& picture, const Matte& matte);

}  // namespace morva::Matting
