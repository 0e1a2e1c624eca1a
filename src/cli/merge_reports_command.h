// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/exit_code.h"

namespace morva {

/// Joins the parts of reports that shards left in folders into the reports of the whole run. The
/// parts stay, so that it can be done again; what a killed shard left half written is removed.
ExitCode runMergeReports(const MergeReportsArguments& merge, Console& console);

}  // namespace morva
