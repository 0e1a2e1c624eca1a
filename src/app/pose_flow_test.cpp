// SPDX-License-Identifier: GPL-3.0-or-later
// Teaching a pose, on scripted prints.
#include <gmock/gmock.h>

#include <cmath>

#include "app/state_test_support.h"
#include "crop/rule_store.h"

namespace morva {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

constexpr int photoCount = 24;
constexpr int poseCount = 8;

/// 24 photos of as many children; the first eight hold something.
class Teaching : public StateTest {
protected:
    void SetUp() override {
        for (int i = 1; i <= photoCount; ++i) {
            ImageAnalysis photo = Synthetic::portrait();
            photo.captureTime = 100.0 * i;
            scripted[std::to_string(i) + ".jpg"] = photo;
        }
        services.featurePrint = [this](const fs::path& file) -> Result<std::vector<float>> {
            ++printed;
            const int number = std::stoi(file.stem().string());
            std::vector<float> print;
            for (int k = 0; k < 6; ++k)
                print.push_back(std::sin(static_cast<float>(number * (k + 3))) +
                                (number <= poseCount && k < 3 ? 3.0F : 0.0F));
            return print;
        };
        services.posesChanged = [this] { ++reloads; };
        state = cropped(photoCount);
    }

    PoseFlow& poses() const { return state->poses(); }
    void tick(int count) {
        poses().begin();
        for (int i = 0; i < count; ++i) poses().toggleExample(item(*state, at(i)).id);
    }
    static std::size_t at(int index) { return static_cast<std::size_t>(index); }
    void train() {
        poses().train();
        ASSERT_TRUE(waitFor([&] { return !poses().isBusy(); }));
    }

    std::unique_ptr<AppState> state;
    std::atomic<int> printed{0};
    int reloads = 0;
};

TEST_F(Teaching, aKeptPoseIsStoredRuledAndFoundInEveryJob) {
    tick(poseCount);
    poses().setName("card");
    poses().setPreset(PresetLibrary::threeQuarterID());
    train();
    ASSERT_TRUE(poses().outcome()) << poses().error();
    EXPECT_EQ(poses().outcome()->report.positives, poseCount);
    EXPECT_EQ(poses().outcome()->report.negatives, photoCount - poseCount);
    EXPECT_EQ(printed, photoCount);
    EXPECT_FALSE(poses().progress());

    state->choosePreset(PresetLibrary::autoPresetID());
    poses().keep();
    finish(*state);
    EXPECT_FALSE(poses().isShown());
    EXPECT_EQ(reloads, 1);
    EXPECT_EQ(printed, photoCount) << "photos were decoded twice";
    ASSERT_EQ(poses().taught().size(), 1U);
    const CropRule rule = state->selectedJob()->job().rules.front();
    for (int i = 0; i < photoCount; ++i) {
        EXPECT_EQ(item(*state, at(i)).analysis->tags.size(), i < poseCount ? 1U : 0U) << i;
        EXPECT_EQ(item(*state, at(i)).presetID == PresetLibrary::threeQuarterID(), i < poseCount);
        EXPECT_EQ(state->cache().load(item(*state, at(i)).url)->tags,
                  item(*state, at(i)).analysis->tags);
    }
    ASSERT_TRUE(state->flushSaves());
    const auto rules = RuleStore(services.folders.data, state->presets()).load().rules;
    EXPECT_THAT(rules,
                Contains(Field(&CropRule::condition, RuleCondition{RuleCondition::Tag{"card"}})));

    // To another machine and back.
    const fs::path pack = home.path() / "Morva poses.json";
    EXPECT_TRUE(poses().savePack(pack, std::nullopt));
    printed = 0;
    fs::remove_all(services.folders.cache / "prints");
    poses().removePose("card");
    finish(*state);
    EXPECT_EQ(printed, 0) << "there was nothing left to look for";
    EXPECT_THAT(poses().taught(), IsEmpty());
    EXPECT_THAT(item(*state, 0).analysis->tags, IsEmpty());
    EXPECT_TRUE(poses().addPack(pack));
    finish(*state);
    EXPECT_THAT(item(*state, 0).analysis->tags, ElementsAre("card"));
    std::ofstream(home.path() / "empty.json") << "[]";
    EXPECT_FALSE(poses().addPack(home.path() / "empty.json"));
    EXPECT_EQ(alertText(*state), "Not a pose pack: empty.json does not contain any poses.");
}

TEST_F(Teaching, namesThePhotosThatItWouldGetWrong) {
    tick(poseCount - 1);  // the eighth looks alike and was not ticked
    poses().setName("card");
    train();
    ASSERT_TRUE(poses().outcome()) << poses().error();
    EXPECT_THAT(poses().outcome()->wrong, Contains(item(*state, poseCount - 1).id));
}

TEST_F(Teaching, saysWhatIsMissingBeforeAnythingIsMeasured) {
    tick(3);
    train();
    EXPECT_EQ(poses().error(), "Give the pose a name.");
    poses().setName("card");
    train();
    EXPECT_EQ(poses().error(), "Tick at least 4 photos of this pose (3 so far).");
    tick(photoCount - 7);
    poses().setName("card");
    train();
    EXPECT_EQ(poses().error(),
              "This needs at least 8 other photos in the job to compare against (7 so far).");
    EXPECT_EQ(printed, 0);
}

TEST_F(Teaching, isLookedForAfterTheTaskThatRuns) {
    tick(poseCount);
    poses().setName("card");
    train();
    ASSERT_TRUE(poses().outcome()) << poses().error();
    state->analyzeCurrentJob(true);
    poses().keep();
    EXPECT_FALSE(state->alert());
    EXPECT_EQ(state->progress()->title, "Cropping 3b");
    ASSERT_TRUE(waitFor([&] { return item(*state, 0).analysis->tags.size() == 1; }));
    finish(*state);
    EXPECT_THAT(item(*state, 0).analysis->tags, ElementsAre("card"));
    EXPECT_THAT(item(*state, photoCount - 1).analysis->tags, IsEmpty());
}

TEST_F(Teaching, canBeCancelled) {
    tick(poseCount);
    poses().setName("card");
    poses().train();
    EXPECT_TRUE(poses().isBusy());
    poses().cancel();
    EXPECT_FALSE(poses().isBusy() || poses().progress());
    train();
    EXPECT_TRUE(poses().outcome());
    EXPECT_LE(printed, photoCount + 2);
}

}  // namespace
}  // namespace morva
