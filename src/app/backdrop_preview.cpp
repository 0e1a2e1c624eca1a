// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/backdrop_preview.h"

#include <algorithm>
#include <list>
#include <mutex>
#include <stop_token>
#include <string>
#include <utility>

#include "app/drawable.h"
#include "app/working_job.h"
#include "base/file_url.h"
#include "base/json.h"
#include "crop/crop_solver.h"
#include "output/crop_renderer.h"
#include "output/matte_cutter.h"

namespace morva {

namespace {

/// One picture at a time: each wants the detectors and all of the memory that a crop takes.
constexpr int picturesAtOnce = 1;
constexpr int picturesRemembered = 24;
constexpr std::size_t cutOutsRemembered = 4;

Json numbers(const Rect& rect) { return {rect.x, rect.y, rect.width, rect.height}; }

}  // namespace

/// The last children that were cut out, so that another backdrop does not cut them out again.
class BackdropPreview::CutOuts {
public:
    struct Entry {
        std::string key;
        Picture pixels;
        std::optional<CutOut> cutOut;
    };
    using Known = std::shared_ptr<const Entry>;

    /// Null when it was not cut out lately.
    Known find(const std::string& key) {
        const std::scoped_lock held(lock_);
        const auto found =
            std::ranges::find(entries_, key, [](const Known& known) { return known->key; });
        return found == entries_.end() ? nullptr : *found;
    }
    void keep(Known entry) {
        const std::scoped_lock held(lock_);
        entries_.push_front(std::move(entry));
        if (entries_.size() > cutOutsRemembered) entries_.pop_back();
    }

    /// The preview is not wanted any more: what is being cut out ends soon.
    const std::stop_source& ending() const { return ending_; }

private:
    std::mutex lock_;
    std::list<Known> entries_;
    std::stop_source ending_;
};

namespace {

std::optional<CutOut> copyOf(const std::optional<CutOut>& cutOut) {
    if (!cutOut) return std::nullopt;
    return CutOut{.alpha = cutOut->alpha.copy(), .feetLine = cutOut->feetLine};
}

}  // namespace

/// The cutter of one photo that looks among the known ones first.
class BackdropPreview::Cutter final : public ChildCutter {
public:
    Cutter(CutOuts& known, const Wanted& wanted, const decltype(AppServices::cutterFor)& cutterFor)
        : known_(known), wanted_(wanted), cutterFor_(cutterFor) {}

    Result<std::optional<CutOut>> cutOut(DecodedRegion& photo) const override {
        const std::string key =
            Json{wanted_.photo.string(), photo.origin.x,       photo.origin.y, photo.scale,
                 photo.pixels.width(),   photo.pixels.height()}
                .dump();
        if (const CutOuts::Known known = known_.find(key)) {
            photo.pixels = known->pixels.copy();
            return copyOf(known->cutOut);
        }
        const auto real = cutterFor_(wanted_.photo, wanted_.analysis, known_.ending().get_token());
        if (!real) return failure("Nobody can be cut out here.");
        auto made = real->cutOut(photo);
        if (made)
            known_.keep(std::make_shared<const CutOuts::Entry>(
                CutOuts::Entry{key, photo.pixels.copy(), copyOf(*made)}));
        return made;
    }

private:
    CutOuts& known_;
    const Wanted& wanted_;
    const decltype(AppServices::cutterFor)& cutterFor_;
};

BackdropPreview::BackdropPreview(decltype(AppServices::cutterFor) cutterFor,
                                 CallbackQueue callbacks)
    : cutterFor_(std::move(cutterFor)),
      cutOuts_(std::make_shared<CutOuts>()),
      pictures_(picturesAtOnce, picturesRemembered, std::move(callbacks)) {}

BackdropPreview::~BackdropPreview() {
    std::stop_source ending = cutOuts_->ending();
    ending.request_stop();
}

std::optional<BackdropPreview::Wanted> BackdropPreview::wanted(const WorkingJob& job,
                                                               std::size_t index,
                                                               const CropPreset& preset,
                                                               int height) {
    const ImageItem& item = job.item(index);
    if (!item.analysis || !item.solution) return std::nullopt;
    const CropSolution solution =
        CropSolver::solve(*item.analysis, preset, job.solvedWith(index).faceUnit);
    if (solution.status == CropStatus::failed) return std::nullopt;
    return Wanted{
        .photo = item.url,
        .analysis = *item.analysis,
        .rect = CropSolver::finalRect(solution, item.adjustment, item.analysis->sourceSize()),
        .rotation = CropSolver::finalRotation(solution, item.adjustment),
        .settings = preset.exportSettings,
        .height = height};
}

BackdropPreview::Ticket BackdropPreview::request(const Wanted& wanted, Completion completion) {
    const Json key{fileURL(wanted.photo), numbers(wanted.rect), wanted.rotation,
                   Json(wanted.settings), wanted.height};
    const auto make = [wanted, cutterFor = cutterFor_,
                       cutOuts = cutOuts_]() -> std::optional<QImage> {
        const Cutter cutter(*cutOuts, wanted, cutterFor);
        const auto drawn =
            CropRenderer::preview(wanted.photo, wanted.analysis.sourceSize(), wanted.rotation,
                                  {.rect = wanted.rect,
                                   .geometry = {},
                                   .settings = wanted.settings,
                                   .headAnchor = headAnchorOf(wanted.analysis),
                                   .cutter = &cutter},
                                  wanted.height);
        return drawn ? std::optional(drawable(drawn->picture)) : std::nullopt;
    };
    return pictures_.request(key.dump(), make, std::move(completion));
}

void BackdropPreview::cancel(Ticket ticket) { pictures_.cancel(ticket); }

}  // namespace morva
