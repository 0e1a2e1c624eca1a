// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/export_preview.h"

#include <map>
#include <system_error>

#include <QPointer>

#include "app/app_state.h"
#include "app/export_flow.h"
#include "output/export_paths.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

double pixelsOf(const CropPreset& preset) {
    return static_cast<double>(preset.exportSettings.pixelWidth) *
           preset.exportSettings.pixelHeight;
}

}  // namespace

ExportPreview::ExportPreview(AppState& state) : state_(state) {
    for (QTimer* timer : {&lookTimer_, &decideTimer_}) timer->setSingleShot(true);
    connect(&lookTimer_, &QTimer::timeout, this, &ExportPreview::look);
    connect(&decideTimer_, &QTimer::timeout, this, &ExportPreview::decide);
    connect(&state_.exports(), &ExportFlow::changed, this, [this] {
        if (state_.exports().destination() == destination_)
            decide();
        else
            lookSoon();
    });
    connect(&state_, &AppState::itemsReset, this, &ExportPreview::lookSoon);
    connect(&state_, &AppState::selectedJobChanged, this, &ExportPreview::lookSoon);
    connect(&state_, &AppState::itemsChanged, this, &ExportPreview::decideSoon);
    connect(&state_, &AppState::presetsChanged, this, &ExportPreview::decideSoon);
    look();
}

std::optional<double> ExportPreview::seconds() const {
    const auto& perPhoto = state_.exports().secondsPerPhoto();
    if (!perPhoto) return std::nullopt;
    return *perPhoto * static_cast<double>(plan_.write.size());
}

void ExportPreview::lookSoon() {
    look_.reset();
    lookTimer_.start(0);
}

void ExportPreview::decideSoon() { decideTimer_.start(0); }

void ExportPreview::look() {
    const WorkingJob* job = state_.selectedJob();
    destination_ = state_.exports().destination();
    const std::uint64_t number = ++looks_;
    if (!job || !destination_) return;
    std::vector<Path> sources;
    sources.reserve(job->job().items.size());
    for (const ImageItem& item : job->job().items) sources.push_back(item.url);
    std::vector<Path> originals;
    for (const auto& one : state_.jobs()) originals.push_back(one->job().folderURL);
    state_.background().run(
        [sources = std::move(sources), originals = std::move(originals),
         root = job->job().folderURL, destination = *destination_] {
            const auto files = Exporter::destinationURLs(sources, root, destination);
            Look found;
            found.isInsideAJob = Exporter::wouldWriteInto(originals, destination, files);
            found.sizes.reserve(sources.size());
            for (const Path& source : sources) {
                std::error_code missing;
                const std::uintmax_t size = fs::file_size(files.at(source), missing);
                found.sizes.push_back(missing ? std::nullopt : std::optional(size));
            }
            return found;
        },
        [self = QPointer(this), number](Look found) {
            if (!self || number != self->looks_) return;
            self->look_ = std::move(found);
            self->decide();
        });
}

void ExportPreview::decide() {
    const WorkingJob* job = state_.selectedJob();
    if (!look_ || !job || look_->sizes.size() != job->job().items.size()) return;
    const ExportFlow& flow = state_.exports();
    ExportPlan::Wishes wishes{*flow.destination(), flow.includeApprovedOnly(), false};
    const auto isThere = [this](std::size_t i) { return look_->sizes[i].has_value(); };
    plan_ = ExportPlan::counted(*job, state_.presets(), wishes, isThere);
    unchanged_ = plan_.unchanged;
    if (flow.replaceExisting()) {
        wishes.replaceExisting = true;
        plan_ = ExportPlan::counted(*job, state_.presets(), wishes, isThere);
    }
    std::map<Uuid, int> files;
    for (const std::size_t i : plan_.write) ++files[job->solvedWith(i).presetID];
    cropTypes_.clear();
    for (const CropPreset& preset : state_.presets())
        if (const auto found = files.find(preset.id); found != files.end())
            cropTypes_.push_back({preset.id, found->second, RatioCheck::passes(preset)});
    bytes_ = bytesToWrite(*job);
    emit changed();
}

std::optional<double> ExportPreview::bytesToWrite(const WorkingJob& job) const {
    double bytes = 0;
    double pixels = 0;
    int files = 0;
    for (std::size_t i = 0; i < look_->sizes.size(); ++i) {
        const CropPreset* preset = state_.preset(job.solvedWith(i).presetID);
        if (!look_->sizes[i] || !preset) continue;
        bytes += static_cast<double>(*look_->sizes[i]);
        pixels += pixelsOf(*preset);
        ++files;
    }
    if (files < fewestToEstimateBy) return std::nullopt;
    double toWrite = 0;
    for (const CropType& type : cropTypes_)
        toWrite += type.files * pixelsOf(*state_.preset(type.preset));
    return toWrite * bytes / pixels;
}

}  // namespace morva
