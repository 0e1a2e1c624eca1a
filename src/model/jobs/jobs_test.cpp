// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/stat.h>

#include <fstream>

#include <gtest/gtest.h>

#include "base/file_url.h"
#include "base/files.h"
#include "crop/crop_solver.h"
#include "crop/synthetic_portrait.h"
#include "model/jobs/analysis_cache.h"
#include "model/jobs/job_store.h"
#include "model/presets/preset_library.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

class JobFiles : public testing::Test {
protected:
    JobFiles() : folder_(fs::temp_directory_path() / ("morva-jobs-" + Uuid::random().text())) {
        fs::create_directories(folder_ / "Jobs");
    }
    ~JobFiles() override { fs::remove_all(folder_); }

    void write(const fs::path& name, const std::string& text) const {
        std::ofstream(folder_ / name) << text;
    }

    fs::path folder_;
};

ImageAnalysis measured(int width, int height) {
    ImageAnalysis analysis;
    analysis.sourceWidth = width;
    analysis.sourceHeight = height;
    return analysis;
}

ImageItem itemNamed(const std::string& name) {
    ImageItem item;
    item.id = fileURL(name);
    item.url = "/photos/3b/" + name;
    item.relativePath = name;
    return item;
}

Job fullJob() {
    Job job;
    job.name = "3b";
    job.folderURL = "/photos/3b";
    job.presetID = PresetLibrary::headshotID();
    job.exportFolder = "/photos/3b Cropped";
    job.lastExportAt = 5;
    job.createdAt = 4.25;
    job.autoAssign = true;
    job.rules = {{Uuid::random(), {RuleCondition::Sign{}}, PresetLibrary::fullLengthID(), true}};
    job.showsFeet = false;
    ImageItem item = itemNamed("100%25 \xff.jpg");
    item.analysis = measured(10, 20);
    item.adjustment = {0.01, 0, 1.1, -2};
    item.approved = true;
    item.exportedAt = 6;
    item.approvedRect = Rect{1, 2, 3, 4};
    item.exportedRect = Rect{1, 2, 3, 5};
    item.exportedHeight = 3000;
    item.presetOverride = PresetLibrary::landscapeID();
    item.analyzedStamp = FileStamp{7.5, 800};
    job.items = {item, itemNamed("b.jpg")};
    return job;
}

TEST(FileURLs, bringBackEveryPathByteForByte) {
    for (const std::string path : {"/a b/\xc3\xa4%20\xff#?.jpg", "relative/100%.jpg", "/", ""}) {
        const std::string url = fileURL(path);
        EXPECT_EQ(pathOfFileURL(url).native(), path);
        EXPECT_TRUE(std::ranges::all_of(url, [](char c) { return c > ' ' && c < 127; }));
    }
}

TEST_F(JobFiles, comeBackAsTheyWereExceptForSolutions) {
    const JobStore store(folder_);
    Job job = fullJob();
    job.name = R"(3b "items":[] \)";
    job.items[0].solution = CropSolution{};
    job.items[0].presetID = job.presetID;
    ASSERT_TRUE(store.saveNow(job));
    const auto loaded = store.loadAll();
    EXPECT_TRUE(loaded.problems.empty());
    job.items[0].solution.reset();
    job.items[0].presetID.reset();
    ASSERT_EQ(loaded.jobs.size(), 1u);
    EXPECT_EQ(loaded.jobs[0], job);
    std::vector<std::string> keys;
    const Json json = Json::parse(*readFile(store.fileURL(job.id)));
    for (const auto& [key, value] : json.items()) keys.push_back(key);
    EXPECT_EQ(keys, (std::vector<std::string>{"id", "name", "folderURL", "presetID", "items",
                                              "exportFolder", "lastExportAt", "createdAt",
                                              "autoAssign", "rules", "showsFeet"}));
    keys.clear();
    for (const auto& [key, value] : json["items"][0].items()) keys.push_back(key);
    EXPECT_EQ(keys,
              (std::vector<std::string>{"id", "url", "relativePath", "analysis", "adjustment",
                                        "approved", "exportedAt", "approvedRect", "exportedRect",
                                        "exportedHeight", "presetOverride", "analyzedStamp"}));
}

TEST_F(JobFiles, ofOlderProgramsLoadAndDamagedOnesAreSetAside) {
    const JobStore store(folder_);
    Json old = fullJob();
    for (const char* key : {"autoAssign", "rules", "showsFeet", "exportFolder", "lastExportAt"})
        old.erase(key);
    old["items"][0]["analysis"] = "of another kind";
    write("Jobs/old.json", old.dump());
    write("Jobs/damaged.json", old.dump().substr(0, 200));
    write("Jobs/notes.txt", "not a job");
    const auto loaded = store.loadAll();
    ASSERT_EQ(loaded.jobs.size(), 1u);
    EXPECT_FALSE(loaded.jobs[0].autoAssign || loaded.jobs[0].showsFeet);
    EXPECT_FALSE(loaded.jobs[0].items[0].analysis) << "can be made again";
    EXPECT_TRUE(loaded.jobs[0].items[0].approved) << "cannot";
    ASSERT_EQ(loaded.problems.size(), 1u);
    EXPECT_NE(loaded.problems[0].message.find("damaged.json"), std::string::npos);
    EXPECT_TRUE(fs::exists(folder_ / "Jobs/damaged.unreadable.json"));
    EXPECT_TRUE(store.loadAll().problems.empty()) << "said once, and not read again";
}

TEST_F(JobFiles, areWrittenWhateverBytesAFolderIsNamedWith) {
    const JobStore store(folder_);
    Job job = fullJob();
    job.name = "Klasse \xfc";
    ASSERT_TRUE(store.saveNow(job));
    const auto loaded = store.loadAll();
    ASSERT_EQ(loaded.jobs.size(), 1u);
    EXPECT_TRUE(loaded.jobs[0].name.starts_with("Klasse "));
    EXPECT_EQ(loaded.jobs[0].items, job.items);
}

TEST_F(JobFiles, ofRemovedJobsAreKept) {
    const JobStore store(folder_);
    Job job = fullJob();
    ASSERT_TRUE(store.saveNow(job));
    ASSERT_TRUE(store.remove(job.id));
    job.name = "later";
    ASSERT_TRUE(store.saveNow(job));
    ASSERT_TRUE(store.remove(job.id));
    ASSERT_TRUE(store.remove(job.id)) << "already gone";
    EXPECT_TRUE(store.loadAll().jobs.empty());
    const auto kept = readFile(store.archiveDirectory() / (job.id.text() + ".json"));
    ASSERT_TRUE(kept);
    EXPECT_NE(kept->find("later"), std::string::npos);
}

TEST(ItemStatus, isDerivedInOrder) {
    ImageItem item = itemNamed("a.jpg");
    const auto status = [&](BackdropMode mode = BackdropMode::keep) { return item.status(mode); };
    EXPECT_EQ(status(), ItemStatus::pending);
    item.analysis = ImageAnalysis{};
    EXPECT_EQ(status(), ItemStatus::failed) << "no face, not solved";
    item.analysis->detectionFailed = true;
    EXPECT_EQ(status(), ItemStatus::error);

    item.analysis = Synthetic::portrait();
    EXPECT_EQ(status(), ItemStatus::pending) << "just loaded";
    item.solution = CropSolver::solve(*item.analysis,
                                      PresetLibrary::standardPreset(PresetLibrary::headshotID()));
    ASSERT_TRUE(item.solution->isReady());
    EXPECT_EQ(status(), ItemStatus::ready);
    item.adjustment.dx = 5;
    EXPECT_EQ(status(), ItemStatus::review) << "moved off the photo";
    EXPECT_EQ(status(BackdropMode::repeatEdges), ItemStatus::ready) << "only backdrop is missing";
    item.analysis->edgeContact = EdgeContact{.right = true};
    EXPECT_EQ(status(BackdropMode::repeatEdges), ItemStatus::review) << "the child is cut there";
    item.approved = true;
    EXPECT_EQ(status(), ItemStatus::approved);
    item.solution->status = CropStatus::failed;
    EXPECT_EQ(status(), ItemStatus::failed) << "an approval does not make a face";
}

TEST(ItemStatus, aChangedFileMustBeAnalysedAgain) {
    ImageItem item = itemNamed("a.jpg");
    const FileStamp then{100.5, 2000};
    EXPECT_TRUE(item.needsAnalysis(then));
    item.analysis = ImageAnalysis{};
    EXPECT_TRUE(item.needsAnalysis(then)) << "no stamp";
    item.analyzedStamp = then;
    EXPECT_FALSE(item.needsAnalysis(then));
    EXPECT_TRUE(item.needsAnalysis(FileStamp{100.5, 2001}));
    EXPECT_TRUE(item.needsAnalysis(FileStamp{101, 2000}));
    item.analysis->version = 10;
    EXPECT_TRUE(item.needsAnalysis(then)) << "measured by older analysers";
}

TEST_F(JobFiles, cacheHitsOnlyTheSameFileOfTheSameState) {
    const AnalysisCache cache(folder_);
    write("a.jpg", "photo");
    const fs::path photo = folder_ / "a.jpg";
    ImageAnalysis analysis = measured(30, 40);
    analysis.tags = {"cap"};
    EXPECT_FALSE(cache.load(photo));
    ASSERT_TRUE(cache.store(analysis, photo, *ImageLoader::fileSignature(photo)));
    EXPECT_EQ(cache.load(photo), analysis);
    EXPECT_EQ(cache.load(folder_ / "Jobs/../a.jpg"), analysis) << "the same place, said otherwise";
    EXPECT_EQ(AnalysisCache::key("/a"), sha256("/a"));

    write("a.jpg", "another photo");
    EXPECT_FALSE(cache.load(photo));
    ImageAnalysis older = analysis;
    older.version = 10;
    ASSERT_TRUE(cache.store(older, photo, *ImageLoader::fileSignature(photo)));
    EXPECT_FALSE(cache.load(photo));
    ASSERT_TRUE(cache.store(analysis, photo, *ImageLoader::fileSignature(photo)));
    EXPECT_TRUE(cache.load(photo));
    ASSERT_TRUE(cache.clear());
    EXPECT_FALSE(cache.load(photo));
    EXPECT_TRUE(fs::is_empty(cache.directory()));
}

}  // namespace
}  // namespace morva
