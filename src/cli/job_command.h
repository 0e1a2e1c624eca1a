// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/exit_code.h"

namespace morva {

/// The jobs of the application without its window, through the same state: what is begun here opens
/// there and the other way round. Whatever is printed is on disk.
ExitCode runJob(const JobArguments& job, const Arguments& common, Console& console);

}  // namespace morva
