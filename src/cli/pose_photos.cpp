// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/pose_photos.h"

#include "analysis/analysis_pipeline.h"
#include "analysis/image_loader.h"
#include "app/print_cache.h"
#include "cli/analyzed_photo.h"
#include "cli/interruption.h"
#include "cli/ordered_workers.h"
#include "crop/subject_grouping.h"
#include "model/jobs/analysis_cache.h"
#include "poses/pose_features.h"

namespace morva {

namespace {

struct Measured {
    AnalyzedPhoto photo;
    std::vector<float> features;
    std::string problem;
};

class Measuring {
public:
    Measuring(const VisionServices& vision, const std::filesystem::path& cacheFolder)
        : vision_(vision), analyses_(cacheFolder), prints_(cacheFolder) {}

    Measured of(const std::filesystem::path& file) const {
        Measured measured{.photo = analyzed(file), .features = {}, .problem = {}};
        const ImageAnalysis& record = measured.photo.analysis;
        auto print = prints_.print(file, [&](const std::filesystem::path& photo) {
            return AnalysisPipeline::posePrint(photo, vision_);
        });
        if (!print)
            measured.problem = print.error().message;
        else if (!record.primary())
            measured.problem = record.error.value_or("No face was found.");
        else
            measured.features = PoseFeatures::of(std::move(*print), record);
        return measured;
    }

private:
    AnalyzedPhoto analyzed(const std::filesystem::path& file) const {
        if (auto stored = analyses_.load(file))
            return {std::move(*stored), AnalyzedPhoto::cameraOf(file)};
        const auto made = ImageLoader::fileSignature(file);
        AnalyzedPhoto photo = AnalyzedPhoto::of(file, vision_);
        // A cache that cannot be written costs time and nothing else.
        if (made) static_cast<void>(analyses_.store(photo.analysis, file, *made));
        return photo;
    }

    const VisionServices& vision_;
    AnalysisCache analyses_;
    PrintCache prints_;
};

void numberGroups(std::vector<PosePhoto>& photos, const std::vector<Measured>& measured) {
    std::vector<const ImageAnalysis*> analyses;
    std::vector<std::string> cameras;
    for (const Measured& one : measured) {
        analyses.push_back(&one.photo.analysis);
        cameras.push_back(one.photo.camera);
    }
    const auto numbers = SubjectGrouping::groupNumbers(analyses, cameras);
    for (std::size_t i = 0; i < photos.size(); ++i) photos[i].group = numbers[i];
}

}  // namespace

Result<std::vector<PosePhoto>> posePhotos(const std::vector<std::filesystem::path>& photos,
                                          int jobs, const Arguments& common, Console& console) {
    const auto vision = openDetectors(common);
    if (!vision) return tl::unexpected(vision.error());
    const Measuring measuring(*vision, common.cacheFolder);
    Interruption::watch();
    console.beginProgress("Measuring", photos.size());
    std::vector<Measured> measured;
    inOrder(
        photos.size(), jobs, Interruption::requested(),
        [&](std::size_t index) { return measuring.of(photos[index]); },
        [&](std::size_t, Measured one) { measured.push_back(std::move(one)); },
        [&](std::size_t finished) { console.progress(finished); });
    console.wipeProgress();
    std::vector<PosePhoto> all;
    for (std::size_t i = 0; i < measured.size(); ++i)
        all.push_back({.file = photos[i],
                       .features = std::move(measured[i].features),
                       .problem = std::move(measured[i].problem)});
    numberGroups(all, measured);
    return all;
}

}  // namespace morva
