// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/exit_code.h"

namespace morva {

/// A folder of photos in, a folder of finished crops and a list of doubts out. Refuses, before
/// anything is begun, to write into a folder of the photos.
ExitCode runCrop(const CropArguments& crop, const Arguments& common, Console& console);

}  // namespace morva
