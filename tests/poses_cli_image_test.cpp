// SPDX-License-Identifier: GPL-3.0-or-later
// Teaching a pose at the command line, from photos to crops by a rule and a pack for a colleague.
#include <cstring>

#include "cli_fixture.h"
#include "imaging/decode.h"
#include "imaging/encode.h"

namespace morva {

namespace {

class PosesCli : public Cli {
protected:
    /// Part of the sample portrait as a photo of its own: its left edge moved in by `left`, its
    /// size `side`, pixels of 512.
    void addPart(const std::string& name, int left, int top, int side) {
        static const Picture whole =
            PhotoDecode::open(std::getenv("MORVA_SAMPLE"), 512)->whole(512);
        Picture part(side, side);
        for (int y = 0; y < side; ++y)
            std::memcpy(part.row(y), whole.pixel(left, top + y), part.rowBytes());
        fs::create_directories((source / name).parent_path());
        ASSERT_TRUE(writeFileAtomically(source / name, encodeJpeg(part, 0.95, 300).value()));
    }

    Ended poses(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(),
                         {"--data-dir", folder / "data", "--cache-dir", folder / "cache", "poses"});
        return run(arguments);
    }
};

TEST_F(PosesCli, teachesAPoseThatARuleThenPicks) {
    for (int i = 0; i < 5; ++i) addPart("close/" + std::to_string(i) + ".jpg", 110 + i, i, 240);
    for (int i = 0; i < 9; ++i) addPart("wide/" + std::to_string(i) + ".jpg", i, i, 490);
    const std::vector<std::string> lesson{"train",          "close up", "--examples",
                                          source / "close", "--others", source};
    std::vector<std::string> trial = lesson;
    trial.insert(trial.end(), {"--dry-run", "--json"});
    const Ended tried = poses(trial);
    ASSERT_EQ(tried.code, 0) << tried.err;
    EXPECT_EQ(tried.lines()[0]["report"]["positives"], 5);
    EXPECT_EQ(tried.lines()[0]["report"]["negatives"], 9) << "examples are no counter-examples";
    EXPECT_EQ(poses({"list"}).out, "");

    std::vector<std::string> taught = lesson;
    taught.insert(taught.end(), {"--preset", "full-length"});
    ASSERT_EQ(poses(taught).code, 0);
    EXPECT_THAT(poses({"list"}).out, HasSubstr("close up"));

    addPart("next/near.jpg", 107, 3, 244);
    addPart("next/far.jpg", 12, 4, 480);
    const auto seen = poses({"test", source / "next", "--json"}).lines();
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[0]["poses"]["close up"]["found"], false) << seen[0];
    EXPECT_EQ(seen[1]["poses"]["close up"]["found"], true) << seen[1];
    const auto crops = run({"--data-dir", folder / "data", "crop", source / "next", "--out", out,
                            "--rules", "auto", "--dry-run", "--json"})
                           .lines();
    ASSERT_EQ(crops.size(), 2u);
    EXPECT_NE(crops[0]["preset"], "Full length 4x5");
    EXPECT_EQ(crops[1]["preset"], "Full length 4x5");
}

TEST_F(PosesCli, carriesPosesInPacks) {
    const std::string model =
        R"({"kind":"featureprint-logistic","revision":4,"tag":"sitting","mean":[0.5],"std":[1],)"
        R"("weights":[0.25],"bias":0.1,"threshold":0.5})";
    const fs::path pack = folder / "pack.json";
    ASSERT_TRUE(writeFileAtomically(pack, model));
    ASSERT_TRUE(writeFileAtomically(folder / "empty.json", "[]"));
    EXPECT_EQ(poses({"add", pack}).code, 0);
    EXPECT_THAT(poses({"list", "--json"}).out, HasSubstr(R"("origin":"pack.json")"));
    const fs::path copy = folder / "copy.json";
    EXPECT_EQ(poses({"save", copy, "--pose", "sitting"}).code, 0);
    EXPECT_THAT(readFile(copy).value(), HasSubstr("sitting"));
    EXPECT_EQ(poses({"save", copy, "--pose", "jumping"}).code, 3);
    EXPECT_EQ(poses({"remove", "sitting"}).code, 0);
    EXPECT_EQ(poses({"list"}).out, "");
    EXPECT_EQ(poses({"remove", "sitting"}).code, 3);
    const Ended empty = poses({"add", folder / "empty.json"});
    EXPECT_EQ(empty.code, 3);
    EXPECT_THAT(empty.err, HasSubstr("empty.json does not contain any poses."));
}

}  // namespace
}  // namespace morva
