// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/reference_analyzer.h"

#include <cassert>
#include <chrono>
#include <cmath>

#include "analysis/analysis_pipeline.h"

namespace morva::ReferenceAnalyzer {

namespace {

double secondsSince1970() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration<double>(now).count();
}

}  // namespace

std::string message(Failure failure) {
    return failure == Failure::noFace ? "No face was found in the reference image."
                                      : "Could not read the reference image.";
}

tl::expected<Measured, Failure> measure(const std::filesystem::path& file,
                                        const VisionServices& vision) {
    ImageAnalysis analysis = AnalysisPipeline::analyze(file, vision);
    if (analysis.sourceWidth == 0) return tl::unexpected(Failure::unreadable);
    const FaceGeometry* face = analysis.primary();
    if (!face) return tl::unexpected(Failure::noFace);
    ReferenceGeometry reference = measure(*face, analysis.headContent, analysis.sourceSize(),
                                          file.filename().string(), secondsSince1970());
    return Measured{std::move(reference), std::move(analysis)};
}

ReferenceGeometry measure(const FaceGeometry& face, const std::optional<HeadContent>& head,
                          Size imageSize, const std::string& name, double date) {
    assert(std::isfinite(imageSize.width) && std::isfinite(imageSize.height));
    const auto [width, height] = imageSize;
    ReferenceGeometry reference{.sourceName = name,
                                .cropWidth = static_cast<int>(width),
                                .cropHeight = static_cast<int>(height),
                                .faceScale = face.faceUnit() / height,
                                .eyeX = face.eyeMidpoint().x / width,
                                .eyeY = face.eyeMidpoint().y / height,
                                .chinX = face.chin.x / width,
                                .chinY = face.chin.y / height,
                                .faceCenterX = face.faceCenter().x / width,
                                .headTopY = {},
                                .aspect = width / height,
                                .landmarkConfidence = face.landmarkConfidence,
                                .measuredAt = date};
    if (head && head->reliable) reference.headTopY = head->topY / height;
    return reference;
}

}  // namespace morva::ReferenceAnalyzer
