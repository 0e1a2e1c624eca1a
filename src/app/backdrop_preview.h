// SPDX-License-Identifier: GPL-3.0-or-later
// What photos will look like on another backdrop, for the backdrop set-up: the crop as the export
// would write it, small, made in the background. Cutting a child out takes the most time by far and
// is done once for each crop. On the main thread; writes nothing.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include <QImage>

#include "app/app_services.h"
#include "app/callback_queue.h"
#include "app/shared_work.h"
#include "base/geometry.h"
#include "model/presets/crop_preset.h"

namespace morva {

class WorkingJob;

class BackdropPreview {
public:
    struct Wanted {
        std::filesystem::path photo;
        ImageAnalysis analysis;
        Rect rect;
        /// Degrees.
        double rotation = 0;
        ExportSettings settings;
        /// Of the picture, pixels.
        int height = 0;
    };
    using Ticket = SharedWork<QImage>::Ticket;
    /// Null when the photo cannot be drawn.
    using Completion = SharedWork<QImage>::Completion;

    /// Completions run through `callbacks`.
    BackdropPreview(decltype(AppServices::cutterFor) cutterFor, CallbackQueue callbacks);
    /// Waits for what is being made, which ends soon.
    ~BackdropPreview();
    BackdropPreview(const BackdropPreview&) = delete;
    BackdropPreview& operator=(const BackdropPreview&) = delete;

    /// A photo of a job, solved by `preset`, whose export settings need not be the library's: where
    /// the backdrop is replaced, a crop may reach beyond the photo. Nothing without a crop.
    static std::optional<Wanted> wanted(const WorkingJob& job, std::size_t index,
                                        const CropPreset& preset, int height);

    /// One that was made before completes at once.
    Ticket request(const Wanted& wanted, Completion completion);
    void cancel(Ticket ticket);

private:
    class CutOuts;
    class Cutter;

    decltype(AppServices::cutterFor) cutterFor_;
    std::shared_ptr<CutOuts> cutOuts_;
    SharedWork<QImage> pictures_;
};

}  // namespace morva
