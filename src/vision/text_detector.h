// SPDX-License-Identifier: GPL-3.0-or-later
// What the analysis needs of a text detector: where lines of text lie, never what they say.
#pragma once

#include <array>
#include <vector>

#include "base/geometry.h"
#include "base/result.h"
#include "imaging/raster.h"

namespace morva {

/// One line of printed or written text.
struct TextLine {
    /// Corners of a turned rectangle around the line, one after the other, in pixels of the picture
    /// that was looked at.
    std::array<Point, 4> corners;
    /// 0 to 1; below about 0.6 the place merely resembles text.
    double confidence = 0;

    Point center() const;
    /// Along the writing, and across it.
    double length() const;
    double height() const;
    /// How many characters such a line holds: script is about half as wide as it is high.
    double estimatedCharacters() const;
};

class TextDetector {
public:
    virtual ~TextDetector() = default;
    /// The lines in `picture`, in no particular order, faint ones included. A larger picture is
    /// looked at reduced (see `sharpestSide`). Fails only when the model cannot run. Safe to call
    /// from several threads at once.
    virtual Result<std::vector<TextLine>> lines(const Picture& picture) const = 0;
    /// Longer side up to which a picture is looked at as it is, pixels.
    virtual int sharpestSide() const = 0;
};

}  // namespace morva
