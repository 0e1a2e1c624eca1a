// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/working_job.h"

#include <algorithm>
#include <numeric>

#include "crop/crop_solver.h"
#include "model/presets/preset_library.h"

namespace morva {

namespace {

BackdropMode backdropOf(const Uuid& preset, WorkingJob::Presets presets) {
    const CropPreset* found = PresetLibrary::presetWith(preset, presets);
    return found ? found->exportSettings.backdrop : BackdropMode::keep;
}

}  // namespace

WorkingJob::WorkingJob(Job job) : job_(std::move(job)), timeline_(Job()) { indexItems(); }

void WorkingJob::replaceItems(std::vector<ImageItem> items) {
    job_.items = std::move(items);
    indexItems();
}

void WorkingJob::indexItems() {
    isStale_ = true;
    plan_.assign(job_.items.size(), {});
    statuses_.assign(job_.items.size(), ItemStatus::pending);
    counts_.fill(0);
    counts_[static_cast<std::size_t>(ItemStatus::pending)] = static_cast<int>(job_.items.size());
    byID_.clear();
    byFile_.clear();
    for (std::size_t i = 0; i < job_.items.size(); ++i) {
        byID_.emplace(job_.items[i].id, i);
        byFile_.emplace(job_.items[i].url.native(), i);
    }
}

void WorkingJob::solve(Presets presets) {
    plan_ = JobSolver::solve(job_, presets);
    timeline_ = JobTimeline(job_);
    for (std::size_t i = 0; i < job_.items.size(); ++i) setStatus(i, presets);
    isStale_ = false;
}

std::vector<std::size_t> WorkingJob::solveStale(Presets presets) {
    solve(presets);
    std::vector<std::size_t> all(job_.items.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    return all;
}

std::vector<std::size_t> WorkingJob::update(Presets presets, std::span<const Uuid> edited) {
    if (isStale_) return solveStale(presets);
    auto solved = JobSolver::update(job_, presets, plan_, edited);
    for (const std::size_t i : solved) setStatus(i, presets);
    return solved;
}

std::vector<std::size_t> WorkingJob::remeasured(Presets presets,
                                                std::span<const std::size_t> photos) {
    if (isStale_) return solveStale(presets);
    auto solved = JobSolver::remeasured(job_, presets, plan_, timeline_, photos);
    for (const std::size_t i : solved) setStatus(i, presets);
    return solved;
}

void WorkingJob::refresh(std::size_t index, Presets presets) { setStatus(index, presets); }

void WorkingJob::setStatus(std::size_t index, Presets presets) {
    const ImageItem& item = job_.items[index];
    const ItemStatus status = item.status(backdropOf(plan_[index].presetID, presets));
    --counts_[static_cast<std::size_t>(statuses_[index])];
    ++counts_[static_cast<std::size_t>(status)];
    statuses_[index] = status;
}

std::optional<std::size_t> WorkingJob::indexOf(std::string_view itemID) const {
    const auto found = byID_.find(std::string(itemID));
    return found == byID_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::size_t> WorkingJob::indexOfFile(const std::filesystem::path& file) const {
    const auto found = byFile_.find(file.native());
    return found == byFile_.end() ? std::nullopt : std::optional(found->second);
}

bool WorkingJob::matches(std::size_t index, StatusFilter filter) const {
    return morva::matches(filter, statuses_[index], job_.items[index].hasAdjustment());
}

int WorkingJob::count(StatusFilter filter) const {
    int count = 0;
    for (std::size_t i = 0; i < statuses_.size(); ++i) count += matches(i, filter) ? 1 : 0;
    return count;
}

std::vector<std::size_t> WorkingJob::matching(StatusFilter filter) const {
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < statuses_.size(); ++i)
        if (matches(i, filter)) found.push_back(i);
    return found;
}

std::optional<Rect> WorkingJob::finalRect(std::size_t index) const {
    const ImageItem& photo = job_.items[index];
    if (!photo.solution || photo.solution->status == CropStatus::failed) return std::nullopt;
    return CropSolver::finalRect(*photo.solution, photo.adjustment, photo.analysis->sourceSize());
}

std::optional<CanvasShortfall> WorkingJob::canvasToAdd(std::size_t index) const {
    const auto rect = finalRect(index);
    if (!rect) return std::nullopt;
    const ImageItem& photo = job_.items[index];
    return CropSolver::shortfall(*rect,
                                 CropSolver::finalRotation(*photo.solution, photo.adjustment),
                                 photo.analysis->sourceSize());
}

bool WorkingJob::lacksCanvas(std::size_t index, Presets presets) const {
    return job_.items[index].lacksCanvas(backdropOf(plan_[index].presetID, presets));
}

ThumbnailStore::Request WorkingJob::preview(std::size_t index, Presets presets, int height) const {
    const ImageItem& photo = job_.items[index];
    ThumbnailStore::Request request{.url = photo.url,
                                    .rect = finalRect(index),
                                    .rotation = 0,
                                    .height = height,
                                    .fill = {},
                                    .stamp = photo.analyzedStamp};
    if (!request.rect) return request;
    request.rotation = CropSolver::finalRotation(*photo.solution, photo.adjustment);
    const CropPreset* preset = PresetLibrary::presetWith(plan_[index].presetID, presets);
    if (!preset || preset->exportSettings.backdrop == BackdropMode::keep) return request;
    const auto& color = preset->exportSettings.backdropColor;
    if (preset->exportSettings.backdrop == BackdropMode::replace && color)
        request.fill.assign(color->begin(), color->end());
    else if (photo.analysis->backdropColor)
        request.fill = *photo.analysis->backdropColor;
    return request;
}

std::vector<ReviewReason> WorkingJob::reasons(std::size_t index) const {
    const ImageItem& photo = job_.items[index];
    if (!photo.solution) return {};
    std::vector<ReviewReason> reasons = photo.solution->reasons;
    if (!photo.hasAdjustment()) return reasons;
    const bool had = photo.solution->has(ReviewReason::needsMoreCanvas);
    const bool lacks = canvasToAdd(index).has_value();
    if (had && !lacks) std::erase(reasons, ReviewReason::needsMoreCanvas);
    // A crop that was clean and went to review by hand reached past what a backdrop may fill.
    if (!had && photo.solution->isReady() && statuses_[index] == ItemStatus::review)
        reasons.push_back(ReviewReason::needsMoreCanvas);
    return reasons;
}

}  // namespace morva
