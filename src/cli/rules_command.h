// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/exit_code.h"

namespace morva {

/// Lists rules with the presets that they select, or prints them in the form that rule files have.
ExitCode runRules(const RulesArguments& rules, const Arguments& common, Console& console);

}  // namespace morva
