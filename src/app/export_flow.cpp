// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/export_flow.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "app/alert_texts.h"
#include "app/app_state.h"
#include "base/files.h"
#include "crop/crop_solver.h"
#include "output/export_paths.h"
#include "output/matte_cutter.h"

namespace morva {

namespace {

constexpr const char* reviewListTitle = "Save the review list";
constexpr const char* reviewListName = "review list.csv";

std::vector<std::string> titlesOf(const std::vector<ReviewReason>& reasons) {
    std::vector<std::string> titles;
    titles.reserve(reasons.size());
    for (const ReviewReason reason : reasons) titles.emplace_back(title(reason));
    return titles;
}

bool waitsOnUser(ItemStatus status) {
    return status == ItemStatus::review || status == ItemStatus::failed ||
           status == ItemStatus::error;
}

/// "12 photos", "1 photo".
std::string photos(int count) {
    return std::to_string(count) + (count == 1 ? " photo" : " photos");
}

}  // namespace

/// An export on its way.
struct ExportFlow::Running {
    Uuid job;
    Path destination;
    int unchanged = 0;
    std::vector<std::string> items;
    std::vector<std::optional<ExportReport::Row>> rows;
    int done = 0;
    int failed = 0;
    std::chrono::steady_clock::time_point begun = std::chrono::steady_clock::now();
    /// Last: its end waits for the workers.
    std::optional<ExportRun> run;
};

ExportFlow::ExportFlow(AppState& state) : state_(state) {}
ExportFlow::~ExportFlow() = default;

void ExportFlow::begin() {
    const WorkingJob* job = state_.selectedJob();
    if (!job) return;
    if (job->count(ItemStatus::pending) == static_cast<int>(job->job().items.size()))
        return state_.showAlert(AlertTexts::cropFirst());
    const Path& folder = job->job().folderURL;
    destination_ = job->job().exportFolder.value_or(folder.parent_path() /
                                                    (folder.filename().string() + " Cropped"));
    // A wish for one export; kept, it would some day write a whole job again unasked.
    replaceExisting_ = false;
    isShown_ = true;
    emit changed();
}

void ExportFlow::dismiss() {
    isShown_ = false;
    emit changed();
}

void ExportFlow::chooseFolder() {
    emit folderWanted(destination_ ? destination_->parent_path() : Path());
}

void ExportFlow::setDestination(const Path& folder) {
    destination_ = Exporter::standardized(folder);
    emit changed();
}

void ExportFlow::setIncludeApprovedOnly(bool only) {
    approvedOnly_ = only;
    emit changed();
}

void ExportFlow::setReplaceExisting(bool replace) {
    replaceExisting_ = replace;
    emit changed();
}

std::optional<ExportPlan> ExportFlow::plan() const {
    const WorkingJob* job = state_.selectedJob();
    if (!job || !destination_) return std::nullopt;
    return ExportPlan::of(*job, state_.presets(), {*destination_, approvedOnly_, replaceExisting_},
                          isThere);
}

std::vector<const CropPreset*> ExportFlow::presetsOfWrongRatio() const {
    std::vector<const CropPreset*> wrong;
    const WorkingJob* job = state_.selectedJob();
    if (!job) return wrong;
    for (std::size_t i = 0; i < job->job().items.size(); ++i) {
        if (!isExportCandidate(job->status(i), approvedOnly_)) continue;
        const CropPreset* preset = state_.preset(job->solvedWith(i).presetID);
        if (RatioCheck::passes(*preset) || std::ranges::find(wrong, preset) != wrong.end())
            continue;
        wrong.push_back(preset);
    }
    return wrong;
}

std::optional<AlertInfo> ExportFlow::obstacle(const ExportPlan& planned) const {
    // Not only this job's photos are originals.
    std::vector<Path> originals;
    originals.reserve(state_.jobs().size());
    for (const auto& job : state_.jobs()) originals.push_back(job->job().folderURL);
    if (Exporter::wouldWriteInto(originals, *destination_, planned.destinations))
        return AlertTexts::insideTheJob();
    if (const auto link = Exporter::folderOutside(*destination_, planned.destinations))
        return AlertTexts::folderNotMade(Exporter::outsideText(*link));
    const auto wrong = presetsOfWrongRatio();
    if (!wrong.empty()) return AlertTexts::wrongRatio(*wrong.front());
    if (planned.write.empty()) return AlertTexts::nothingNew(planned.unchanged);
    const auto made = makeFolder(*destination_).and_then([&] {
        return Exporter::markExportFolder(*destination_);
    });
    if (!made) return AlertTexts::folderNotMade(made.error().message);
    return std::nullopt;
}

bool ExportFlow::run() {
    const WorkingJob* job = state_.selectedJob();
    if (!job || !destination_ || !state_.mayBegin()) return false;
    const ExportPlan planned = *plan();
    if (auto alert = obstacle(planned)) {
        state_.showAlert(std::move(*alert));
        return false;
    }
    state_.beginTask("Exporting to " + destination_->filename().string(), [this] {
        isCancelled_ = true;
        if (running_) running_->run->cancel();
    });
    start(*job, planned);
    return true;
}

void ExportFlow::start(const WorkingJob& job, const ExportPlan& planned) {
    isCancelled_ = false;
    running_ = std::make_unique<Running>();
    running_->job = job.id();
    running_->destination = *destination_;
    running_->unchanged = planned.unchanged;
    std::vector<ExportRun::Photo> photos;
    for (const std::size_t index : planned.write) {
        photos.push_back(photoToWrite(job, index, planned));
        running_->items.push_back(job.item(index).id);
    }
    running_->rows.resize(photos.size());
    state_.taskProgress(0, static_cast<int>(photos.size()));
    dismiss();
    running_->run.emplace(state_.services().cutterFor, state_.background().mainThread());
    running_->run->begin(
        std::move(photos), [this](const ExportRun::Done& done) { recordExport(done); },
        [this](bool cancelled) { finish(cancelled); });
}

ExportRun::Photo ExportFlow::photoToWrite(const WorkingJob& job, std::size_t index,
                                          const ExportPlan& plan) const {
    const ImageItem& item = job.item(index);
    return {
        .itemID = item.id,
        .request = {.sourceURL = item.url,
                    .destinationURL = plan.destinations.at(item.url),
                    .rect = *job.finalRect(index),
                    .rotationDegrees = CropSolver::finalRotation(*item.solution, item.adjustment),
                    .settings = state_.preset(job.solvedWith(index).presetID)->settingsForExport(),
                    .headAnchor = headAnchorOf(*item.analysis)},
        .stamp = item.analyzedStamp,
        .analysis = *item.analysis};
}

ExportReport::Row ExportFlow::rowFor(const WorkingJob& job, std::size_t index,
                                     const Result<Exporter::Exported>& result) const {
    const ImageItem& item = job.item(index);
    const CropPreset* preset = state_.preset(job.solvedWith(index).presetID);
    ExportReport::Row row;
    row.file = item.url.filename().string();
    row.preset = preset ? preset->name : std::string();
    if (!result) {
        row.skipped = result.error().message;
        return row;
    }
    row.status = std::string(label(job.status(index)));
    if (item.solution) {
        row.confidence = item.solution->confidence;
        row.metrics = item.solution->metrics;
    }
    row.handAdjusted = item.hasAdjustment();
    row.reasons = titlesOf(job.reasons(index));
    for (const ExportFallback fallback : result->fallbacks)
        row.reasons.emplace_back(title(fallback));
    return row;
}

void ExportFlow::recordExport(const ExportRun::Done& done) {
    state_.taskProgress(++running_->done, static_cast<int>(running_->items.size()));
    if (!done.result) ++running_->failed;
    WorkingJob* job = state_.editable(running_->job);
    const auto index = job ? job->indexOf(running_->items[done.index]) : std::nullopt;
    if (!index) return;
    running_->rows[done.index] = rowFor(*job, *index, done.result);
    if (!done.result) return;
    ImageItem& item = job->itemToChange(*index);
    item.exportedAt = secondsNow();
    item.exportedRect = running_->run->photo(done.index).request.rect;
    item.exportedHeight = running_->run->photo(done.index).request.settings.pixelHeight;
    state_.saveSoon(running_->job);
}

void ExportFlow::finish(bool cancelled) {
    auto run = std::exchange(running_, nullptr);
    const int total = static_cast<int>(run->items.size());
    const int written = total - run->failed;
    if (!cancelled && run->failed == 0)
        secondsPerPhoto_ =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - run->begun).count() /
            total;
    rows_.clear();
    for (auto& row : run->rows)
        if (row) rows_.push_back(std::move(*row));
    const auto reported =
        ExportReport::write(run->destination / ExportReport::fileName, rows_, run->unchanged);
    if (WorkingJob* job = state_.editable(run->job)) {
        job->facts().exportFolder = run->destination;
        job->facts().lastExportAt = secondsNow();
        state_.saveSoon(run->job);
    }
    state_.say("Exported " + photos(written) + " to " + run->destination.filename().string() + ".");
    state_.endTask();
    if (!reported) state_.showAlert(AlertTexts::reportNotWritten(reported.error().message));
    if (run->failed > 0 && !cancelled)
        state_.showAlert(AlertTexts::notAllExported(run->failed, total));
    state_.background().letGo(std::move(run));
}

void ExportFlow::chooseReviewList() {
    if (state_.selectedJob()) emit reviewListWanted(reviewListTitle, reviewListName);
}

std::string ExportFlow::reviewListCSV() const {
    std::vector<ReviewList::Item> waiting;
    const WorkingJob* job = state_.selectedJob();
    for (std::size_t i = 0; job && i < job->job().items.size(); ++i) {
        if (!waitsOnUser(job->status(i))) continue;
        const ImageItem& item = job->item(i);
        ReviewList::Item row{.file = item.url,
                             .status = std::string(label(job->status(i))),
                             .issues = titlesOf(job->reasons(i)),
                             .canvas = job->canvasToAdd(i),
                             .size = {}};
        if (item.analysis && item.analysis->sourceWidth > 0) row.size = item.analysis->sourceSize();
        if (row.issues.empty() && item.analysis && item.analysis->error)
            row.issues = {*item.analysis->error};
        waiting.push_back(std::move(row));
    }
    return ReviewList::csv(waiting);
}

bool ExportFlow::saveReviewList(const Path& file) {
    const auto written = writeFileAtomically(file, reviewListCSV());
    if (!written) state_.showAlert(AlertTexts::reviewListNotSaved(written.error().message));
    return written.has_value();
}

}  // namespace morva
