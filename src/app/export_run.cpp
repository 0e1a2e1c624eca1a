// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/export_run.h"

#include <exception>

#include "output/matte_cutter.h"

namespace morva {

struct ExportRun::Run {
    std::vector<Photo> photos;
    std::function<void(Done)> onDone;
    std::function<void(bool)> onFinished;
    std::atomic<bool> isCancelled{false};
    /// Nobody wants to hear any more; belongs to the caller's thread.
    bool isOver = false;
    /// Photos not yet told of; belongs to the caller's thread.
    std::size_t left = 0;
};

namespace {

Result<Exporter::Exported> write(const ExportRun::Photo& photo,
                                 const decltype(AppServices::cutterFor)& cutterFor) {
    const std::filesystem::path& source = photo.request.sourceURL;
    const auto now = ImageLoader::fileSignature(source);
    if (now && photo.stamp && *now != *photo.stamp)
        return failure(source.filename().string() +
                       " has changed since it was cropped. Crop the job again.");
    try {
        const bool replaces = photo.request.settings.backdrop == BackdropMode::replace;
        const auto cutter = replaces ? cutterFor(source, photo.analysis) : nullptr;
        auto done = Exporter::exportPhoto(photo.request, cutter.get());
        if (!done) return failure(done.error().message());
        return std::move(*done);
    } catch (const std::exception& error) {
        // Memory can run out on one photo; the export goes on.
        return failure("Could not export " + source.filename().string() + ": " + error.what() +
                       ".");
    }
}

}  // namespace

ExportRun::ExportRun(decltype(AppServices::cutterFor) cutterFor, CallbackQueue callbacks)
    : cutterFor_(std::move(cutterFor)),
      callbacks_(std::move(callbacks)),
      run_(std::make_shared<Run>()) {}

ExportRun::~ExportRun() {
    run_->isOver = true;
    cancel();
    pool_.wait();
}

const ExportRun::Photo& ExportRun::photo(std::size_t index) const { return run_->photos[index]; }

void ExportRun::cancel() { run_->isCancelled = true; }

void ExportRun::begin(std::vector<Photo> photos, std::function<void(Done)> onDone,
                      std::function<void(bool)> onFinished) {
    run_->photos = std::move(photos);
    run_->onDone = std::move(onDone);
    run_->onFinished = std::move(onFinished);
    run_->left = run_->photos.size();
    for (std::size_t i = 0; i < run_->photos.size(); ++i) {
        pool_.start([i, run = run_, cutterFor = cutterFor_, back = callbacks_] {
            Done done{.index = i,
                      .result = run->isCancelled ? failure("The export was cancelled.")
                                                 : write(run->photos[i], cutterFor)};
            back([run, done = std::move(done)]() mutable {
                if (run->isOver) return;
                run->onDone(std::move(done));
                if (--run->left == 0) run->onFinished(run->isCancelled);
            });
        });
    }
}

}  // namespace morva
