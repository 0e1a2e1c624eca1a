// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace morva {

/// Whether the JPEG stream goes on to its end marker. Walks the markers without decoding, so that a
/// truncated photo is found even when only its top is decoded.
bool jpegReachesItsEnd(std::string_view bytes);

/// How many segments before the first scan can hold parts of a colour profile.
int jpegProfileSegments(std::string_view bytes);

}  // namespace morva
