// SPDX-License-Identifier: GPL-3.0-or-later
// The feature print and the tags of real photographs.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include <gtest/gtest.h>

#include "analysis/analysis_pipeline.h"
#include "analysis/photo_test_support.h"
#include "base/files.h"
#include "imaging/decode.h"
#include "poses/tag_classifier.h"

namespace morva {
namespace {

using Print = std::vector<float>;

Picture picture(const std::filesystem::path& file) {
    return PhotoDecode::open(file, AnalysisPipeline::refineMaxPixel)
        ->whole(AnalysisPipeline::analysisMaxPixel);
}

Print printOf(const Picture& image, const VisionServices& vision = realVision()) {
    return PoseFeatures::print(*vision.prints, image).value();
}

double largestDifference(const Print& a, const Print& b) {
    double largest = a.size() == b.size() ? 0 : INFINITY;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        largest = std::max(largest, std::abs(static_cast<double>(a[i]) - b[i]));
    return largest;
}

double distance(const Print& a, const Print& b) {
    double squares = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        squares += std::pow(static_cast<double>(a[i]) - b[i], 2);
    return std::sqrt(squares);
}

/// Without a share of the width and height at each edge.
Picture trimmed(const Picture& whole, double share) {
    const int dx = static_cast<int>(share * whole.width());
    const int dy = static_cast<int>(share * whole.height());
    Picture part(whole.width() - 2 * dx, whole.height() - 2 * dy);
    for (int y = 0; y < part.height(); ++y)
        std::memcpy(part.row(y), whole.pixel(dx, y + dy), part.rowBytes());
    return part;
}

TEST(FeaturePrint, isTheSameInEverySessionAndRevision) {
    const Print print = printOf(picture(samplePortrait()));
    EXPECT_LT(largestDifference(print, printOf(picture(samplePortrait()))), 1e-4);
    const auto again = VisionServices::open(VisionServices::modelFolder(),
                                            std::filesystem::temp_directory_path() / "morva-tests");
    ASSERT_TRUE(again);
    EXPECT_LT(largestDifference(print, printOf(picture(samplePortrait()), *again)), 1e-4);
    // When these change, taught poses become worthless: the printer's revision must rise.
    ASSERT_EQ(print.size(), 384u);
    EXPECT_EQ(FeaturePrinter::revision, 3);
    constexpr std::array<std::pair<std::size_t, double>, 6> known{{{0, 0.03877},
                                                                   {50, 0.17114},
                                                                   {150, -0.00382},
                                                                   {192, -0.03917},
                                                                   {300, -0.05093},
                                                                   {383, -0.02459}}};
    for (const auto& [index, value] : known) EXPECT_NEAR(print[index], value, 1e-4) << index;
}

TEST(FeaturePrint, ofTwoCropsOfOnePhotoIsNearerThanOfTwoPhotos) {
    if (!testData()) GTEST_SKIP() << "MORVA_TEST_DATA names no folder of photographs";
    std::vector<Print> whole;
    std::vector<Print> part;
    for (const char* file : {"kid-girl-hairband.jpg", "man-full-suit.jpg", "group-six.jpg",
                             "us-debbie-stabenow.jpg", "man-holding-book.jpg"}) {
        const Picture photo = picture(*testData() / "portraits" / file);
        whole.push_back(printOf(photo));
        part.push_back(printOf(trimmed(photo, 0.03)));
    }
    for (std::size_t i = 0; i < whole.size(); ++i) {
        for (std::size_t other = 0; other < whole.size(); ++other) {
            if (other == i) continue;
            EXPECT_LT(distance(whole[i], part[i]), 0.7 * distance(whole[i], whole[other]));
        }
    }
}

/// A pose that is met by features like `like` and not by features like `unlike`.
TagClassifier::Model poseBetween(const Print& like, const Print& unlike) {
    TagClassifier::Model model;
    model.tag = "like the sample";
    double middle = 0;
    for (std::size_t i = 0; i < like.size(); ++i) {
        const double toward = static_cast<double>(like[i]) - unlike[i];
        model.mean.push_back(0);
        model.std.push_back(1);
        model.weights.push_back(100 * toward);
        middle += 100 * toward * (static_cast<double>(like[i]) + unlike[i]) / 2;
    }
    model.bias = -middle;
    return model;
}

TEST(PhotoTags, areGivenByTaughtPosesFromTheNextReloadOn) {
    const auto folder = std::filesystem::temp_directory_path() / "morva-tags-image-test";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    AnalysisPipeline::readTaughtPosesFrom(folder);
    const auto analysis = [] { return AnalysisPipeline::analyze(samplePortrait(), realVision()); };
    const auto tags = [&] { return analysis().tags; };
    EXPECT_EQ(tags(), std::vector<std::string>{});
    const Picture sample = picture(samplePortrait());
    const ImageAnalysis record = analysis();
    const auto pose = poseBetween(PoseFeatures::of(printOf(sample), record),
                                  PoseFeatures::of(printOf(trimmed(sample, 0.25)), record));
    ASSERT_TRUE(writeFileAtomically(folder / "poses.json", Json(std::vector{pose}).dump()));
    AnalysisPipeline::reloadTags();
    EXPECT_EQ(tags(), std::vector<std::string>{"like the sample"});
    std::filesystem::remove_all(folder);
    AnalysisPipeline::reloadTags();
    EXPECT_EQ(tags(), std::vector<std::string>{});
}

}  // namespace
}  // namespace morva
