// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/exit_code.h"

namespace morva {

/// Lists the presets, or prints one in the form that preset files have.
ExitCode runPresets(const PresetsArguments& presets, const Arguments& common, Console& console);

}  // namespace morva
