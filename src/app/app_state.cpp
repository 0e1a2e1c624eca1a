// SPDX-License-Identifier: GPL-3.0-or-later
// Start-up, what is shown, alerts, the one task that may run, saving.
#include "app/app_state.h"

#include <algorithm>
#include <utility>

#include "app/alert_texts.h"
#include "app/backdrop_setup.h"
#include "app/crop_run.h"
#include "app/export_flow.h"
#include "app/pose_flow.h"
#include "model/presets/preset_library.h"
#include "output/backdrop_library.h"

namespace morva {

namespace {

/// More steps than anybody goes back; a removed job weighs megabytes.
constexpr int undoSteps = 500;

std::string saveKey(const Uuid& job) { return "job " + job.text(); }

}  // namespace

AppState::AppState(AppServices services, QObject* parent)
    : QObject(parent),
      services_(std::move(services)),
      cache_(services_.folders.cache),
      thumbnails_(services_.folders.cache, callbacksOf(*this)),
      jobStore_(services_.folders.data),
      presetStore_(services_.folders.data),
      exports_(std::make_unique<ExportFlow>(*this)),
      backdrops_(std::make_unique<BackdropSetup>(*this)),
      poses_(std::make_unique<PoseFlow>(*this)),
      saves_(services_.saveDelays),
      background_(*this) {
    undo_.setUndoLimit(undoSteps);
    connect(&flushTimer_, &QTimer::timeout, this, &AppState::flushPending);
    staleTimer_.setSingleShot(true);
    connect(&staleTimer_, &QTimer::timeout, this, &AppState::solveStaleSoon);
    connect(&saves_, &SaveQueue::failed, this,
            [this](const std::string& reason) { showAlert(AlertTexts::notSaved(reason)); });
}

AppState::~AppState() {
    blockSignals(true);
    cancelProcessing();
    run_.reset();
}

void AppState::start() {
    if (auto lock = JobLock::tryAcquire(services_.folders.data))
        lock_ = std::move(*lock);
    else
        holder_ = lock.error().message;
    std::vector<Failure> problems;
    loadPresets(problems);
    loadJobs(problems);
    for (const auto& job : jobs_) job->solve(presets_);
    if (!problems.empty()) showAlert(AlertTexts::notReadAtStart(problems));
    if (isReadOnly()) showAlert(AlertTexts::readOnly(*holder_));
    emit presetsChanged();
    emit selectedPresetChanged();
    emit jobsChanged();
}

FolderAccess AppState::access() const {
    return isReadOnly() ? FolderAccess::looking : FolderAccess::holding;
}

void AppState::loadPresets(std::vector<Failure>& problems) {
    const BackdropMemory memory(services_.folders.data);
    std::optional<std::vector<Backdrop>> plates;
    const auto listed = [&]() -> const std::vector<Backdrop>& {
        if (!plates)
            plates = BackdropLibrary::plates(BackdropLibrary::folders(services_.folders.data));
        return *plates;
    };
    auto loaded = presetStore_.load(
        [&](const CropPreset& preset) {
            return memory.plateFor(preset.id, preset.aspectRatio(), listed);
        },
        access());
    presets_ = std::move(loaded.presets);
    std::ranges::move(loaded.problems, std::back_inserter(problems));
    selectedPresetID_ = presets_.front().id;
    auto rules = RuleStore(services_.folders.data, presets_).load();
    rules_ = std::move(rules.rules);
    if (rules.problem) problems.push_back(std::move(*rules.problem));
}

void AppState::loadJobs(std::vector<Failure>& problems) {
    auto loaded = jobStore_.loadAll(access());
    std::ranges::move(loaded.problems, std::back_inserter(problems));
    for (Job& job : loaded.jobs) {
        jobs_.push_back(std::make_unique<WorkingJob>(std::move(job)));
        adoptRetiredPresets(*jobs_.back());
    }
}

void AppState::adoptRetiredPresets(WorkingJob& job) {
    const Uuid& wanted = job.job().presetID;
    if (wanted == PresetLibrary::autoPresetID() || preset(wanted)) return;
    const auto current = PresetLibrary::replacement(wanted);
    job.choices().presetID = current && preset(current->id)
                                 ? current->id
                                 : JobSolver::fallbackPreset(job.job(), presets_).id;
    if (!isReadOnly()) saveSoon(job.id());
}

const WorkingJob* AppState::job(const Uuid& id) const {
    const auto found = std::ranges::find(jobs_, id, &WorkingJob::id);
    return found == jobs_.end() ? nullptr : found->get();
}

WorkingJob* AppState::editable(const Uuid& id) { return const_cast<WorkingJob*>(job(id)); }

const WorkingJob* AppState::selectedJob() const {
    return selectedJobID_ ? job(*selectedJobID_) : nullptr;
}

const CropPreset* AppState::preset(const Uuid& id) const {
    return PresetLibrary::presetWith(id, presets_);
}

const AppState::Indices& AppState::filteredItems() const {
    if (!filtered_) {
        const WorkingJob* open = selectedJob();
        filtered_ = open ? open->matching(filter_) : Indices();
    }
    return *filtered_;
}

void AppState::setFilter(StatusFilter filter) {
    if (std::exchange(filter_, filter) == filter) return;
    filtered_.reset();
    emit filterChanged();
}

void AppState::setMode(ViewMode mode) {
    if (std::exchange(mode_, mode) != mode) emit modeChanged();
}

void AppState::setShowOverlay(bool show) {
    if (std::exchange(showOverlay_, show) != show) emit overlayChanged();
}

void AppState::setThumbnailHeight(double height) {
    if (std::exchange(thumbnailHeight_, height) != height) emit thumbnailHeightChanged();
}

void AppState::setRightTab(RightTab tab) {
    if (std::exchange(rightTab_, tab) != tab) emit rightTabChanged();
}

void AppState::showAlert(AlertInfo alert) {
    if (alert_) {
        waitingAlerts_.push_back(std::move(alert));
        return;
    }
    alert_ = std::move(alert);
    emit alertChanged();
}

void AppState::dismissAlert() {
    alert_.reset();
    if (!waitingAlerts_.empty()) {
        alert_ = std::move(waitingAlerts_.front());
        waitingAlerts_.erase(waitingAlerts_.begin());
    }
    emit alertChanged();
}

void AppState::say(const std::string& result) {
    lastResult_ = result;
    emit resultChanged();
}

bool AppState::mayChange() {
    if (isReadOnly()) showAlert(AlertTexts::readOnly(*holder_));
    return !isReadOnly();
}

bool AppState::mayBegin() {
    if (!mayChange()) return false;
    if (progress_) showAlert(AlertTexts::busy(progress_->title));
    return !progress_;
}

bool AppState::beginTask(const std::string& title, std::function<void()> cancel) {
    if (!mayBegin()) return false;
    progress_ = ProcessingProgress{.title = title};
    cancelTask_ = std::move(cancel);
    emit progressChanged();
    return true;
}

void AppState::taskProgress(int completed, int total) {
    if (!progress_) return;
    progress_->completed = completed;
    progress_->total = total;
    emit progressChanged();
}

void AppState::endTask() {
    progress_.reset();
    cancelTask_ = {};
    emit progressChanged();
    emit taskEnded();
}

void AppState::cancelProcessing() {
    if (const auto cancel = std::exchange(cancelTask_, {})) cancel();
}

void AppState::saveSoon(const Uuid& job, SaveQueue::Urgency urgency) {
    if (!isReadOnly()) saves_.soon(saveKey(job), snapshotOf(job), urgency);
}

void AppState::saveNow(const Uuid& job) {
    if (!isReadOnly()) saves_.now(saveKey(job), snapshotOf(job));
}

SaveQueue::Snapshot AppState::snapshotOf(const Uuid& job) {
    return [this, job]() -> SaveQueue::Write {
        const WorkingJob* open = this->job(job);
        if (!open) return [] { return Result<void>(); };
        return [store = jobStore_, copy = std::make_shared<const Job>(open->job())] {
            return store.saveNow(*copy);
        };
    };
}

void AppState::saveLibrarySoon() {
    if (isReadOnly()) return;
    saves_.soon(
        "presets",
        [this]() -> SaveQueue::Write {
            return [store = presetStore_, copy = presets_] { return store.save(copy); };
        },
        SaveQueue::Urgency::edit);
}

Result<void> AppState::flushSaves() { return saves_.flush(); }

Result<void> AppState::leaveFolder() {
    auto written = saves_.flush();
    if (lock_) holder_ = "This program has left " + services_.folders.data.string() + ".";
    lock_.reset();
    return written;
}

std::unique_ptr<WorkingJob> AppState::takeOut(const Uuid& id, std::size_t& place) {
    const auto found = std::ranges::find(jobs_, id, &WorkingJob::id);
    if (found == jobs_.end()) return nullptr;
    place = static_cast<std::size_t>(found - jobs_.begin());
    // What was not written yet goes into the file that is kept.
    if (saves_.isPending(saveKey(id))) saveNow(id);
    saves_.now(saveKey(id), [store = jobStore_, id]() -> SaveQueue::Write {
        return [store, id] { return store.remove(id); };
    });
    auto taken = std::move(*found);
    jobs_.erase(found);
    if (selectedJobID_ == id) {
        selectedJobID_.reset();
        filtered_.reset();
        select(std::nullopt);
        setMode(ViewMode::grid);
        emit selectedJobChanged();
    }
    emit jobsChanged();
    return taken;
}

void AppState::putBack(std::unique_ptr<WorkingJob> job, std::size_t place) {
    if (!job) return;
    const Uuid id = job->id();
    job->solve(presets_);
    jobs_.insert(jobs_.begin() + static_cast<std::ptrdiff_t>(std::min(place, jobs_.size())),
                 std::move(job));
    saveNow(id);
    emit jobsChanged();
    selectJob(id);
}

}  // namespace morva
