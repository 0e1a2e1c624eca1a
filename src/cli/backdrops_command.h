// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/exit_code.h"

namespace morva {

/// Lists the backdrop photographs of the library, or those that suit a crop type.
ExitCode runBackdrops(const BackdropsArguments& backdrops, const Arguments& common,
                      Console& console);

}  // namespace morva
