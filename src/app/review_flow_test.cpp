// SPDX-License-Identifier: GPL-3.0-or-later
// Selection, filters, approval, hand adjustment, keys, undo.
#include <gmock/gmock.h>

#include <cctype>

#include "app/state_test_support.h"
#include "crop/crop_solver.h"

namespace morva {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ImageAnalysis doubtful() {
    ImageAnalysis photo = Synthetic::portrait();
    photo.faces.front().landmarkConfidence = 0.5;
    return photo;
}

ImageAnalysis faceless() {
    ImageAnalysis photo = Synthetic::portrait();
    photo.faces.clear();
    return photo;
}

ImageAnalysis unreadable() {
    ImageAnalysis photo;
    photo.detectionFailed = true;
    photo.error = "The file is empty.";
    return photo;
}

/// Six photos: ready, review, review, no face, unreadable, ready.
class Review : public StateTest {
protected:
    void SetUp() override {
        scripted = {{"2.jpg", doubtful()},
                    {"3.jpg", doubtful()},
                    {"4.jpg", faceless()},
                    {"5.jpg", unreadable()}};
        state = cropped(6);
    }

    std::string current() const { return state->selectedItemID().value_or("-"); }
    const ImageItem& photo(std::size_t index) const { return item(*state, index); }
    ItemStatus status(std::size_t index) const { return state->selectedJob()->status(index); }
    void undo() const { state->undoStack().undo(); }

    std::unique_ptr<AppState> state;
};

TEST_F(Review, filtersShowAndCountTheirPhotos) {
    state->select(photo(3).id);
    state->nudge(0.1, 0);  // there is no crop to move
    state->select(photo(1).id);
    state->nudge(0.1, 0);
    using Places = std::vector<std::size_t>;
    for (const auto& [filter, label, places] :
         std::vector<std::tuple<StatusFilter, std::string, Places>>{
             {StatusFilter::all, "All photos", {0, 1, 2, 3, 4, 5}},
             {StatusFilter::ready, "Ready", {0, 5}},
             {StatusFilter::review, "Review", {1, 2}},
             {StatusFilter::approved, "Approved", {}},
             {StatusFilter::failed, "No face / errors", {3, 4}},
             {StatusFilter::adjusted, "Hand-adjusted", {1}}}) {
        SCOPED_TRACE(label);
        state->setFilter(filter);
        EXPECT_EQ(state->filteredItems(), places);
        EXPECT_EQ(state->selectedJob()->count(filter), static_cast<int>(places.size()));
        EXPECT_EQ(morva::label(filter), label);
    }
}

TEST_F(Review, stepsThroughWhatNeedsALook) {
    state->startReview();
    EXPECT_EQ(state->mode(), ViewMode::inspect);
    EXPECT_EQ(current(), "2.jpg");
    EXPECT_FALSE(state->neighbor(-1));
    state->approveSelected(true);
    EXPECT_EQ(current(), "3.jpg");
    state->approveSelected(true);
    EXPECT_EQ(current(), "3.jpg");
    EXPECT_THAT(state->filteredItems(), IsEmpty());
    EXPECT_EQ(state->selectedJob()->count(ItemStatus::approved), 2);
    EXPECT_EQ(photo(1).approvedRect, photo(1).solution->rect);
    undo();
    undo();
    EXPECT_THAT(state->filteredItems(), ElementsAre(1, 2));

    // From a photo that is not shown, the neighbours are those around it.
    state->select(photo(3).id);
    EXPECT_EQ(state->neighbor(-1), "3.jpg");
    EXPECT_FALSE(state->neighbor(1));
    state->select(photo(0).id);
    EXPECT_EQ(state->neighbor(1), "2.jpg");
}

TEST_F(Review, approvesOnlyWhatHasACropAndAllOfASelectionAtOnce) {
    std::vector<std::string> all;
    for (const ImageItem& item : state->selectedJob()->job().items) all.push_back(item.id);
    state->selectMany(all, all.front());
    state->approveSelected(false);
    EXPECT_EQ(state->selectedJob()->count(ItemStatus::approved), 4);
    EXPECT_EQ(status(3), ItemStatus::failed);
    EXPECT_FALSE(photo(4).approved);
    undo();
    EXPECT_EQ(state->selectedJob()->count(ItemStatus::approved), 0);
    EXPECT_EQ(state->approveAllReady(), 2);
    EXPECT_EQ(status(1), ItemStatus::review);
    state->select(photo(0).id);
    state->toggleApproveSelected();
    EXPECT_EQ(status(0), ItemStatus::ready);
    state->toggleApproveSelected();
    EXPECT_EQ(status(0), ItemStatus::approved);
    state->unapproveSelected();
    EXPECT_EQ(status(0), ItemStatus::ready);
}

TEST_F(Review, aCropMovedPastThePhotoNeedsALookAndSaysWhy) {
    CropPreset preset = *state->preset(PresetLibrary::headshotID());
    preset.exportSettings.backdrop = BackdropMode::keep;
    state->updatePreset(preset);
    state->select(photo(0).id);
    EXPECT_EQ(status(0), ItemStatus::ready);
    state->nudge(-1, 0);
    EXPECT_EQ(status(0), ItemStatus::review);
    EXPECT_THAT(state->selectedJob()->reasons(0), ElementsAre(ReviewReason::needsMoreCanvas));
    ASSERT_TRUE(state->selectedJob()->canvasToAdd(0));
    EXPECT_NEAR(state->selectedJob()->canvasToAdd(0)->left, -state->selectedJob()->finalRect(0)->x,
                1e-9);
    state->resetAdjustment();
    EXPECT_EQ(status(0), ItemStatus::ready);
}

TEST_F(Review, resetsAllSelectedPhotosAsOneStep) {
    for (const std::size_t i : {0U, 5U}) {
        state->select(photo(i).id);
        state->nudge(0.02, 0);
    }
    state->selectMany({photo(0).id, photo(5).id}, photo(0).id);
    const int steps = state->undoStack().count();
    state->resetAdjustment();
    EXPECT_FALSE(photo(0).hasAdjustment() || photo(5).hasAdjustment());
    EXPECT_EQ(state->undoStack().count(), steps + 1);
    undo();
    EXPECT_TRUE(photo(0).hasAdjustment() && photo(5).hasAdjustment());
}

TEST_F(Review, zoomAndTurnStopAtTheirLimits) {
    state->select(photo(0).id);
    state->scale(100);
    state->rotate(-100);
    EXPECT_EQ(photo(0).adjustment.scale, 3);
    EXPECT_EQ(photo(0).adjustment.rotation, -20);
    state->scale(0.001);
    state->rotate(100);
    EXPECT_EQ(photo(0).adjustment.scale, 0.3);
    EXPECT_EQ(photo(0).adjustment.rotation, 20);
}

TEST_F(Review, undoTakesABurstOfNudgesAsOneStepAndEverythingElseSingly) {
    state->select(photo(0).id);
    for (int i = 0; i < 5; ++i) state->nudge(0.01, 0);
    state->scale(1.1);
    EXPECT_EQ(state->undoStack().count(), 1);
    EXPECT_EQ(state->undoStack().undoText(), "Adjust Crop");
    state->select(photo(5).id);
    state->nudge(0, 0.01);
    state->approveSelected(false);
    state->setOverride(PresetLibrary::fullLengthID());
    EXPECT_EQ(state->undoStack().count(), 4);
    EXPECT_EQ(state->selectedJob()->solvedWith(5).presetID, PresetLibrary::fullLengthID());
    undo();
    EXPECT_EQ(state->selectedJob()->solvedWith(5).presetID, PresetLibrary::headshotID());
    undo();
    EXPECT_EQ(status(5), ItemStatus::ready);
    undo();
    undo();
    EXPECT_FALSE(photo(0).hasAdjustment());
    state->undoStack().redo();
    EXPECT_NEAR(photo(0).adjustment.dx, 0.05, 1e-12);
    EXPECT_EQ(photo(0).adjustment.scale, 1.1);
    state->select(photo(0).id);
    state->resetAdjustment();
    undo();
    EXPECT_EQ(photo(0).adjustment.scale, 1.1);
}

TEST_F(Review, undoTakesEachGestureAsOneStepEvenInABurst) {
    state->select(photo(0).id);
    state->beginGesture();
    state->nudge(0.01, 0);
    state->nudge(0.01, 0);
    state->endGesture();
    state->beginGesture();
    state->nudge(0, 0.01);
    state->endGesture();
    state->nudge(0, 0.01);
    EXPECT_EQ(state->undoStack().count(), 3);
    undo();
    undo();
    EXPECT_NEAR(photo(0).adjustment.dx, 0.02, 1e-12);
    EXPECT_EQ(photo(0).adjustment.dy, 0);
    undo();
    EXPECT_FALSE(photo(0).hasAdjustment());
}

/// What one press does to the state that the keys reach, in words.
class Keys : public Review {
protected:
    /// Presses a binding's key; for one of several characters the second.
    bool press(const KeyBinding& binding, bool shift) {
        const std::string_view typed =
            binding.characters.size() > 1 ? binding.characters.substr(1, 1) : binding.characters;
        return state->handleKey({.key = binding.key, .characters = typed, .shift = shift});
    }

    std::string effect(const KeyBinding& binding, bool shift) {
        state->select(photo(1).id);
        const bool did = press(binding, shift);
        const ManualAdjustment& a = photo(1).adjustment;
        std::ostringstream text;
        if (!did) text << "nothing";
        if (a.dx != 0 || a.dy != 0) text << "move " << a.dx << " " << a.dy;
        if (a.scale != 1) text << "scale " << a.scale;
        if (a.rotation != 0) text << "turn " << a.rotation;
        if (photo(1).approved) text << "approved ";
        if (photo(1).presetOverride)
            text << "preset " << state->preset(*photo(1).presetOverride)->badge;
        if (current() != "2.jpg") text << "at " << current();
        if (!state->showOverlay()) text << "no guides";
        if (state->mode() != before_) text << (before_ == ViewMode::grid ? "inspector" : "grid");
        return text.str();
    }

    /// The effect in a fresh state.
    std::string effectIn(ViewMode view, const KeyBinding& binding, bool shift) {
        state->setShowOverlay(true);
        state->select(photo(1).id);
        state->unapproveSelected();
        state->resetAdjustment();
        state->setOverride(std::nullopt);
        state->setMode(before_ = view);
        return effect(binding, shift);
    }

    ViewMode before_ = ViewMode::grid;
};

TEST_F(Keys, everyKeyDoesWhatTheTableSays) {
    // In the order of the table: in the grid, in the inspector, there with Shift.
    struct Case {
        const char* caps;
        const char* grid;
        const char* inspector;
        const char* shifted;
    };
    const std::vector<Case> cases{
        {"←", "at 1.jpg", "move -0.005 0", "move -0.02 0"},
        {"→", "at 3.jpg", "move 0.005 0", "move 0.02 0"},
        {"↑", "at 1.jpg", "move 0 -0.005", "move 0 -0.02"},
        {"↓", "at 3.jpg", "move 0 0.005", "move 0 0.02"},
        {"Return", "approved at 3.jpg", "approved at 3.jpg", "approved at 3.jpg"},
        {"Enter", "approved at 3.jpg", "approved at 3.jpg", "approved at 3.jpg"},
        {"Space", "approved ", "approved ", "approved "},
        {"Esc", "nothing", "grid", "grid"},
        {"+", "scale 0.990099", "scale 0.990099", "scale 0.952381"},
        {"=", "scale 0.990099", "scale 0.990099", "scale 0.952381"},
        {"-", "scale 1.01", "scale 1.01", "scale 1.05"},
        {"_", "scale 1.01", "scale 1.01", "scale 1.05"},
        {",", "turn -0.25", "turn -0.25", "turn -1"},
        {"<", "turn -0.25", "turn -0.25", "turn -1"},
        {".", "turn 0.25", "turn 0.25", "turn 1"},
        {">", "turn 0.25", "turn 0.25", "turn 1"},
        {"R", "", "", ""},
        {"[", "at 1.jpg", "at 1.jpg", "at 1.jpg"},
        {"]", "at 3.jpg", "at 3.jpg", "at 3.jpg"},
        {"O", "no guides", "no guides", "no guides"},
        {"0", "", "", ""},
        {"1 – 9", "preset 3/4", "preset 3/4", "preset 3/4"},
        {"G", "", "grid", "grid"},
        {"E", "inspector", "", ""},
    };
    std::set<std::string_view> covered;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.caps);
        covered.insert(c.caps);
        const auto all = KeyTable::bindings();
        const auto binding = std::ranges::find(all, c.caps, &KeyBinding::caps);
        ASSERT_NE(binding, all.end());
        EXPECT_EQ(effectIn(ViewMode::grid, *binding, false), c.grid);
        EXPECT_EQ(effectIn(ViewMode::inspect, *binding, false), c.inspector);
        EXPECT_EQ(effectIn(ViewMode::inspect, *binding, true), c.shifted);
    }
    for (const KeyBinding& binding : KeyTable::bindings())
        EXPECT_TRUE(covered.contains(binding.caps)) << binding.caps;
}

TEST_F(Keys, resetAndZeroTakeBackAndZoomReturnsToTheSameSize) {
    const auto type = [&](const char* text, bool shift = false) {
        return state->handleKey({.characters = text, .shift = shift});
    };
    state->select(photo(0).id);
    EXPECT_TRUE(type("+") && type("-"));
    EXPECT_NEAR(photo(0).adjustment.scale, 1, 1e-15);
    EXPECT_TRUE(type("N") == false && type("R"));
    EXPECT_FALSE(photo(0).hasAdjustment());
    type("2");
    EXPECT_EQ(photo(0).presetOverride, PresetLibrary::threeQuarterID());
    type("5");  // there are four presets
    EXPECT_EQ(photo(0).presetOverride, PresetLibrary::threeQuarterID());
    type("0");
    EXPECT_FALSE(photo(0).presetOverride);
}

TEST_F(Keys, areLeftAloneWhereTheyBelongToSomethingElse) {
    state->select(photo(0).id);
    const KeyPress space{.key = Qt::Key_Space, .characters = " "};
    KeyPress typing = space;
    typing.isTyping = true;
    KeyPress command = space;
    command.command = true;
    EXPECT_FALSE(state->handleKey(typing) || state->handleKey(command));
    state->showAlert({.title = "Look", .message = "Here."});
    EXPECT_FALSE(state->handleKey(space));
    state->dismissAlert();
    state->exports().begin();
    EXPECT_FALSE(state->handleKey(space));
    state->exports().dismiss();
    EXPECT_EQ(status(0), ItemStatus::ready);
    EXPECT_TRUE(state->handleKey(space));
    EXPECT_EQ(status(0), ItemStatus::approved);
}

}  // namespace
}  // namespace morva
