// SPDX-License-Identifier: GPL-3.0-or-later
// How well real poses are learned: teaches five groupings of the test photographs, read by eye,
// from their feature prints and from two cheap descriptions, and prints what cross-validation says
// of each.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "analysis/analysis_pipeline.h"
#include "base/files.h"
#include "imaging/decode.h"
#include "photographs.h"
#include "poses/pose_features.h"
#include "poses/pose_trainer.h"

namespace morva {
namespace {

struct Group {
    const char* name;
    std::set<std::string> photos;
};

/// Portraits that are none of the others show a head with shoulders or less.
const std::array groups{
    Group{
        "several people",
        {"couple-historic", "couple-piggyback", "family-baby", "family-four-beach", "group-six",
         "kid-boy-red", "kids-three-holding-cards", "kids-two-binoculars-flag", "kids-two-brothers",
         "kids-two-frontal-table", "kids-two-table-full", "kids-two-vests", "scene-two-farmers-box",
         "scene-two-lanyards", "scene-two-plaque-text", "scene-two-women", "teens-two-montage"}},
    Group{"full length",
          {"kid-climbing-full", "kid-full-small-birds", "kids-two-frontal-table",
           "kids-two-table-full", "man-full-suit", "man-hood-sitting", "scene-full-small",
           "woman-full-forest", "woman-seated-full", "woman-sitting-ground"}},
    Group{"half length",
          {"kid-boy-red",
           "kid-girl-drawing",
           "kid-girl-red-bow",
           "kid-toddler-dress",
           "man-half-sofa",
           "man-hard-hat",
           "man-holding-book",
           "man-holding-plush",
           "nasa-astronaut",
           "pif-eboni-freeman",
           "pif-madhavi-bharadwaj",
           "pif-nadia-fawaz",
           "pif-stephanie-farquhar",
           "scene-half-mug",
           "scene-two-lanyards",
           "scene-two-women",
           "scene-camera-man-profile",
           "teen-boy-laptop",
           "teen-updo-half",
           "teen-tshirt-text",
           "woman-bar-boards",
           "woman-blue-dress-half",
           "woman-cap-text",
           "woman-glasses-street",
           "woman-studio-holding-glasses",
           "woman-v-signs",
           "family-four-beach"}},
    Group{"holding something",
          {"kids-three-holding-cards", "kids-two-binoculars-flag", "kid-girl-drawing",
           "man-holding-book", "man-holding-plush", "scene-camera-man-profile", "scene-half-mug",
           "scene-speaker-side", "scene-two-farmers-box", "teen-boy-laptop", "woman-seated-full",
           "woman-studio-holding-glasses", "family-baby"}},
};

struct Photo {
    std::string name;
    std::vector<float> features;
    std::vector<float> print;
    std::vector<float> color;
    std::vector<float> geometry;
};

/// The middle of every channel and how far it spreads.
std::vector<float> meanColor(const Picture& image) {
    std::array<double, 3> sum{};
    std::array<double, 3> squares{};
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            for (std::size_t c = 0; c < 3; ++c) {
                sum[c] += image.pixel(x, y)[c];
                squares[c] += image.pixel(x, y)[c] * image.pixel(x, y)[c];
            }
        }
    }
    const double count = static_cast<double>(image.width()) * image.height();
    std::vector<float> values;
    for (std::size_t c = 0; c < 3; ++c) {
        const double mean = sum[c] / count;
        values.push_back(static_cast<float>(mean));
        values.push_back(static_cast<float>(std::sqrt(squares[c] / count - mean * mean)));
    }
    return values;
}

/// Where the main face lies, how large it is, how many there are and the frame's proportions.
std::vector<float> faceGeometry(const ImageAnalysis& analysis) {
    const FaceGeometry* face = analysis.primary();
    const double width = analysis.sourceWidth;
    const double height = analysis.sourceHeight;
    const Point eyes = face ? face->eyeMidpoint() : Point{};
    return {static_cast<float>(eyes.x / width),
            static_cast<float>(eyes.y / height),
            static_cast<float>(face ? face->faceUnit() / height : 0),
            static_cast<float>(face ? face->yawDegrees.value_or(0) : 0),
            static_cast<float>(analysis.faces.size()),
            static_cast<float>(width / height)};
}

Result<Photo> described(const std::filesystem::path& file, const VisionServices& vision) {
    const auto decode = PhotoDecode::open(file, AnalysisPipeline::refineMaxPixel);
    if (!decode) return tl::unexpected(decode.error());
    const Picture image = decode->whole(AnalysisPipeline::analysisMaxPixel);
    auto print = PoseFeatures::print(*vision.prints, image);
    if (!print) return tl::unexpected(print.error());
    const ImageAnalysis record = AnalysisPipeline::analyze(file, vision);
    return Photo{file.stem().string(), PoseFeatures::of(*print, record), *print, meanColor(image),
                 faceGeometry(record)};
}

/// "0.83 / 0.76  0.79": precision, recall and their harmonic mean.
void teach(const Group& group, const std::vector<Photo>& photos,
           std::vector<float> Photo::*features, double& total) {
    PoseTrainer::Prints positives;
    PoseTrainer::Prints negatives;
    for (const Photo& photo : photos)
        (group.photos.contains(photo.name) ? positives : negatives).push_back(photo.*features);
    const auto learned = PoseTrainer::train(group.name, positives, negatives, {}, {}, 0);
    if (!learned) {
        std::printf("  %22s", "no signal");
        return;
    }
    const PoseReport& report = learned->report;
    const double sum = report.precision + report.recall;
    const double f1 = sum > 0 ? 2 * report.precision * report.recall / sum : 0;
    total += f1;
    std::printf("  %6.2f / %4.2f  %7.2f", report.precision, report.recall, f1);
}

Result<std::vector<Photo>> allOf(const std::filesystem::path& folder,
                                 const VisionServices& vision) {
    std::vector<Photo> photos;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        auto photo = described(entry.path(), vision);
        if (!photo) return tl::unexpected(photo.error());
        photos.push_back(std::move(*photo));
    }
    std::ranges::sort(photos, {}, &Photo::name);
    return photos;
}

/// Every photo that is neither several people nor more of the body is a headshot.
Group headshots(const std::vector<Photo>& photos) {
    Group group{"headshot", {}};
    for (const Photo& photo : photos) {
        const bool other = photo.name.starts_with("noface") ||
                           std::ranges::any_of(std::span(groups).first(3), [&](const Group& g) {
                               return g.photos.contains(photo.name);
                           });
        if (!other) group.photos.insert(photo.name);
    }
    return group;
}

int run(const std::filesystem::path& folder) {
    const auto vision =
        VisionServices::open(VisionServices::modelFolder(), Folders::standard().cache);
    const auto photos = vision.and_then(
        [&](const VisionServices& services) { return allOf(folder / "portraits", services); });
    if (!photos) {
        std::fprintf(stderr, "%s\n", photos.error().message.c_str());
        return 1;
    }
    std::vector<Group> all{headshots(*photos)};
    all.insert(all.end(), groups.begin(), groups.end());
    std::printf("%zu photos; precision / recall and F1, cross-validated\n%-18s %6s", photos->size(),
                "pose", "shown");
    std::printf("  %22s  %22s  %22s  %22s\n", "features", "print alone", "mean colour",
                "face geometry");
    std::array<double, 4> totals{};
    for (const Group& group : all) {
        std::printf("%-18s %6zu", group.name, group.photos.size());
        teach(group, *photos, &Photo::features, totals[0]);
        teach(group, *photos, &Photo::print, totals[1]);
        teach(group, *photos, &Photo::color, totals[2]);
        teach(group, *photos, &Photo::geometry, totals[3]);
        std::printf("\n");
    }
    const double count = static_cast<double>(all.size());
    std::printf("%-25s  %22.2f  %22.2f  %22.2f  %22.2f\n", "mean F1", totals[0] / count,
                totals[1] / count, totals[2] / count, totals[3] / count);
    return 0;
}

}  // namespace
}  // namespace morva

int main() {
    const auto folder = morva::testPhotographs("pose_groups");
    return folder ? morva::run(*folder) : 0;
}
