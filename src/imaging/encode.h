// SPDX-License-Identifier: GPL-3.0-or-later
// From pixels to JPEG bytes in memory.
#pragma once

#include <string>

#include "base/result.h"
#include "imaging/raster.h"

namespace morva {

/// Baseline JPEG with a JFIF header that carries `dpi`. `quality` from 0 to 1; from 0.9 up the
/// colours keep full resolution (4:4:4), below they are halved (4:2:0). No EXIF, XMP or profile.
Result<std::string> encodeJpeg(const Picture& picture, double quality, double dpi);

/// PNG without metadata, for overlays and test pictures.
Result<std::string> encodePng(const Picture& picture);

}  // namespace morva
