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

std::string AnalyzedPhoto::cameraOf(const std::filesystem::path& photo) {
    return MetadataReader::read(photo).camera.value_or(SubjectGrouping::cameraKey(photo));
}

AnalyzedPhoto AnalyzedPhoto::unmeasured(const std::filesystem::path& photo) {
    AnalyzedPhoto said{.analysis = {}, .camera = SubjectGrouping::cameraKey(photo)};
    try {
        const auto metadata = MetadataReader::read(photo);
        said.analysis.rating = metadata.rating;
        said.analysis.captureTime = metadata.captureTime;
        said.camera = metadata.camera.value_or(said.camera);
    } catch (const std::exception&) {
        // Its analysis meets the same and tells it.
    }
    return said;
}

AnalyzedPhoto AnalyzedPhoto::of(const std::filesystem::path& photo, const VisionServices& vision) {
    AnalyzedPhoto analyzed = unmeasured(photo);
    const ImageAnalysis said = analyzed.analysis;
    try {
        analyzed.analysis = AnalysisPipeline::analyze(photo, vision);
    } catch (const std::exception& error) {
        // Memory can run out on one photo; the batch goes on.
        analyzed.analysis.detectionFailed = true;
        analyzed.analysis.error =
            "Could not analyse " + photo.filename().string() + ": " + error.what() + ".";
    }
    analyzed.analysis.rating = said.rating;
    analyzed.analysis.captureTime = said.captureTime;
    return analyzed;
}

}  // namespace morva
