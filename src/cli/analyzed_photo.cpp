// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/analyzed_photo.h"

#include <exception>

#include "analysis/analysis_pipeline.h"
#include "analysis/metadata_reader.h"
#include "crop/subject_grouping.h"

namespace morva {

Result<VisionServices> openDetectors(const Arguments& common) {
    AnalysisPipeline::readTaughtPosesFrom(common.dataFolder);
    return VisionServices::open(VisionServices::modelFolder(), common.cacheFolder);
}

AnalyzedPhoto AnalyzedPhoto::of(const std::filesystem::path& photo, const VisionServices& vision) {
    AnalyzedPhoto analyzed{.analysis = {}, .camera = SubjectGrouping::cameraKey(photo)};
    try {
        if (auto camera = MetadataReader::read(photo).camera) analyzed.camera = std::move(*camera);
        analyzed.analysis = AnalysisPipeline::analyze(photo, vision);
    } catch (const std::exception& error) {
        // Memory can run out on one photo; the batch goes on.
        analyzed.analysis.detectionFailed = true;
        analyzed.analysis.error =
            "Could not analyse " + photo.filename().string() + ": " + error.what() + ".";
    }
    return analyzed;
}

}  // namespace morva
