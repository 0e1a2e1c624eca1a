// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/undo_steps.h"

#include "app/app_state.h"

namespace morva {

namespace {

/// Tells kinds of mergeable steps apart for the undo stack.
enum StepKind { decisionsKind = 1, libraryKind };
constexpr int unmergeable = -1;

}  // namespace

PhotoDecisions PhotoDecisions::of(const ImageItem& item) {
    return {item.adjustment, item.approved, item.approvedRect, item.presetOverride};
}

JobChoices JobChoices::of(const Job& job) { return {job.presetID, job.autoAssign, job.rules}; }

DecisionsStep::DecisionsStep(AppState& state, const QString& text, Uuid job,
                             std::vector<Photo> photos, Merging merging, int gesture)
    : QUndoCommand(text),
      state_(state),
      job_(std::move(job)),
      photos_(std::move(photos)),
      merging_(merging),
      gesture_(gesture) {}

void DecisionsStep::apply(PhotoDecisions Photo::*decisions) {
    std::vector<std::pair<std::string, PhotoDecisions>> wanted;
    wanted.reserve(photos_.size());
    for (const Photo& photo : photos_) wanted.emplace_back(photo.id, photo.*decisions);
    state_.applyDecisions(job_, wanted);
}

void DecisionsStep::redo() { apply(&Photo::after); }

void DecisionsStep::undo() {
    apply(&Photo::before);
    // Nobody should wonder what was taken back.
    if (photos_.size() == 1) state_.reveal(job_, photos_.front().id);
}

int DecisionsStep::id() const { return merging_ == Merging::never ? unmergeable : decisionsKind; }

bool DecisionsStep::mergeWith(const QUndoCommand* next) {
    const auto& later = static_cast<const DecisionsStep&>(*next);
    if (later.job_ != job_ || later.photos_.size() != 1 || photos_.size() != 1 ||
        later.photos_.front().id != photos_.front().id || later.gesture_ != gesture_ ||
        (gesture_ == 0 && later.made_ - made_ > undoBurst))
        return false;
    photos_.front().after = later.photos_.front().after;
    made_ = later.made_;
    if (later.text() != text()) setText("Adjust Crop");
    return true;
}

ChoicesStep::ChoicesStep(AppState& state, const QString& text, Uuid job, JobChoices before,
                         JobChoices after)
    : QUndoCommand(text),
      state_(state),
      job_(std::move(job)),
      before_(std::move(before)),
      after_(std::move(after)) {}

void ChoicesStep::redo() { state_.applyChoices(job_, after_); }

void ChoicesStep::undo() { state_.applyChoices(job_, before_); }

LibraryStep::LibraryStep(AppState& state, const QString& text, Presets before, Presets after,
                         std::optional<Uuid> edited, int gesture)
    : QUndoCommand(text),
      state_(state),
      before_(std::move(before)),
      after_(std::move(after)),
      edited_(std::move(edited)),
      gesture_(gesture) {}

void LibraryStep::redo() { state_.applyLibrary(after_); }

void LibraryStep::undo() { state_.applyLibrary(before_); }

int LibraryStep::id() const { return edited_ ? libraryKind : unmergeable; }

bool LibraryStep::mergeWith(const QUndoCommand* next) {
    const auto& later = static_cast<const LibraryStep&>(*next);
    if (later.edited_ != edited_ || later.text() != text() || later.gesture_ != gesture_ ||
        (gesture_ == 0 && later.made_ - made_ > undoBurst))
        return false;
    after_ = later.after_;
    made_ = later.made_;
    return true;
}

RemovalStep::RemovalStep(AppState& state, const QString& text, Uuid job)
    : QUndoCommand(text), state_(state), job_(std::move(job)) {}

void RemovalStep::redo() { removed_ = state_.takeOut(job_, place_); }

void RemovalStep::undo() { state_.putBack(std::move(removed_), place_); }

}  // namespace morva
