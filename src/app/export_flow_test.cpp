// SPDX-License-Identifier: GPL-3.0-or-later
// The export plan, the run, the reports.
#include <gmock/gmock.h>

#include <latch>

#include "app/state_test_support.h"

namespace morva {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr std::size_t photoCount = 4;

/// Four small photographs that can be exported, all ready but the third, which needs a look.
class Export : public StateTest {
protected:
    void SetUp() override {
        for (std::size_t i = 1; i <= photoCount; ++i) {
            const std::string name = std::to_string(i) + ".png";
            writePhoto(photos / name, 400, 500);
            scripted[name] = smallPortrait();
        }
        scripted["3.png"].faces.front().landmarkConfidence = 0.5;
        state = started();
        CropPreset preset = *state->preset(PresetLibrary::headshotID());
        preset.exportSettings.pixelWidth = 80;
        preset.exportSettings.pixelHeight = 100;
        state->updatePreset(preset);
        import(*state);
        crop(*state);
        ASSERT_EQ(state->selectedJob()->count(ItemStatus::ready), 3);
    }

    ExportFlow& exports() const { return state->exports(); }
    fs::path out() const { return *exports().destination(); }
    std::string written(const std::string& name) const {
        return readFile(out() / name).value_or("");
    }
    std::string report() const { return written("Morva Export Report.csv"); }
    void runToEnd() {
        exports().begin();
        ASSERT_TRUE(exports().run()) << alertText(*state);
        finish(*state);
    }
    std::vector<std::size_t> planned() {
        exports().begin();
        return exports().plan()->write;
    }

    std::unique_ptr<AppState> state;
};

TEST_F(Export, writesReadyAndApprovedPhotosBesideTheJobAndReportsThem) {
    state->select(item(*state, 1).id);
    state->nudge(0.01, 0);
    state->approveSelected(false);
    exports().begin();
    EXPECT_TRUE(exports().isShown());
    EXPECT_EQ(out(), home.path() / "3b Cropped");
    const auto plan = exports().plan();
    EXPECT_THAT(plan->write, ElementsAre(0, 1, 3));
    EXPECT_EQ(plan->review, 1);
    EXPECT_EQ(plan->pending + plan->unchanged, 0);
    EXPECT_EQ(plan->destinations.at(photos / "4.png"), out() / "4.jpg");
    exports().run();
    EXPECT_EQ(state->progress()->title, "Exporting to 3b Cropped");
    finish(*state);
    EXPECT_FALSE(state->alert()) << alertText(*state);

    EXPECT_FALSE(written("1.jpg").empty());
    EXPECT_FALSE(fs::exists(out() / "3.jpg"));
    EXPECT_TRUE(fs::exists(out() / ".morva-export"));
    EXPECT_THAT(report(),
                StartsWith("file,preset,status,confidence,face scale,eye line,headroom,"
                           "hand adjusted,reasons\n\"1.png\",\"Headshot 4x5\",\"Ready\""));
    EXPECT_THAT(report(), HasSubstr("\"2.png\",\"Headshot 4x5\",\"Approved\""));
    EXPECT_EQ(item(*state, 1).exportedRect, state->selectedJob()->finalRect(1));
    EXPECT_EQ(item(*state, 1).exportedHeight, 100);
    EXPECT_EQ(state->selectedJob()->job().exportFolder, out());
    EXPECT_EQ(state->lastResult(), "Exported 3 photos to 3b Cropped.");

    // What was exported is known after a restart.
    const Uuid job = *state->selectedJobID();
    const fs::path folder = out();
    state.reset();
    state = started();
    state->selectJob(job);
    EXPECT_THAT(planned(), testing::IsEmpty());
    EXPECT_EQ(out(), folder);
}

TEST_F(Export, writesAgainOnlyWhatChangedByHalfAPixel) {
    runToEnd();
    WorkingJob& job = *state->editable(*state->selectedJobID());
    const Rect exported = *item(*state, 0).exportedRect;
    for (const auto& [what, change, isDue] :
         std::vector<std::tuple<std::string, std::function<void(ImageItem&)>, bool>>{
             {"0.4 px", [](ImageItem& i) { i.exportedRect->x += 0.4; }, false},
             {"half a pixel", [](ImageItem& i) { i.exportedRect->height += 0.5; }, true},
             {"another height", [](ImageItem& i) { i.exportedHeight = 99; }, true},
             {"no height", [](ImageItem& i) { i.exportedHeight.reset(); }, true},
             {"no rectangle", [](ImageItem& i) { i.exportedRect.reset(); }, true}}) {
        SCOPED_TRACE(what);
        change(job.itemToChange(0));
        EXPECT_EQ(planned().size(), isDue ? 1U : 0U);
        EXPECT_EQ(exports().plan()->unchanged, isDue ? 2 : 3);
        job.itemToChange(0).exportedRect = exported;
        job.itemToChange(0).exportedHeight = 100;
    }
    fs::remove(out() / "4.jpg");
    EXPECT_THAT(planned(), ElementsAre(3));
    exports().setReplaceExisting(true);
    EXPECT_THAT(exports().plan()->write, ElementsAre(0, 1, 3));
    EXPECT_THAT(planned(), ElementsAre(3)) << "a wish for one export only";
    runToEnd();
    EXPECT_THAT(report(), HasSubstr("\"(2 photos already exported with the same crop were left "
                                    "untouched)\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\""));
}

TEST_F(Export, saysWhyItDoesNotBegin) {
    const auto refusal = [&] {
        EXPECT_FALSE(exports().run());
        EXPECT_FALSE(state->isBusy());
        return alertText(*state);
    };
    exports().begin();
    exports().setDestination(photos / "finished");
    EXPECT_EQ(refusal(),
              "Choose a folder outside the job: Morva never writes inside the source folder, or "
              "over it, so originals are never overwritten. Pick a separate folder, for example "
              "next to the job.");
    EXPECT_FALSE(fs::exists(photos / "finished"));

    fs::create_directories(home.path() / "out");
    fs::create_directory_symlink(photos, home.path() / "out" / "link");
    exports().setDestination(home.path() / "out" / "link" / "x");
    EXPECT_THAT(refusal(), StartsWith("Choose a folder outside the job"));

    exports().setDestination(home.path() / "out");
    CropPreset preset = *state->preset(PresetLibrary::headshotID());
    preset.exportSettings.pixelHeight = 120;
    state->updatePreset(preset, "Change Height");
    EXPECT_THAT(refusal(), StartsWith("Export size doesn't match the ratio: "));
    state->undoStack().undo();

    exports().setIncludeApprovedOnly(true);
    EXPECT_EQ(refusal(), "Nothing new to export: No photos are ready or approved yet.");
    exports().setIncludeApprovedOnly(false);
    std::ofstream(home.path() / "file") << "in the way";
    exports().setDestination(home.path() / "file" / "out");
    EXPECT_THAT(refusal(), StartsWith("Could not create the export folder: "));

    runToEnd();
    exports().begin();
    EXPECT_EQ(refusal(),
              "Nothing new to export: All 3 ready photos are already in that folder with the same "
              "crop. Turn on “Replace existing files” to write them again.");
}

TEST_F(Export, needsACroppedJob) {
    fs::create_directories(home.path() / "4a");
    writePhoto(home.path() / "4a" / "1.png", 400, 500);
    state->openFolder(home.path() / "4a");
    finish(*state);
    exports().begin();
    EXPECT_EQ(alertText(*state),
              "Crop first: Click Crop Photos to analyze the folder before exporting.");
    EXPECT_FALSE(exports().isShown());
}

TEST_F(Export, goesOnPastPhotosThatVanishedOrChanged) {
    fs::remove(photos / "1.png");
    writePhoto(photos / "2.png", 300, 500);
    runToEnd();
    EXPECT_EQ(alertTitle(*state), "Some photos were not exported");
    EXPECT_THAT(report(), HasSubstr("\"1.png\",\"skipped: "));
    EXPECT_THAT(report(), HasSubstr("\"2.png\",\"skipped: 2.png has changed since it was cropped"));
    EXPECT_FALSE(item(*state, 0).exportedRect);
    EXPECT_FALSE(written("4.jpg").empty());
}

TEST_F(Export, aCancelledExportLeavesWholeFilesAndTheRestForTheNext) {
    exports().begin();
    ASSERT_TRUE(exports().run());
    state->cancelProcessing();
    finish(*state);
    EXPECT_TRUE(exports().isCancelled());
    std::size_t left = 0;
    for (const std::size_t i : {0U, 1U, 3U}) left += item(*state, i).exportedRect ? 0 : 1;
    EXPECT_EQ(planned().size(), left);
    if (left > 0) {
        EXPECT_THAT(report(), HasSubstr("skipped: The export was cancelled."));
        runToEnd();
    }
    EXPECT_THAT(planned(), testing::IsEmpty());
}

TEST_F(Export, cancelEndsTheTaskWhilePhotosAreInHandAndNoFileFollows) {
    CropPreset preset = *state->preset(PresetLibrary::headshotID());
    preset.exportSettings.backdrop = BackdropMode::replace;
    state->updatePreset(preset);
    ASSERT_TRUE(state->flushSaves());
    std::latch begun(3);
    std::latch mayEnd(1);
    services.cutterFor = [&](const fs::path&, const ImageAnalysis&, const std::stop_token&) {
        begun.count_down();
        mayEnd.wait();
        return nullptr;
    };
    state.reset();
    state = started();
    state->selectJob(state->jobs().front()->id());
    exports().begin();
    ASSERT_TRUE(exports().run()) << alertText(*state);
    begun.wait();
    state->cancelProcessing();
    finish(*state);
    EXPECT_FALSE(state->alert());
    EXPECT_EQ(exports().lastRows().size(), 3U);
    EXPECT_THAT(report(), HasSubstr("\"1.png\",\"skipped: The export was cancelled."));
    mayEnd.count_down();
    const fs::path crop = out() / "1.jpg";
    state.reset();
    EXPECT_FALSE(fs::exists(crop));
    services.cutterFor = [](const fs::path&, const ImageAnalysis&, const std::stop_token&) {
        return nullptr;
    };
    state = started();
    state->selectJob(state->jobs().front()->id());
    EXPECT_EQ(planned().size(), 3U);
    runToEnd();
    EXPECT_TRUE(fs::exists(crop));
}

TEST_F(Export, listsThePhotosThatWaitOnTheUser) {
    state->select(item(*state, 2).id);
    state->nudge(-1, 0);
    const std::string list = exports().reviewListCSV();
    EXPECT_THAT(list, HasSubstr("3.png"));
    EXPECT_THAT(list, HasSubstr("Face not clearly located"));
    EXPECT_THAT(list, Not(HasSubstr("1.png")));
    const auto canvas = state->selectedJob()->canvasToAdd(2);
    ASSERT_TRUE(canvas);
    EXPECT_THAT(list, HasSubstr(std::to_string(std::lround(canvas->left))));
    EXPECT_TRUE(exports().saveReviewList(home.path() / "review list.csv"));
    EXPECT_FALSE(exports().saveReviewList(home.path() / "nowhere" / "review list.csv"));
    EXPECT_EQ(alertTitle(*state), "Couldn't save the review list");
}

}  // namespace
}  // namespace morva
