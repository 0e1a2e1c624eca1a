// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/export_plan.h"

#include <cmath>

#include "model/presets/preset_library.h"
#include "output/export_paths.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

bool isSameCrop(const Rect& a, const Rect& b) {
    const auto near = [](double one, double other) {
        return std::abs(one - other) < ExportPlan::sameCrop;
    };
    return near(a.x, b.x) && near(a.y, b.y) && near(a.width, b.width) && near(a.height, b.height);
}

/// What a photo's file would show differs from the file as far as is remembered.
bool isOutdated(const ImageItem& item, const Rect& rect, const ExportSettings& settings) {
    return item.exportedHeight != settings.pixelHeight || !item.exportedRect ||
           !isSameCrop(*item.exportedRect, rect);
}

}  // namespace

bool isExportCandidate(ItemStatus status, bool approvedOnly) {
    return status == ItemStatus::approved || (status == ItemStatus::ready && !approvedOnly);
}

ExportPlan ExportPlan::counted(const WorkingJob& job, std::span<const CropPreset> presets,
                               const Wishes& wishes,
                               const std::function<bool(std::size_t)>& isThere) {
    ExportPlan plan;
    for (std::size_t i = 0; i < job.job().items.size(); ++i) {
        const ItemStatus status = job.status(i);
        if (!isExportCandidate(status, wishes.approvedOnly)) {
            ++(status == ItemStatus::pending ? plan.pending : plan.review);
            continue;
        }
        const bool due =
            wishes.replaceExisting ||
            isOutdated(
                job.item(i), *job.finalRect(i),
                PresetLibrary::presetWith(job.solvedWith(i).presetID, presets)->exportSettings) ||
            !isThere(i);
        if (due)
            plan.write.push_back(i);
        else
            ++plan.unchanged;
    }
    return plan;
}

ExportPlan ExportPlan::of(const WorkingJob& job, std::span<const CropPreset> presets,
                          const Wishes& wishes,
                          const std::function<bool(const fs::path&)>& isThere) {
    // All photos take part in the naming, or a name would depend on what else is written.
    std::vector<fs::path> sources;
    sources.reserve(job.job().items.size());
    for (const ImageItem& item : job.job().items) sources.push_back(item.url);
    const auto files = Exporter::destinationURLs(sources, job.job().folderURL, wishes.destination);

    ExportPlan plan = counted(job, presets, wishes,
                              [&](std::size_t i) { return isThere(files.at(job.item(i).url)); });
    for (const std::size_t i : plan.write) {
        const fs::path& source = job.item(i).url;
        plan.destinations.emplace(source, files.at(source));
    }
    return plan;
}

}  // namespace morva
