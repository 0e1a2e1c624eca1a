// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/analysis_pipeline.h"

#include "analysis/backdrop_sampler.h"
#include "analysis/body_analyzer.h"
#include "analysis/head_protector.h"
#include "analysis/main_person.h"
#include "analysis/metadata_reader.h"
#include "analysis/skin_chin.h"
#include "analysis/subject_analyzer.h"
#include "imaging/decode.h"
#include "poses/tag_classifier_slot.h"
#include "vision/picture_region.h"

namespace morva::AnalysisPipeline {

namespace {

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void readMetadata(ImageAnalysis& record, const std::filesystem::path& file) {
    const MetadataReader::PhotoMetadata values = MetadataReader::read(file);
    record.rating = values.rating;
    record.captureTime = values.captureTime;
    record.label = values.label;
}

void findFaces(ImageAnalysis& record, const AnalysisImage& loaded, const VisionServices& vision) {
    auto faces = FaceAnalyzer::detectFaces(*vision.faces, loaded.image, loaded.sourceSize);
    if (!faces) {
        record.detectionFailed = true;
        record.error = "Face detection failed: " + faces.error().message;
        return;
    }
    record.faces = std::move(*faces);
    if (record.faces.empty()) record.error = "No face was found.";
}

/// Without a mask the outline stays absent, which sends the photo to review.
void measureOutline(ImageAnalysis& record, const AnalysisImage& loaded,
                    const PersonSegmenter& persons, std::span<const BodyObservation> bodies) {
    const FaceGeometry& face = record.faces.front();
    const auto mask = HeadProtector::personMask(persons, loaded, face);
    if (!mask) return;
    const MainPerson child = mainPerson(*mask, loaded, record.faces, bodies);
    record.headContent = HeadProtector::headContent(child.mask, face, loaded.sourceSize);
    record.edgeContact = HeadProtector::edgeContact(*mask);
    // Both would reduce the image to this size.
    const AnalysisImage small{smallCopy(loaded.image, SubjectAnalyzer::workingSide),
                              loaded.sourceSize};
    record.backdropColor = BackdropSampler::color(small.image, *mask);
    record.subject = SubjectAnalyzer::subject(small, child, *mask, face, record.backdropColor);
}

/// The one value that all analyses of the process share besides the models.
TagClassifierSlot& tagClassifier() {
    static TagClassifierSlot slot;
    return slot;
}

std::vector<std::string> tagsOf(const ImageAnalysis& record, const Picture& image,
                                const VisionServices& vision) {
    if (!vision.prints) return {};
    const auto classifier = tagClassifier().classifier();
    return classifier ? classifier->tags(*vision.prints, image, record)
                      : std::vector<std::string>{};
}

/// Runs the steps one after the other; false when the user wanted it to stop before the last.
template <class... Step>
bool inSteps(const std::stop_token& stop, Step... step) {
    return ((!stop.stop_requested() && (step(), true)) && ...);
}

/// Everything that is measured around the main face; false when it was stopped.
bool measureChild(ImageAnalysis& record, const AnalysisImage& loaded,
                  const std::optional<CloseUps>& closeUps, const VisionServices& vision,
                  const std::stop_token& stop) {
    FaceGeometry& main = record.faces.front();
    std::vector<BodyObservation> bodies;
    return inSteps(
        stop,
        [&] {
            if (closeUps)
                main = FaceAnalyzer::refine(*vision.faces, main, *closeUps, refineMaxPixel,
                                            loaded.sourceSize);
        },
        [&] { main = withSkinChin(*vision.persons, loaded, main); },
        // Without a working detector the body stays absent.
        [&] {
            bodies = BodyAnalyzer::observe(*vision.bodies, loaded, record.faces)
                         .value_or(std::vector<BodyObservation>{});
        },
        [&] { measureOutline(record, loaded, *vision.persons, bodies); },
        [&] { record.body = BodyAnalyzer::detect(bodies, loaded, record.faces); },
        [&] {
            record.signDetected =
                SignDetector::detect(*vision.text, loaded, closeUps, record.faces);
        },
        [&] { record.tags = tagsOf(record, loaded.image, vision); });
}

/// Nothing when it was stopped.
std::optional<ImageAnalysis> measured(const AnalysisImage& loaded,
                                      const std::optional<CloseUps>& closeUps,
                                      const std::optional<std::filesystem::path>& metadata,
                                      Clock::time_point startedAt, const VisionServices& vision,
                                      const std::stop_token& stop) {
    ImageAnalysis record;
    record.sourceWidth = static_cast<int>(loaded.sourceSize.width);
    record.sourceHeight = static_cast<int>(loaded.sourceSize.height);
    if (metadata) readMetadata(record, *metadata);
    const bool isWhole =
        inSteps(stop, [&] { findFaces(record, loaded, vision); }) &&
        (record.faces.empty() || measureChild(record, loaded, closeUps, vision, stop));
    if (!isWhole) return std::nullopt;
    record.analysisSeconds = secondsSince(startedAt);
    return record;
}

ImageAnalysis unreadable(Clock::time_point startedAt) {
    ImageAnalysis record;
    record.error = "Could not read this image.";
    record.detectionFailed = true;
    record.analysisSeconds = secondsSince(startedAt);
    return record;
}

}  // namespace

ImageAnalysis analyze(const std::filesystem::path& file, const VisionServices& vision) {
    return *analyze(file, vision, std::stop_token());
}

std::optional<ImageAnalysis> analyze(const std::filesystem::path& file,
                                     const VisionServices& vision, const std::stop_token& stop) {
    const Clock::time_point startedAt = Clock::now();
    if (stop.stop_requested()) return std::nullopt;
    const auto photo = PhotoDecode::open(file, refineMaxPixel);
    if (stop.stop_requested()) return std::nullopt;
    if (!photo) return unreadable(startedAt);
    const AnalysisImage loaded{
        photo->whole(analysisMaxPixel),
        {static_cast<double>(photo->sourceWidth()), static_cast<double>(photo->sourceHeight())}};
    const CloseUps closeUps{photo->finestSide(),
                            [&](int longestSide) { return photo->reducedSize(longestSide); },
                            [&](int longestSide, int x, int y, int width, int height) {
                                return photo->region(longestSide, x, y, width, height);
                            }};
    return measured(loaded, closeUps, file, startedAt, vision, stop);
}

ImageAnalysis analyze(const AnalysisImage& loaded, const std::optional<CloseUps>& closeUps,
                      const std::optional<std::filesystem::path>& metadata,
                      Clock::time_point startedAt, const VisionServices& vision) {
    return *measured(loaded, closeUps, metadata, startedAt, vision, std::stop_token());
}

Result<std::vector<float>> posePrint(const std::filesystem::path& file,
                                     const VisionServices& vision) {
    return PhotoDecode::open(file, refineMaxPixel)
        .and_then([&](const PhotoDecode& photo) {
            return PoseFeatures::print(*vision.prints, photo.whole(analysisMaxPixel));
        })
        .map_error([&](const Failure& why) {
            return Failure{file.filename().string() + ": " + why.message};
        });
}

void reloadTags() { tagClassifier().reload(); }

void readTaughtPosesFrom(const std::filesystem::path& dataFolder) {
    tagClassifier().readTaughtPosesFrom(dataFolder);
}

}  // namespace morva::AnalysisPipeline
