// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdlib>
#include <limits>
#include <thread>

#include <gtest/gtest.h>

#include "poses/pose_test_support.h"
#include "poses/tag_classifier_slot.h"

namespace morva {
namespace {

using Model = TagClassifier::Model;
using Tags = std::vector<std::string>;

Model poseReadBack() {
    Model model = constantModel("sitting", 2, 0.25);
    model.weights = {0.5, -1.25};
    model.taughtAt = 1.7e9;
    model.report = PoseReport{6, 20, 0.9, 0.8, 0.4, "Learned.", {3}, {1, 2}};
    model.origin = "school.json";
    return model;
}

TEST(TagClassifier, tagsWhatReachesTheThresholdInTheModelsOrder) {
    const std::vector<float> features{1, 2, 3};
    Model above = constantModel("above", 3, 0.001);
    Model below = constantModel("below", 3, -0.001);
    const TagClassifier classifier({constantModel("equal", 3), below, constantModel("short", 2),
                                    above, constantModel("long", 4), constantModel("equal", 3)});
    EXPECT_EQ(classifier.tags(features), (Tags{"equal", "above", "equal"}));
}

TEST(TagClassifier, scoresStandardisedFeatures) {
    Model model = constantModel("x", 2, 0.5);
    model.mean = {1, -2};
    model.std = {2, 4};
    model.weights = {3, -0.5};
    const std::vector<float> print{2, 6};
    EXPECT_NEAR(TagClassifier::probability(print, model), 1 / (1 + std::exp(-(0.5 + 1.5 - 1))),
                1e-12);
    model.bias = -2000;
    EXPECT_EQ(TagClassifier::probability(print, model), 0);
    model.mean.pop_back();
    EXPECT_EQ(TagClassifier::probability(print, model), 0) << "must not read past the means";
}

TEST(TagClassifier, printsTheCentreStripOnly) {
    const ScriptedPrinter printer({1.0F});
    const ImageAnalysis record = measuredPhoto();
    const std::size_t length = PoseFeatures::of({1}, record).size();
    const TagClassifier classifier({constantModel("any", length), constantModel("same", length)});
    struct Case {
        int width, left, stripWidth;
    };
    for (const Case& c : {Case{10, 2, 6}, Case{14, 2, 8}, Case{19, 3, 11}, Case{2, 0, 1}}) {
        SCOPED_TRACE(c.width);
        const int before = printer.prints;
        EXPECT_EQ(classifier.tags(printer, countingPicture(c.width, 3), record),
                  (Tags{"any", "same"}));
        EXPECT_EQ(printer.prints - before, 1);
        EXPECT_EQ(printer.lastWidth, c.stripWidth);
        EXPECT_EQ(printer.lastLeftmost, c.left);
    }
    EXPECT_EQ(classifier.tags(printer, countingPicture(1, 3), record), Tags{});
}

TEST(TagClassifier, givesNoTagsWithoutAPrintAndNoPrintWithoutModels) {
    const ScriptedPrinter broken({});
    const ImageAnalysis record = measuredPhoto();
    const std::size_t length = PoseFeatures::of({}, record).size();
    EXPECT_EQ(
        TagClassifier({constantModel("any", length)}).tags(broken, countingPicture(10, 3), record),
        Tags{});
    const ScriptedPrinter printer({1.0F});
    EXPECT_EQ(TagClassifier({}).tags(printer, countingPicture(10, 3), record), Tags{});
    EXPECT_EQ(printer.prints, 0);
}

TEST(PoseModelFiles, keepKeysInOrderAndReadBack) {
    const Model model = poseReadBack();
    const std::string text = Json(model).dump();
    EXPECT_EQ(text,
              R"({"kind":"featureprint-logistic","revision":4,"tag":"sitting","mean":[0.0,0.0],)"
              R"("std":[1.0,1.0],"weights":[0.5,-1.25],"bias":0.25,"threshold":0.5,)"
              R"("taughtAt":1700000000.0,"report":{"positives":6,"negatives":20,"precision":0.9,)"
              R"("recall":0.8,"threshold":0.4,"verdict":"Learned.","falsePositives":[3],)"
              R"("falseNegatives":[1,2]},"origin":"school.json"})");
    EXPECT_EQ(decoded<Model>(text, "the model"), model);
    EXPECT_TRUE(model.isTaught());
    EXPECT_FALSE(constantModel("x", 1).isTaught());
}

TEST(PoseModelFiles, thatAreBadContributeNothingWhileOthersLoad) {
    const PoseFolder folder;
    const std::string one = Json(constantModel("single", 2)).dump();
    const std::string two = Json(std::vector{constantModel("a", 2), constantModel("b", 2)}).dump();
    const std::vector<std::filesystem::path> files{
        folder.path / "missing.json",
        folder.path,  // a folder
        folder.write("text.json", "croptags"),
        folder.write("cut.json", two.substr(0, two.size() - 1)),
        folder.write("one-bad.json", "[" + one + ",{\"tag\":\"x\"}]"),
        folder.write("numbers.json", R"([1,2,"three"])"),
        folder.write("overflow.json", one.substr(0, one.size() - 1) + R"(,"bias":1e999})"),
        folder.write("empty.json", "[]"),
        folder.write("two.json", two),
        folder.write("single.json", one),
        folder.write("again.json", one),
    };
    const auto classifier = TagClassifier::loadAll(files);
    ASSERT_TRUE(classifier);
    const std::vector<float> features{0, 0};
    EXPECT_EQ(classifier->tags(features), (Tags{"a", "b", "single", "single"}));
    EXPECT_EQ(TagClassifier::loadAll(std::span(files).first(8)), nullptr);
    const auto refused = TagClassifier::load(files[2]);
    ASSERT_FALSE(refused);
    EXPECT_NE(refused.error().message.find("text.json"), std::string::npos);
}

TEST(PoseModelFiles, modelsThatCannotBeScoredAreLeftOut) {
    EXPECT_TRUE(constantModel("x", 2).isUsable());
    struct Case {
        const char* what;
        void (*spoil)(Model&);
    };
    for (const Case& c : {
             Case{"another kind", [](Model& m) { m.kind = "tree"; }},
             Case{"another revision", [](Model& m) { ++m.revision; }},
             Case{"no tag", [](Model& m) { m.tag.clear(); }},
             Case{"no weights", [](Model& m) { m = constantModel("x", 0); }},
             Case{"a mean too few", [](Model& m) { m.mean.pop_back(); }},
             Case{"a deviation too many", [](Model& m) { m.std.push_back(1); }},
             Case{"a deviation of zero", [](Model& m) { m.std[1] = 0; }},
             Case{"infinite weight",
                  [](Model& m) { m.weights[0] = std::numeric_limits<double>::infinity(); }},
             Case{"no bias", [](Model& m) { m.bias = std::numeric_limits<double>::quiet_NaN(); }},
         }) {
        SCOPED_TRACE(c.what);
        Model model = constantModel("x", 2);
        c.spoil(model);
        EXPECT_FALSE(model.isUsable());
        const PoseFolder folder;
        const auto file = folder.write("m.json", Json(model).dump());
        EXPECT_EQ(TagClassifier::loadAll(std::vector{file}), nullptr);
    }
}

/// $MORVA_TAGS for the length of a test.
class TagsVariable {
public:
    explicit TagsVariable(const std::filesystem::path& file) {
        setenv("MORVA_TAGS", file.c_str(), 1);
    }
    ~TagsVariable() { unsetenv("MORVA_TAGS"); }
    TagsVariable(const TagsVariable&) = delete;
    TagsVariable& operator=(const TagsVariable&) = delete;
};

TEST(TagClassifierSlot, readsTheNamedFileAndTheTaughtPosesAfterEveryReload) {
    const PoseFolder folder;
    const TagsVariable named(folder.write("named.json", Json(constantModel("named", 1)).dump()));
    TagClassifierSlot slot;
    slot.readTaughtPosesFrom(folder.path);
    const std::vector<float> features{0};
    const auto tags = [&] { return slot.classifier()->tags(features); };
    EXPECT_EQ(tags(), Tags{"named"});
    folder.write("poses.json", Json(std::vector{constantModel("taught", 1)}).dump());
    EXPECT_EQ(tags(), Tags{"named"}) << "built once";
    slot.reload();
    EXPECT_EQ(tags(), (Tags{"named", "taught"}));
}

TEST(TagClassifierSlot, mayBeReloadedWhileWorkersTag) {
    const PoseFolder folder;
    folder.write("poses.json", Json(constantModel("a", 1)).dump());
    TagClassifierSlot slot;
    slot.readTaughtPosesFrom(folder.path);
    std::atomic<int> wrong = 0;
    std::vector<std::thread> workers;
    workers.reserve(4);
    for (int worker = 0; worker < 4; ++worker) {
        workers.emplace_back([&] {
            const std::vector<float> features{0};
            for (int photo = 0; photo < 200; ++photo) {
                const auto tags = slot.classifier()->tags(features);
                if (tags != Tags{"a"} && tags != Tags{"b"}) ++wrong;
            }
        });
    }
    for (int round = 0; round < 20; ++round) {
        folder.write("poses.json", Json(constantModel(round % 2 == 0 ? "b" : "a", 1)).dump());
        slot.reload();
    }
    for (std::thread& worker : workers) worker.join();
    EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace morva
