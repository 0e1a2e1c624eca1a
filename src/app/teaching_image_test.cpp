// SPDX-License-Identifier: GPL-3.0-or-later
// Teaching a pose with the real models, as a new user would: on copies of the sample portrait.
#include <cstdlib>

#include "app/state_test_support.h"
#include "imaging/decode.h"
#include "imaging/encode.h"

namespace morva {
namespace {

/// A part of the sample, shifted a little for each number.
void writePart(const fs::path& file, double side, int number) {
    const auto sample = PhotoDecode::open(std::getenv("MORVA_SAMPLE"), 512);
    ASSERT_TRUE(sample);
    const int size = static_cast<int>(side);
    const int left = std::min(512 - size, 90 + number * 4);
    const Picture part = sample->region(512, left, number * 2, size, size);
    fs::create_directories(file.parent_path());
    ASSERT_TRUE(writeFileAtomically(file, *encodePng(part)));
}

TEST(RealTeaching, aPoseTaughtInOneFolderIsFoundInAnother) {
    needEventLoop();
    const TemporaryFolder home;
    const fs::path first = home.path() / "3b";
    const fs::path second = home.path() / "4a";
    for (int i = 0; i < 6; ++i) writePart(first / ("close " + std::to_string(i) + ".png"), 260, i);
    for (int i = 0; i < 9; ++i)
        writePart(first / ("far " + std::to_string(i) + ".png"), 420 + i, i);
    writePart(second / "close.png", 266, 7);
    writePart(second / "far.png", 436, 10);

    AppState state(AppServices::real({home.path() / "data", home.path() / "cache"}));
    state.start();
    const auto importAndCrop = [&](const fs::path& folder) {
        state.openFolder(folder);
        ASSERT_TRUE(waitFor([&] { return !state.isBusy(); }, std::chrono::seconds(60)));
        state.analyzeCurrentJob();
        ASSERT_TRUE(waitFor([&] { return !state.isBusy(); }, std::chrono::seconds(120)));
        ASSERT_EQ(state.selectedJob()->count(StatusFilter::failed), 0);
    };
    importAndCrop(first);
    PoseFlow& poses = state.poses();
    poses.begin();
    for (const ImageItem& item : state.selectedJob()->job().items)
        if (item.relativePath.string().starts_with("close")) poses.toggleExample(item.id);
    poses.setName("close");
    poses.setPreset(PresetLibrary::threeQuarterID());
    poses.train();
    ASSERT_TRUE(waitFor([&] { return !poses.isBusy(); }, std::chrono::seconds(120)));
    ASSERT_TRUE(poses.outcome()) << poses.error();
    poses.keep();
    ASSERT_TRUE(waitFor([&] { return !state.isBusy(); }, std::chrono::seconds(120)));

    state.showPreset(PresetLibrary::autoPresetID());
    importAndCrop(second);
    const WorkingJob& job = *state.selectedJob();
    EXPECT_EQ(job.solvedWith(0).rule, "Close") << poses.outcome()->report.verdict;
    EXPECT_EQ(job.solvedWith(0).presetID, PresetLibrary::threeQuarterID());
    EXPECT_NE(job.solvedWith(1).rule, "Close");
}

}  // namespace
}  // namespace morva
