// SPDX-License-Identifier: GPL-3.0-or-later
// Where the time of one photo's analysis goes, on one core: decoding, the models themselves, and
// the rest.
//   analysis_bench FOLDER: the test photographs. Medians of several runs, all from the same
//   process.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include <sched.h>

#include "analysis/analysis_pipeline.h"
#include "analysis/backdrop_sampler.h"
#include "analysis/body_analyzer.h"
#include "analysis/head_protector.h"
#include "analysis/main_person.h"
#include "analysis/sign_detector.h"
#include "analysis/skin_chin.h"
#include "analysis/subject_analyzer.h"
#include "base/files.h"
#include "imaging/decode.h"
#include "photographs.h"
#include "process_usage.h"
#include "vision/picture_region.h"

namespace morva {
namespace {

constexpr int runs = 15;

/// Milliseconds of one call.
template <class Work>
double timed(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

/// Everything runs on one core, as one worker of a full pool does.
void useOneCore() {
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(0, &set);
    sched_setaffinity(0, sizeof set, &set);
}

struct Stages {
    std::vector<double> decode, faces, refine, chin, mask, body, outline, subject, sign, models,
        whole;
};

void measure(const std::filesystem::path& file, const VisionServices& vision, Stages& s) {
    std::optional<PhotoDecode> photo;
    AnalysisImage image;
    s.decode.push_back(timed([&] {
        photo.emplace(*PhotoDecode::open(file, AnalysisPipeline::refineMaxPixel));
        image.image = photo->whole(AnalysisPipeline::analysisMaxPixel);
    }));
    image.sourceSize = {static_cast<double>(photo->sourceWidth()),
                        static_cast<double>(photo->sourceHeight())};
    double cutting = 0;
    const CloseUps closeUps{
        photo->finestSide(), [&](int longestSide) { return photo->reducedSize(longestSide); },
        [&](int longestSide, int x, int y, int width, int height) {
            Picture part;
            cutting += timed([&] { part = photo->region(longestSide, x, y, width, height); });
            return part;
        }};
    FaceGeometry face;
    s.faces.push_back(timed([&] {
        face = FaceAnalyzer::detectFaces(*vision.faces, image.image, image.sourceSize)->front();
    }));
    s.refine.push_back(timed([&] {
                           face = FaceAnalyzer::refine(*vision.faces, face, closeUps,
                                                       AnalysisPipeline::refineMaxPixel,
                                                       image.sourceSize);
                       }) -
                       cutting);
    s.decode.back() += cutting;
    s.chin.push_back(timed([&] { face = withSkinChin(*vision.persons, image, face); }));
    Mask mask;
    s.mask.push_back(
        timed([&] { mask = *HeadProtector::personMask(*vision.persons, image, face); }));
    std::vector<BodyObservation> bodies;
    const std::vector faces{face};
    s.body.push_back(timed([&] { bodies = *BodyAnalyzer::observe(*vision.bodies, image, faces); }));
    MainPerson child;
    s.outline.push_back(timed([&] {
        child = mainPerson(mask, image, faces, bodies);
        HeadProtector::headContent(child.mask, face, image.sourceSize);
        HeadProtector::edgeContact(mask);
    }));
    s.subject.push_back(timed([&] {
        const AnalysisImage small{smallCopy(image.image, SubjectAnalyzer::workingSide),
                                  image.sourceSize};
        const auto color = BackdropSampler::color(small.image, mask);
        SubjectAnalyzer::subject(small, child, mask, face, color);
    }));
    s.sign.push_back(timed([&] { SignDetector::detect(*vision.text, image, closeUps, faces); }));
    photo.reset();
    const double before = vision.timer->seconds();
    s.whole.push_back(timed([&] { AnalysisPipeline::analyze(file, vision); }));
    s.models.push_back((vision.timer->seconds() - before) * 1000);
}

int run(const std::filesystem::path& folder) {
    const auto vision =
        VisionServices::open(VisionServices::modelFolder(), Folders::standard().cache);
    if (!vision) {
        std::fprintf(stderr, "%s\n", vision.error().message.c_str());
        return 1;
    }
    useOneCore();
    std::printf(
        "milliseconds, medians of %d runs on one core\n%-28s %8s %8s %8s %8s %8s %8s %8s %8s %8s "
        "%8s %8s %8s\n",
        runs, "photo", "decode", "faces", "refine", "chin", "mask", "body", "outline", "subject",
        "sign", "models", "whole", "ratio");
    for (const char* name : {"pif-kevin-luo.jpg", "woman-bar-boards.jpg", "pif-rajni-aneja.jpg",
                             "pif-becky-slogeris.jpg"}) {
        Stages s;
        for (int i = 0; i <= runs; ++i) {
            if (i == 1) s = {};  // the first run only warms up
            measure(folder / "portraits" / name, *vision, s);
        }
        // Each run against its own floor: the machine's speed drifts between runs.
        std::vector<double> ratios;
        for (std::size_t i = 0; i < s.whole.size(); ++i)
            ratios.push_back(s.whole[i] / (s.decode[i] + s.models[i]));
        std::printf(
            "%-28s %8.1f %8.1f %8.1f %8.1f %8.1f %8.1f %8.1f %8.1f %8.1f %8.1f %8.1f %8.3f\n", name,
            median(s.decode), median(s.faces), median(s.refine), median(s.chin), median(s.mask),
            median(s.body), median(s.outline), median(s.subject), median(s.sign), median(s.models),
            median(s.whole), median(ratios));
    }
    std::printf("ratio: the whole analysis over decoding plus the time inside the models\n");
    return 0;
}

}  // namespace
}  // namespace morva

int main() {
    const auto folder = morva::testPhotographs("analysis_bench");
    return folder ? morva::run(*folder) : 0;
}
