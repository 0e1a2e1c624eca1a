// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>

namespace morva::Interruption {

/// From here on Ctrl-C (and a polite kill) sets `requested` instead of ending the program; a second
/// one ends it at once.
void watch();

/// True once the user asked to stop. Workers look at it between photos.
const std::atomic<bool>& requested();

}  // namespace morva::Interruption
