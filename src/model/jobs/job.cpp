// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/jobs/job.h"

#include <string_view>

#include "base/file_url.h"

namespace morva {

namespace {

/// A copy of everything but the photos.
Job withoutItems(const Job& job) {
    return {.id = job.id,
            .name = job.name,
            .folderURL = job.folderURL,
            .presetID = job.presetID,
            .items = {},
            .exportFolder = job.exportFolder,
            .lastExportAt = job.lastExportAt,
            .createdAt = job.createdAt,
            .autoAssign = job.autoAssign,
            .rules = job.rules,
            .showsFeet = job.showsFeet};
}

}  // namespace

void to_json(Json& json, const Job& job) {
    json = {{"id", job.id},
            {"name", job.name},
            {"folderURL", fileURL(job.folderURL)},
            {"presetID", job.presetID},
            {"items", job.items}};
    if (job.exportFolder) json["exportFolder"] = fileURL(*job.exportFolder);
    putOptional(json, "lastExportAt", job.lastExportAt);
    json["createdAt"] = job.createdAt;
    json["autoAssign"] = job.autoAssign;
    json["rules"] = job.rules;
    putOptional(json, "showsFeet", job.showsFeet);
}

std::string jobText(const Job& job) {
    std::string text = jsonText(Json(withoutItems(job)));
    // Quotes in names are escaped, so this stands only where the photos belong.
    constexpr std::string_view noItems = "\"items\":[]";
    std::string items = "\"items\":[";
    for (const ImageItem& item : job.items) {
        items += &item == job.items.data() ? "\n" : ",\n";
        items += jsonText(Json(item));
    }
    items += "]";
    return text.replace(text.find(noItems), noItems.size(), items);
}

void from_json(const Json& json, Job& job) {
    job.id = required<Uuid>(json, "id");
    job.name = required<std::string>(json, "name");
    job.folderURL = pathOfFileURL(required<std::string>(json, "folderURL"));
    job.presetID = required<Uuid>(json, "presetID");
    job.items = required<std::vector<ImageItem>>(json, "items");
    std::optional<std::string> exportFolder;
    readIfPresent(json, "exportFolder", exportFolder);
    if (exportFolder) job.exportFolder = pathOfFileURL(*exportFolder);
    readIfPresent(json, "lastExportAt", job.lastExportAt);
    job.createdAt = required<double>(json, "createdAt");
    readIfPresent(json, "autoAssign", job.autoAssign);
    readIfPresent(json, "rules", job.rules);
    readIfPresent(json, "showsFeet", job.showsFeet);
}

}  // namespace morva
