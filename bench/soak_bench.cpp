// SPDX-License-Identifier: GPL-3.0-or-later
// One process that measures and crops thousands of photos the way the command line does: whether
// its memory grows, whether its files stay open, and whether it measures the first photos the same
// at the end. 300 photos, or as many as $MORVA_SOAK_PHOTOS says; ends with 1 where a bar is broken.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "analysis/image_loader.h"
#include "base/uuid.h"
#include "cli/analyzed_photo.h"
#include "cli/crop_batch.h"
#include "cli/ordered_workers.h"
#include "demo_photos.h"
#include "output/matte_cutter.h"
#include "process_usage.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

/// Until then the models, the caches of the libraries and each worker's buffers fill up.
constexpr std::size_t settled = 200;
/// Fewer photos behind that point say nothing about a slope.
constexpr std::size_t enoughForASlope = 1000;
constexpr double mostBytesAPhoto = 1024;
constexpr std::size_t measuredTwice = 50;
constexpr int workers = 2;
/// Photos of 819 x 1024 pixels.
constexpr int enlargement = 2;

struct Sample {
    std::size_t photos = 0;
    double residentBytes = 0;
    std::ptrdiff_t openFiles = 0;

    static Sample taken(std::size_t photos) {
        return {photos, morva::residentBytes(),
                std::distance(fs::directory_iterator("/proc/self/fd"), {})};
    }
};

/// Bytes a photo, by least squares.
double slope(std::span<const Sample> samples) {
    double meanPhotos = 0;
    double meanBytes = 0;
    for (const Sample& sample : samples) {
        meanPhotos += static_cast<double>(sample.photos) / static_cast<double>(samples.size());
        meanBytes += sample.residentBytes / static_cast<double>(samples.size());
    }
    double together = 0;
    double squares = 0;
    for (const Sample& sample : samples) {
        const double photos = static_cast<double>(sample.photos) - meanPhotos;
        together += photos * (sample.residentBytes - meanBytes);
        squares += photos * photos;
    }
    return squares > 0 ? together / squares : 0;
}

/// Drawn by another process, so that what drawing needs is not counted here.
bool drawn(const fs::path& sample, const fs::path& folder, int count) {
    const pid_t child = fork();
    if (child == 0) {
        try {
            DemoPhotos::write(sample, folder, count, enlargement);
        } catch (const std::exception& error) {
            std::fprintf(stderr, "soak_bench: %s\n", error.what());
            std::_Exit(1);
        }
        std::_Exit(0);
    }
    int status = 1;
    waitpid(child, &status, 0);
    return status == 0;
}

/// What a crop run holds; each photo is planned alone, for those of a shoot need all in memory.
class Soak {
public:
    Soak(std::vector<fs::path> photos, const fs::path& out, PresetSelection selection,
         VisionServices vision)
        : selection_(std::move(selection)), vision_(std::move(vision)) {
        batch_.photos = std::move(photos);
        batch_.force = true;  // some of the varied portraits lack canvas
        for (const fs::path& photo : batch_.photos)
            batch_.destinations[photo] = out / photo.filename();
        batch_.cutterFor = [this](const fs::path& photo, const ImageAnalysis& analysis) {
            return std::make_unique<MatteCutter>(photo, analysis.faces, vision_);
        };
    }

    ImageAnalysis measured(std::size_t index) const {
        ImageAnalysis record = AnalyzedPhoto::of(batch_.photos[index], vision_).analysis;
        record.analysisSeconds = 0;
        return record;
    }

    /// The crop is written and taken away again.
    ImageAnalysis measuredAndCropped(std::size_t index) {
        ImageAnalysis record = measured(index);
        const std::array<const ImageAnalysis*, 1> alone{&record};
        const std::array<std::string, 1> camera{};
        const PhotoPlan plan = selection_.plan(alone, camera).front();
        const PhotoOutcome outcome = batch_.crop(index, record, plan);
        if (outcome.fate != Fate::write) {
            ++withoutCrop_;
            return record;
        }
        std::error_code error;
        if (!fs::remove(*outcome.output, error)) ++withoutCrop_;
        return record;
    }

    std::size_t count() const { return batch_.photos.size(); }
    int withoutCrop() const { return withoutCrop_; }

private:
    CropBatch batch_;
    PresetSelection selection_;
    VisionServices vision_;
    std::atomic<int> withoutCrop_{0};
};

void print(std::span<const Sample> samples) {
    const Sample& last = samples.back();
    std::printf("%6zu photos: %7.1f MB resident, %+.0f bytes a photo so far, %td files open\n",
                last.photos, last.residentBytes / 1e6, slope(samples), last.openFiles);
    std::fflush(stdout);
}

/// Whether all bars hold.
bool soaked(Soak& soak) {
    constexpr std::size_t sampleEvery = 10;
    constexpr std::size_t printEvery = 250;
    const std::atomic<bool> never{false};
    std::vector<ImageAnalysis> first;
    first.reserve(measuredTwice);
    std::vector<Sample> samples;
    samples.reserve(soak.count() / sampleEvery + 1);
    const auto start = std::chrono::steady_clock::now();
    inOrder(
        soak.count(), workers, never, [&](std::size_t i) { return soak.measuredAndCropped(i); },
        [&](std::size_t i, ImageAnalysis record) {
            if (i < measuredTwice) first.push_back(std::move(record));
            if ((i + 1) % sampleEvery == 0 && i + 1 > settled)
                samples.push_back(Sample::taken(i + 1));
            if ((i + 1) % printEvery == 0 && !samples.empty()) print(samples);
        },
        [](std::size_t) {});
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;

    std::size_t alike = 0;
    for (std::size_t i = 0; i < first.size(); ++i) alike += soak.measured(i) == first[i] ? 1 : 0;
    const double growth = slope(samples);
    const auto [fewest, most] = std::ranges::minmax(samples, {}, &Sample::openFiles);
    std::printf("%zu photos in %.0f s, %d without a crop\n", soak.count(), taken.count(),
                soak.withoutCrop());
    std::printf("memory: %+.0f bytes a photo (at most %.0f, said of %zu photos and more)\n", growth,
                mostBytesAPhoto, enoughForASlope);
    std::printf("open files: %td to %td\n", fewest.openFiles, most.openFiles);
    std::printf("measured the same at the end: %zu of %zu\n", alike, first.size());
    // Each worker may have a photo and a crop open while a sample is taken.
    const bool areClosed =
        samples.back().openFiles <= samples.front().openFiles + std::ptrdiff_t{2} * workers;
    return alike == first.size() && areClosed && soak.withoutCrop() == 0 &&
           (soak.count() < enoughForASlope || growth < mostBytesAPhoto);
}

/// Like `main`.
int run(const fs::path& folder, const fs::path& sample, int count) {
    if (!drawn(sample, folder / "photos", count)) return 1;
    fs::create_directories(folder / "out");
    const auto photos = ImageLoader::listImages(folder / "photos");
    auto selection = PresetSelection::open({}, folder);
    auto vision = VisionServices::open(VisionServices::modelFolder(), folder / "cache");
    if (!photos || !selection || !vision) {
        std::fprintf(stderr, "soak_bench: no photos, presets or models\n");
        return 1;
    }
    Soak soak(*photos, folder / "out", std::move(*selection), std::move(*vision));
    return soaked(soak) ? 0 : 1;
}

}  // namespace
}  // namespace morva

int main() {
    using namespace morva;
    const char* sample = std::getenv("MORVA_SAMPLE");
    if (sample == nullptr) {
        std::printf("soak_bench: skipped, MORVA_SAMPLE names no portrait\n");
        return 0;
    }
    const char* wanted = std::getenv("MORVA_SOAK_PHOTOS");
    const int count = wanted == nullptr ? 300 : std::atoi(wanted);
    if (count <= static_cast<int>(settled) + 10) {
        std::fprintf(stderr, "soak_bench: MORVA_SOAK_PHOTOS is too small\n");
        return 1;
    }
    const fs::path folder = fs::temp_directory_path() / ("morva-soak-" + Uuid::random().text());
    const int code = run(folder, sample, count);
    std::error_code none;
    fs::remove_all(folder, none);
    return code;
}
