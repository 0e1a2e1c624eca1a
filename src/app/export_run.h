// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the photos of an export, four at once, on worker threads. One object per run; made by the
// export flow, which records what was written.
#pragma once

#include <atomic>
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
    /// Ends as `cancel` does and waits; nothing is called any more.
    ~ExportRun();
    ExportRun(const ExportRun&) = delete;
    ExportRun& operator=(const ExportRun&) = delete;

    /// To be called once. `onDone` is called for every photo, also for those that a cancelled run
    /// did not begin, then `onFinished` once.
    void begin(std::vector<Photo> photos, std::function<void(Done)> onDone,
               std::function<void(bool cancelled)> onFinished);
    const Photo& photo(std::size_t index) const;
    /// Begins no further photo; those that have begun become whole files.
    void cancel();

private:
    struct Run;
    decltype(AppServices::cutterFor) cutterFor_;
    CallbackQueue callbacks_;
    std::shared_ptr<Run> run_;
    WorkerPool pool_{width};
};

}  // namespace morva
