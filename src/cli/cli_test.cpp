// SPDX-License-Identifier: GPL-3.0-or-later
// The parts of the command line that need no photo.
#include <gmock/gmock.h>

#include <filesystem>

#include "base/files.h"
#include "cli/arguments.h"
#include "cli/backdrop_wish.h"
#include "cli/console.h"
#include "cli/ordered_workers.h"
#include "cli/photo_outcome.h"
#include "cli/preset_catalog.h"
#include "cli/run_reports.h"
#include "cli/solve_command.h"
#include "model/presets/preset_library.h"

namespace morva {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

template <class... Words>
tl::expected<Arguments, EarlyEnd> parsed(Words... words) {
    const std::vector<const char*> line{"morva-cli", words...};
    return parseArguments(static_cast<int>(line.size()), line.data());
}

CropSolution solved(CropStatus status, std::vector<ReviewReason> reasons = {}) {
    CropSolution solution;
    solution.status = status;
    solution.reasons = std::move(reasons);
    return solution;
}

TEST(CommandLine, readsAWholeCropLine) {
    const auto arguments =
        parsed("crop", "class 3b", "one.jpg", "--out", "done", "--preset", "full-length", "--jobs",
               "3", "--approve", "ready", "--json", "--overlay", "guides", "--strict", "--quiet",
               "--rules", "auto", "--no-group");
    ASSERT_TRUE(arguments) << arguments.error().text;
    EXPECT_EQ(arguments->verbosity, Verbosity::quiet) << "global options may follow the command";
    const auto& crop = std::get<CropArguments>(arguments->command);
    EXPECT_THAT(crop.inputs, ElementsAre("class 3b", "one.jpg"));
    EXPECT_EQ(crop.out, "done");
    EXPECT_EQ(crop.selection.preset, "full-length");
    EXPECT_EQ(crop.selection.rules, "auto");
    EXPECT_FALSE(crop.selection.group);
    EXPECT_EQ(crop.jobs, 3);
    EXPECT_EQ(crop.approve, Approval::ready);
    EXPECT_TRUE(crop.json && crop.strict && !crop.force && !crop.dryRun);
    EXPECT_EQ(crop.overlay, "guides");
}

TEST(CommandLine, groupsAndUsesOnePresetUnlessToldOtherwise) {
    const auto solve = parsed("solve", "-");
    const auto& selection = std::get<SolveArguments>(solve->command).selection;
    EXPECT_TRUE(selection.group);
    EXPECT_FALSE(selection.rules);
    EXPECT_EQ(selection.preset, "Headshot");
}

TEST(CommandLine, refusesWhatItDoesNotUnderstand) {
    for (const auto& wrong :
         {parsed(), parsed("crop", "photos"), parsed("crop", "--out", "x"), parsed("polish", "x"),
          parsed("crop", "a", "--out", "b", "--approve", "none"),
          parsed("crop", "a", "--out", "b", "--jobs", "0"), parsed("crop", "a", "--out", ""),
          parsed("crop", "a", "--out", "b", "--rules", ""), parsed("reference"), parsed("presets"),
          parsed("--quiet", "--verbose", "presets", "list"), parsed("presets", "show")}) {
        ASSERT_FALSE(wrong);
        EXPECT_EQ(wrong.error().code, ExitCode::usage);
        EXPECT_FALSE(wrong.error().text.empty());
    }
}

TEST(CommandLine, readsTheJobCommands) {
    using Action = JobArguments::Action;
    const auto job = [](const auto&... words) {
        return std::get<JobArguments>(parsed("job", words...)->command);
    };
    const JobArguments import = job("import", "class 3b", "--preset", "auto");
    EXPECT_EQ(import.action, Action::import);
    EXPECT_EQ(import.folder, "class 3b");
    EXPECT_EQ(import.preset, "auto");
    const JobArguments approve = job("approve", "3b", "1.jpg", "2.jpg", "--take-back", "--json");
    EXPECT_EQ(approve.action, Action::approve);
    EXPECT_EQ(approve.job, "3b");
    EXPECT_THAT(approve.photos, ElementsAre("1.jpg", "2.jpg"));
    EXPECT_TRUE(approve.takeBack && approve.json && !approve.ready);
    const JobArguments exported = job("export", "3b", "--out", "crops", "--approved-only");
    EXPECT_EQ(exported.action, Action::exportPhotos);
    EXPECT_EQ(exported.out, "crops");
    EXPECT_TRUE(exported.approvedOnly && !exported.replace);
    EXPECT_EQ(job("crop", "3b", "--jobs", "3").jobs, 3);
    EXPECT_EQ(job("review-list", "3b").action, Action::reviewList);
    EXPECT_EQ(parsed("job").error().code, ExitCode::usage);
    EXPECT_EQ(parsed("job", "remove").error().code, ExitCode::usage);
}

TEST(CommandLine, helpAndVersionAreNoErrors) {
    EXPECT_THAT(parsed("--version").error().text, HasSubstr("morva-cli "));
    for (const auto& help : {parsed("--help"), parsed("crop", "--help"), parsed("--version")})
        EXPECT_EQ(help.error().code, ExitCode::done);
    EXPECT_THAT(parsed("crop", "--help").error().text, HasSubstr("--overlay"));
}

TEST(Progress, showsRateAndTimeLeft) {
    EXPECT_EQ(progressText("Cropping", 0, 8, 0), "Cropping [........................] 0 of 8");
    EXPECT_EQ(progressText("Cropping", 2, 8, 4),
              "Cropping [######..................] 2 of 8  0.5 a second  0:12 left");
    EXPECT_EQ(progressText("Cropping", 8, 8, 0.5),
              "Cropping [########################] 8 of 8  16 a second  0:00 left");
    EXPECT_EQ(clockText(3723), "1:02:03");
}

TEST(OrderedWorkers, deliverInOrderWhateverTheOrderOfFinishing) {
    const std::atomic<bool> stop{false};
    std::vector<std::size_t> delivered;
    std::size_t most = 0;
    const auto done = inOrder(
        40, 4, stop,
        [](std::size_t i) {
            std::this_thread::sleep_for(std::chrono::microseconds(i % 4 == 0 ? 3000 : 100));
            return i * i;
        },
        [&](std::size_t i, std::size_t square) {
            EXPECT_EQ(square, i * i);
            delivered.push_back(i);
        },
        [&](std::size_t finished) { most = finished; });
    EXPECT_EQ(done, 40u);
    EXPECT_EQ(most, 40u);
    EXPECT_TRUE(std::is_sorted(delivered.begin(), delivered.end()));
    EXPECT_EQ(
        inOrder(
            0, 2, stop, [](std::size_t) { return 0; }, [](std::size_t, int) {}, [](std::size_t) {}),
        0u);
}

TEST(OrderedWorkers, finishAndDeliverWhatWasBegunBeforeTheStop) {
    std::atomic<bool> stop{false};
    std::atomic<std::size_t> worked{0};
    std::size_t delivered = 0;
    const auto done = inOrder(
        1000, 3, stop,
        [&](std::size_t i) {
            if (i == 20) stop = true;
            ++worked;
            return i;
        },
        [&](std::size_t i, std::size_t) { EXPECT_EQ(i, delivered++); }, [](std::size_t) {});
    EXPECT_EQ(done, worked);
    EXPECT_EQ(done, delivered);
    EXPECT_GE(done, 21u);
    EXPECT_LT(done, 1000u);
}

TEST(PresetCatalog, findsPresetsByWhatPeopleType) {
    const auto catalog = PresetCatalog::open("/nowhere");
    ASSERT_TRUE(catalog);
    for (const auto& [typed, name] : std::map<std::string, std::string>{
             {"headshot", "Headshot 4x5"},
             {"HEADSHOT 4X5", "Headshot 4x5"},
             {"three-quarter", "Three-quarter 4x5"},
             {"full-length", "Full length 4x5"},
             {"Full length", "Full length 4x5"},
             {"top-down", "Top-down 7x5"},
             {"yearbook", "Yearbook 4x5"},
         }) {
        const auto found = catalog->find(typed);
        ASSERT_TRUE(found) << typed;
        EXPECT_EQ(found->name, name) << typed;
    }
    for (const CropPreset& preset : catalog->presets())
        EXPECT_EQ(catalog->find(preset.badge)->name, preset.name) << preset.badge;
    EXPECT_THAT(catalog->find("passport").error().message, HasSubstr("Three-quarter 4x5"));
}

TEST(PresetCatalog, readsTheUsersPresetsAndFiles) {
    const fs::path folder = fs::path(testing::TempDir()) / "morva-presets";
    fs::create_directories(folder);
    CropPreset own = *PresetLibrary::replacement(PresetLibrary::headshotID());
    own.name = "Tight headshot";
    ASSERT_TRUE(writeFileAtomically(folder / "presets.json", Json{own}.dump()));
    ASSERT_TRUE(writeFileAtomically(folder / "mine.json", R"({"name": "Mine", "faceScale": 0.3})"));
    ASSERT_TRUE(writeFileAtomically(folder / "broken.json", "{"));

    const auto catalog = PresetCatalog::open(folder);
    ASSERT_TRUE(catalog) << catalog.error().message;
    EXPECT_TRUE(catalog->find("tight"));
    EXPECT_FALSE(catalog->find("headshot")) << "the user's preset stands in its place";
    EXPECT_EQ(catalog->find(folder / "mine.json")->faceScale, 0.3);
    EXPECT_THAT(catalog->find(folder / "broken.json").error().message, HasSubstr("broken.json"));

    ASSERT_TRUE(writeFileAtomically(folder / "presets.json", "no array"));
    EXPECT_THAT(PresetCatalog::open(folder).error().message, HasSubstr("presets.json"));
    fs::remove_all(folder);
}

TEST(Fate, followsDoubtsAndWishes) {
    const CropSolution ready = solved(CropStatus::ready);
    const CropSolution doubtful = solved(CropStatus::review, {ReviewReason::headContentUncertain});
    const CropSolution beyond =
        solved(CropStatus::review, {ReviewReason::lowConfidence, ReviewReason::needsMoreCanvas});
    const CropSolution none = solved(CropStatus::failed, {ReviewReason::noFaceFound});
    EXPECT_EQ(fateOf(ready, Approval::ready, false), Fate::write);
    EXPECT_EQ(fateOf(doubtful, Approval::all, false), Fate::write);
    EXPECT_EQ(fateOf(doubtful, Approval::ready, true), Fate::leaveForReview);
    EXPECT_EQ(fateOf(beyond, Approval::all, false), Fate::leaveForCanvas);
    EXPECT_EQ(fateOf(beyond, Approval::all, true), Fate::write);
    EXPECT_EQ(fateOf(none, Approval::all, true), Fate::fail);
}

TEST(Report, namesWhatNeedsAPersonAndWhy) {
    const PhotoOutcome fine{.file = "a.jpg",
                            .preset = "Full length 4x5",
                            .rule = "Feet in the frame",
                            .sharedFaceUnit = 120,
                            .fate = Fate::write,
                            .output = "out/a.jpg",
                            .solution = solved(CropStatus::ready),
                            .error = {}};
    const PhotoOutcome doubtful{
        .file = "b.jpg",
        .preset = "Headshot 4x5",
        .rule = {},
        .sharedFaceUnit = {},
        .fate = Fate::write,
        .output = "out/b.jpg",
        .solution = solved(CropStatus::review,
                           {ReviewReason::headContentUncertain, ReviewReason::lowResolution}),
        .error = {}};
    const PhotoOutcome unreadable{.file = "c.jpg",
                                  .preset = "Headshot 4x5",
                                  .rule = {},
                                  .sharedFaceUnit = {},
                                  .fate = Fate::fail,
                                  .output = {},
                                  .solution = {},
                                  .error = "Could not read this image."};
    const std::vector<PhotoOutcome> all{fine, doubtful, unreadable};
    EXPECT_EQ(summary(all, false), "3 photos: 2 written, 1 worth a look, 1 failed.");
    const auto groups = findings(all);
    ASSERT_EQ(groups.size(), 2u);
    EXPECT_THAT(groups[0].lines, ElementsAre("b.jpg: Hair outline uncertain, Low resolution for "
                                             "export size"));
    EXPECT_THAT(groups[1].lines, ElementsAre("c.jpg: Could not read this image."));
    EXPECT_EQ(jsonText(outcomeJson(unreadable)),
              R"({"file":"c.jpg","preset":"Headshot 4x5","status":"failed",)"
              R"("error":"Could not read this image."})");
    const std::string told = jsonText(outcomeJson(fine));
    EXPECT_THAT(told, HasSubstr(R"("preset":"Full length 4x5","rule":"Feet in the frame",)"
                                R"("sharedFaceUnit":120.0,"status":"ready")"));
    EXPECT_EQ(outcomeLine(fine), "a.jpg: ready, Full length 4x5 (Feet in the frame), out/a.jpg");
    EXPECT_EQ(outcomeLine(doubtful),
              "b.jpg: review (Hair outline uncertain, Low resolution for export size), Headshot "
              "4x5, out/b.jpg");
    EXPECT_EQ(presetCounts(all), "Crop types: 1 Full length 4x5, 2 Headshot 4x5.");
    EXPECT_EQ(interruptionText(60, 60, 20), "Interrupted: 40 of 60 photos were not cropped.");
    EXPECT_EQ(interruptionText(60, 48, 0),
              "Interrupted: 60 of 60 photos were not cropped, 12 of them not analysed either.");
    PhotoOutcome odd = unreadable;
    odd.file = "caf\xe9.jpg";
    EXPECT_THAT(jsonText(outcomeJson(odd)), HasSubstr("caf\xef\xbf\xbd.jpg"));
}

TEST(Report, hasARowForEveryPhotoAndAListOfThoseThatWait) {
    PhotoOutcome written{.file = "a.jpg",
                         .preset = "Headshot 4x5",
                         .rule = {},
                         .sharedFaceUnit = {},
                         .fate = Fate::write,
                         .output = "out/a.jpg",
                         .solution = solved(CropStatus::ready),
                         .error = {},
                         .photoSize = Size{800, 1000},
                         .fallbacks = {ExportFallback::plateUnreadable}};
    PhotoOutcome left = written;
    left.file = "class/b.jpg";
    left.fate = Fate::leaveForCanvas;
    left.solution = solved(CropStatus::review, {ReviewReason::needsMoreCanvas});
    left.solution->shortfall = CanvasShortfall{.left = 0, .top = 12, .right = 0, .bottom = 0};
    left.fallbacks = {};
    PhotoOutcome unreadable = written;
    unreadable.file = "c.jpg";
    unreadable.fate = Fate::fail;
    unreadable.solution = solved(CropStatus::failed);
    unreadable.photoSize.reset();
    unreadable.error = "Could not read this image.";
    unreadable.fallbacks = {};
    const std::vector<PhotoOutcome> all{written, left, unreadable};

    const auto rows = exportRows(all);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_FALSE(rows[0].skipped);
    EXPECT_THAT(rows[0].reasons,
                ElementsAre("Backdrop image unreadable: a generated one was used"));
    EXPECT_EQ(rows[1].skipped, "Needs more canvas");
    EXPECT_EQ(rows[2].skipped, "Could not read this image.");

    const auto items = waiting(all);
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0].file, std::filesystem::absolute("class/b.jpg"));
    EXPECT_EQ(items[0].status, "Review");
    EXPECT_EQ(items[0].canvas->top, 12);
    EXPECT_EQ(items[1].status, "Couldn't analyze");
    EXPECT_THAT(items[1].issues, ElementsAre("Could not read this image."));

    EXPECT_THAT(summary(all, false), HasSubstr("1 written, 1 not as asked"));
    EXPECT_EQ(findings(all).front().lines.front(),
              "a.jpg: Backdrop image unreadable: a generated one was used");
    EXPECT_THAT(jsonText(outcomeJson(written)), HasSubstr(R"("fallbacks":["plateUnreadable"])"));
}

TEST(BackdropWish, isReadFromItsText) {
    using Path = std::filesystem::path;
    EXPECT_EQ(std::get<BackdropMode>(BackdropWish::parse("keep")->what), BackdropMode::keep);
    EXPECT_EQ(std::get<BackdropMode>(BackdropWish::parse("repeat")->what),
              BackdropMode::repeatEdges);
    EXPECT_EQ(std::get<Rgb>(BackdropWish::parse("color:#ff0033")->what), (Rgb{1, 0, 0.2}));
    EXPECT_EQ(std::get<Path>(BackdropWish::parse("./auto")->what), Path("./auto"));
    EXPECT_TRUE(std::holds_alternative<BackdropWish::Automatic>(BackdropWish::parse("auto")->what));
    for (const char* wrong : {"", "color:", "color:red", "color:#ff003", "color:#ff00333",
                              "color:#gg0000", "color:#-12345"})
        EXPECT_FALSE(BackdropWish::parse(wrong)) << wrong;
}

TEST(StoredRecords, comeAsLinesOrBare) {
    const std::string record = R"({"version": 11, "sourceWidth": 800, "sourceHeight": 600})";
    const auto bare = readRecords("{\n" + record.substr(1), "r.json");
    ASSERT_TRUE(bare) << bare.error().message;
    EXPECT_EQ(bare->at(0).analysis.sourceWidth, 800);
    EXPECT_FALSE(bare->at(0).file);

    const std::string line = R"({"file": "a.jpg", "analysis": )" + record + "}\n";
    const auto lines = readRecords(line + "\n" + line, "r.json");
    ASSERT_TRUE(lines) << lines.error().message;
    ASSERT_EQ(lines->size(), 2u);
    EXPECT_EQ(lines->at(1).file, "a.jpg");
    EXPECT_EQ(lines->at(1).camera, "a");
    const auto named =
        readRecords(R"({"file": "IMG_1.jpg", "camera": "M 7", "analysis": )" + record + "}", "r");
    EXPECT_EQ(named->at(0).camera, "M 7");

    EXPECT_THAT(readRecords(line + "{]\n", "r.json").error().message,
                testing::AllOf(HasSubstr("r.json"), HasSubstr("line 2")));
}

}  // namespace

}  // namespace morva
