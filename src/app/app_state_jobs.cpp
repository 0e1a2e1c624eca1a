// SPDX-License-Identifier: GPL-3.0-or-later
// Import, rescan, removal and the crop run.
#include <algorithm>
#include <atomic>
#include <utility>

#include "analysis/image_loader.h"
#include "app/alert_texts.h"
#include "app/app_state.h"
#include "app/backdrop_setup.h"
#include "app/crop_run.h"
#include "model/presets/preset_library.h"
#include "output/export_paths.h"

namespace morva {

namespace {

/// Often enough for a bar that moves, seldom enough for the event loop.
constexpr int newsEvery = 64;

bool hasCurrentAnalysis(const ImageItem& item) {
    return item.analysis && item.analysis->isCurrent();
}

/// The photos whose analysis is missing or not of the file as it is now.
std::vector<std::filesystem::path> thoseToAnalyze(const std::vector<KnownPhoto>& photos,
                                                  const std::vector<bool>& isMeasured, bool force,
                                                  const std::atomic<bool>& stop) {
    std::vector<std::filesystem::path> targets;
    for (std::size_t i = 0; i < photos.size() && !stop; ++i) {
        const bool holds = !force && isMeasured[i] && photos[i].stamp &&
                           photos[i].stamp == ImageLoader::fileSignature(photos[i].url);
        if (!holds) targets.push_back(photos[i].url);
    }
    return targets;
}

}  // namespace

void AppState::importFolder() { emit folderWanted("Choose a folder of portraits", "Import"); }

void AppState::openFolder(const Path& chosen) {
    const Path folder = Exporter::standardized(chosen);
    const std::string place = Exporter::canonicalPath(folder);
    std::optional<Uuid> known;
    std::vector<KnownPhoto> photos;
    for (const auto& job : jobs_) {
        if (Exporter::canonicalPath(job->job().folderURL) != place) continue;
        known = job->id();
        photos = KnownPhoto::of(job->job().items);
    }
    if (known) selectJob(*known);
    if (known && isReadOnly()) return;
    const StopFlag stop = std::make_shared<std::atomic<bool>>(false);
    const auto cancel = [this, stop] {
        *stop = true;
        endTask();
    };
    if (!beginTask("Importing " + folder.filename().string(), cancel)) return;
    // A job of a folder that is reached by another path keeps the paths it knows.
    const Path root = known ? job(*known)->job().folderURL : folder;
    background_.run(
        [this, root, photos, stop, cache = cache_, news = background_.mainThread()] {
            return FolderReading::of(root, photos, cache, *stop, [&](int done, int total) {
                if (done % newsEvery != 0) return;
                news([this, stop, done, total] {
                    if (!*stop) taskProgress(done, total);
                });
            });
        },
        [this, root, known, stop](Result<FolderReading> reading) {
            if (*stop) return;
            endTask();
            imported(root, known, std::move(reading));
        });
}

void AppState::imported(const Path& folder, const std::optional<Uuid>& known,
                        Result<FolderReading> reading) {
    if (!reading) return showAlert(AlertTexts::folderUnreadable(reading.error().message));
    // A disk that was pulled leaves an empty folder behind: no reason to forget its photos.
    if (reading->photos.empty()) return showAlert(AlertTexts::noPhotos(folder));
    if (!known) {
        const Uuid id = addJob(folder, *reading);
        backdrops_->refreshSuggestions();
        say("Imported " + std::to_string(job(id)->job().items.size()) + " photos.");
        return;
    }
    WorkingJob* job = editable(*known);
    if (!job) return;
    job->replaceItems(reading->applied(std::exchange(job->facts().items, {}), folder));
    job->solve(presets_);
    filtered_.reset();
    if (*known == selectedJobID_ && !currentIndex()) select(std::nullopt);
    saveSoon(*known);
    emit itemsReset(*known);
    emit jobChanged(*known);
}

Uuid AppState::addJob(const Path& folder, const FolderReading& reading) {
    Job job;
    job.name = folder.filename().string();
    job.folderURL = folder;
    job.presetID = selectedPresetID_;
    job.autoAssign = job.presetID == PresetLibrary::autoPresetID();
    job.rules = rules_;
    job.createdAt = secondsNow();
    job.items = reading.applied({}, folder);
    Uuid id = job.id;
    jobs_.push_back(std::make_unique<WorkingJob>(std::move(job)));
    jobs_.back()->solve(presets_);
    saveSoon(id, SaveQueue::Urgency::decision);
    emit jobsChanged();
    selectJob(id);
    return id;
}

void AppState::selectJob(const Uuid& id) {
    WorkingJob* wanted = editable(id);
    if (!wanted || selectedJobID_ == id) return;
    if (wanted->isStale()) wanted->solve(presets_);
    selectedJobID_ = id;
    filtered_.reset();
    select(std::nullopt);
    setMode(ViewMode::grid);
    showPreset(wanted->job().autoAssign ? PresetLibrary::autoPresetID() : wanted->job().presetID);
    emit selectedJobChanged();
}

void AppState::removeJob() {
    if (selectedJobID_) removeJob(*selectedJobID_);
}

void AppState::removeJob(const Uuid& id) {
    const WorkingJob* unwanted = job(id);
    if (!unwanted || !mayBegin()) return;
    const std::string name = unwanted->job().name;
    undo_.push(new RemovalStep(*this, "Remove Job", id));
    say("Removed " + name + ".");
}

void AppState::renameJob(const std::string& name) {
    WorkingJob* open = selectedJobID_ ? editable(*selectedJobID_) : nullptr;
    if (!open || name.empty() || !mayChange()) return;
    open->facts().name = name;
    saveSoon(open->id());
    emit jobChanged(open->id());
}

void AppState::setShowsFeet(const Uuid& id, std::optional<bool> answer) {
    WorkingJob* job = editable(id);
    if (!job || job->job().showsFeet == answer) return;
    job->facts().showsFeet = answer;
    saveSoon(id);
}

void AppState::analyzeCurrentJob(bool force) {
    const WorkingJob* open = selectedJob();
    if (!open) return;
    const StopFlag stop = std::make_shared<std::atomic<bool>>(false);
    const auto cancel = [this, stop] {
        *stop = true;
        if (run_ && run_->runner) return run_->runner->cancel();
        run_.reset();
        endTask();
    };
    if (!beginTask("Cropping " + open->job().name, cancel)) return;
    run_ = std::make_unique<CropRun>(open->id());
    std::vector<bool> isMeasured;
    isMeasured.reserve(open->job().items.size());
    for (const ImageItem& item : open->job().items) isMeasured.push_back(hasCurrentAnalysis(item));
    background_.run(
        [photos = KnownPhoto::of(open->job().items), isMeasured, force, stop,
         prepare = services_.prepare] {
            auto targets = thoseToAnalyze(photos, isMeasured, force, *stop);
            Result<void> ready;
            if (!targets.empty() && !*stop) ready = prepare();
            return ready.map([&] { return std::move(targets); });
        },
        [this, stop, force, name = open->job().name](Result<std::vector<Path>> targets) {
            if (*stop) return;
            if (!targets || targets->empty()) {
                run_.reset();
                endTask();
                showAlert(targets ? AlertTexts::alreadyCropped(name)
                                  : AlertTexts::analysisUnavailable(targets.error().message));
                return;
            }
            startRunner(std::move(*targets), force);
        });
}

void AppState::getReadyToCrop() {
    const WorkingJob* open = selectedJob();
    if (!open || std::ranges::all_of(open->job().items, hasCurrentAnalysis)) return;
    background_.run([prepare = services_.prepare] { return prepare(); }, [](const auto&) {});
}

void AppState::startRunner(std::vector<Path> targets, bool force) {
    taskProgress(0, static_cast<int>(targets.size()));
    flushTimer_.start(services_.flushInterval);
    run_->runner.emplace(services_.concurrency, background_.mainThread());
    run_->runner->analyze(
        std::move(targets), cache_, !force, services_.analyze,
        [this](BatchRunner::Analyzed result) {
            run_->pending.push_back(std::move(result));
            taskProgress(progress_->completed + 1, progress_->total);
            // The first one is waited for.
            if (run_->merges == 0) flushPending();
        },
        [this](int, bool cancelled) { runEnded(cancelled); });
}

void AppState::flushPending() {
    if (!run_ || run_->pending.empty()) return;
    auto results = std::exchange(run_->pending, {});
    ++run_->merges;
    WorkingJob* job = editable(run_->job);
    if (!job) return;
    Indices changed;
    for (BatchRunner::Analyzed& result : results) {
        const auto index = job->indexOfFile(result.file);
        if (!index) continue;
        ImageItem& item = job->itemToChange(*index);
        item.analysis = std::move(result.analysis);
        item.analyzedStamp = result.stamp;
        changed.push_back(*index);
    }
    analysesChanged(*job, changed);
}

void AppState::analysesChanged(WorkingJob& job, const Indices& changed) {
    touched(job, job.remeasured(presets_, changed));
    saveSoon(job.id());
}

void AppState::runEnded(bool cancelled) {
    flushTimer_.stop();
    flushPending();
    const Uuid id = run_->job;
    lastMerges_ = run_->merges;
    background_.letGo(std::move(run_));
    if (WorkingJob* job = editable(id)) {
        filtered_.reset();
        saveNow(id);
        emit itemsReset(id);
        emit jobChanged(id);
        const int review = job->count(ItemStatus::review);
        say((cancelled ? "Cancelled; " : "Cropped; ") + std::to_string(review) +
            (review == 1 ? " photo needs a look." : " photos need a look."));
    }
    endTask();
}

void AppState::solveStaleSoon() {
    const auto stale = std::ranges::find_if(jobs_, [](const auto& job) { return job->isStale(); });
    if (stale == jobs_.end()) return;
    (*stale)->solve(presets_);
    emit jobChanged((*stale)->id());
    // One job a round, so that the event loop gets its turn in between.
    staleTimer_.start(0);
}

void AppState::touched(WorkingJob& job, const Indices& indices) {
    filtered_.reset();
    if (indices.empty()) return;
    emit itemsChanged(job.id(), indices);
    emit jobChanged(job.id());
}

}  // namespace morva
