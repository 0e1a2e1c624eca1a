// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/record/image_analysis.h"
#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/exit_code.h"

namespace morva {

/// Measures photos and prints what was found: {"file", "camera", "analysis"} a line, or a line for
/// a person.
ExitCode runAnalyze(const AnalyzeArguments& analyze, const Arguments& common, Console& console);

/// "1 face, face unit 213 px, tilt -1.2 degrees, head outlined", or why there is nothing.
std::string analysisText(const ImageAnalysis& analysis);

}  // namespace morva
