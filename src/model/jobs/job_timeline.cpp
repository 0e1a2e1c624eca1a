// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/jobs/job_timeline.h"

#include <iterator>

#include "crop/crop_rules.h"
#include "crop/subject_grouping.h"

namespace morva {

JobTimeline::JobTimeline(const Job& job) : entries_(job.items.size()) {
    for (std::size_t i = 0; i < job.items.size(); ++i) take(job.items[i], i);
}

std::vector<std::size_t> JobTimeline::remeasured(const Job& job,
                                                 std::span<const std::size_t> photos) {
    std::set<std::size_t> before;
    addGroups(before, photos);
    for (const std::size_t photo : photos) take(job.items[photo], photo);
    // Beside those from before, for a group that grew is found only by looking from its new frame.
    std::set<std::size_t> after;
    addGroups(after, photos);
    after.merge(before);
    return {after.begin(), after.end()};
}

void JobTimeline::take(const ImageItem& item, std::size_t photo) {
    Entry& entry = entries_[photo];
    if (entry.time) cameras_[entry.camera].erase({*entry.time, photo});
    entry.time = item.analysis ? item.analysis->captureTime : std::nullopt;
    if (entry.time) {
        entry.camera = cameraOf(item);
        // Most photos come in the order in which they were taken.
        cameras_[entry.camera].emplace_hint(cameras_[entry.camera].end(), *entry.time, photo);
    }
    const ImageAnalysis* analysis = item.analysis ? &*item.analysis : nullptr;
    const bool isRated = CropRules::ratingsInUse({&analysis, 1});
    rated_ += (isRated ? 1 : 0) - (entry.isRated ? 1 : 0);
    entry.isRated = isRated;
}

std::size_t JobTimeline::cameraOf(const ImageItem& item) {
    const auto [at, isNew] =
        cameraNumbers_.try_emplace(SubjectGrouping::cameraKey(item.url), cameras_.size());
    if (isNew) cameras_.emplace_back();
    return at->second;
}

void JobTimeline::addGroups(std::set<std::size_t>& found,
                            std::span<const std::size_t> photos) const {
    const auto joins = [](const Moment& one, const Moment& next) {
        return next.first - one.first <= SubjectGrouping::defaultGapSeconds;
    };
    for (const std::size_t photo : photos) {
        const Entry& entry = entries_[photo];
        // Found with another of its group, which is then found as a whole.
        if (!found.insert(photo).second || !entry.time) continue;
        const Camera& camera = cameras_[entry.camera];
        const auto own = camera.find({*entry.time, photo});
        for (auto at = own; at != camera.begin() && joins(*std::prev(at), *at);)
            found.insert((--at)->second);
        for (auto at = std::next(own); at != camera.end() && joins(*std::prev(at), *at); ++at)
            found.insert(at->second);
    }
}

}  // namespace morva
