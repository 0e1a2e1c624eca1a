// SPDX-License-Identifier: GPL-3.0-or-later
// What the replacement of backdrops needs to know of a child cut out of a photo, and who makes it.
#pragma once

#include <optional>

#include "base/result.h"
#include "imaging/decode.h"
#include "imaging/raster.h"

namespace morva {

struct CutOut {
    /// As large as the decoded pixels, 255 where there is only the child.
    Mask alpha;
    /// The child's lowest line, in source pixels from the top of the upright photo; absent when
    /// it is not known.
    std::optional<double> feetLine;
};

/// Cuts the child out of one photo; one real implementation, scripted ones in tests.
class ChildCutter {
public:
    virtual ~ChildCutter() = default;
    /// Nothing when the photo shows nobody. Pixels that the child covers in part get the child's
    /// own colour, free of the old backdrop's light: what is laid on a new backdrop is
    /// alpha x pixel + (1 - alpha) x backdrop. Fails when the detectors fail. Safe to call from
    /// several threads at once.
    virtual Result<std::optional<CutOut>> cutOut(DecodedRegion& photo) const = 0;
};

}  // namespace morva
