// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/vision_services.h"

#include <future>

#include <opencv2/core/utility.hpp>

#include "vision/class_feature_printer.h"
#include "vision/class_person_segmenter.h"
#include "vision/landmark_body_detector.h"
#include "vision/map_text_detector.h"
#include "vision/mesh_face_detector.h"

namespace morva {

Result<VisionServices> VisionServices::open(const std::filesystem::path& models,
                                            const std::filesystem::path& cache) {
    // A worker has one core; OpenCV would spread every resize over all of them and take them from
    // the other workers.
    cv::setNumThreads(1);
    auto engine = InferenceEngine::create(cache / "models");
    if (!engine) return tl::unexpected(engine.error());
    // Loading keeps one core busy for each.
    auto personsToCome =
        std::async([&engine, &models] { return ClassPersonSegmenter::load(**engine, models); });
    auto textToCome =
        std::async([&engine, &models] { return MapTextDetector::load(**engine, models); });
    const auto faces = MeshFaceDetector::load(**engine, models);
    const auto bodies = LandmarkBodyDetector::load(**engine, models);
    const auto persons = personsToCome.get();
    const auto text = textToCome.get();
    if (!faces) return tl::unexpected(faces.error());
    if (!persons) return tl::unexpected(persons.error());
    if (!bodies) return tl::unexpected(bodies.error());
    if (!text) return tl::unexpected(text.error());
    return VisionServices{*faces,
                          *persons,
                          *bodies,
                          *text,
                          std::make_shared<ClassFeaturePrinter>(*engine, models),
                          (*engine)->timer()};
}

std::filesystem::path VisionServices::modelFolder() {
    std::error_code none;
    const auto programs = std::filesystem::read_symlink("/proc/self/exe", none).parent_path();
    const auto installed = programs.parent_path() / "share/morva/models";
    if (std::filesystem::is_directory(installed, none)) return installed;
    // A build keeps its programs three folders below the project: build/release/bin.
    return programs.parent_path().parent_path().parent_path() / "deps/models";
}

}  // namespace morva
