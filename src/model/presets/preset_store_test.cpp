// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/presets/preset_store.h"

#include <fstream>

#include <gtest/gtest.h>

#include "base/files.h"
#include "base/json.h"
#include "model/presets/preset_library.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

class PresetStoreFiles : public testing::Test {
protected:
    PresetStoreFiles()
        : folder_(fs::temp_directory_path() / ("morva-presets-" + Uuid::random().text())) {
        fs::create_directories(folder_);
    }
    ~PresetStoreFiles() override { fs::remove_all(folder_); }

    void write(const std::string& name, const std::string& text) const {
        std::ofstream(folder_ / name) << text;
    }
    std::string text(const std::string& name) const {
        return readFile(folder_ / name).value_or("(none)");
    }
    bool isThere(const std::string& name) const { return fs::exists(folder_ / name); }

    fs::path folder_;
};

TEST_F(PresetStoreFiles, aFirstStartWritesTheBuiltInPresetsAndTheirVersion) {
    const PresetStore store(folder_ / "new");
    const auto loaded = store.load();
    EXPECT_TRUE(loaded.problems.empty());
    EXPECT_EQ(loaded.presets, PresetLibrary::standardLibrary());
    EXPECT_EQ(text("new/library-version.txt"), "23\n");
    EXPECT_EQ(store.load().presets, loaded.presets);
}

TEST_F(PresetStoreFiles, bringAnOldLibraryUpToDateAndKeepTheUsersOwnPresets) {
    CropPreset edited = PresetLibrary::standardPreset(PresetLibrary::headshotID());
    edited.faceScale = 0.5;
    CropPreset own = newPreset("Grade 3");
    own.topMargin = 0.09;
    for (const auto& [version, renewed] : std::map<std::string, bool>{
             {"22", true}, {"  7\n", true}, {"", true}, {"23", false}, {"99", false}}) {
        SCOPED_TRACE(version);
        write("presets.json", Json(std::vector{own, edited}).dump());
        write("library-version.txt", version);
        const auto loaded =
            PresetStore(folder_).load([](const CropPreset&) { return "/plate.jpg"; });
        const auto kept = std::ranges::find(loaded.presets, own.id, &CropPreset::id);
        ASSERT_NE(kept, loaded.presets.end());
        EXPECT_EQ(*kept, own) << "no plate, no other value";
        const auto builtIn =
            std::ranges::find(loaded.presets, PresetLibrary::headshotID(), &CropPreset::id);
        ASSERT_NE(builtIn, loaded.presets.end());
        EXPECT_EQ(builtIn->faceScale, renewed ? 0.2148 : 0.5);
        EXPECT_EQ(builtIn->exportSettings.plateURL.has_value(), renewed);
        EXPECT_EQ(loaded.presets.size(), renewed ? 5u : 2u);
        EXPECT_EQ(text("library-version.txt"),
                  version == "99" ? "99" : "23" + std::string(renewed ? "\n" : ""));
    }
}

TEST_F(PresetStoreFiles, onePresetThatCannotBeReadTakesNoOtherWithIt) {
    Json list = PresetLibrary::standardLibrary();
    list[1]["framing"] = "sideways";
    write("presets.json", list.dump());
    write("library-version.txt", "23");
    const auto loaded = PresetStore(folder_).load();
    EXPECT_EQ(loaded.presets.size(), 3u);
    ASSERT_EQ(loaded.problems.size(), 1u);
    EXPECT_NE(loaded.problems[0].message.find("sideways"), std::string::npos);
    EXPECT_EQ(text("presets.unreadable.json"), list.dump()) << "nothing is lost";
    EXPECT_TRUE(PresetStore(folder_).load().problems.empty()) << "said once";
}

TEST_F(PresetStoreFiles, textThatIsNoLibraryIsSetAside) {
    write("presets.json", "{\"name\": ");
    const auto loaded = PresetStore(folder_).load();
    EXPECT_EQ(loaded.presets, PresetLibrary::standardLibrary());
    EXPECT_EQ(loaded.problems.size(), 1u);
    EXPECT_EQ(text("presets.unreadable.json"), "{\"name\": ");
}

TEST_F(PresetStoreFiles, aLibraryNestedDeeperThanTheStackIsSetAside) {
    constexpr std::size_t levels = 200000;
    write("presets.json", std::string(levels, '[') + std::string(levels, ']'));
    const auto loaded = PresetStore(folder_).load();
    EXPECT_EQ(loaded.presets, PresetLibrary::standardLibrary());
    EXPECT_EQ(loaded.problems.size(), 1U);
    EXPECT_TRUE(isThere("presets.unreadable.json"));
}

TEST(PresetNames, areMadeUnique) {
    std::vector<CropPreset> presets{newPreset("Class"), newPreset("Class 2")};
    EXPECT_EQ(uniquePresetName(presets, "Class"), "Class 3");
    EXPECT_EQ(uniquePresetName(presets, "Team"), "Team");
    EXPECT_NE(presets[0].id, presets[1].id);
}

}  // namespace
}  // namespace morva
