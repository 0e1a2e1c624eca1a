// SPDX-License-Identifier: GPL-3.0-or-later
// Brings the layouts inside of a scrolled page, and its height, up to date at once. Left alone they
// settle one level per turn of the event loop, and those that were hidden meanwhile later still, so
// that a page whose texts change would be seen with the heights of what it showed before.
#pragma once

class QScrollArea;

namespace morva {

/// `area` has a widget.
void settleLayouts(QScrollArea& area);

}  // namespace morva
