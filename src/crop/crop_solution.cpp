// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/crop_solution.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/case_names.h"

namespace morva {

namespace {

struct StatusName {
    CropStatus value;
    std::string_view key;
};

constexpr std::array<StatusName, 3> statusNames{
    {{CropStatus::ready, "ready"}, {CropStatus::review, "review"}, {CropStatus::failed, "failed"}}};

}  // namespace

bool CropSolution::has(ReviewReason reason) const {
    return std::ranges::find(reasons, reason) != reasons.end();
}

void to_json(Json& json, CropStatus status) {
    json = std::string(entryOf(statusNames, status).key);
}

void from_json(const Json& json, CropStatus& status) {
    status = caseNamed(statusNames, json, "crop status");
}

void to_json(Json& json, const CropMetrics& metrics) {
    json = {{"faceScale", metrics.faceScale},
            {"anchorX", metrics.anchorX},
            {"eyeLine", metrics.eyeLine},
            {"chinLine", metrics.chinLine}};
    putOptional(json, "headroom", metrics.headroom);
    putOptional(json, "sideClearanceLeft", metrics.sideClearanceLeft);
    putOptional(json, "sideClearanceRight", metrics.sideClearanceRight);
    putOptional(json, "headHeightInFaceUnits", metrics.headHeightInFaceUnits);
    putOptional(json, "propZoom", metrics.propZoom);
}

void from_json(const Json& json, CropMetrics& metrics) {
    metrics.faceScale = required<double>(json, "faceScale");
    metrics.anchorX = required<double>(json, "anchorX");
    metrics.eyeLine = required<double>(json, "eyeLine");
    metrics.chinLine = required<double>(json, "chinLine");
    readIfPresent(json, "headroom", metrics.headroom);
    readIfPresent(json, "sideClearanceLeft", metrics.sideClearanceLeft);
    readIfPresent(json, "sideClearanceRight", metrics.sideClearanceRight);
    readIfPresent(json, "headHeightInFaceUnits", metrics.headHeightInFaceUnits);
    readIfPresent(json, "propZoom", metrics.propZoom);
}

void to_json(Json& json, const CropSolution& solution) {
    json = {{"rect", solution.rect},       {"rotationDegrees", solution.rotationDegrees},
            {"anchor", solution.anchor},   {"status", solution.status},
            {"reasons", solution.reasons}, {"confidence", solution.confidence}};
    putOptional(json, "metrics", solution.metrics);
    putOptional(json, "shortfall", solution.shortfall);
    json["notes"] = solution.notes;
    json["canvasExtendable"] = solution.canvasExtendable;
}

void from_json(const Json& json, CropSolution& solution) {
    solution.rect = required<Rect>(json, "rect");
    solution.rotationDegrees = required<double>(json, "rotationDegrees");
    solution.anchor = required<Point>(json, "anchor");
    solution.status = required<CropStatus>(json, "status");
    solution.reasons = required<std::vector<ReviewReason>>(json, "reasons");
    solution.confidence = required<double>(json, "confidence");
    readIfPresent(json, "metrics", solution.metrics);
    readIfPresent(json, "shortfall", solution.shortfall);
    solution.notes = required<std::vector<std::string>>(json, "notes");
    solution.canvasExtendable = required<bool>(json, "canvasExtendable");
}

}  // namespace morva
