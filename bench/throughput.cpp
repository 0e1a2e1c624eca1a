// SPDX-License-Identifier: GPL-3.0-or-later
// Photos a second, measured and then exported the way the command line does, on one worker up to as
// many as there are cores: at least 200 photos of 0.3 to 33 megapixels. Where other programs keep
// the machine busy, the processor time says more than the rate. $MORVA_THROUGHPUT_PHOTOS: how many.
#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "analysis/image_loader.h"
#include "base/uuid.h"
#include "cli/analyzed_photo.h"
#include "cli/crop_batch.h"
#include "cli/ordered_workers.h"
#include "photographs.h"
#include "process_usage.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t fewestPhotos = 200;

/// What a stage needed.
struct Stage {
    double photosASecond = 0;
    double processorSecondsAPhoto = 0;
    double megabytes = 0;

    void print(const char* what, int workers, const Stage& alone) const {
        std::printf(
            "%-8s %d workers: %6.2f photos/s, %.2f of one, %.3f s of processor a photo, "
            "at most %.0f MB resident\n",
            what, workers, photosASecond, photosASecond / alone.photosASecond,
            processorSecondsAPhoto, megabytes);
        std::fflush(stdout);
    }
};

template <class Work, class Deliver>
Stage timed(std::size_t count, int workers, Work work, Deliver deliver) {
    const std::atomic<bool> never{false};
    Stage stage;
    const double processor = processorSeconds();
    const auto start = std::chrono::steady_clock::now();
    inOrder(count, workers, never, work, deliver, [&](std::size_t) {
        stage.megabytes = std::max(stage.megabytes, residentBytes() / 1e6);
    });
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    stage.photosASecond = static_cast<double>(count) / taken.count();
    stage.processorSecondsAPhoto = (processorSeconds() - processor) / static_cast<double>(count);
    return stage;
}

/// The portraits, over and over.
std::vector<fs::path> mixed(const fs::path& data, std::size_t count) {
    const auto portraits = ImageLoader::listImages(data / "portraits");
    std::vector<fs::path> photos;
    while (portraits && !portraits->empty() && photos.size() < count)
        photos.push_back((*portraits)[photos.size() % portraits->size()]);
    return photos;
}

int run(const std::vector<fs::path>& photos, const fs::path& folder) {
    auto selection = PresetSelection::open({}, folder);
    auto vision = VisionServices::open(VisionServices::modelFolder(), folder / "cache");
    if (photos.empty() || !selection || !vision) {
        std::fprintf(stderr, "throughput: no photos, presets or models\n");
        return 1;
    }
    std::vector<AnalyzedPhoto> records(photos.size());
    Stage alone;
    const int cores = static_cast<int>(std::thread::hardware_concurrency());
    for (int workers = 1; workers <= cores; workers *= 2) {
        const Stage measuring = timed(
            photos.size(), workers,
            [&](std::size_t i) { return AnalyzedPhoto::of(photos[i], *vision); },
            [&](std::size_t i, AnalyzedPhoto record) { records[i] = std::move(record); });
        if (workers == 1) alone = measuring;
        measuring.print("analyse", workers, alone);
    }

    CropBatch batch{
        .photos = photos, .force = true, .destinations = {}, .overlays = {}, .cutterFor = {}};
    // A photo that comes again is written over.
    for (const fs::path& photo : photos)
        batch.destinations[photo] = folder / "out" / (photo.stem().string() + ".jpg");
    const auto crop = [&](std::size_t i) {
        const std::array<const ImageAnalysis*, 1> one{&records[i].analysis};
        const std::array<std::string, 1> camera{records[i].camera};
        return batch.crop(i, records[i].analysis, selection->plan(one, camera).front());
    };
    for (int workers = 1; workers <= cores; workers *= 2) {
        std::size_t written = 0;
        const Stage exporting =
            timed(photos.size(), workers, crop, [&](std::size_t, const PhotoOutcome& outcome) {
                written += outcome.fate == Fate::write ? 1 : 0;
            });
        if (workers == 1) alone = exporting;
        exporting.print("export", workers, alone);
        if (workers == 1) std::printf("%zu of %zu photos have a crop\n", written, photos.size());
    }
    return 0;
}

}  // namespace
}  // namespace morva

int main() {
    using namespace morva;
    const auto data = testPhotographs("throughput");
    if (!data) return 0;
    const char* wanted = std::getenv("MORVA_THROUGHPUT_PHOTOS");
    const std::size_t count = wanted == nullptr ? fewestPhotos : std::strtoul(wanted, nullptr, 10);
    const fs::path folder =
        fs::temp_directory_path() / ("morva-throughput-" + Uuid::random().text());
    fs::create_directories(folder / "out");
    const int code = run(mixed(*data, count), folder);
    fs::remove_all(folder);
    return code;
}
