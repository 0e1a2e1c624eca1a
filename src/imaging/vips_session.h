// SPDX-License-Identifier: GPL-3.0-or-later
// The one-time start of the image library, for every file of this room that calls it.
#pragma once

namespace morva {

/// Starts libvips for this process: one thread a decode, since the callers are workers already, no
/// cache, no loader that its authors do not trust with strangers' files, no chatter on stderr. Any
/// thread may call it, any number of times. False when the library cannot start.
bool startVips();

}  // namespace morva
