// SPDX-License-Identifier: GPL-3.0-or-later
// The one-time start of the metadata library, for every file of this room that calls it.
#pragma once

namespace morva {

/// Makes Exiv2 safe to use from several threads and keeps it from writing to stderr. Any thread
/// may call it, any number of times.
void startExiv2();

}  // namespace morva
