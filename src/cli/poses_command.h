// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/arguments.h"
#include "cli/console.h"

namespace morva {

/// "poses": teaches a pose from photos, looks for taught poses in others, lists and shares them.
ExitCode runPoses(const PosesArguments& poses, const Arguments& common, Console& console);

}  // namespace morva
