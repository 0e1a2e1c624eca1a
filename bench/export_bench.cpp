// SPDX-License-Identifier: GPL-3.0-or-later
// Exports a print-sized crop of three photos of 20 to 33 megapixels, by turns with the exporter
// and with the image library alone (read in sequence, cut, resize, save with the same quality), one
// thread each, and prints the medians, their ratios and the exporter's peak memory. Then the same
// with the backdrop replaced, against repeated edges.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <vips/vips.h>
#include <opencv2/core.hpp>

#include "analysis/analysis_pipeline.h"
#include "base/files.h"
#include "imaging/decode.h"
#include "imaging/encode.h"
#include "output/exporter.h"
#include "output/matte_cutter.h"
#include "photographs.h"

namespace {

using namespace morva;  // NOLINT: a program of one file

constexpr int rounds = 9;

/// Onto a backdrop photograph, or a generated one.
ExportSettings replacing(std::optional<std::filesystem::path> plate = {}) {
    ExportSettings settings;
    settings.backdrop = BackdropMode::replace;
    settings.plateURL = std::move(plate);
    return settings;
}

ExportSettings repeating() {
    ExportSettings settings;
    settings.backdrop = BackdropMode::repeatEdges;
    return settings;
}

/// Share of the photo that the crop takes along its tighter side.
constexpr double cropShare = 0.8;

Rect cropOf(Size photo) {
    const double height = std::min(photo.height, photo.width * 1.25) * cropShare;
    return {(photo.width - height * 0.8) / 2 + 0.3, (photo.height - height) / 2 + 0.4, height * 0.8,
            height};
}

void check(bool done, const char* what) {
    if (done) return;
    std::fprintf(stderr, "%s failed: %s\n", what, vips_error_buffer());
    std::exit(1);
}

void exportOwn(const std::filesystem::path& photo, const std::filesystem::path& target,
               const Rect& crop, double degrees, const ExportSettings& settings = repeating(),
               const ChildCutter* cutter = nullptr, DecodedPlates* plates = nullptr) {
    const auto done =
        Exporter::exportPhoto({photo, target, crop, degrees, settings, {}, plates}, cutter);
    if (!done) std::fprintf(stderr, "%s\n", done.error().message().c_str());
    check(done && done->fallbacks.empty(), "export");
}

void exportByLibrary(const std::filesystem::path& photo, const std::filesystem::path& target,
                     const Rect& crop) {
    VipsImage* loaded = nullptr;
    VipsImage* cut = nullptr;
    VipsImage* scaled = nullptr;
    const int width = static_cast<int>(crop.width), height = static_cast<int>(crop.height);
    check(vips_jpegload(photo.c_str(), &loaded, "access", VIPS_ACCESS_SEQUENTIAL, nullptr) == 0,
          "load");
    check(vips_extract_area(loaded, &cut, static_cast<int>(crop.x), static_cast<int>(crop.y), width,
                            height, nullptr) == 0,
          "cut");
    check(vips_resize(cut, &scaled, 2400.0 / width, "vscale", 3000.0 / height, nullptr) == 0,
          "resize");
    check(vips_jpegsave(scaled, target.c_str(), "Q", 92, "subsample_mode",
                        VIPS_FOREIGN_SUBSAMPLE_OFF, nullptr) == 0,
          "save");
    g_object_unref(scaled);
    g_object_unref(cut);
    g_object_unref(loaded);
}

/// What one job took, in milliseconds: by the clock, and of processor time in all its threads.
struct Cost {
    double elapsed;
    double processor;
};

double now(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

Cost costOf(const std::function<void()>& work) {
    const Cost before{now(CLOCK_MONOTONIC), now(CLOCK_PROCESS_CPUTIME_ID)};
    work();
    return {now(CLOCK_MONOTONIC) - before.elapsed,
            now(CLOCK_PROCESS_CPUTIME_ID) - before.processor};
}

/// The medians of both.
Cost median(std::vector<Cost> costs) {
    const std::size_t middle = costs.size() / 2;
    std::ranges::sort(costs, {}, &Cost::elapsed);
    const double elapsed = costs[middle].elapsed;
    std::ranges::sort(costs, {}, &Cost::processor);
    return {elapsed, costs[middle].processor};
}

void print(const char* job, const Cost& cost, const Cost& against) {
    std::printf("    %-16s %7.1f ms by the clock, %7.1f ms of processor; ratio %.2f, %.2f\n", job,
                cost.elapsed, cost.processor, cost.elapsed / against.elapsed,
                cost.processor / against.processor);
}

/// Peak memory in megabytes of a process that does nothing but `work`.
double peakMemory(const std::function<void()>& work) {
    const pid_t child = fork();
    if (child == 0) {
        work();
        std::_Exit(0);
    }
    rusage usage{};
    int status = 0;
    wait4(child, &status, 0, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void measure(const std::filesystem::path& photo, const std::filesystem::path& target) {
    const auto size = decodeRegion(photo, {0, 0, 1, 1}, 0);
    check(size.has_value(), "open");
    const Rect crop =
        cropOf({static_cast<double>(size->sourceWidth), static_cast<double>(size->sourceHeight)});
    std::vector<Cost> own, turned, library;
    for (int round = 0; round < rounds; ++round) {
        own.push_back(costOf([&] { exportOwn(photo, target, crop, 0); }));
        library.push_back(costOf([&] { exportByLibrary(photo, target, crop); }));
        turned.push_back(costOf([&] { exportOwn(photo, target, crop, 2.3); }));
    }
    std::printf("%s: %.1f megapixels, crop %.0f x %.0f\n", photo.filename().c_str(),
                size->sourceWidth * size->sourceHeight / 1e6, crop.width, crop.height);
    const Cost reference = median(library);
    print("library alone", reference, reference);
    print("export", median(own), reference);
    print("export, turned", median(turned), reference);
}

double middle(std::vector<double> values) {
    std::ranges::nth_element(values,
                             values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2));
    return values[values.size() / 2];
}

/// Counts the processor time inside the person model.
class TimedPersons final : public PersonSegmenter {
public:
    explicit TimedPersons(std::shared_ptr<const PersonSegmenter> model)
        : model_(std::move(model)) {}

    Result<PersonMap> persons(const Picture& picture, const Rect& region) const override {
        const double before = now(CLOCK_PROCESS_CPUTIME_ID);
        auto map = model_->persons(picture, region);
        spent_ += now(CLOCK_PROCESS_CPUTIME_ID) - before;
        return map;
    }
    Result<RegionMap> faceSkin(const Picture& picture, const PictureRegion& region) const override {
        return model_->faceSkin(picture, region);
    }
    double takeSpent() const { return std::exchange(spent_, 0); }

private:
    std::shared_ptr<const PersonSegmenter> model_;
    mutable double spent_ = 0;
};

/// A photo with what the analysis found in it, and who cuts its child out.
struct Sitting {
    std::filesystem::path photo;
    std::shared_ptr<const TimedPersons> persons;
    ImageAnalysis analysis;
    MatteCutter cutter;

    Sitting(const std::filesystem::path& file, VisionServices services)
        : photo(file),
          persons(std::make_shared<TimedPersons>(services.persons)),
          analysis(AnalysisPipeline::analyze(file, services)),
          cutter(file, analysis.faces, (services.persons = persons, services)) {}
};

Sitting seated(const std::filesystem::path& photo, const std::filesystem::path& target) {
    const auto cache = target.parent_path() / "cache";
    const auto vision = VisionServices::open(VisionServices::modelFolder(), cache);
    check(vision.has_value(), "models");
    return Sitting(photo, *vision);
}

void printPeak(const char* what) {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("    %s: peak memory with the models %ld MB\n", what, usage.ru_maxrss / 1024);
}

/// Replaced backdrops against repeated edges, and what they cost beyond those and the models.
void measureReplacing(const std::filesystem::path& photo, const std::filesystem::path& target) {
    const Sitting sitting = seated(photo, target);
    const Rect crop = cropOf(sitting.analysis.sourceSize());
    std::vector<Cost> repeated, replaced;
    std::vector<double> inModel, beyond;
    for (int round = 0; round < rounds; ++round) {
        repeated.push_back(costOf([&] { exportOwn(photo, target, crop, 0); }));
        sitting.persons->takeSpent();
        replaced.push_back(
            costOf([&] { exportOwn(photo, target, crop, 0, replacing(), &sitting.cutter); }));
        inModel.push_back(sitting.persons->takeSpent());
        beyond.push_back(replaced.back().processor - repeated.back().processor - inModel.back());
    }
    std::printf("%s, backdrop replaced\n", photo.filename().c_str());
    const Cost reference = median(repeated);
    print("repeated edges", reference, reference);
    print("replaced", median(replaced), reference);
    const double model = middle(inModel);
    std::printf(
        "    processor time in the person model %.1f ms; beyond it and repeated edges %.1f ms, "
        "ratio to the model %.2f\n",
        model, middle(beyond), middle(beyond) / model);
    printPeak("crop inside the photo");
}

/// With a backdrop photograph: decoded for each export, and kept.
void measurePlates(const std::filesystem::path& photo, const std::filesystem::path& plate,
                   const std::filesystem::path& target) {
    const Sitting sitting = seated(photo, target);
    const Rect crop = cropOf(sitting.analysis.sourceSize());
    DecodedPlates plates;
    const auto once = [&](DecodedPlates* kept) {
        return costOf(
            [&] { exportOwn(photo, target, crop, 0, replacing(plate), &sitting.cutter, kept); });
    };
    once(&plates);
    std::vector<Cost> each, kept;
    for (int round = 0; round < rounds; ++round) {
        each.push_back(once(nullptr));
        kept.push_back(once(&plates));
    }
    std::printf("%s before %s\n", photo.filename().c_str(), plate.filename().c_str());
    const Cost reference = median(each);
    print("decoded each", reference, reference);
    print("kept", median(kept), reference);
    printPeak("with the plate kept");
}

/// The largest pictures that replacing needs at once.
void measureLargest(const std::filesystem::path& photo, const std::filesystem::path& target) {
    const Sitting sitting = seated(photo, target);
    printPeak("analysis alone");
    const Size size = sitting.analysis.sourceSize();
    const double height = std::max(size.height, size.width * 1.25) * 1.1;
    exportOwn(photo, target,
              {(size.width - height * 0.8) / 2, (size.height - height) / 2, height * 0.8, height},
              2.3, replacing(), &sitting.cutter);
    printPeak("turned, beyond all of the photo");
}

/// A copy in the other format that plates often have.
std::filesystem::path asPng(const std::filesystem::path& photo,
                            const std::filesystem::path& target) {
    if (std::filesystem::exists(target)) return target;
    const auto decoded = decodeRegion(photo, {0, 0, 1e5, 1e5}, 1);
    check(decoded.has_value(), "open");
    const auto bytes = encodePng(decoded->pixels);
    check(bytes && writeFileAtomically(target, *bytes), "plate");
    return target;
}

/// Runs `work` in a process of its own, so that its peak memory is its own.
void apart(const std::function<void()>& work) {
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        work();
        std::fflush(stdout);
        std::_Exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    check(status == 0, "a measuring process");
}

}  // namespace

int main() {
    const auto data = testPhotographs("export_bench");
    if (!data) return 0;
    std::vector<std::filesystem::path> photos;
    for (const char* name : {"pif-kevin-luo.jpg", "pif-rajni-aneja.jpg", "woman-bar-boards.jpg"})
        photos.push_back(*data / "portraits" / name);
    const auto folder = std::filesystem::temp_directory_path() / "morva-export-bench";
    std::filesystem::remove_all(folder);  // of a run that was broken off
    const auto target = folder / "crop.jpg";
    cv::setNumThreads(1);
    for (const auto& photo : photos) {
        for (const double degrees : {0.0, 2.3}) {
            const double peak = peakMemory([&] {
                const auto size = decodeRegion(photo, {0, 0, 1, 1}, 0);
                check(size.has_value(), "open");
                exportOwn(photo, target,
                          cropOf({static_cast<double>(size->sourceWidth),
                                  static_cast<double>(size->sourceHeight)}),
                          degrees);
            });
            std::printf("%-28s turned by %3.1f: peak memory %4.0f MB\n", photo.filename().c_str(),
                        degrees, peak);
        }
    }
    for (const auto& photo : photos) {
        apart([&] { measureReplacing(photo, target); });
        apart([&] { measureLargest(photo, target); });
        // Any large photograph is as good a backdrop.
        for (const auto& plate : {photos.back(), asPng(photos.back(), folder / "plate.png")})
            apart([&] { measurePlates(photo, plate, target); });
    }
    if (vips_init("export_bench") != 0) return 1;
    vips_concurrency_set(1);
    vips_cache_set_max(0);
    for (const auto& photo : photos) measure(photo, target);
    std::filesystem::remove_all(folder);
    return 0;
}
