// SPDX-License-Identifier: GPL-3.0-or-later
// Presets, rules, the reference portrait, backdrops.
#include <gmock/gmock.h>

#include "app/state_test_support.h"
#include "crop/rule_store.h"

namespace morva {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Presets : public StateTest {
protected:
    void SetUp() override { state = cropped(3); }

    CropPreset headshot() const { return *state->preset(PresetLibrary::headshotID()); }
    Rect cropOf(std::size_t index) const { return item(*state, index).solution->rect; }
    std::vector<CropPreset> stored() const {
        EXPECT_TRUE(state->flushSaves());
        return PresetStore(services.folders.data).load().presets;
    }

    std::unique_ptr<AppState> state;
};

TEST_F(Presets, anEditCropsAgainIsSavedAndUndoneAsOneStep) {
    const Rect before = cropOf(0);
    CropPreset larger = headshot();
    for (int i = 0; i < 20; ++i) {  // as a slider is dragged
        larger.faceScale *= 1.01;
        state->updatePreset(larger, "Change Face Size");
    }
    EXPECT_LT(cropOf(0).height, before.height / 1.2);
    EXPECT_EQ(state->undoStack().count(), 1);
    EXPECT_EQ(stored().front().faceScale, larger.faceScale);
    state->undoStack().undo();
    EXPECT_EQ(cropOf(0), before);
    EXPECT_EQ(stored(), PresetLibrary::standardLibrary());
    state->undoStack().redo();
    state->resetPreset(larger.id);
    EXPECT_EQ(cropOf(0), before);
}

TEST_F(Presets, jobsOutOfSightFollowAnEdit) {
    const Uuid first = *state->selectedJobID();
    fs::create_directories(home.path() / "4a");
    std::ofstream(home.path() / "4a" / "1.jpg") << "photo";
    state->openFolder(home.path() / "4a");
    finish(*state);
    CropPreset poster = headshot();
    poster.exportSettings.pixelWidth *= 4;
    poster.exportSettings.pixelHeight *= 4;
    state->updatePreset(poster);
    ASSERT_TRUE(waitFor([&] { return !state->job(first)->isStale(); }));
    EXPECT_EQ(state->job(first)->count(ItemStatus::review), 3);
}

TEST_F(Presets, newOnesHaveNamesOfTheirOwnAndDeletedOnesAreReplacedEverywhere) {
    const Uuid first = state->newPreset("Mine");
    const Uuid second = state->newPreset("Mine");
    const auto copy = state->duplicatePreset(first);
    EXPECT_EQ(state->preset(second)->name, "Mine 2");
    EXPECT_EQ(state->preset(*copy)->name, "Mine copy");
    EXPECT_EQ(state->selectedPresetID(), *copy);

    state->choosePreset(first);
    state->select(item(*state, 1).id);
    state->setOverride(first);
    const CropRule rule{Uuid::random(), {RuleCondition::Sign{}}, first, true};
    state->setRules({rule});
    const Job before = state->selectedJob()->job();
    state->deletePreset(first, PresetLibrary::landscapeID());
    EXPECT_FALSE(state->preset(first));
    EXPECT_EQ(state->selectedJob()->job().presetID, PresetLibrary::landscapeID());
    EXPECT_EQ(item(*state, 1).presetOverride, PresetLibrary::landscapeID());
    EXPECT_EQ(state->selectedJob()->job().rules.front().presetID, PresetLibrary::landscapeID());
    EXPECT_EQ(stored().size(), 6U);
    state->undoStack().undo();
    EXPECT_EQ(state->selectedJob()->job(), before);
    EXPECT_TRUE(state->preset(first));
}

TEST_F(Presets, theRulesOfAnAutomaticJobChooseAndAreKeptForTheNext) {
    ImageAnalysis landscape = Synthetic::portrait();
    std::swap(landscape.sourceWidth, landscape.sourceHeight);
    scripted["2.jpg"] = landscape;
    crop(*state, true);
    state->choosePreset(PresetLibrary::autoPresetID());
    EXPECT_TRUE(state->selectedJob()->job().autoAssign);
    EXPECT_EQ(state->selectedJob()->solvedWith(1).rule, "Landscape frame");
    EXPECT_EQ(item(*state, 1).presetID, PresetLibrary::landscapeID());
    const CropRule all{
        Uuid::random(), {RuleCondition::Always{}}, PresetLibrary::fullLengthID(), true};
    state->setRules({all});
    EXPECT_EQ(item(*state, 1).presetID, PresetLibrary::fullLengthID());
    ASSERT_TRUE(state->flushSaves());
    EXPECT_THAT(RuleStore(services.folders.data, state->presets()).load().rules, ElementsAre(all));
    state->undoStack().undo();
    state->undoStack().undo();
    EXPECT_FALSE(state->selectedJob()->job().autoAssign);
    EXPECT_EQ(item(*state, 1).presetID, PresetLibrary::headshotID());
}

TEST_F(Presets, aReferenceSetsTheTargetsAndSaysWhatItCouldNotAdopt) {
    state->useReference(home.path() / "finished.jpg");
    EXPECT_TRUE(state->referenceBusy());
    ASSERT_TRUE(waitFor([&] { return !state->referenceBusy(); }));
    EXPECT_EQ(alertText(*state),
              "Could not use that reference: No face was found in the reference image.");
    EXPECT_FALSE(headshot().reference);
    state.reset();

    services.measureReference = [](const fs::path& file) -> Result<ReferenceGeometry> {
        ReferenceGeometry measured;
        measured.sourceName = file.filename();
        measured.faceScale = 0.25;
        measured.eyeY = 0.4;
        measured.aspect = 0.75;
        return measured;
    };
    state = started();
    state->useReference(home.path() / "finished.jpg");
    ASSERT_TRUE(waitFor([&] { return !state->referenceBusy(); }));
    EXPECT_EQ(headshot().faceScale, 0.25);
    EXPECT_EQ(headshot().topMargin, 0.057);
    ASSERT_TRUE(state->alert());
    EXPECT_EQ(state->alert()->title, "Reference applied with notes");
    EXPECT_THAT(state->alert()->message, HasSubstr("The reference is 0.750:1 but the preset"));
    EXPECT_THAT(state->alert()->message, HasSubstr("so the top margin was left unchanged."));
    state->dismissAlert();
    state->clearReference();
    EXPECT_FALSE(headshot().reference);
    EXPECT_EQ(headshot().faceScale, 0.25);
}

TEST_F(Presets, theBackdropSetUpOffersPlatesAndRemembersThem) {
    const fs::path folder = services.folders.data / "Backdrops";
    fs::create_directories(folder);
    writePhoto(folder / "grey.png", 40, 50);
    writePhoto(folder / "lawn.png", 50, 40);
    BackdropSetup& setup = state->backdrops();
    setup.begin();
    ASSERT_TRUE(waitFor([&] { return !setup.plates().empty(); }));
    EXPECT_THAT(setup.presetIDs(), ElementsAre(PresetLibrary::headshotID()));
    EXPECT_EQ(setup.choice(PresetLibrary::headshotID()).plate, folder / "grey.png");
    setup.answerFeet(true);
    EXPECT_THAT(setup.presetIDs(),
                ElementsAre(PresetLibrary::headshotID(), PresetLibrary::fullLengthID()));
    auto choice = setup.choice(PresetLibrary::headshotID());
    EXPECT_TRUE(choice.isOn);
    choice.plate = folder / "lawn.png";
    choice.zoom = 1.2;
    setup.choose(PresetLibrary::headshotID(), choice);
    setup.choose(PresetLibrary::fullLengthID(), {});
    setup.apply();
    EXPECT_FALSE(setup.isShown());
    EXPECT_EQ(headshot().exportSettings.backdrop, BackdropMode::replace);
    EXPECT_EQ(headshot().exportSettings.plateURL, folder / "lawn.png");
    EXPECT_EQ(headshot().exportSettings.plateZoom, 1.2);
    EXPECT_EQ(*state->preset(PresetLibrary::fullLengthID()),
              PresetLibrary::standardPreset(PresetLibrary::fullLengthID()));
    EXPECT_EQ(state->selectedJob()->job().showsFeet, true);
    state->undoStack().undo();
    EXPECT_EQ(headshot().exportSettings.backdrop, BackdropMode::repeatEdges);
    setup.begin();
    EXPECT_EQ(setup.showsFeet(), true);
    ASSERT_TRUE(waitFor([&] { return setup.isListed(); }));
    EXPECT_EQ(setup.choice(PresetLibrary::headshotID()).plate, folder / "lawn.png");

    // A plate from anywhere joins the list, and what is switched off is no longer replaced.
    writePhoto(home.path() / "own.png", 40, 50);
    setup.addPlate(PresetLibrary::headshotID(), home.path() / "own.png");
    ASSERT_TRUE(waitFor([&] { return setup.plates().size() == 3; }));
    setup.apply();
    EXPECT_EQ(headshot().exportSettings.plateURL, home.path() / "own.png");
    setup.begin();
    ASSERT_TRUE(waitFor([&] { return setup.isListed(); }));
    setup.choose(PresetLibrary::headshotID(), {});
    setup.apply();
    EXPECT_EQ(headshot().exportSettings.backdrop, BackdropMode::keep);
    setup.begin();
    setup.addPlate(PresetLibrary::headshotID(), home.path() / "none.png");
    ASSERT_TRUE(waitFor([&] { return state->alert().has_value(); }));
    EXPECT_EQ(alertText(*state),
              "Could not read the backdrop: none.png is not a picture that Morva can open.");
}

}  // namespace
}  // namespace morva
