// SPDX-License-Identifier: GPL-3.0-or-later
// The built program as a person runs it, on copies of the sample portrait.
#include <chrono>
#include <csignal>
#include <thread>

#include "cli_fixture.h"
#include "imaging/decode.h"

namespace morva {

namespace {

TEST_F(Cli, cropsAFolderAndLeavesItAsItWas) {
    addPortrait("IMG_2.png");
    addPortrait("later/IMG_10.png");
    const auto before = tree();
    const Ended ended =
        run({"crop", source, "--out", out, "--json", "--overlay", folder / "guides", "--force"});
    EXPECT_EQ(ended.code, 0) << ended.err;
    EXPECT_EQ(tree(), before);

    const auto lines = ended.lines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0]["file"], (source / "IMG_2.png").string());
    EXPECT_EQ(lines[1]["file"], (source / "later/IMG_10.png").string());
    EXPECT_EQ(lines[0]["preset"], "Headshot 4x5");
    EXPECT_EQ(lines[0]["solution"]["rect"], lines[1]["solution"]["rect"]);
    EXPECT_FALSE(lines[0].contains("error"));
    for (const fs::path& crop : {out / "IMG_2.jpg", out / "later/IMG_10.jpg"}) {
        const auto photo = PhotoDecode::open(crop, 512);
        ASSERT_TRUE(photo) << photo.error().message;
        EXPECT_EQ(photo->sourceWidth(), 2400);
        EXPECT_EQ(photo->sourceHeight(), 3000);
    }
    EXPECT_EQ(lines[0]["output"], (out / "IMG_2.jpg").string());
    EXPECT_TRUE(fs::exists(folder / "guides/later/IMG_10.jpg"));
    EXPECT_EQ(run({"analyze", folder, "--json"}).lines().size(), 2u) << "crops are no photos";
}

TEST_F(Cli, goesOnPastFilesThatAreNoPhotos) {
    addPortrait("b.png");
    ASSERT_TRUE(writeFileAtomically(source / "a.jpg", "no picture at all"));
    const std::string whole = readFile(source / "b.png").value();
    ASSERT_TRUE(writeFileAtomically(source / "c.png", whole.substr(0, whole.size() / 2)));
    const Ended ended = run({"crop", source, "--out", out, "--json", "--force", "--jobs", "3"});
    EXPECT_EQ(ended.code, 1);
    const auto lines = ended.lines();
    ASSERT_EQ(lines.size(), 3u);
    for (const std::size_t bad : {0u, 2u}) {
        EXPECT_EQ(lines[bad]["status"], "failed");
        EXPECT_EQ(lines[bad]["error"], "Could not read this image.");
        EXPECT_FALSE(lines[bad].contains("output"));
    }
    EXPECT_TRUE(fs::exists(out / "b.jpg"));
    EXPECT_FALSE(fs::exists(out / "c.jpg"));
    EXPECT_THAT(ended.err, testing::AllOf(HasSubstr("a.jpg: Could not read this image."),
                                          HasSubstr("2 failed")));
}

TEST_F(Cli, refusesToWriteWhereThePhotosAre) {
    addPortrait("a.png");
    addPortrait("class 3b/a.png");
    fs::create_directory_symlink(source, folder / "link");
    const auto before = tree();
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {"crop", source, "--out", source},
             {"crop", source, "--out", source / "new/crops"},
             {"crop", source, "--out", folder / "link/crops"},
             {"crop", folder / "link", "--out", source / "crops"},
             {"crop", source / "a.png", "--out", source},
             {"crop", source, "--out", out, "--overlay", source / "guides"},
             {"crop", source, "--out", out, "--report", source / "report.csv"},
             {"crop", source, "--out", out, "--review-list", source / "a.png"},
             {"crop", source, "--out", folder},  // whose "class 3b/a.jpg" lies beside an original
         }) {
        const Ended ended = run(arguments);
        EXPECT_EQ(ended.code, 4) << arguments.back();
        EXPECT_EQ(ended.err,
                  "The export folder must be different from the source folder. Originals are "
                  "never overwritten.\n");
    }
    EXPECT_EQ(tree(), before);
    EXPECT_FALSE(fs::exists(out));
}

TEST_F(Cli, saysWithItsExitCodeWhatWasWrong) {
    addPortrait("a.png");
    fs::create_directory(folder / "empty");
    ASSERT_TRUE(writeFileAtomically(folder / "file", "in the way"));
    ASSERT_TRUE(writeFileAtomically(folder / "square.json",
                                    R"({"name": "Square", "aspectWidth": 1, "aspectHeight": 1})"));
    struct Case {
        std::vector<std::string> arguments;
        int code;
        std::string says;
    };
    for (const Case& c : {
             Case{{"crop", source}, 2, "--out"},
             Case{{"crop", source, "--out", out, "--overlay", out}, 2, "of their own"},
             Case{{"crop", folder / "gone", "--out", out}, 3, "gone"},
             Case{{"crop", folder / "empty", "--out", out}, 3, "no photos"},
             Case{{"crop", source, "--out", out, "--preset", "passport"}, 3, "passport"},
             Case{{"crop", source, "--out", out, "--preset", folder / "square.json"},
                  3,
                  "Morva will not stretch faces."},
             Case{{"crop", source, "--out", folder / "file/crops"}, 4, "file/crops"},
             Case{{"solve", folder / "square.json"}, 3, "square.json"},
         }) {
        const Ended ended = run(c.arguments);
        EXPECT_EQ(ended.code, c.code) << ended.err;
        EXPECT_THAT(ended.err, HasSubstr(c.says));
        EXPECT_EQ(ended.out, "");
    }
    EXPECT_FALSE(fs::exists(out));
}

TEST_F(Cli, solvesFromItsOwnRecordsWhatItCrops) {
    addPortrait("a.png");
    const Ended analyzed = run({"analyze", source, "--json"});
    ASSERT_EQ(analyzed.code, 0) << analyzed.err;
    ASSERT_TRUE(writeFileAtomically(folder / "records.jsonl", analyzed.out));
    for (const std::string preset : {"headshot", "yearbook"}) {
        const Ended dry =
            run({"crop", source, "--out", out, "--json", "--dry-run", "--preset", preset});
        const Ended solved = run({"solve", folder / "records.jsonl", "--preset", preset});
        ASSERT_EQ(solved.code, 0) << solved.err;
        EXPECT_EQ(solved.lines().at(0)["solution"], dry.lines().at(0)["solution"]);
        EXPECT_EQ(solved.lines().at(0)["file"], (source / "a.png").string());
    }
    EXPECT_FALSE(fs::exists(out)) << "a dry run writes nothing";
}

TEST_F(Cli, anInterruptFinishesThePhotosInHand) {
    constexpr int photos = 20;
    for (int i = 0; i < photos; ++i) addPortrait("IMG_" + std::to_string(i) + ".png");
    const pid_t child = start({"crop", source, "--out", out, "--force", "--json", "--jobs", "2"});
    while (!fs::exists(out / "IMG_1.jpg") && waitpid(child, nullptr, WNOHANG) == 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    kill(child, SIGINT);
    const Ended ended = waited(child);
    EXPECT_EQ(ended.code, 130);
    EXPECT_THAT(ended.err, HasSubstr("photos were not cropped."));
    const auto lines = ended.lines();
    EXPECT_LT(lines.size(), static_cast<std::size_t>(photos));
    std::size_t written = 0;
    for (const auto& entry : fs::directory_iterator(out)) {
        const std::string name = entry.path().filename();
        if (name == ".morva-export" || name == "Morva Export Report.csv") continue;
        EXPECT_EQ(entry.path().extension(), ".jpg") << "nothing half-written stays behind";
        ++written;
    }
    EXPECT_EQ(written, lines.size());
    for (const Json& line : lines) EXPECT_TRUE(PhotoDecode::open(line["output"], 64)) << line;
}

TEST_F(Cli, anInterruptBeforeAllIsMeasuredCropsNothing) {
    for (int i = 0; i < 60; ++i) addPortrait("IMG_" + std::to_string(i) + ".png");
    const pid_t child = start({"crop", source, "--out", out, "--force", "--json"});
    while (!fs::exists(out / ".morva-export") && waitpid(child, nullptr, WNOHANG) == 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    kill(child, SIGINT);
    const Ended ended = waited(child);
    EXPECT_EQ(ended.code, 130);
    EXPECT_EQ(ended.out, "");
    EXPECT_THAT(ended.err, HasSubstr("60 of 60 photos were not cropped"));
    EXPECT_THAT(ended.err, HasSubstr("not analysed either"));
    EXPECT_FALSE(fs::exists(out / "IMG_0.jpg"));
}

TEST_F(Cli, choosesPresetsByTheStarsInTheFilesAndKeepsTheChildsSize) {
    addPortrait("IMG_1.png", "10:00:00", 5);
    addPortrait("IMG_2.png", "10:00:08", 0);
    addPortrait("IMG_3.png", "11:00:00", 3);
    addPortrait("IMG_4.png", "12:00:00", 0);
    const std::vector<std::string> automatic{"--rules", "auto",    "--preset",   "yearbook",
                                             "--json",  "--force", "--data-dir", folder};
    auto words = automatic;
    words.insert(words.begin(), {"crop", source, "--out", out});
    const Ended ended = run(words);
    ASSERT_EQ(ended.code, 0) << ended.err;
    EXPECT_THAT(ended.err,
                HasSubstr("Crop types: 2 Headshot 4x5, 1 Three-quarter 4x5, 1 Yearbook"));
    const auto lines = ended.lines();
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0]["rule"], "5-star rating");
    EXPECT_EQ(lines[1]["rule"], "Same pose as a 5-star frame");
    EXPECT_EQ(lines[2]["rule"], "3-star rating");
    EXPECT_FALSE(lines[3].contains("rule"));
    EXPECT_EQ(lines[3]["preset"], "Yearbook 4x5");
    EXPECT_GT(lines[1].value("sharedFaceUnit", 0.0), 60);
    EXPECT_EQ(lines[0]["sharedFaceUnit"], lines[1]["sharedFaceUnit"]);
    EXPECT_FALSE(lines[2].contains("sharedFaceUnit"));

    const Ended analyzed = run({"analyze", source, "--json"});
    ASSERT_TRUE(writeFileAtomically(folder / "records.jsonl", analyzed.out));
    const Ended solved = run({"solve", folder / "records.jsonl", "--rules", "auto", "--preset",
                              "yearbook", "--data-dir", folder});
    ASSERT_EQ(solved.lines().size(), 4u) << solved.err;
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(solved.lines()[i]["preset"], lines[i]["preset"]);
        EXPECT_EQ(solved.lines()[i]["solution"], lines[i]["solution"]);
    }

    // A finished crop carries the stars of its preset, and they choose the preset again.
    words = automatic;
    words.insert(words.begin(), {"crop", out / "IMG_2.jpg", "--out", folder / "again"});
    EXPECT_EQ(run(words).lines().at(0)["rule"], "5-star rating");
    words.insert(words.end(), {"--no-group", "--dry-run"});
    words[1] = source;
    EXPECT_FALSE(run(words).lines().at(0).contains("sharedFaceUnit"));
}

TEST_F(Cli, refusesRulesThatItCannotFollow) {
    addPortrait("a.png");
    const fs::path rules = folder / "rules.json";
    ASSERT_TRUE(writeFileAtomically(
        rules,
        R"([{"condition": {"sign": {}}, "presetID": "11111111-0000-4000-8000-000000000000"}])"));
    const Ended unknown = run({"crop", source, "--out", out, "--rules", rules});
    EXPECT_EQ(unknown.code, 3);
    EXPECT_THAT(unknown.err, testing::AllOf(HasSubstr("rules.json"), HasSubstr("does not exist")));
    ASSERT_TRUE(writeFileAtomically(rules, run({"rules", "--json", "--data-dir", out}).out));
    const Ended written = run({"rules", rules});
    EXPECT_EQ(written.code, 0) << "what it prints is what it reads";
    EXPECT_THAT(written.out, HasSubstr("5-star rating"));
    EXPECT_EQ(written.out, run({"rules", "--data-dir", out}).out);
    ASSERT_TRUE(writeFileAtomically(rules, "[{]"));
    EXPECT_EQ(run({"rules", rules}).code, 3);
    const Ended broken =
        run({"crop", source, "--out", out, "--rules", "auto", "--data-dir", folder});
    EXPECT_EQ(broken.code, 3);
    EXPECT_EQ(readFile(rules), "[{]");
    EXPECT_FALSE(fs::exists(out));
}

TEST_F(Cli, modelsAPresetOnAFinishedPortrait) {
    addPortrait("a.png");
    ASSERT_EQ(run({"crop", source, "--out", out, "--force"}).code, 0);
    const fs::path portrait = out / "a.jpg";
    const Ended shown = run({"reference", portrait, "--preset", "yearbook"});
    ASSERT_EQ(shown.code, 0) << shown.err;
    EXPECT_EQ(shown.err, "") << "the ratio is the same and the hair was found";
    const Json preset = Json::parse(shown.out);
    EXPECT_EQ(preset["name"], "Yearbook 4x5");
    EXPECT_NEAR(preset["faceScale"].get<double>(), 0.2148, 0.008) << "what the headshot draws";
    EXPECT_NEAR(preset["topMargin"].get<double>(), 0.057, 0.02);
    EXPECT_EQ(preset["reference"]["sourceName"], "a.jpg");

    const fs::path file = folder / "modelled.json";
    const Ended measured = run({"reference", source / "a.png", "--out", file, "--json"});
    ASSERT_EQ(measured.code, 0) << measured.err;
    EXPECT_THAT(measured.err, HasSubstr("The reference is 1.000:1 but the preset ratio is 0.800."));
    const Json line = measured.lines().at(0);
    EXPECT_EQ(line["notes"].size(), 1u);
    EXPECT_EQ(Json::parse(readFile(file).value()), line["preset"]);
    EXPECT_EQ(line["preset"]["reference"], line["reference"]);
    EXPECT_EQ(run({"crop", source, "--out", out, "--preset", file, "--dry-run"}).code, 0);

    ASSERT_TRUE(writeFileAtomically(folder / "no.jpg", "no picture at all"));
    const Ended unreadable = run({"reference", folder / "no.jpg"});
    EXPECT_EQ(unreadable.code, 3);
    EXPECT_THAT(unreadable.err, HasSubstr("no.jpg: Could not read the reference image."));
    const std::string before = readFile(portrait).value();
    EXPECT_EQ(run({"reference", portrait, "--out", portrait}).code, 4);
    EXPECT_EQ(readFile(portrait), before);
    EXPECT_EQ(run({"reference", portrait, "--out", folder / "gone/x.json"}).code, 4);
}

TEST_F(Cli, putsTheChildBeforeAnotherBackdropAndTellsWhatItCouldNot) {
    addPortrait("a.png");
    const fs::path report = out / "Morva Export Report.csv";
    const Ended blue = run({"crop", source, "--out", out, "--force", "--json", "--preset",
                            "headshot", "--backdrop", "color:#2040c0"});
    ASSERT_EQ(blue.code, 0) << blue.err;
    const auto crop = decodeRegion(out / "a.jpg", {0, 0, 1e5, 1e5}, 1);
    ASSERT_TRUE(crop);
    const std::uint8_t* corner = crop->pixels.pixel(40, 40);
    EXPECT_GT(corner[2], corner[0] + 60) << "blue, where the photo is grey";
    EXPECT_FALSE(blue.lines().at(0).contains("fallbacks"));
    EXPECT_THAT(*readFile(report),
                HasSubstr("file,preset,status,confidence,face scale,eye line,headroom,hand "
                          "adjusted,reasons\n\"a.png\",\"Headshot 4x5\",\"Review\",\""));

    // A plate that is named must be there; it is remembered, and found again until it is gone.
    const fs::path plate = folder / "data/Backdrops/cloth.jpg";
    fs::create_directories(plate.parent_path());
    fs::copy_file(out / "a.jpg", plate);
    const std::vector<std::string> common{"crop",    source,   "--out",      out,
                                          "--force", "--json", "--data-dir", folder / "data"};
    const auto with = [&](std::vector<std::string> more) {
        more.insert(more.begin(), common.begin(), common.end());
        return run(more);
    };
    EXPECT_EQ(with({"--backdrop", folder / "gone.jpg"}).code, 3);
    EXPECT_EQ(with({"--backdrop", "color:#12"}).code, 2);
    EXPECT_EQ(with({"--backdrop", plate, "--report", folder / "r.csv", "--review-list",
                    folder / "list.csv"})
                  .code,
              0);
    EXPECT_TRUE(fs::exists(folder / "r.csv"));
    EXPECT_THAT(*readFile(folder / "list.csv"), HasSubstr("\na.png," + source.string()));
    EXPECT_THAT(with({"--backdrop", "auto", "--dry-run"}).err, HasSubstr(plate.string()));
    EXPECT_EQ(run({"preview", source / "a.png", "--out", folder / "small.png", "--height", "300",
                   "--backdrop", "color:#2040c0"})
                  .code,
              0);
    const auto small = decodeRegion(folder / "small.png", {0, 0, 1e5, 1e5}, 1);
    ASSERT_TRUE(small);
    EXPECT_EQ(small->pixels.height(), 300);
    EXPECT_GT(small->pixels.pixel(4, 4)[2], small->pixels.pixel(4, 4)[0] + 60);
    for (const std::string part : {"list", "suggest"}) {
        const Ended listed = run({"backdrops", part, "--data-dir", folder / "data"});
        EXPECT_THAT(listed.out, HasSubstr(plate.string() + "  2400 x 3000")) << part;
    }
}

TEST_F(Cli, listsWhatWaitsFromItsOwnRecords) {
    addPortrait("a, b.png");
    ASSERT_TRUE(
        writeFileAtomically(folder / "records.jsonl", run({"analyze", source, "--json"}).out));
    const Ended list = run({"review-list", folder / "records.jsonl"});
    EXPECT_EQ(list.code, 0) << list.err;
    EXPECT_THAT(list.out, testing::StartsWith("File,Folder,Status,Issues,Add Top (px),"));
    EXPECT_THAT(list.out, HasSubstr("\n\"a, b.png\"," + source.string() + ",Review,"));
    EXPECT_EQ(run({"review-list", folder / "none.jsonl"}).code, 3);
}

TEST_F(Cli, takesAJobFromImportToExportAndKeepsItBetweenTheCommands) {
    for (const char* name : {"1.png", "2.png", "class b/3.png"}) addPortrait(name);
    const auto before = tree();
    const auto job = [&](std::vector<std::string> words) {
        words.insert(words.begin(),
                     {"--data-dir", folder / "data", "--cache-dir", folder / "cache", "job"});
        return run(words);
    };
    EXPECT_EQ(job({"crop", "class 3b"}).code, 3) << "nothing is imported yet";
    const Ended imported = job({"import", source, "--preset", "headshot", "--json"});
    ASSERT_EQ(imported.code, 0) << imported.err;
    EXPECT_EQ(imported.lines().at(0).at("pending"), 3);
    const Ended cropped = job({"crop", "class 3b", "--json"});
    ASSERT_EQ(cropped.code, 0) << cropped.err;
    EXPECT_EQ(cropped.lines().size(), 3U);
    EXPECT_EQ(job({"approve", "class 3b", "nobody.png"}).code, 3);
    const Ended approved = job({"approve", "class 3b", "1.png", "class b/3.png", "--json"});
    ASSERT_EQ(approved.code, 0) << approved.err;
    EXPECT_EQ(approved.lines().at(1).at("status"), "Approved");
    EXPECT_EQ(Json::parse(job({"list", "--json"}).out).at("approved"), 2);

    EXPECT_EQ(job({"export", "class 3b", "--out", source / "crops"}).code, 4);
    const Ended exported = job({"export", "class 3b", "--out", out, "--approved-only"});
    EXPECT_EQ(exported.code, 0) << exported.err;
    EXPECT_TRUE(fs::exists(out / "1.jpg") && fs::exists(out / "class b/3.jpg"));
    EXPECT_FALSE(fs::exists(out / "2.jpg"));
    EXPECT_THAT(job({"export", "class 3b", "--approved-only"}).err,
                HasSubstr("Nothing new to export"));
    EXPECT_THAT(job({"review-list", source}).out, HasSubstr("2.png"));
    EXPECT_EQ(tree(), before);
    EXPECT_EQ(job({"remove", "class 3b"}).code, 0);
    EXPECT_EQ(job({"list"}).out, "");
}

}  // namespace

}  // namespace morva
