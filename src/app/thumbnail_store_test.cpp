// SPDX-License-Identifier: GPL-3.0-or-later
#include <atomic>
#include <cmath>
#include <fstream>
#include <latch>
#include <set>
#include <thread>

#include <gmock/gmock.h>

#include "app/app_test_support.h"
#include "app/preview_files.h"
#include "app/shared_work.h"
#include "app/thumbnail_store.h"

namespace morva {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

class WorkForMany : public testing::Test {
protected:
    /// What is made only counts how often that happened.
    SharedWork<int>::Make counting() {
        return [this] {
            started.count_down();
            goOn.wait();
            return std::optional(++made);
        };
    }
    SharedWork<int>::Completion telling(std::vector<int>& told) {
        return [this, &told](const std::optional<int>& value) {
            EXPECT_EQ(std::this_thread::get_id(), caller);
            told.push_back(value.value_or(-1));
        };
    }
    void settle() {
        while (loop.runNext(100ms)) {
        }
    }

    CallbackLoop loop;
    const std::thread::id caller = std::this_thread::get_id();
    std::atomic<int> made = 0;
    std::latch started{1};
    std::latch goOn{1};
    SharedWork<int> work{1, 3, loop.queue()};
};

TEST_F(WorkForMany, makesOneValueForEqualRequests) {
    std::vector<int> told;
    for (int i = 0; i < 3; ++i) EXPECT_NE(work.request("a", counting(), telling(told)), 0);
    goOn.count_down();
    settle();
    EXPECT_THAT(told, testing::ElementsAre(1, 1, 1));
    EXPECT_EQ(work.request("a", counting(), telling(told)), 0);
    EXPECT_THAT(told, testing::ElementsAre(1, 1, 1, 1)) << "remembered, so at once";
    EXPECT_EQ(work.cached("a"), 1);
    EXPECT_EQ(work.cached("b"), std::nullopt);
}

TEST_F(WorkForMany, forgetsTheLongestUnusedBeyondItsLimit) {
    goOn.count_down();
    std::vector<int> told;
    for (const char* key : {"a", "b", "c"}) work.request(key, counting(), telling(told));
    settle();
    EXPECT_TRUE(work.cached("a"));
    work.request("d", counting(), telling(told));
    settle();
    EXPECT_TRUE(work.cached("a") && work.cached("c") && work.cached("d"));
    EXPECT_FALSE(work.cached("b"));
}

TEST_F(WorkForMany, forgetsEarlierWhatWeighsMore) {
    goOn.count_down();
    work.limitWeight(90, [](int value) { return value == 3 ? 60 : 10; });
    std::vector<int> told;
    const auto knows = [&](const char* key) { return work.cached(key).has_value(); };
    for (const char* key : {"a", "b", "c"}) {
        work.request(key, counting(), telling(told));
        settle();
    }
    EXPECT_TRUE(knows("b") && knows("c") && !knows("a")) << "30 at least, so that three are most";
    work.request("d", counting(), telling(told));
    settle();
    EXPECT_TRUE(knows("d") && knows("c") && !knows("b"));
}

TEST_F(WorkForMany, triesAgainWhatCouldNotBeMade) {
    std::vector<int> told;
    work.request(
        "a", [] { return std::optional<int>(); }, telling(told));
    settle();
    work.request(
        "a", []() -> std::optional<int> { throw std::bad_alloc(); }, telling(told));
    settle();
    goOn.count_down();
    work.request("a", counting(), telling(told));
    settle();
    EXPECT_THAT(told, testing::ElementsAre(-1, -1, 1));
}

TEST_F(WorkForMany, dropsWhatNobodyWaitsForAnyMore) {
    std::vector<int> told;
    std::vector<int> dropped;
    const auto running = work.request("running", counting(), telling(dropped));
    started.wait();
    const auto queued = work.request("queued", counting(), telling(dropped));
    const auto shared = work.request("shared", counting(), telling(dropped));
    work.request("shared", counting(), telling(told));
    const auto back = work.request("back", counting(), telling(dropped));
    for (const auto ticket : {running, queued, shared, back}) work.cancel(ticket);
    work.request("back", counting(), telling(told));
    goOn.count_down();
    settle();
    EXPECT_THAT(dropped, testing::IsEmpty());
    EXPECT_THAT(told, testing::ElementsAre(2, 3));
    EXPECT_TRUE(work.cached("running")) << "it was made, so it is kept";
    EXPECT_FALSE(work.cached("queued"));
}

TEST_F(WorkForMany, canBeCancelledWhileTheAnswerIsOnItsWay) {
    goOn.count_down();
    std::vector<int> told;
    const auto ticket = work.request("a", counting(), telling(told));
    while (!work.cached("a")) std::this_thread::sleep_for(1ms);
    work.cancel(ticket);
    settle();
    EXPECT_THAT(told, testing::IsEmpty());
}

class Thumbnails : public testing::Test {
protected:
    QImage wait(const ThumbnailStore::Request& request) { return wait(store, request); }
    QImage wait(ThumbnailStore& from, const ThumbnailStore::Request& request) {
        std::optional<QImage> image;
        from.request(request, [&](const QImage& made) { image = made; });
        EXPECT_TRUE(runUntil(loop, [&] { return image.has_value(); }));
        return image.value_or(QImage());
    }
    std::vector<fs::path> onDisk() const {
        std::vector<fs::path> files;
        if (!fs::exists(store.directory())) return files;
        for (const auto& entry : fs::directory_iterator(store.directory()))
            files.push_back(entry.path());
        return files;
    }

    TemporaryFolder folder;
    const fs::path photo = folder.path() / "photo.png";
    CallbackLoop loop;
    ThumbnailStore store{folder.path(), loop.queue()};
};

int grey(const QImage& image, double x, double y) {
    return qGreen(
        image.pixel(static_cast<int>(x * image.width()), static_cast<int>(y * image.height())));
}

TEST_F(Thumbnails, differInTheirKeysWhereverTheRequestsDiffer) {
    using Request = ThumbnailStore::Request;
    std::vector<Request> requests(9, Request{.url = "/a.jpg", .rect = Rect{1, 2, 3, 4}});
    requests[1].url = "/a\xff.jpg";
    requests[2].rect.reset();
    requests[3].rect->x = 1 + 1e-12;
    requests[4].rotation = 0.1;
    requests[5].height = 720;
    requests[6].fill = {0.5, 0.5, 0.5};
    requests[7].stamp = FileSignature{1, 2};
    requests[8].stamp = FileSignature{12, 0};
    std::set<std::string> keys;
    for (const Request& request : requests) keys.insert(ThumbnailStore::key(request));
    EXPECT_EQ(keys.size(), requests.size());
    EXPECT_EQ(ThumbnailStore::key(requests[3]), ThumbnailStore::key(Request(requests[3])));
}

TEST_F(Thumbnails, showTheCropWithFillOutsideThePhoto) {
    writePhoto(photo, 800, 600);
    const QImage whole = wait({.url = photo});
    EXPECT_EQ(whole.size(), QSize(480, 360));
    EXPECT_NEAR(grey(whole, 0.25, 0.5), 40, 2);
    EXPECT_NEAR(grey(whole, 0.75, 0.5), 200, 2);

    // From the middle of the photo to as far beyond its right side.
    const QImage beyond = wait({.url = photo, .rect = Rect{400, 0, 800, 600}, .fill = {0, 1, 0}});
    EXPECT_NEAR(grey(beyond, 0.25, 0.5), 200, 2);
    EXPECT_EQ(qRed(beyond.pixel(beyond.width() - 20, 100)), 0);
    EXPECT_NEAR(grey(beyond, 0.9, 0.5), 255, 2);

    // A quarter turn clockwise brings the dark left half up.
    const QImage turned = wait({.url = photo, .rect = Rect{300, 200, 200, 200}, .rotation = 90});
    EXPECT_EQ(std::abs(grey(turned, 0.5, 0.1) - grey(turned, 0.5, 0.9)) > 150, true);
    EXPECT_NEAR(grey(turned, 0.1, 0.1), grey(turned, 0.9, 0.1), 2);
}

TEST_F(Thumbnails, areSharpForASmallCropOfALargePhoto) {
    writePhoto(photo, 3000, 2000);
    const QImage edge = wait({.url = photo, .rect = Rect{1450, 950, 100, 180}});
    int soft = 0;
    for (int x = 0; x < edge.width(); ++x) {
        const int value = qGreen(edge.pixel(x, 180));
        soft += value > 60 && value < 180;
    }
    EXPECT_LE(soft, 5) << "pixels across the edge between the halves";
}

TEST_F(Thumbnails, comeBackFromDiskUntilThePhotoChanges) {
    writePhoto(photo, 400, 300);
    const ThumbnailStore::Request request{.url = photo, .rect = Rect{0, 0, 200, 300}};
    wait(request);
    ASSERT_EQ(onDisk().size(), 1);
    const fs::path kept = onDisk().front();
    const auto written = fs::last_write_time(kept);
    {
        ThumbnailStore later(folder.path(), loop.queue());
        EXPECT_NEAR(grey(wait(later, request), 0.5, 0.5), 40, 2);
        EXPECT_EQ(fs::last_write_time(kept), written) << "read, not made again";
    }
    writePhoto(photo, 400, 300, 120, 121);
    ThumbnailStore later(folder.path(), loop.queue());
    EXPECT_NEAR(grey(wait(later, request), 0.5, 0.5), 120, 2);

    ThumbnailStore::Request known = request;
    known.stamp = ImageLoader::fileSignature(photo);
    EXPECT_NEAR(grey(wait(known), 0.5, 0.5), 120, 2) << "the old one is still in memory";
}

TEST_F(Thumbnails, areMadeAnewFromBrokenFiles) {
    writePhoto(photo, 400, 300);
    const ThumbnailStore::Request request{.url = photo};
    wait(request);
    const fs::path kept = onDisk().front();
    const std::string whole = *readFile(kept);
    for (const std::string& broken :
         {std::string(), std::string("no picture"), whole.substr(0, whole.size() / 2)}) {
        std::ofstream(kept) << broken;
        ThumbnailStore later(folder.path(), loop.queue());
        EXPECT_EQ(wait(later, request).size(), QSize(480, 360));
        EXPECT_EQ(readFile(kept), whole);
    }
}

TEST_F(Thumbnails, areNullForWhatCannotBeShown) {
    EXPECT_TRUE(wait({.url = folder.path() / "gone.jpg"}).isNull());
    std::ofstream(photo) << "no photo";
    EXPECT_TRUE(wait({.url = photo}).isNull());
    writePhoto(photo, 40, 30);
    EXPECT_TRUE(wait({.url = photo, .rect = Rect{5, 5, 0, 10}}).isNull());
    EXPECT_TRUE(store.cached(ThumbnailStore::key({.url = photo})).isNull());
    EXPECT_TRUE(onDisk().empty());
    // A thing of that name stands in the way of the folder.
    std::ofstream(store.directory()) << "";
    EXPECT_FALSE(wait({.url = photo}).isNull()) << "shown, though it cannot be kept";
}

TEST_F(Thumbnails, areRemovedFromDiskOnRequest) {
    writePhoto(photo, 40, 30);
    wait({.url = photo});
    ASSERT_TRUE(store.clearDisk());
    EXPECT_TRUE(onDisk().empty());
    EXPECT_TRUE(fs::is_directory(store.directory()));
}

TEST_F(Thumbnails, thatAreOldestMakeRoomOnDisk) {
    fs::create_directories(store.directory());
    constexpr int count = 10;
    for (int i = 0; i < count; ++i) {
        const fs::path file = store.directory() / (std::to_string(i) + ".jpg");
        std::ofstream(file) << std::string(100, 'x');
        fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(count - i));
    }
    PreviewFiles::prune(store.directory(), 1000, {});
    EXPECT_EQ(onDisk().size(), 10U);
    PreviewFiles::prune(store.directory(), 900, {});
    EXPECT_EQ(onDisk().size(), 7U);
    EXPECT_FALSE(fs::exists(store.directory() / "2.jpg"));
    EXPECT_TRUE(fs::exists(store.directory() / "3.jpg"));
}

TEST_F(Thumbnails, openOneLargePictureForTheInspector) {
    writePhoto(photo, 4096, 1000);
    std::shared_ptr<const ThumbnailStore::InspectorImage> image;
    int told = 0;
    const auto take = [&](const auto& made) { image = made, ++told; };
    store.inspectorImage(photo, {}, take);
    const auto dropped = store.inspectorImage(photo, {}, take);
    store.cancelInspector(dropped);
    ASSERT_TRUE(runUntil(loop, [&] { return told > 0; }));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->value.sourceSize, (Size{4096, 1000}));
    EXPECT_EQ(image->image.size(), QSize(2048, 500));
    EXPECT_NEAR(grey(image->image, 0.9, 0.5), 200, 1);
    EXPECT_EQ(image->value.image.width(), 2048);
    EXPECT_EQ(store.inspectorImage(photo, {}, take), 0);
    store.inspectorImage(folder.path() / "gone.jpg", {}, take);
    ASSERT_TRUE(runUntil(loop, [&] { return told > 2; }));
    EXPECT_FALSE(image);
}

}  // namespace
}  // namespace morva
