// SPDX-License-Identifier: GPL-3.0-or-later
// A job in memory: the stored record and everything that follows from it (solutions, statuses,
// counts, where each photo is). Changed by the application state on the main thread only; whoever
// changes a photo says so, and what follows is brought up to date.
#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "app/app_types.h"
#include "app/thumbnail_store.h"
#include "model/jobs/job.h"
#include "model/jobs/job_solver.h"
#include "model/presets/crop_preset.h"

namespace morva {

class WorkingJob {
public:
    using Presets = std::span<const CropPreset>;

    /// Not solved yet.
    explicit WorkingJob(Job job);

    const Job& job() const { return job_; }
    const Uuid& id() const { return job_.id; }
    const ImageItem& item(std::size_t index) const { return job_.items[index]; }

    /// What no solution depends on: name, export folder and time, the answer about feet.
    Job& facts() { return job_; }
    /// Followed by `solve`, by `update` for the photo's preset or `remeasured` for its analysis, or
    /// by `refresh` for what no solution depends on.
    ImageItem& itemToChange(std::size_t index) { return job_.items[index]; }
    /// Preset, automatic choice and rules; followed by `update`.
    Job& choices() { return job_; }

    /// Takes other photos; followed by `solve`.
    void replaceItems(std::vector<ImageItem> items);

    /// Solves every photo.
    void solve(Presets presets);
    /// Solves what other choices or the presets in `edited` reach. Returns the photos whose
    /// solution or status may be another.
    std::vector<std::size_t> update(Presets presets, std::span<const Uuid> edited = {});
    /// The same for other analyses of `photos`, in a time that the rest of the job adds nothing to.
    std::vector<std::size_t> remeasured(Presets presets, std::span<const std::size_t> photos);
    /// A decision about the photo changed.
    void refresh(std::size_t index, Presets presets);

    /// Set when presets changed while the job was not looked at, until it is solved.
    bool isStale() const { return isStale_; }
    void markStale() { isStale_ = true; }

    ItemStatus status(std::size_t index) const { return statuses_[index]; }
    const SolvedWith& solvedWith(std::size_t index) const { return plan_[index]; }
    std::optional<std::size_t> indexOf(std::string_view itemID) const;
    std::optional<std::size_t> indexOfFile(const std::filesystem::path& file) const;

    /// Photos that the filter shows.
    int count(StatusFilter filter) const;
    std::vector<std::size_t> matching(StatusFilter filter) const;
    bool matches(std::size_t index, StatusFilter filter) const;
    /// Photos of one status.
    int count(ItemStatus status) const { return counts_[static_cast<std::size_t>(status)]; }

    /// The crop as adjusted by hand; nothing without a crop.
    std::optional<Rect> finalRect(std::size_t index) const;
    /// The canvas that the crop as adjusted lacks.
    std::optional<CanvasShortfall> canvasToAdd(std::size_t index) const;
    /// Some of that canvas is missing: no backdrop may fill it.
    bool lacksCanvas(std::size_t index, Presets presets) const;
    /// What a preview of the photo shows: the crop as adjusted on the backdrop that fills it, or
    /// the whole photo where there is no crop. `height` in pixels.
    ThumbnailStore::Request preview(std::size_t index, Presets presets, int height) const;
    /// The findings that hold for the crop as adjusted: missing canvas comes and goes with it.
    std::vector<ReviewReason> reasons(std::size_t index) const;

private:
    void indexItems();
    std::vector<std::size_t> solveStale(Presets presets);
    void setStatus(std::size_t index, Presets presets);

    Job job_;
    JobPlan plan_;
    JobTimeline timeline_;
    std::vector<ItemStatus> statuses_;
    std::array<int, 6> counts_{};
    std::unordered_map<std::string, std::size_t> byID_;
    std::unordered_map<std::string, std::size_t> byFile_;
    bool isStale_ = true;
};

}  // namespace morva
