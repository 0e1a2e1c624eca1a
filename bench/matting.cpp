// SPDX-License-Identifier: GPL-3.0-or-later
// Prints the errors of the matte on the photographs with known alpha in $MORVA_TEST_DATA, beside
// those of the bare person map, of the guided filter alone and of graph cuts, and what the matte of
// a photo of 24 megapixels costs. With --leave-one-out, instead, the errors of each photo with the
// constants that the others would have chosen; takes some minutes.
#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

#include <opencv2/imgproc.hpp>

#include "base/files.h"
#include "imaging/decode.h"
#include "imaging/mat_view.h"
#include "imaging/resample.h"
#include "matting/body_matte.h"
#include "matting/head_matte.h"
#include "matting/matting.h"
#include "matting/photo_grid.h"
#include "matting_errors.h"
#include "photographs.h"
#include "vision/vision_services.h"

namespace morva {
namespace {

/// Faces are blurred or turned away on most of these photos; those heads were measured by hand.
struct Known {
    const char* name;
    const char* alpha;
    Matting::Head head;
};

constexpr double furBlur = 6;  // pixels; as soft as the person map of a model

const std::vector<Known>& photographs() {
    static const std::vector<Known> all{
        {"matting-p3m/p_07141906.jpg", "matting-p3m/p_07141906_alpha.png", {{826, 372}, 102}},
        {"matting-p3m/p_22fc0130.jpg", "matting-p3m/p_22fc0130_alpha.png", {{535, 720}, 377}},
        {"matting-p3m/p_514ca06a.jpg", "matting-p3m/p_514ca06a_alpha.png", {{490, 597}, 245}},
        {"matting-p3m/p_bac3c1ff.jpg", "matting-p3m/p_bac3c1ff_alpha.png", {{1269, 255}, 180}},
        {"matting-p3m/p_bd6af989.jpg", "matting-p3m/p_bd6af989_alpha.png", {{476, 595}, 140}},
        {"matting-p3m/p_d684dae3.jpg", "matting-p3m/p_d684dae3_alpha.png", {{1176, 343}, 245}},
        {"matting-lemur/lemur.png", "matting-lemur/lemur_alpha.png", {{319, 205}, 80}},
    };
    return all;
}

cv::Mat floatsOf(const Mask& mask) {
    cv::Mat floats;
    viewOf(mask).convertTo(floats, CV_32F, 1.0 / 255);
    return floats;
}

Mask maskOf(const cv::Mat& floats) {
    Mask mask(floats.cols, floats.rows);
    cv::Mat bytes(floats.rows, floats.cols, CV_8U, mask.row(0));
    floats.convertTo(bytes, CV_8U, 255);
    return mask;
}

Rect boundsOf(const Picture& picture) {
    return {0, 0, static_cast<double>(picture.width()), static_cast<double>(picture.height())};
}

cv::Rect pixelsOf(const Rect& rect) {
    return {static_cast<int>(rect.x), static_cast<int>(rect.y), static_cast<int>(rect.width),
            static_cast<int>(rect.height)};
}

/// Answers with a map of the whole photo that is given, for a subject that no model knows.
class GivenMap final : public PersonSegmenter {
public:
    explicit GivenMap(cv::Mat map) : map_(std::move(map)) {}

    Result<PersonMap> persons(const Picture& picture, const Rect& region) const override {
        constexpr int side = 256;
        const Rect extent = wholePixelRect(region, picture);
        cv::Mat cells;
        cv::resize(map_(pixelsOf(extent)), cells, {side, side}, 0, 0, cv::INTER_AREA);
        const std::vector<float> values(cells.begin<float>(), cells.end<float>());
        return PersonMap{extent, side, values, values};
    }
    Result<RegionMap> faceSkin(const Picture&, const PictureRegion&) const override {
        return failure("No face is asked for here.");
    }

private:
    cv::Mat map_;
};

/// Asks the model once for each place of the one photo it is used on.
class RememberedMaps final : public PersonSegmenter {
public:
    explicit RememberedMaps(std::shared_ptr<const PersonSegmenter> model)
        : model_(std::move(model)) {}

    Result<PersonMap> persons(const Picture& picture, const Rect& region) const override {
        for (const auto& [place, map] : maps_)
            if (place == region) return map;
        auto map = model_->persons(picture, region);
        if (map) maps_.emplace_back(region, *map);
        return map;
    }
    Result<RegionMap> faceSkin(const Picture&, const PictureRegion&) const override {
        return failure("No face is asked for here.");
    }

private:
    std::shared_ptr<const PersonSegmenter> model_;
    mutable std::vector<std::pair<Rect, PersonMap>> maps_;
};

struct Scene {
    Known known;
    Picture picture;
    cv::Mat truth;
    /// The map of the whole photo, and the same with the head's own map blended in.
    cv::Mat whole;
    cv::Mat blended;
    std::shared_ptr<const PersonSegmenter> segmenter;
};

cv::Mat mapOn(const PersonMap& map, cv::Size size) {
    const cv::Mat cells = viewOf(map.values, map.side);
    cv::Mat result;
    cv::resize(cells, result, size, 0, 0, cv::INTER_LINEAR);
    return result;
}

/// The whole photo's map with that of the head's window in it, blended over its seam.
cv::Mat withHead(const Scene& scene) {
    const Matting::Head& head = scene.known.head;
    const Rect window = HeadMatte::mapWindow(head.eyeMidpoint, head.faceUnit);
    const auto near = scene.segmenter->persons(scene.picture, window);
    if (!near) return scene.whole;
    const cv::Rect part = pixelsOf(near->extent);
    cv::Mat inside = cv::Mat::zeros(scene.whole.size(), CV_8U);
    inside(part).setTo(1);
    cv::Mat framed;
    cv::copyMakeBorder(inside, framed, 1, 1, 1, 1, cv::BORDER_REPLICATE);
    cv::Mat weight;
    cv::distanceTransform(framed, weight, cv::DIST_C, 3);
    weight = cv::min(
        weight(cv::Rect(1, 1, inside.cols, inside.rows)) / (HeadMatte::mapSeam * window.width),
        1.0);
    cv::Mat patch = scene.whole.clone();
    mapOn(*near, part.size()).copyTo(patch(part));
    return scene.whole + weight.mul(patch - scene.whole);
}

Scene opened(const std::filesystem::path& folder, const Known& known,
             const VisionServices& vision) {
    const auto photo = PhotoDecode::open(folder / known.name, 1 << 20);
    const auto alpha = PhotoDecode::open(folder / known.alpha, 1 << 20);
    if (!photo || !alpha) return {};
    Scene scene{
        known, photo->whole(1 << 20), {}, {}, {}, std::make_shared<RememberedMaps>(vision.persons)};
    std::vector<cv::Mat> planes;
    const Picture truth = alpha->whole(1 << 20);
    cv::split(viewOf(truth), planes);
    planes[0].convertTo(scene.truth, CV_32F, 1.0 / 255);
    if (std::string(known.name).find("lemur") != std::string::npos) {
        cv::GaussianBlur(scene.truth, scene.whole, {}, furBlur);
        scene.segmenter = std::make_shared<GivenMap>(scene.whole);
        scene.blended = scene.whole;
        return scene;
    }
    const auto map = scene.segmenter->persons(scene.picture, boundsOf(scene.picture));
    if (!map) return {};
    scene.whole = mapOn(*map, scene.truth.size());
    scene.blended = withHead(scene);
    return scene;
}

cv::Mat matteOf(const Scene& scene, const cv::Mat& map, bool withHead,
                const Matting::Tuning& tuning = {}) {
    const Mask mask = maskOf(map);
    Matting::Child child{mask, nullptr, boundsOf(scene.picture), scene.known.head};
    if (!withHead) child.head.reset();
    const auto matte = Matting::matte(scene.picture, child, *scene.segmenter, tuning);
    return matte && *matte ? floatsOf((*matte)->alpha) : cv::Mat::zeros(map.size(), CV_32FC1);
}

cv::Mat graphCut(const Scene& scene) {
    cv::Mat cells(scene.truth.size(), CV_8U, cv::Scalar(cv::GC_PR_BGD));
    cells.setTo(cv::GC_PR_FGD, scene.blended > .5);
    cells.setTo(cv::GC_FGD, scene.blended > .95);
    cells.setTo(cv::GC_BGD, scene.blended < .05);
    cv::Mat backdrop;
    cv::Mat child;
    cv::theRNG().state = 1;
    cv::grabCut(viewOf(scene.picture), cells, {}, backdrop, child, 3, cv::GC_INIT_WITH_MASK);
    cv::Mat result;
    cv::Mat((cells == cv::GC_FGD) | (cells == cv::GC_PR_FGD)).convertTo(result, CV_32F, 1.0 / 255);
    return result;
}

constexpr std::array methods{"map", "guided filter", "final", "graph cut"};
using Errors = std::array<MattingErrors, methods.size()>;

void print(const Errors& errors) {
    for (std::size_t i = 0; i < methods.size(); ++i) {
        const MattingErrors& e = errors[i];
        std::printf("  %-14s %6.2f %6.2f %6.2f %6.2f\n", methods[i], e.sad, e.mse, e.gradient,
                    e.connectivity);
    }
}

void add(Errors& sums, const Errors& errors) {
    for (std::size_t i = 0; i < methods.size(); ++i) sums[i] += errors[i];
}

cv::Mat nearHead(const cv::Mat& band, const Scene& scene) {
    const Matting::Head& head = scene.known.head;
    const Rect place = HeadMatte::region(head.eyeMidpoint, head.faceUnit, boundsOf(scene.picture));
    cv::Mat result = cv::Mat::zeros(band.size(), CV_8U);
    const cv::Rect part = pixelsOf(wholePixelRect(place, scene.picture));
    band(part).copyTo(result(part));
    return result;
}

void printErrors(const std::filesystem::path& folder, const VisionServices& vision) {
    Errors headSums;
    Errors wholeSums;
    std::printf("band errors: SAD (thousands), MSE x 1000, gradient, connectivity (thousands)\n");
    for (const Known& known : photographs()) {
        const Scene scene = opened(folder / "groundtruth", known, vision);
        if (scene.truth.empty()) {
            std::printf("%s: unreadable\n", known.name);
            return;
        }
        const cv::Mat band = outlineBand(scene.truth, known.head.faceUnit);
        const std::array mattes{scene.blended, matteOf(scene, scene.blended, false),
                                matteOf(scene, scene.whole, true), graphCut(scene)};
        Errors head;
        Errors whole;
        for (std::size_t i = 0; i < methods.size(); ++i) {
            head[i] = mattingErrors(mattes[i], scene.truth, nearHead(band, scene));
            whole[i] = mattingErrors(mattes[i], scene.truth, band);
        }
        std::printf("%s, %d pixels around the head\n", known.name,
                    cv::countNonZero(nearHead(band, scene)));
        print(head);
        add(headSums, head);
        add(wholeSums, whole);
    }
    const auto count = static_cast<double>(photographs().size());
    for (auto& sum : headSums) sum = sum / count;
    for (auto& sum : wholeSums) sum = sum / count;
    std::printf("mean, around the head\n");
    print(headSums);
    std::printf("mean, the whole outline\n");
    print(wholeSums);
}

/// One setting, and its errors on every photo.
struct Tried {
    Matting::Tuning tuning;
    std::vector<MattingErrors> errors;
};

/// All settings of the constants that were chosen on these photos, around the chosen ones.
std::vector<Tried> settings() {
    std::vector<Tried> all;
    for (const float data : {.02F, .04F, .08F})
        for (const float map : {.003F, .01F, .03F})
            for (const float like : {.05F, .2F, .6F})
                for (const float strands : {.08F, .16F, .24F})
                    all.push_back({{data, map, like, strands}, {}});
    return all;
}

/// Sum over all photos but one of the errors over those of the guided filter: no large photo and
/// no kind of error outweighs the others.
double scoreWithout(const Tried& tried, const std::vector<MattingErrors>& filter,
                    std::size_t leftOut) {
    double score = 0;
    for (std::size_t i = 0; i < filter.size(); ++i) {
        if (i == leftOut) continue;
        const MattingErrors& e = tried.errors[i];
        score += e.sad / filter[i].sad + e.mse / filter[i].mse + e.gradient / filter[i].gradient +
                 e.connectivity / filter[i].connectivity;
    }
    return score;
}

void printLine(const char* what, const MattingErrors& e, const Matting::Tuning& tuning) {
    std::printf("  %-28s %6.2f %6.2f %6.2f %6.2f   %.2f %.3f %.2f %.2f\n", what, e.sad, e.mse,
                e.gradient, e.connectivity, tuning.dataWeight, tuning.mapWeight,
                tuning.mapWeightLikeColours, tuning.strands);
}

/// The errors of each photo with the constants that the other photos would have chosen.
void printLeaveOneOut(const std::filesystem::path& folder, const VisionServices& vision) {
    std::vector<Tried> tried = settings();
    tried.push_back({});
    std::vector<MattingErrors> filter;
    for (const Known& known : photographs()) {
        const Scene scene = opened(folder / "groundtruth", known, vision);
        if (scene.truth.empty()) return;
        const cv::Mat band = nearHead(outlineBand(scene.truth, known.head.faceUnit), scene);
        filter.push_back(mattingErrors(matteOf(scene, scene.blended, false), scene.truth, band));
        for (Tried& one : tried)
            one.errors.push_back(
                mattingErrors(matteOf(scene, scene.whole, true, one.tuning), scene.truth, band));
    }
    std::printf(
        "left out of the choice, around the head; SAD, MSE, gradient, connectivity; weights "
        "of data, map, and map for like colours, and least variation of strands\n");
    MattingErrors chosenSum;
    MattingErrors ownSum;
    for (std::size_t i = 0; i < filter.size(); ++i) {
        const auto& best = *std::ranges::min_element(
            tried, {}, [&](const Tried& one) { return scoreWithout(one, filter, i); });
        printLine(photographs()[i].name, best.errors[i], best.tuning);
        const MattingErrors& f = filter[i];
        std::printf("  %-28s %6.2f %6.2f %6.2f %6.2f\n", "  guided filter", f.sad, f.mse,
                    f.gradient, f.connectivity);
        chosenSum += best.errors[i];
        ownSum += tried.back().errors[i];
    }
    const auto count = static_cast<double>(filter.size());
    std::printf("  %-28s %6.2f %6.2f %6.2f %6.2f\n", "mean", chosenSum.sad / count,
                chosenSum.mse / count, chosenSum.gradient / count, chosenSum.connectivity / count);
    printLine("mean, as built", ownSum / count, tried.back().tuning);
}

template <class Work>
void printTime(const char* name, Work work) {
    double best = 1e9;
    for (int round = 0; round < 3; ++round) {
        const std::clock_t start = std::clock();
        work();
        best = std::min(best, 1e3 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
    std::printf("  %-34s %7.1f ms\n", name, best);
}

/// Processor time, the best of three rounds on one thread.
void printTimes(const std::filesystem::path& folder, const VisionServices& vision) {
    const Scene scene = opened(folder / "groundtruth", photographs()[1], vision);
    if (scene.truth.empty()) return;
    constexpr int width = 4390;  // 24 megapixels at this photo's shape
    const int height = width * scene.picture.height() / scene.picture.width();
    const auto large = resampled(scene.picture, boundsOf(scene.picture), width, height);
    if (!large) return;
    const double factor = static_cast<double>(width) / scene.picture.width();
    const Matting::Head small = scene.known.head;
    const Matting::Head head{small.eyeMidpoint.scaled(factor, factor), small.faceUnit * factor};
    const Mask mask = maskOf(scene.whole);
    const Rect region = HeadMatte::region(head.eyeMidpoint, head.faceUnit, boundsOf(*large));
    const auto headGrid = [&] {
        return PhotoGrid::reduced(*large, region, head.faceUnit, HeadMatte::gridUnit, 1024);
    };
    const auto bodyGrid = [&] {
        return PhotoGrid::reduced(*large, boundsOf(*large), head.faceUnit, BodyMatte::gridUnit,
                                  1024);
    };
    const PhotoGrid near = headGrid();
    const PhotoGrid far = bodyGrid();
    const cv::Mat map = onGrid(far, scene.whole, boundsOf(*large));
    const cv::Mat nearMap = onGrid(near, scene.whole, boundsOf(*large));
    std::printf("%d x %d, face unit %.0f\n", width, height, head.faceUnit);
    printTime("inference alone",
              [&] { (void)vision.persons->persons(near.picture, boundsOf(near.picture)); });
    printTime("reduce for the body", [&] { (void)bodyGrid(); });
    printTime("reduce for the head", [&] { (void)headGrid(); });
    printTime("guided filter, body", [&] { (void)BodyMatte::layer(far, BodyMatte::prior(map)); });
    printTime("colour model and system, head",
              [&] { (void)HeadMatte::layer(near, nearMap, nearMap, near.unit); });
    const Matting::Child child{mask, nullptr, boundsOf(*large), head};
    std::optional<Matte> matte;
    printTime("whole matte, inference included",
              [&] { matte = *Matting::matte(*large, child, *vision.persons); });
    Picture picture = large->copy();
    if (matte)
        printTime("take the backdrop out", [&] { Matting::takeBackdropOut(picture, *matte); });
}

int run(const std::filesystem::path& folder, bool leaveOneOut) {
    const auto vision =
        VisionServices::open(VisionServices::modelFolder(), Folders::standard().cache);
    if (!vision) {
        std::fprintf(stderr, "%s\n", vision.error().message.c_str());
        return 1;
    }
    if (leaveOneOut) {
        printLeaveOneOut(folder, *vision);
        return 0;
    }
    printErrors(folder, *vision);
    printTimes(folder, *vision);
    return 0;
}

}  // namespace
}  // namespace morva

int main(int count, char** arguments) {
    const bool leaveOneOut = count > 1 && std::string(arguments[1]) == "--leave-one-out";
    const auto folder = morva::testPhotographs("matting");
    return folder ? morva::run(*folder, leaveOneOut) : 0;
}
