// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/exit_code.h"

namespace morva {

/// Draws the crop of one photo small, as "crop" would write it, and remembers nothing.
ExitCode runPreview(const PreviewArguments& preview, const Arguments& common, Console& console);

}  // namespace morva
