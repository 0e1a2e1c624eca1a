// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/jobs/image_item.h"

#include <array>

#include "base/case_names.h"
#include "base/file_url.h"
#include "crop/crop_solver.h"

namespace morva {

namespace {

struct StatusEntry {
    ItemStatus value;
    std::string_view label;
};
constexpr std::array<StatusEntry, 6> statuses{{{ItemStatus::pending, "Not cropped yet"},
                                               {ItemStatus::ready, "Ready"},
                                               {ItemStatus::review, "Review"},
                                               {ItemStatus::approved, "Approved"},
                                               {ItemStatus::failed, "No face"},
                                               {ItemStatus::error, "Couldn't analyze"}}};

std::optional<ImageAnalysis> readableAnalysis(const Json& json) {
    const auto found = json.find("analysis");
    if (found == json.end() || found->is_null()) return std::nullopt;
    try {
        return found->get<ImageAnalysis>();
    } catch (const Json::exception&) {
        return std::nullopt;
    }
}

}  // namespace

std::string_view label(ItemStatus status) { return entryOf(statuses, status).label; }

bool ImageItem::needsAnalysis(const std::optional<FileStamp>& current) const {
    return !analysis || !analysis->isCurrent() || !analyzedStamp || analyzedStamp != current;
}

ItemStatus ImageItem::status(BackdropMode backdrop) const {
    if (!analysis) return ItemStatus::pending;
    if (analysis->detectionFailed) return ItemStatus::error;
    if (!solution) return analysis->faces.empty() ? ItemStatus::failed : ItemStatus::pending;
    if (solution->status == CropStatus::failed) return ItemStatus::failed;
    if (approved) return ItemStatus::approved;
    const bool ready = solution->isReady() && !lacksCanvas(backdrop);
    return ready ? ItemStatus::ready : ItemStatus::review;
}

bool ImageItem::lacksCanvas(BackdropMode backdrop) const {
    if (!analysis || !solution || solution->status == CropStatus::failed) return false;
    const Size source = analysis->sourceSize();
    const auto lacking =
        CropSolver::shortfall(CropSolver::finalRect(*solution, adjustment, source),
                              CropSolver::finalRotation(*solution, adjustment), source);
    if (!lacking) return false;
    return backdrop == BackdropMode::keep ||
           analysis->edgeContact.value_or(EdgeContact{}).blocks(*lacking);
}

void to_json(Json& json, const FileStamp& stamp) {
    json = {{"modified", stamp.modified}, {"size", stamp.size}};
}

void from_json(const Json& json, FileStamp& stamp) {
    stamp.modified = required<double>(json, "modified");
    stamp.size = required<std::int64_t>(json, "size");
}

void to_json(Json& json, const ImageItem& item) {
    json = {
        {"id", item.id}, {"url", fileURL(item.url)}, {"relativePath", fileURL(item.relativePath)}};
    putOptional(json, "analysis", item.analysis);
    json["adjustment"] = item.adjustment;
    json["approved"] = item.approved;
    putOptional(json, "exportedAt", item.exportedAt);
    putOptional(json, "approvedRect", item.approvedRect);
    putOptional(json, "exportedRect", item.exportedRect);
    putOptional(json, "exportedHeight", item.exportedHeight);
    putOptional(json, "presetOverride", item.presetOverride);
    putOptional(json, "analyzedStamp", item.analyzedStamp);
}

void from_json(const Json& json, ImageItem& item) {
    item.id = required<std::string>(json, "id");
    item.url = pathOfFileURL(required<std::string>(json, "url"));
    item.relativePath = pathOfFileURL(required<std::string>(json, "relativePath"));
    item.analysis = readableAnalysis(json);
    readIfPresent(json, "adjustment", item.adjustment);
    readIfPresent(json, "approved", item.approved);
    readIfPresent(json, "exportedAt", item.exportedAt);
    readIfPresent(json, "approvedRect", item.approvedRect);
    readIfPresent(json, "exportedRect", item.exportedRect);
    readIfPresent(json, "exportedHeight", item.exportedHeight);
    readIfPresent(json, "presetOverride", item.presetOverride);
    readIfPresent(json, "analyzedStamp", item.analyzedStamp);
}

}  // namespace morva
