// SPDX-License-Identifier: GPL-3.0-or-later
// The measured photos of a job, camera by camera in the order of their times. Tells which photos a
// newly measured one speaks for without a look at all the others, so that a crop run in a large job
// costs what arrives. Kept by `WorkingJob`, asked by `JobSolver`; never opens or solves a photo.
#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "model/jobs/job.h"

namespace morva {

class JobTimeline {
public:
    /// Of the job's photos as they are measured now.
    explicit JobTimeline(const Job& job);

    /// Takes over what is now measured of these photos of the same job, whose other photos are as
    /// they were. Returns in rising order these and all that were or are in a group with one of
    /// them: whole groups of `SubjectGrouping`, at its default gap.
    std::vector<std::size_t> remeasured(const Job& job, std::span<const std::size_t> photos);

    /// As `CropRules::ratingsInUse` says of all photos.
    bool ratingsInUse() const { return rated_ > 0; }

private:
    /// Capture time in seconds, and the photo's place in the job.
    using Moment = std::pair<double, std::size_t>;
    using Camera = std::set<Moment>;
    struct Entry {
        std::size_t camera = 0;
        std::optional<double> time;
        bool isRated = false;
    };

    void take(const ImageItem& item, std::size_t photo);
    std::size_t cameraOf(const ImageItem& item);
    /// Each photo with its group, if it has a time.
    void addGroups(std::set<std::size_t>& found, std::span<const std::size_t> photos) const;

    std::vector<Entry> entries_;
    std::vector<Camera> cameras_;
    std::unordered_map<std::string, std::size_t> cameraNumbers_;
    int rated_ = 0;
};

}  // namespace morva
