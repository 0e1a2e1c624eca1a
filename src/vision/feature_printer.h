// SPDX-License-Identifier: GPL-3.0-or-later
// A photo as a few hundred numbers in which photos of the same kind lie near each other: what
// taught poses are recognised by. Says nothing by itself.
#pragma once

#include <vector>

#include "base/result.h"
#include "imaging/raster.h"

namespace morva {

class FeaturePrinter {
public:
    /// Rises with every change that gives a photo other numbers: poses remember the revision they
    /// were taught with and are worthless with any other. 1 was a trial with one layer.
    static constexpr int revision = 3;

    virtual ~FeaturePrinter() = default;
    /// The print of the whole picture, always of the same length, within 1e-4 the same on every
    /// machine. Fails only when the network cannot run. Safe to call from several threads at once.
    virtual Result<std::vector<float>> print(const Picture& picture) const = 0;
};

}  // namespace morva
