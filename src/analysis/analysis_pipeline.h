// SPDX-License-Identifier: GPL-3.0-or-later
// One photo file in, one complete analysis record out. The batch runs it for many photos at once.
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <stop_token>

#include "analysis/analysis_image.h"
#include "analysis/face_analyzer.h"
#include "analysis/record/image_analysis.h"
#include "analysis/sign_detector.h"
#include "vision/vision_services.h"

namespace morva::AnalysisPipeline {

using Clock = std::chrono::steady_clock;

/// Longer side of the image on which everything is detected, pixels.
inline constexpr int analysisMaxPixel = 2048;
/// Longer side of the image on which the main face's landmarks are measured again, pixels.
inline constexpr int refineMaxPixel = 4096;

/// Full analysis of one file. Never fails: what went wrong stands in the record's `error`.
ImageAnalysis analyze(const std::filesystem::path& file, const VisionServices& vision);

/// The same for a run that may be cancelled: nothing once `stop` is requested, which is looked at
/// between the steps.
std::optional<ImageAnalysis> analyze(const std::filesystem::path& file,
                                     const VisionServices& vision, const std::stop_token& stop);

/// Analysis of an image that is already loaded. `closeUps` gives parts of the photo at any size,
/// `metadata` is the file whose rating, label and capture time are read; `analysisSeconds` counts
/// from `startedAt`.
ImageAnalysis analyze(const AnalysisImage& loaded, const std::optional<CloseUps>& closeUps,
                      const std::optional<std::filesystem::path>& metadata,
                      Clock::time_point startedAt, const VisionServices& vision);

/// The feature print of a file, from the image on which it would be analysed. Fails with a sentence
/// that names the file.
Result<std::vector<float>> posePrint(const std::filesystem::path& file,
                                     const VisionServices& vision);

/// Drops the classifier of taught poses, which all analyses of the process share: the next analysis
/// builds it again from the model files. Safe while analyses run; they keep the one they took.
void reloadTags();

/// Taught poses are read from `dataFolder` instead of the user's own folder from now on; reloads.
void readTaughtPosesFrom(const std::filesystem::path& dataFolder);

}  // namespace morva::AnalysisPipeline
