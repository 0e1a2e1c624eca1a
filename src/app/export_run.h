// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the photos of an export, four at once, on worker threads. One object per run; made by the
// export flow, which records what was written.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/image_loader.h"
#include "analysis/record/image_analysis.h"
#include "app/app_services.h"
#include "app/callback_queue.h"
#include "app/worker_pool.h"
#include "output/exporter.h"

namespace morva {

class ExportRun {
public:
    static constexpr int width = 4;

    struct Photo {
        std::string itemID;
        Exporter::Request request;
        /// What the crop was measured on; a file in another state is not written.
        std::optional<FileSignature> stamp;
        /// For cutting out the child.
        ImageAnalysis analysis;
    };
    struct Done {
        std::size_t index = 0;
        /// Fails with the sentence for the report.
        Result<Exporter::Exported> result;
    };

    ExportRun(decltype(AppServices::cutterFor) cutterFor, CallbackQueue callbacks);
    /// Gives up what is not being written and waits; nothing is called any more. On any thread.
    ~ExportRun();
    ExportRun(const ExportRun&) = delete;
    ExportRun& operator=(const ExportRun&) = delete;

    /// To be called once. `onDone` is called for every photo, also for those that a cancelled run
    /// gave up, then `onFinished` once.
    void begin(std::vector<Photo> photos, std::function<void(Done)> onDone,
               std::function<void(bool cancelled)> onFinished);
    const Photo& photo(std::size_t index) const;
    /// Ends the run as soon as the files that are being written are whole: photos in hand are given
    /// up, and from here on nothing else appears in the folder.
    void cancel();

private:
    struct Run;
    CallbackQueue callbacks_;
    std::shared_ptr<Run> run_;
    WorkerPool pool_{width};
};

}  // namespace morva
