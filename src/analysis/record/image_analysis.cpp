// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/record/image_analysis.h"

namespace morva {

Size ImageAnalysis::sourceSize() const {
    return {static_cast<double>(sourceWidth), static_cast<double>(sourceHeight)};
}

const FaceGeometry* ImageAnalysis::primary() const {
    return faces.empty() ? nullptr : &faces.front();
}

void to_json(Json& json, const ImageAnalysis& analysis) {
    json = {{"version", analysis.version},
            {"sourceWidth", analysis.sourceWidth},
            {"sourceHeight", analysis.sourceHeight},
            {"faces", analysis.faces}};
    putOptional(json, "headContent", analysis.headContent);
    json["analysisSeconds"] = analysis.analysisSeconds;
    putOptional(json, "error", analysis.error);
    json["detectionFailed"] = analysis.detectionFailed;
    putOptional(json, "body", analysis.body);
    putOptional(json, "rating", analysis.rating);
    putOptional(json, "label", analysis.label);
    json["signDetected"] = analysis.signDetected;
    json["tags"] = analysis.tags;
    putOptional(json, "backdropColor", analysis.backdropColor);
    putOptional(json, "subject", analysis.subject);
    putOptional(json, "edgeContact", analysis.edgeContact);
    putOptional(json, "captureTime", analysis.captureTime);
}

void from_json(const Json& json, ImageAnalysis& analysis) {
    analysis.version = 0;
    readIfPresent(json, "version", analysis.version);
    analysis.sourceWidth = required<int>(json, "sourceWidth");
    analysis.sourceHeight = required<int>(json, "sourceHeight");
    readIfPresent(json, "faces", analysis.faces);
    readIfPresent(json, "headContent", analysis.headContent);
    readIfPresent(json, "analysisSeconds", analysis.analysisSeconds);
    readIfPresent(json, "error", analysis.error);
    readIfPresent(json, "detectionFailed", analysis.detectionFailed);
    readIfPresent(json, "body", analysis.body);
    readIfPresent(json, "rating", analysis.rating);
    readIfPresent(json, "label", analysis.label);
    readIfPresent(json, "signDetected", analysis.signDetected);
    readIfPresent(json, "tags", analysis.tags);
    readIfPresent(json, "backdropColor", analysis.backdropColor);
    readIfPresent(json, "subject", analysis.subject);
    readIfPresent(json, "edgeContact", analysis.edgeContact);
    readIfPresent(json, "captureTime", analysis.captureTime);
}

}  // namespace morva
