// SPDX-License-Identifier: GPL-3.0-or-later
// Selection, review order, approval, hand adjustment, a photo's own preset, keys.
#include <algorithm>

#include "app/app_state.h"
#include "app/backdrop_setup.h"
#include "app/export_flow.h"
#include "app/pose_flow.h"
#include "crop/crop_solver.h"

namespace morva {

namespace {

// Beyond these a crop is no portrait any more.
constexpr double smallestScale = 0.3;
constexpr double largestScale = 3;
constexpr double largestTurn = 20;  // degrees

bool canBeApproved(const ImageItem& item) {
    return item.solution && item.solution->status != CropStatus::failed;
}

}  // namespace

void AppState::select(const std::optional<std::string>& itemID) {
    if (itemID)
        selectMany({*itemID}, itemID);
    else
        selectMany({}, std::nullopt);
}

void AppState::selectMany(std::vector<std::string> items,
                          const std::optional<std::string>& current) {
    if (selection_ == items && selectedItemID_ == current) return;
    selection_ = std::move(items);
    selectedItemID_ = current;
    emit selectionChanged();
}

std::optional<std::size_t> AppState::currentIndex() const {
    const WorkingJob* open = selectedJob();
    return open && selectedItemID_ ? open->indexOf(*selectedItemID_) : std::nullopt;
}

AppState::Indices AppState::selectedIndices() const {
    Indices indices;
    const WorkingJob* open = selectedJob();
    if (!open) return indices;
    for (const std::string& id : selection_)
        if (const auto index = open->indexOf(id)) indices.push_back(*index);
    return indices;
}

std::optional<std::string> AppState::neighbor(int offset) const {
    const Indices& shown = filteredItems();
    const auto current = currentIndex();
    if (shown.empty()) return std::nullopt;
    const auto idAt = [&](std::ptrdiff_t place) -> std::optional<std::string> {
        if (place < 0 || place >= std::ssize(shown)) return std::nullopt;
        return selectedJob()->item(shown[static_cast<std::size_t>(place)]).id;
    };
    if (!current) return idAt(offset > 0 ? 0 : std::ssize(shown) - 1);
    // A photo that has left the list stands before the first one behind it.
    const auto at = std::ranges::lower_bound(shown, *current);
    const bool isShown = at != shown.end() && *at == *current;
    return idAt((at - shown.begin()) + offset - (!isShown && offset > 0 ? 1 : 0));
}

void AppState::selectNext() {
    if (const auto next = neighbor(1)) select(next);
}

void AppState::selectPrevious() {
    if (const auto previous = neighbor(-1)) select(previous);
}

void AppState::startReview() {
    setFilter(StatusFilter::review);
    const Indices& shown = filteredItems();
    if (shown.empty()) return setMode(ViewMode::grid);
    const auto current = currentIndex();
    if (!current || !std::ranges::binary_search(shown, *current))
        select(selectedJob()->item(shown.front()).id);
    setMode(ViewMode::inspect);
    setRightTab(RightTab::photo);
}

void AppState::decide(const QString& text, const Indices& indices,
                      const std::function<void(std::size_t, PhotoDecisions&)>& change,
                      DecisionsStep::Merging merging) {
    const WorkingJob* open = selectedJob();
    if (!open || indices.empty() || !mayChange()) return;
    std::vector<DecisionsStep::Photo> photos;
    for (const std::size_t index : indices) {
        const PhotoDecisions before = PhotoDecisions::of(open->item(index));
        PhotoDecisions after = before;
        change(index, after);
        if (after != before) photos.push_back({open->item(index).id, before, after});
    }
    if (!photos.empty())
        undo_.push(
            new DecisionsStep(*this, text, open->id(), std::move(photos), merging, gesture_));
}

void AppState::applyDecisions(const Uuid& id,
                              std::span<const std::pair<std::string, PhotoDecisions>> decisions) {
    WorkingJob* job = editable(id);
    if (!job) return;
    Indices changed;
    bool choseAnother = false;
    auto urgency = SaveQueue::Urgency::edit;
    for (const auto& [itemID, wanted] : decisions) {
        const auto index = job->indexOf(itemID);
        if (!index) continue;
        ImageItem& item = job->itemToChange(*index);
        choseAnother = choseAnother || item.presetOverride != wanted.presetOverride;
        if (item.approved != wanted.approved) urgency = SaveQueue::Urgency::decision;
        item.adjustment = wanted.adjustment;
        item.approved = wanted.approved;
        item.approvedRect = wanted.approvedRect;
        item.presetOverride = wanted.presetOverride;
        // A hand adjustment lies on top of the solution and leaves it as it is.
        job->refresh(*index, presets_);
        changed.push_back(*index);
    }
    if (choseAnother) {
        // Another preset can give or take a shared size from any photo.
        const Indices solved = job->update(presets_);
        changed.insert(changed.end(), solved.begin(), solved.end());
        std::ranges::sort(changed);
        changed.erase(std::unique(changed.begin(), changed.end()), changed.end());
    }
    saveSoon(id, urgency);
    touched(*job, changed);
}

void AppState::reveal(const Uuid& id, const std::string& itemID) {
    selectJob(id);
    const WorkingJob* open = selectedJob();
    if (open && open->id() == id && open->indexOf(itemID)) select(itemID);
}

void AppState::setApproved(const QString& text, const Indices& indices, bool approved) {
    const WorkingJob* open = selectedJob();
    decide(text, indices, [&](std::size_t index, PhotoDecisions& photo) {
        if (approved && !canBeApproved(open->item(index))) return;
        photo.approved = approved;
        photo.approvedRect = approved ? open->finalRect(index) : std::nullopt;
    });
}

void AppState::approveSelected(bool advance) {
    if (selectedIndices().empty()) return;
    const auto next = advance ? neighbor(1) : std::nullopt;
    setApproved("Approve", selectedIndices(), true);
    if (next) select(next);
}

void AppState::toggleApproveSelected() {
    const WorkingJob* open = selectedJob();
    const Indices chosen = selectedIndices();
    const bool all =
        std::ranges::all_of(chosen, [&](std::size_t index) { return open->item(index).approved; });
    setApproved(all ? "Take Back Approval" : "Approve", chosen, !all);
}

void AppState::unapproveSelected() { setApproved("Take Back Approval", selectedIndices(), false); }

int AppState::approveAllReady() {
    const WorkingJob* open = selectedJob();
    if (!open || !mayChange()) return 0;
    const Indices ready = open->matching(StatusFilter::ready);
    setApproved("Approve All Ready", ready, true);
    const int count = static_cast<int>(ready.size());
    say("Approved " + std::to_string(count) + (count == 1 ? " photo." : " photos."));
    return count;
}

void AppState::adjust(const QString& text, const std::function<void(ManualAdjustment&)>& change) {
    const auto index = currentIndex();
    if (!index || !canBeApproved(selectedJob()->item(*index))) return;
    decide(
        text, {*index},
        [&](std::size_t, PhotoDecisions& photo) {
            change(photo.adjustment);
            if (!photo.approved) return;
            // The person sees the crop that is approved change under the hand.
            const ImageItem& item = selectedJob()->item(*index);
            photo.approvedRect = CropSolver::finalRect(*item.solution, photo.adjustment,
                                                       item.analysis->sourceSize());
        },
        DecisionsStep::Merging::withLikeSteps);
}

void AppState::nudge(double dx, double dy) {
    adjust("Nudge Crop", [&](ManualAdjustment& adjustment) {
        adjustment.dx += dx;
        adjustment.dy += dy;
    });
}

void AppState::scale(double by) {
    adjust("Zoom Crop", [&](ManualAdjustment& adjustment) {
        adjustment.scale = std::clamp(adjustment.scale * by, smallestScale, largestScale);
    });
}

void AppState::rotate(double degrees) {
    adjust("Turn Crop", [&](ManualAdjustment& adjustment) {
        adjustment.rotation = std::clamp(adjustment.rotation + degrees, -largestTurn, largestTurn);
    });
}

void AppState::resetAdjustment() {
    const WorkingJob* open = selectedJob();
    // A step of its own, or undoing it would take the adjustment back instead of giving it back.
    decide("Reset Crop", selectedIndices(), [&](std::size_t index, PhotoDecisions& photo) {
        photo.adjustment = {};
        if (photo.approved && open->item(index).solution)
            photo.approvedRect = open->item(index).solution->rect;
    });
}

void AppState::beginGesture() { gesture_ = ++lastGesture_; }

void AppState::endGesture() { gesture_ = 0; }

void AppState::setOverride(const std::optional<Uuid>& presetID) {
    if (presetID && !preset(*presetID)) return;
    decide("Choose Crop Type", selectedIndices(),
           [&](std::size_t, PhotoDecisions& photo) { photo.presetOverride = presetID; });
}

bool AppState::isModal() const {
    return alert_ || exports_->isShown() || backdrops_->isShown() || poses_->isShown();
}

bool AppState::handleKey(const KeyPress& press) {
    if (press.isTyping || press.command || isModal()) return false;
    const KeyBinding* binding = KeyTable::find(press, mode_);
    if (binding) carryOut(*binding, press);
    return binding != nullptr;
}

void AppState::carryOut(const KeyBinding& binding, const KeyPress& press) {
    const double step = press.shift ? binding.shiftStep : binding.step;
    switch (binding.action) {
        case KeyAction::selectPrevious:
            return selectPrevious();
        case KeyAction::selectNext:
            return selectNext();
        case KeyAction::nudgeLeft:
            return nudge(-step, 0);
        case KeyAction::nudgeRight:
            return nudge(step, 0);
        case KeyAction::nudgeUp:
            return nudge(0, -step);
        case KeyAction::nudgeDown:
            return nudge(0, step);
        case KeyAction::approveAndNext:
            return approveSelected(true);
        case KeyAction::toggleApproval:
            return toggleApproveSelected();
        case KeyAction::backToGrid:
        case KeyAction::showGrid:
            return setMode(ViewMode::grid);
        case KeyAction::tighter:
        case KeyAction::looser:
            return scale(step);
        case KeyAction::turnLeft:
        case KeyAction::turnRight:
            return rotate(step);
        case KeyAction::resetAdjustment:
            return resetAdjustment();
        case KeyAction::toggleOverlay:
            return setShowOverlay(!showOverlay_);
        case KeyAction::clearOwnPreset:
            return setOverride(std::nullopt);
        case KeyAction::useNthPreset: {
            const auto place = static_cast<std::size_t>(press.characters.front() - '1');
            if (place < presets_.size()) setOverride(presets_[place].id);
            return;
        }
        case KeyAction::showInspector:
            if (!currentIndex()) selectNext();
            if (currentIndex()) setMode(ViewMode::inspect);
            return;
    }
}

}  // namespace morva
