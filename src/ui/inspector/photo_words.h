// SPDX-License-Identifier: GPL-3.0-or-later
// What the inspector says of a photo: in the bar, in place of a crop, and to those who do not see
// the canvas.
#pragma once

#include <QString>

#include "ui/inspector/inspected_photo.h"

namespace morva {

class AppState;

/// Where the selected photo stands among those shown: "6 of 34 in Review".
QString positionText(const AppState& state);

/// A photo without a crop: why, and what helps.
struct Explanation {
    QString icon;
    QColor color;
    QString title;
    /// One sentence; may be empty.
    QString sentence;
};
/// Empty title for a photo with a crop. `photo` is null when none is selected; `isLost`: its file
/// cannot be read.
Explanation explanationOf(const InspectedPhoto* photo, bool isLost);

/// "425 px missing".
QString missingText(double pixels);

/// The crop in words: "Headshot 4x5: frame 2400 by 3000, turned 1.5 degrees, eye line at 28.5 %,
/// 425 px missing below, Review: Needs more canvas", or why there is none.
QString cropInWords(const AppState& state);

}  // namespace morva
