// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/exit_code.h"

namespace morva {

/// Prints the review list of stored records, without opening a photo.
ExitCode runReviewList(const ReviewListArguments& list, const Arguments& common, Console& console);

}  // namespace morva
