// SPDX-License-Identifier: GPL-3.0-or-later
// Import, rescan, crop run, saving, start.
#include <gmock/gmock.h>

#include <latch>
#include <thread>
#include <utility>

#include "app/state_test_support.h"

namespace morva {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::string> names(const AppState& state) {
    std::vector<std::string> found;
    for (const ImageItem& item : state.selectedJob()->job().items)
        found.push_back(item.relativePath.string());
    return found;
}

class JobFlow : public StateTest {};

TEST_F(JobFlow, importsAFolderOnceAndRefusesOneWithoutPhotos) {
    auto state = started();
    std::string asked;
    QObject::connect(
        state.get(), &AppState::folderWanted, state.get(),
        [&](const std::string& title, const std::string& prompt) { asked = title + "/" + prompt; });
    state->importFolder();
    EXPECT_EQ(asked, "Choose a folder of portraits/Import");

    import(*state);
    EXPECT_EQ(alertText(*state), "Nothing to import: 3b has no JPEG, PNG, TIFF or HEIC files.");
    EXPECT_TRUE(state->jobs().empty());

    writeFile("IMG_10.jpg");
    writeFile("IMG_2.jpg");
    writeFile("class b/ä #1.png");
    writeFile("notes.txt");
    import(*state);
    ASSERT_EQ(state->jobs().size(), 1U);
    EXPECT_THAT(names(*state), ElementsAre("class b/ä #1.png", "IMG_2.jpg", "IMG_10.jpg"));
    EXPECT_EQ(state->selectedJob()->job().name, "3b");
    EXPECT_EQ(state->selectedJob()->count(ItemStatus::pending), 3);
    state->openFolder(photos / ".");
    finish(*state);
    EXPECT_EQ(state->jobs().size(), 1U);
    state->openFolder(home.path() / "nowhere");
    finish(*state);
    EXPECT_EQ(alertTitle(*state), "Could not read the folder");
}

TEST_F(JobFlow, cropsWhatNeedsItAndMergesInBatches) {
    writeFiles(500);
    auto state = started();
    import(*state);
    const auto cropMergingOnceAnInterval = [&](bool again) {
        const auto startedAt = std::chrono::steady_clock::now();
        crop(*state, again);
        EXPECT_LE(state->mergesOfLastRun(),
                  (std::chrono::steady_clock::now() - startedAt) / services.flushInterval + 3);
    };
    cropMergingOnceAnInterval(false);
    EXPECT_EQ(analyzed, 500);
    EXPECT_EQ(state->selectedJob()->count(ItemStatus::ready), 500);
    crop(*state);
    EXPECT_EQ(alertText(*state),
              "Already cropped: Every photo in 3b has been analyzed. Change the preset to re-crop "
              "instantly, or use Photos ▸ Re-analyze to run face detection again.");

    // From the cache, the photos come much faster than they are merged.
    state->removeJob();
    services.flushInterval = std::chrono::milliseconds(250);
    state.reset();
    state = started();
    import(*state);
    EXPECT_EQ(state->selectedJob()->count(ItemStatus::ready), 500);
    EXPECT_EQ(analyzed, 500);
    cropMergingOnceAnInterval(true);
    EXPECT_EQ(analyzed, 1000);
    Job whole = state->selectedJob()->job();
    JobSolver::solve(whole, state->presets());
    EXPECT_EQ(state->selectedJob()->job(), whole) << "as if planned anew";
}

TEST_F(JobFlow, cancelKeepsWhatIsDoneAndASecondRunDoesTheRest) {
    writeFiles(40);
    services.analyze = [this](const fs::path& file, const std::stop_token&) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return analyze(file);
    };
    auto state = started();
    import(*state);
    state->analyzeCurrentJob();
    ASSERT_TRUE(waitFor([&] { return state->progress() && state->progress()->completed >= 5; }));
    EXPECT_EQ(state->progress()->title, "Cropping 3b");
    EXPECT_EQ(state->progress()->total, 40);
    state->analyzeCurrentJob();
    EXPECT_EQ(alertTitle(*state), "One thing at a time");
    state->cancelProcessing();
    finish(*state);
    const int done = state->selectedJob()->count(ItemStatus::ready);
    EXPECT_GE(done, 5);
    EXPECT_LT(done, 40);
    crop(*state);
    EXPECT_EQ(state->selectedJob()->count(ItemStatus::ready), 40);
    // Those that were in hand may have been measured twice.
    EXPECT_LE(analyzed, 40 + services.concurrency);
}

TEST_F(JobFlow, cancelEndsTheTaskWhileAWorkerIsStillBusy) {
    writeFiles(3);
    std::latch release(1);
    services.prepare = [&] {
        release.wait();
        return Result<void>();
    };
    auto state = started();
    import(*state);
    state->analyzeCurrentJob();
    state->cancelProcessing();
    EXPECT_FALSE(state->isBusy()) << "waits for the models";
    release.count_down();

    std::latch begun(2);
    std::latch mayEnd(1);
    services.prepare = [] { return Result<void>(); };
    services.analyze = [&](const fs::path& file,
                           const std::stop_token& stop) -> std::optional<ImageAnalysis> {
        begun.count_down();
        mayEnd.wait();
        if (stop.stop_requested()) return std::nullopt;
        return analyze(file);
    };
    state.reset();
    state = started();
    state->selectJob(state->jobs().front()->id());
    state->analyzeCurrentJob();
    ASSERT_TRUE(waitFor([&] { return begun.try_wait(); }));
    state->cancelProcessing();
    finish(*state);
    EXPECT_EQ(state->selectedJob()->count(ItemStatus::pending), 3);
    EXPECT_THAT(state->lastResult(), testing::StartsWith("Cancelled; "));
    mayEnd.count_down();
    services.analyze = [this](const fs::path& file, const std::stop_token&) {
        return analyze(file);
    };
    state.reset();
    EXPECT_EQ(analyzed, 0) << "a photo in hand was not given up";
    state = started();
    state->selectJob(state->jobs().front()->id());
    crop(*state);
    EXPECT_EQ(state->selectedJob()->count(ItemStatus::ready), 3);
}

TEST_F(JobFlow, saysWhyPhotosCannotBeMeasuredAtAll) {
    writeFiles(2);
    auto state = started();
    import(*state);
    prepared = failure("The model is missing.");
    crop(*state);
    EXPECT_EQ(alertText(*state), "Could not start the analysis: The model is missing.");
    EXPECT_EQ(analyzed, 0);
}

TEST_F(JobFlow, getsReadyToCropOnlyForPhotosThatAreStillToBeMeasured) {
    std::atomic<int> times = 0;
    services.prepare = [&] {
        ++times;
        return Result<void>();
    };
    writeFiles(2);
    auto state = started();
    state->getReadyToCrop();
    import(*state);
    state->getReadyToCrop();
    EXPECT_TRUE(waitFor([&] { return times == 1; }));
    EXPECT_FALSE(state->isBusy()) << "the user waits for it";
    crop(*state);
    const int afterRun = times;
    state->getReadyToCrop();
    state.reset();
    EXPECT_EQ(times, afterRun);
}

TEST_F(JobFlow, rescanFindsNewChangedRenamedAndVanishedPhotos) {
    auto state = cropped(4);
    const std::string renamed = item(*state, 1).id;
    for (const std::size_t index : {0U, 1U, 2U, 3U}) {
        state->select(item(*state, index).id);
        state->nudge(0.01 * static_cast<double>(index + 1), 0);
        state->approveSelected(false);
    }
    fs::rename(photos / "2.jpg", photos / "7.jpg");
    fs::remove(photos / "3.jpg");
    writeFile("4.jpg", "retouched");
    writeFile("9.jpg");
    import(*state);

    ASSERT_THAT(names(*state), ElementsAre("1.jpg", "4.jpg", "7.jpg", "9.jpg"));
    EXPECT_EQ(item(*state, 2).id, renamed);
    EXPECT_EQ(item(*state, 2).adjustment.dx, 0.02);
    EXPECT_EQ(state->selectedJob()->status(2), ItemStatus::approved);
    // What was measured on the old picture is gone, what was decided is not.
    EXPECT_EQ(state->selectedJob()->status(1), ItemStatus::pending);
    EXPECT_TRUE(item(*state, 1).approved);
    EXPECT_EQ(state->selectedJob()->status(3), ItemStatus::pending);
    const int before = analyzed;
    crop(*state);
    EXPECT_EQ(analyzed - before, 2);
    EXPECT_EQ(state->selectedJob()->count(ItemStatus::approved), 3);

    // A disk that was pulled: the folder is there, and empty.
    for (const char* name : {"1.jpg", "4.jpg", "7.jpg", "9.jpg"}) fs::remove(photos / name);
    import(*state);
    EXPECT_EQ(alertTitle(*state), "Nothing to import");
    EXPECT_EQ(names(*state).size(), 4U);
}

TEST_F(JobFlow, startsWithEverythingThatWasDecided) {
    auto state = cropped(3);
    state->choosePreset(PresetLibrary::fullLengthID());
    state->select(item(*state, 1).id);
    state->setOverride(PresetLibrary::headshotID());
    state->scale(1.1);
    state->approveSelected(false);
    const Job before = state->selectedJob()->job();
    state.reset();

    state = started();
    ASSERT_EQ(state->jobs().size(), 1U);
    state->selectJob(before.id);
    EXPECT_EQ(state->selectedJob()->job(), before);
    EXPECT_EQ(state->selectedPresetID(), PresetLibrary::fullLengthID());
}

TEST_F(JobFlow, tellsOnceOfFilesThatCannotBeReadAndLeavesThemAside) {
    fs::create_directories(services.folders.data / "Jobs");
    std::ofstream(services.folders.data / "Jobs" / "A.json") << "{";
    std::ofstream(services.folders.data / "Jobs" / "B.json") << "[]";
    std::ofstream(services.folders.data / "presets.json") << "nonsense";
    auto state = started();
    ASSERT_TRUE(state->alert());
    EXPECT_THAT(state->alert()->message, HasSubstr("A.json"));
    EXPECT_THAT(state->alert()->message, HasSubstr("B.json"));
    EXPECT_THAT(state->alert()->message, HasSubstr("presets"));
    state->dismissAlert();
    EXPECT_FALSE(state->alert());
    EXPECT_EQ(state->presets().size(), 4U);
    state.reset();
    EXPECT_FALSE(started()->alert());
}

TEST_F(JobFlow, aSecondProgramMayOnlyLook) {
    auto first = cropped(2);
    ASSERT_TRUE(first->flushSaves());
    const fs::path broken = services.folders.data / "Jobs" / "broken.json";
    const fs::path version = services.folders.data / "library-version.txt";
    std::ofstream(broken) << "{";
    std::ofstream(version) << "1";
    const std::string before = *readFile(jobFile(*first));
    auto second = started();
    EXPECT_TRUE(second->isReadOnly());
    EXPECT_EQ(alertTitle(*second), "Some files could not be read");
    EXPECT_TRUE(fs::exists(broken));
    EXPECT_EQ(readFile(version), "1");
    EXPECT_EQ(alertTitle(*second), "The jobs can only be looked at");
    second->selectJob(first->jobs().front()->id());
    EXPECT_EQ(second->selectedJob()->count(ItemStatus::ready), 2);
    second->select(item(*second, 0).id);
    for (const std::function<void()>& change : std::vector<std::function<void()>>{
             [&] { second->approveSelected(true); }, [&] { second->nudge(0.1, 0); },
             [&] { second->approveAllReady(); }, [&] { second->removeJob(); },
             [&] { second->newPreset("Mine"); }, [&] { second->analyzeCurrentJob(true); },
             [&] { second->choosePreset(PresetLibrary::fullLengthID()); },
             [&] { second->openFolder(home.path()); }}) {
        change();
        EXPECT_EQ(alertTitle(*second), "The jobs can only be looked at");
        EXPECT_FALSE(second->isBusy());
    }
    EXPECT_EQ(second->undoStack().count(), 0);
    EXPECT_EQ(second->presets().size(), 4U);
    second.reset();
    EXPECT_EQ(*readFile(jobFile(*first)), before);
}

TEST_F(JobFlow, movesJobsOfRetiredPresetsToOnesThatExist) {
    auto state = cropped(1);
    const Uuid own = state->newPreset("Mine");
    state->choosePreset(own);
    ASSERT_TRUE(state->flushSaves());
    state.reset();
    fs::remove(services.folders.data / "presets.json");
    state = started();
    EXPECT_EQ(state->jobs().front()->job().presetID, PresetLibrary::headshotID());
    EXPECT_EQ(state->jobs().front()->status(0), ItemStatus::ready);
}

class Saving : public StateTest {};

TEST_F(Saving, writesABurstOfEditsOnceAndAnApprovalInTime) {
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds rest(150);
    constexpr std::chrono::milliseconds longest(3000);
    SaveQueue queue({rest, longest, rest});
    std::vector<Clock::time_point> writes;
    const SaveQueue::Snapshot snapshot = [&] {
        writes.push_back(Clock::now());
        return [] { return Result<void>(); };
    };
    const auto begun = Clock::now();
    for (int i = 0; i < 3; ++i) queue.soon("job", snapshot, SaveQueue::Urgency::edit);
    ASSERT_TRUE(waitFor([&] { return !queue.isPending("job"); }));
    ASSERT_EQ(writes.size(), 1U);
    EXPECT_GE(writes[0] - begun, rest);

    // A key that is held down puts the write off, as long as this machine keeps up with it.
    auto asked = Clock::now();
    Clock::duration widest{};
    const auto ask = [&] {
        queue.soon("job", snapshot, SaveQueue::Urgency::edit);
        widest = std::max(widest, Clock::now() - std::exchange(asked, Clock::now()));
    };
    const auto held = Clock::now();
    waitFor([&] {
        ask();
        return Clock::now() - held > 3 * rest;
    });
    const bool keptUp = widest < rest;
    EXPECT_TRUE(writes.size() == 1 || !keptUp) << writes.size();

    // It does not put an approval off.
    const std::size_t before = writes.size();
    const auto approved = Clock::now();
    queue.soon("job", snapshot, SaveQueue::Urgency::decision);
    waitFor([&] {
        ask();
        return writes.size() > before;
    });
    EXPECT_LT(writes.back() - approved, longest / 2);
    EXPECT_TRUE(queue.flush());
}

TEST_F(Saving, tellsOnceThatItFailsAndTriesUntilItSucceeds) {
    auto state = cropped(2);
    ASSERT_TRUE(state->flushSaves());
    const fs::path folder = services.folders.data / "Jobs";
    const fs::path kept = services.folders.data / "kept";
    fs::rename(folder, kept);
    std::ofstream(folder) << "in the way";
    for (const std::size_t index : {0U, 1U}) {
        state->select(item(*state, index).id);
        state->approveSelected(false);
        EXPECT_FALSE(state->flushSaves());
    }
    EXPECT_THAT(alertText(*state), HasSubstr("Your changes could not be saved"));
    EXPECT_FALSE(state->alert());
    fs::remove(folder);
    fs::rename(kept, folder);
    ASSERT_TRUE(waitFor(
        [&] { return readFile(jobFile(*state))->find("\"approved\":true") != std::string::npos; }));
    EXPECT_TRUE(state->flushSaves());
    EXPECT_FALSE(state->alert());
}

TEST_F(Saving, removalKeepsTheFileAndUndoBringsTheJobBack) {
    auto state = cropped(2);
    state->select(item(*state, 0).id);
    state->approveSelected(false);
    const Job before = state->selectedJob()->job();
    const fs::path file = jobFile(*state);
    state->removeJob();
    ASSERT_TRUE(state->flushSaves());
    EXPECT_TRUE(state->jobs().empty());
    EXPECT_FALSE(state->selectedJobID());
    EXPECT_FALSE(fs::exists(file));
    EXPECT_TRUE(fs::exists(file.parent_path() / "Removed" / file.filename()));
    state->undoStack().undo();
    ASSERT_TRUE(state->flushSaves());
    EXPECT_EQ(state->selectedJob()->job(), before);
    EXPECT_TRUE(fs::exists(file));
    state->undoStack().undo();
    EXPECT_EQ(state->selectedJob()->status(0), ItemStatus::ready);
}

}  // namespace
}  // namespace morva
