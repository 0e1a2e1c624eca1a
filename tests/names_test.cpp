// SPDX-License-Identifier: GPL-3.0-or-later
// Names that cameras, people and other systems give to photos, through everything that handles a
// photo by its name: nothing is lost, mixed up or refused.
#include <fstream>
#include <set>

#include <gmock/gmock.h>

#include "app/app_test_support.h"
#include "app/batch_runner.h"
#include "app/thumbnail_store.h"
#include "imaging/decode.h"
#include "model/jobs/job_store.h"
#include "output/exporter.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

const std::vector<std::string> names{
    "two  words .jpg",
    "Zo\u00eb M\u00fcller.jpg",
    "Zoe\u0308 Mu\u0308ller.jpg",  // the same letters, composed otherwise
    "\u5c71\u7530 \u82b1\u5b50.jpg",
    "\U0001F467\U0001F3FD.jpg",
    std::string(251, 'x') + ".jpg",
    "line\nbreak.jpg",
    "quote\"percent%20.jpg",
    "-rf.jpg",
    "caf\xe9.jpg",  // not UTF-8, as old cards and archives have it
    "caf\xe8.jpg",
};

class OddNames : public testing::Test {
protected:
    OddNames() {
        fs::create_directories(source);
        int size = 60;
        for (const std::string& name : names) writePhoto(source / name, size += 2, 80);
        fs::create_directory_symlink("..", source / "loop");
        fs::create_symlink("itself.jpg", source / "itself.jpg");
        fs::create_symlink("nowhere.jpg", source / "dangling.jpg");
    }
    /// The width by which a photo is known.
    static int widthOf(const fs::path& file) {
        const auto photo = PhotoDecode::open(file, 1000);
        return photo ? photo->sourceWidth() : 0;
    }
    std::vector<fs::path> listed() const { return *ImageLoader::listImages(source); }

    TemporaryFolder folder;
    const fs::path source = folder.path() / "class \xff";
    CallbackLoop loop;
};

TEST_F(OddNames, areListedOnceEach) {
    std::set<fs::path> found;
    for (const fs::path& file : listed()) EXPECT_TRUE(found.insert(file).second) << file;
    std::set<fs::path> expected;
    for (const std::string& name : names) expected.insert(source / name);
    EXPECT_EQ(found, expected);
}

TEST_F(OddNames, areReadCachedAndKeptInJobs) {
    const AnalysisCache cache(folder.path());
    Job job;
    job.folderURL = source;
    job.presetID = Uuid::random();
    for (int time = 0; time < 2; ++time) {
        job.items.clear();
        bool ended = false;
        BatchRunner runner(2, loop.queue());
        runner.analyze(
            listed(), cache, true,
            [](const fs::path& file, const std::stop_token&) {
                ImageAnalysis analysis;
                analysis.sourceWidth = widthOf(file);
                // Such a sentence lands in the job and must not keep it from being saved.
                analysis.error = "Could not read " + file.filename().string() + ".";
                return analysis;
            },
            [&](BatchRunner::Analyzed photo) {
                EXPECT_EQ(photo.fromCache, time == 1) << photo.file;
                EXPECT_EQ(photo.analysis.sourceWidth, widthOf(photo.file)) << photo.file;
                EXPECT_GT(photo.analysis.sourceWidth, 0) << photo.file;
                ImageItem item;
                item.id = std::to_string(job.items.size());
                item.url = photo.file;
                item.relativePath = photo.file.lexically_relative(source);
                item.analysis = std::move(photo.analysis);
                job.items.push_back(std::move(item));
            },
            [&](int count, bool) {
                EXPECT_EQ(count, names.size());
                ended = true;
            });
        ASSERT_TRUE(runUntil(loop, [&] { return ended; }));
    }
    const JobStore store(folder.path());
    ASSERT_TRUE(store.saveNow(job));
    const auto loaded = store.loadAll();
    for (const Failure& problem : loaded.problems) ADD_FAILURE() << problem.message;
    ASSERT_EQ(loaded.jobs.size(), 1);
    EXPECT_EQ(loaded.jobs.front().folderURL, source);
    ASSERT_EQ(loaded.jobs.front().items.size(), job.items.size());
    for (std::size_t i = 0; i < job.items.size(); ++i) {
        EXPECT_EQ(loaded.jobs.front().items[i].url, job.items[i].url);
        EXPECT_EQ(loaded.jobs.front().items[i].relativePath, job.items[i].relativePath);
        EXPECT_EQ(loaded.jobs.front().items[i].analysis->sourceWidth,
                  job.items[i].analysis->sourceWidth);
    }
}

TEST_F(OddNames, haveThumbnails) {
    ThumbnailStore store(folder.path(), loop.queue());
    std::size_t shown = 0;
    std::size_t told = 0;
    for (const fs::path& file : listed()) {
        store.request({.url = file, .height = 80}, [&, file](const QImage& image) {
            ++told;
            shown += image.width() == widthOf(file);
        });
    }
    ASSERT_TRUE(runUntil(loop, [&] { return told == names.size(); }));
    EXPECT_EQ(shown, names.size());
}

TEST_F(OddNames, areKeptByTheirCrops) {
    const fs::path out = folder.path() / "out \xfe";
    const auto destinations = Exporter::destinationURLs(listed(), source, out);
    for (int time = 0; time < 2; ++time) {  // new, then in place of what is there
        for (const auto& [file, destination] : destinations) {
            Exporter::Request request;
            request.sourceURL = file;
            request.destinationURL = destination;
            request.rect = {0, 0, 40.0 + time, 40.0 + time};
            request.settings.pixelWidth = request.settings.pixelHeight = 40 + time;
            const auto done = Exporter::exportPhoto(request);
            EXPECT_TRUE(done) << file << ": " << (done ? "" : done.error().message());
            EXPECT_EQ(widthOf(destination), 40 + time) << destination;
        }
        const auto count = std::distance(fs::directory_iterator(out), fs::directory_iterator());
        EXPECT_EQ(count, names.size() + 1) << "and the mark of an export";
    }
}

}  // namespace
}  // namespace morva
