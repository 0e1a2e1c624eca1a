// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/export_run.h"

#include <atomic>
#include <exception>
#include <mutex>
#include <stop_token>
#include <utility>

namespace morva {

namespace {

tl::unexpected<Failure> givenUp() {
    return failure(ExportError{.kind = ExportError::Kind::cancelled}.message());
}

}  // namespace

struct ExportRun::Run {
    std::vector<Photo> photos;
    decltype(AppServices::cutterFor) cutterFor;
    std::function<void(Done)> onDone;
    std::function<void(bool)> onFinished;
    std::stop_source stop;
    DecodedPlates plates;
    /// Nobody wants to hear any more.
    std::atomic<bool> isAbandoned{false};

    std::mutex mutex;
    /// Photos that came as far as the writing of their file.
    std::vector<bool> reachedDisk;

    // Of the caller's thread.
    std::vector<bool> isTold;
    std::size_t left = 0;

    Done made(std::size_t index);
    Result<Exporter::Exported> written(std::size_t index);
    bool mayWrite(std::size_t index);
    void tell(Done done);
    void giveUp(const std::vector<bool>& kept);
};

/// Cancelling and writing exclude each other: a file that appears after the end of the run would
/// be one that nobody knows of.
bool ExportRun::Run::mayWrite(std::size_t index) {
    const std::lock_guard lock(mutex);
    if (stop.stop_requested()) return false;
    reachedDisk[index] = true;
    return true;
}

Result<Exporter::Exported> ExportRun::Run::written(std::size_t index) {
    const Photo& photo = photos[index];
    const std::filesystem::path& source = photo.request.sourceURL;
    const auto now = ImageLoader::fileSignature(source);
    if (now && photo.stamp && *now != *photo.stamp)
        return failure(source.filename().string() +
                       " has changed since it was cropped. Crop the job again.");
    const bool replaces = photo.request.settings.backdrop == BackdropMode::replace;
    const std::stop_token token = stop.get_token();
    const auto cutter = replaces ? cutterFor(source, photo.analysis, token) : nullptr;
    auto done = Exporter::finish(photo.request, cutter.get(), token);
    if (!done) return failure(done.error().message());
    if (!mayWrite(index)) return givenUp();
    if (const auto file = Exporter::write(photo.request, done->jpeg); !file)
        return failure(file.error().message());
    return Exporter::Exported{std::move(done->fallbacks)};
}

ExportRun::Done ExportRun::Run::made(std::size_t index) {
    if (stop.stop_requested()) return {index, givenUp()};
    try {
        return {index, written(index)};
    } catch (const std::exception& error) {
        // Memory can run out on one photo; the export goes on.
        return {index,
                failure("Could not export " + photos[index].request.sourceURL.filename().string() +
                        ": " + error.what() + ".")};
    }
}

void ExportRun::Run::tell(Done done) {
    if (isAbandoned || isTold[done.index]) return;
    isTold[done.index] = true;
    onDone(std::move(done));
    if (--left == 0) onFinished(stop.stop_requested());
}

void ExportRun::Run::giveUp(const std::vector<bool>& kept) {
    for (std::size_t i = 0; i < photos.size(); ++i)
        if (!kept[i]) tell({i, givenUp()});
}

ExportRun::ExportRun(decltype(AppServices::cutterFor) cutterFor, CallbackQueue callbacks)
    : callbacks_(std::move(callbacks)), run_(std::make_shared<Run>()) {
    run_->cutterFor = std::move(cutterFor);
}

ExportRun::~ExportRun() {
    run_->isAbandoned = true;
    run_->stop.request_stop();
}

const ExportRun::Photo& ExportRun::photo(std::size_t index) const { return run_->photos[index]; }

void ExportRun::cancel() {
    pool_.clear();
    const std::lock_guard lock(run_->mutex);
    run_->stop.request_stop();
    callbacks_([run = run_, kept = run_->reachedDisk] { run->giveUp(kept); });
}

void ExportRun::begin(std::vector<Photo> photos, std::function<void(Done)> onDone,
                      std::function<void(bool)> onFinished) {
    run_->photos = std::move(photos);
    for (Photo& photo : run_->photos) photo.request.plates = &run_->plates;
    run_->onDone = std::move(onDone);
    run_->onFinished = std::move(onFinished);
    run_->left = run_->photos.size();
    run_->reachedDisk.assign(run_->left, false);
    run_->isTold.assign(run_->left, false);
    for (std::size_t i = 0; i < run_->photos.size(); ++i) {
        pool_.start([i, run = run_, back = callbacks_] {
            back([run, done = run->made(i)]() mutable { run->tell(std::move(done)); });
        });
    }
}

}  // namespace morva
