// SPDX-License-Identifier: GPL-3.0-or-later
// A job as large as a school, with all that a real record holds; its photos need not exist.
#pragma once

#include <filesystem>
#include <string>
#include <utility>

#include "base/file_url.h"
#include "crop/crop_rules.h"
#include "crop/synthetic_portrait.h"
#include "model/jobs/job.h"
#include "model/presets/preset_library.h"

namespace morva {

/// Three frames a child, a child a minute, in `folder`.
inline Job largeJob(int photoCount,
                    const std::filesystem::path& folder = "/home/photographer/pictures/school") {
    Job job;
    job.name = "School";
    job.folderURL = folder;
    job.presetID = PresetLibrary::headshotID();
    job.rules = CropRules::defaults(PresetLibrary::standardLibrary());
    for (int i = 0; i < photoCount; ++i) {
        ImageItem item;
        item.relativePath =
            "class " + std::to_string(i / 30) + "/IMG_" + std::to_string(i) + ".jpg";
        item.url = job.folderURL / item.relativePath;
        item.id = fileURL(item.relativePath);
        const Point shift{i % 17 * 3.123456789, i % 13 * 2.123456789};
        item.analysis = Synthetic::holding(Synthetic::movedBy(Synthetic::portrait(), shift),
                                           {1300.123456, 600.2345678, 1500.3456, 3800.4567});
        item.analysis->backdropColor = {0.1234567891, 0.2345678912, 0.3456789123};
        item.analysis->edgeContact = EdgeContact{.bottom = true};
        item.analysis->rating = i % 11 == 0 ? 4 : 0;
        item.analysis->captureTime = 1.7e9 + i / 3 * 60 + i % 3 * 4;
        item.analysis->analysisSeconds = 0.123456789;
        item.analyzedStamp = FileStamp{1.7e9 + i + 0.123456, 8000000 + i};
        item.approved = i % 2 == 0;
        if (item.approved) item.approvedRect = Rect{100.5 + i, 200.25, 1600.125, 2000.0625};
        job.items.push_back(std::move(item));
    }
    return job;
}

}  // namespace morva
