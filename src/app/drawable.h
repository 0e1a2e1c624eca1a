// SPDX-License-Identifier: GPL-3.0-or-later
// Pixels of the engine as the window draws them.
#pragma once

#include <QImage>

#include "imaging/raster.h"

namespace morva {

/// In the layout that is drawn without being converted first.
QImage drawable(const Picture& picture);

}  // namespace morva
