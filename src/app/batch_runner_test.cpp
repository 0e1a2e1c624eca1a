// SPDX-License-Identifier: GPL-3.0-or-later
#include <atomic>
#include <fstream>
#include <latch>
#include <map>
#include <set>
#include <thread>

#include <gmock/gmock.h>

#include "app/app_test_support.h"
#include "app/batch_runner.h"

namespace morva {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

TEST(BatchWidth, isHalfTheCoresFromTwoToSix) {
    const std::map<int, int> widths{{1, 2}, {2, 2}, {5, 2}, {6, 3}, {12, 6}, {32, 6}};
    for (const auto& [cores, width] : widths)
        EXPECT_EQ(BatchRunner::defaultConcurrency(cores), width) << cores << " cores";
}

ImageAnalysis measured(const fs::path& file, const std::stop_token& = {}) {
    ImageAnalysis analysis;
    analysis.sourceWidth = static_cast<int>(fs::file_size(file));
    return analysis;
}

class Batch : public testing::Test {
protected:
    fs::path add(const std::string& name, const std::string& content = "photo") {
        std::ofstream(folder.path() / name) << content;
        return folder.path() / name;
    }
    std::vector<fs::path> addMany(int count) {
        std::vector<fs::path> files;
        for (int i = 0; i < count; ++i) files.push_back(add(std::to_string(i) + ".jpg"));
        return files;
    }

    void start(BatchRunner& runner, const std::vector<fs::path>& files,
               BatchRunner::Analyze analyze = measured, bool useCache = true) {
        results.clear();
        ends.clear();
        runner.analyze(
            files, AnalysisCache(folder.path()), useCache, std::move(analyze),
            [this](BatchRunner::Analyzed photo) {
                EXPECT_EQ(std::this_thread::get_id(), caller);
                EXPECT_TRUE(ends.empty()) << "a result after the end";
                results.push_back(std::move(photo));
            },
            [this](int count, bool cancelled) {
                EXPECT_EQ(std::this_thread::get_id(), caller);
                ends.emplace_back(count, cancelled);
            });
    }
    /// Until its end, and a little longer in case that it came twice.
    void finish() {
        ASSERT_TRUE(runUntil(loop, [&] { return !ends.empty(); }));
        while (loop.runNext(5ms)) {
        }
        EXPECT_EQ(ends.size(), 1);
    }
    void run(const std::vector<fs::path>& files, BatchRunner::Analyze analyze = measured,
             bool useCache = true) {
        BatchRunner runner(2, loop.queue());
        start(runner, files, std::move(analyze), useCache);
        finish();
        EXPECT_FALSE(runner.isRunning());
    }

    TemporaryFolder folder;
    CallbackLoop loop;
    const std::thread::id caller = std::this_thread::get_id();
    std::vector<BatchRunner::Analyzed> results;
    std::vector<std::pair<int, bool>> ends;
};

TEST_F(Batch, analysesEachPhotoOnceAndTakesItFromTheCacheNextTime) {
    const auto files = addMany(40);
    run(files);
    std::set<fs::path> seen;
    for (const auto& photo : results) {
        EXPECT_FALSE(photo.fromCache);
        EXPECT_EQ(photo.stamp, ImageLoader::fileSignature(photo.file));
        seen.insert(photo.file);
    }
    EXPECT_EQ(seen, std::set<fs::path>(files.begin(), files.end()));
    EXPECT_EQ(results.size(), files.size());
    EXPECT_EQ(ends.front(), std::pair(40, false));

    add("7.jpg", "another photo of that name");
    run(files);
    for (const auto& photo : results) {
        EXPECT_EQ(photo.fromCache, photo.file.filename() != "7.jpg") << photo.file;
        EXPECT_EQ(photo.analysis.sourceWidth, fs::file_size(photo.file));
    }

    run(files, measured, false);
    EXPECT_TRUE(std::ranges::none_of(results, &BatchRunner::Analyzed::fromCache));

    run({});
    EXPECT_EQ(ends.front(), std::pair(0, false));
}

TEST_F(Batch, handsOverPhotosThatCannotBeAnalysedAndTriesThemAgain) {
    const auto analyze = [](const fs::path& file, const std::stop_token&) {
        if (file.filename() == "heavy.jpg") throw std::bad_alloc();
        ImageAnalysis analysis;
        analysis.detectionFailed = true;
        analysis.error = "Could not read this image.";
        return analysis;
    };
    const std::vector<fs::path> files{add("heavy.jpg"), add("broken.jpg"),
                                      folder.path() / "gone.jpg"};
    for (int time = 0; time < 2; ++time) {
        run(files, analyze);
        ASSERT_EQ(results.size(), files.size());
        for (const auto& photo : results) {
            EXPECT_TRUE(photo.analysis.detectionFailed && photo.analysis.error) << photo.file;
            EXPECT_FALSE(photo.fromCache) << photo.file;
            EXPECT_EQ(photo.stamp.has_value(), fs::exists(photo.file)) << photo.file;
        }
    }
}

TEST_F(Batch, keepsNoMeasurementsOfAPhotoThatChangesMeanwhile) {
    const auto changing = [&](const fs::path& file, const std::stop_token&) {
        ImageAnalysis old = measured(file);
        add(file.filename(), "longer than before");
        return old;
    };
    const auto file = add("a.jpg");
    run({file}, changing);
    EXPECT_NE(results.front().stamp, ImageLoader::fileSignature(file));
    run({file});
    EXPECT_FALSE(results.front().fromCache);
}

TEST_F(Batch, runsAsManyAtOnceAsAskedAndNoMore) {
    std::atomic<int> running = 0;
    std::atomic<int> most = 0;
    std::atomic<int> begun = 0;
    std::latch three(3);
    BatchRunner runner(3, loop.queue());
    start(runner, addMany(12), [&](const fs::path& file, const std::stop_token&) {
        const int now = ++running;
        for (int seen = most; now > seen && !most.compare_exchange_weak(seen, now);) {
        }
        if (++begun <= 3) three.arrive_and_wait();
        --running;
        return measured(file);
    });
    finish();
    EXPECT_EQ(most, 3);
}

TEST_F(Batch, endsAtOnceWhenCancelledAndGivesUpWhatIsInHand) {
    const auto files = addMany(1000);
    std::atomic<int> begun = 0;
    std::latch both(3);
    std::latch goOn(1);
    auto runner = std::make_unique<BatchRunner>(2, loop.queue());
    start(*runner, files,
          [&](const fs::path& file, const std::stop_token& stop) -> std::optional<ImageAnalysis> {
              const int number = ++begun;
              both.count_down();
              goOn.wait();
              EXPECT_TRUE(stop.stop_requested());
              // One is given up, one was complete already.
              return number == 1 ? std::nullopt : std::optional(measured(file));
          });
    both.arrive_and_wait();
    EXPECT_TRUE(runner->isRunning());
    runner->cancel();
    finish();
    EXPECT_EQ(ends.front(), std::pair(0, true));
    EXPECT_TRUE(runner->isRunning());
    goOn.count_down();
    runner.reset();
    while (loop.runNext(5ms)) {
    }
    EXPECT_EQ(begun, 2);
    EXPECT_EQ(ends.size(), 1U);
    EXPECT_TRUE(results.empty());
    run({files[0], files[1]});
    EXPECT_EQ(std::ranges::count_if(results, &BatchRunner::Analyzed::fromCache), 1);
}

TEST_F(Batch, callsNobodyAfterItsEnd) {
    auto runner = std::make_unique<BatchRunner>(2, loop.queue());
    start(*runner, addMany(100));
    ASSERT_TRUE(runUntil(loop, [&] { return !results.empty(); }));
    runner.reset();
    const std::size_t before = results.size();
    while (loop.runNext(5ms)) {
    }
    EXPECT_EQ(results.size(), before);
    EXPECT_TRUE(ends.empty());
}

}  // namespace
}  // namespace morva
