// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/exit_code.h"

namespace morva {

/// Measures a finished portrait and prints the preset that is modelled on it; what could not be
/// adopted goes to standard error. The stored presets stay as they are.
ExitCode runReference(const ReferenceArguments& reference, const Arguments& common,
                      Console& console);

}  // namespace morva
