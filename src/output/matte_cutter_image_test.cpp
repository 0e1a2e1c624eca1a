// SPDX-License-Identifier: GPL-3.0-or-later
// The whole way to a new backdrop on the sample portrait, with the real detectors.
#include <cmath>
#include <filesystem>

#include <gtest/gtest.h>

#include "analysis/analysis_pipeline.h"
#include "analysis/photo_test_support.h"
#include "imaging/resample.h"
#include "output/backdrop_replacer.h"
#include "output/backdrop_test_support.h"
#include "output/crop_renderer.h"
#include "output/exporter.h"
#include "output/matte_cutter.h"
#include "output/plate_analyzer.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

class ReplacedPortrait : public BackdropFiles {
protected:
    void SetUp() override {
        BackdropFiles::SetUp();
        request.sourceURL = samplePortrait();
        request.destinationURL = folder / "crop.jpg";
        // Reaches beyond the photo of 512 x 512 above and to both sides.
        request.rect = {-40, -30, 560, 700};
        request.rotationDegrees = 1.5;
        request.settings.pixelWidth = 800;
        request.settings.pixelHeight = 1000;
        request.settings.jpegQuality = 0.95;
        request.settings.backdrop = BackdropMode::replace;
        const ImageAnalysis analysis = AnalysisPipeline::analyze(request.sourceURL, vision);
        ASSERT_TRUE(analysis.primary());
        faces = analysis.faces;
        request.headAnchor = analysis.primary()->eyeMidpoint();
    }

    Picture exported() const {
        const MatteCutter cutter(request.sourceURL, faces, vision);
        const auto done = Exporter::exportPhoto(request, &cutter);
        EXPECT_TRUE(done && done->fallbacks.empty());
        auto written = decodeRegion(request.destinationURL, {0, 0, 1e5, 1e5}, 1);
        return written ? std::move(written->pixels) : Picture();
    }

    Exporter::Request request;
    const VisionServices& vision = realVision();
    std::vector<FaceGeometry> faces;
};

TEST_F(ReplacedPortrait, showsTheChildBeforeTheColourAndNothingElse) {
    request.settings.backdropColor = Rgb{0.1, 0.3, 0.6};
    request.settings.backdropVignette = 0;
    const Picture crop = exported();
    const Levels blue{26, 77, 153};
    for (const auto& [x, y] : {std::pair{20, 20}, {780, 20}, {400, 20}, {150, 200}, {700, 250}})
        for (std::size_t c = 0; c < 3; ++c)
            EXPECT_NEAR(meanAround(crop, x, y, 8, c), blue[c], 8) << x << ", " << y;
    // The orange suit below the face, where the photo shows nothing blue.
    const Point eyes = *request.headAnchor - Point{request.rect.x, request.rect.y};
    const double scale = 800 / request.rect.width;
    const auto x = static_cast<int>(eyes.x * scale);
    const auto y = static_cast<int>((eyes.y + faces.front().faceUnit() * 0.3) * scale);
    EXPECT_GT(meanAround(crop, x, y, 12, 0), meanAround(crop, x, y, 12, 2) + 20) << "skin";
}

TEST_F(ReplacedPortrait, isTheSameFileEveryTime) {
    exported();
    const auto first = readFile(request.destinationURL);
    exported();
    EXPECT_EQ(first, readFile(request.destinationURL));
}

TEST_F(ReplacedPortrait, looksInAPreviewLikeTheFinishedFile) {
    const fs::path plate = saved(even(90, 60, {40, 90, 70}), "plate.png");
    for (const bool withPlate : {false, true}) {
        SCOPED_TRACE(withPlate ? "plate" : "generated");
        if (withPlate) request.settings.plateURL = plate;
        const MatteCutter cutter(request.sourceURL, faces, vision);
        const auto preview = CropRenderer::preview(
            request.sourceURL, {512, 512}, request.rotationDegrees,
            {request.rect, {}, request.settings, request.headAnchor, &cutter}, 250);
        ASSERT_TRUE(preview && preview->fallbacks.empty());
        const Picture crop = exported();
        ASSERT_EQ(preview->picture.width(), 200);
        double sum = 0;
        for (int y = 0; y < 250; ++y)
            for (int x = 0; x < 200; ++x)
                for (std::size_t c = 0; c < 3; ++c)
                    sum += std::abs(preview->picture.pixel(x, y)[c] -
                                    meanAround(crop, x * 4 + 2, y * 4 + 2, 2, c));
        EXPECT_LT(sum / (250 * 200 * 3), 3);
        RecordProperty("difference", std::to_string(sum / (250 * 200 * 3)));
    }
}

TEST_F(ReplacedPortrait, hasThePlateInTheColoursOfThePhoto) {
    if (!testData()) GTEST_SKIP() << "MORVA_TEST_DATA names no folder of photographs";
    request.sourceURL = *testData() / "formats/color/portrait-adobergb.jpg";
    const ImageAnalysis analysis = AnalysisPipeline::analyze(request.sourceURL, vision);
    ASSERT_TRUE(analysis.primary());
    faces = analysis.faces;
    request.rect = {-200, -250, analysis.sourceWidth + 400.0,
                    (analysis.sourceWidth + 400.0) * 1.25};
    request.settings.plateURL = saved(even(90, 60, {40, 160, 70}), "plate.png");
    exported();
    auto written = decodeRegion(request.destinationURL, {0, 0, 60, 60}, 1);
    ASSERT_TRUE(written);
    EXPECT_GT(std::abs(*written->pixels.pixel(10, 10) - 40), 20) << "coded otherwise";
    const ToSrgb toSrgb(ColourModel::rgb, written->iccProfile);
    std::uint8_t* corner = written->pixels.pixel(10, 10);
    toSrgb.convert(corner, corner, 1);
    EXPECT_NEAR(corner[0], 40, 6);
    EXPECT_NEAR(corner[1], 160, 4);
    EXPECT_NEAR(corner[2], 70, 4);
}

TEST_F(ReplacedPortrait, showsPlatesOfEveryFormatAsTheyLookInSrgb) {
    if (!testData()) GTEST_SKIP() << "MORVA_TEST_DATA names no folder of photographs";
    const BlockPortrait portrait{.child = {0, 990, 5, 10}};
    for (const char* name :
         {"color/p3.png", "color/prophoto.png", "color/portrait-adobergb.jpg",
          "color/portrait-displayp3.jpg", "color/portrait-gray.jpg", "color/cmyk-swop.jpg",
          "misc/monkey16.png", "heic/displayp3-orientation-6.heic"}) {
        SCOPED_TRACE(name);
        BackdropReplacer::Options options;
        options.plateURL = *testData() / "formats" / name;
        options.plateZoom = 1;
        const auto plate = PhotoDecode::open(*options.plateURL, 1 << 20);
        ASSERT_TRUE(plate);
        const Picture whole = plate->whole(1 << 20);
        // A crop of the plate's own shape shows all of it, turned by nothing.
        const Rect crop{0, 0, 800, 800.0 * whole.height() / whole.width()};
        const CropView view = portrait.view(crop, 200);
        DecodedRegion photo = portrait.decoded();
        const auto done =
            BackdropReplacer::replace(photo, view, crop, options, BlockCutter(portrait.child, {}));
        ASSERT_TRUE(done && *done && !(*done)->plateUnreadable);
        const auto expected = resampled(
            whole, {0, 0, static_cast<double>(whole.width()), static_cast<double>(whole.height())},
            view.width(), view.height());
        ASSERT_TRUE(expected);
        double sum = 0;
        for (std::size_t i = 0; i < expected->byteCount(); ++i)
            sum += std::abs(expected->bytes()[i] - (*done)->picture.bytes()[i]);
        EXPECT_LT(sum / static_cast<double>(expected->byteCount()), 5);
    }
}

TEST(PlateMeasurement, findsWhereAPhotographIsBright) {
    if (!testData()) GTEST_SKIP() << "MORVA_TEST_DATA names no folder of photographs";
    struct Case {
        const char* photo;
        Point hotSpot;
        std::optional<double> floorLine;
    };
    for (const Case& c : {
             Case{"noface-back-cap.jpg", {0.51, 0.16}, {}},         // sky over a slope
             Case{"noface-book-text.jpg", {0.18, 0.62}, {}},        // a page in light
             Case{"noface-plush-notes.jpg", {0.43, 0.15}, {}},      // white feathers
             Case{"noface-whiteboard-text.jpg", {0.04, 0.73}, .88}  // ends before a dark floor
         }) {
        SCOPED_TRACE(c.photo);
        const fs::path file = *testData() / "portraits" / c.photo;
        const auto spot = PlateAnalyzer::hotSpot(file);
        const auto floorLine = PlateAnalyzer::floorLine(file);
        ASSERT_TRUE(spot);
        EXPECT_LT(spot->distance(c.hotSpot), 0.05);
        ASSERT_EQ(floorLine.has_value(), c.floorLine.has_value());
        EXPECT_NEAR(floorLine.value_or(0), c.floorLine.value_or(0), 0.02);
    }
}

TEST(MatteCutter, cutsOutTheMainChildOfASiblingPairAlone) {
    if (!testData()) GTEST_SKIP() << "MORVA_TEST_DATA names no folder of photographs";
    const fs::path photo = *testData() / "portraits/kids-two-brothers.jpg";
    const ImageAnalysis analysis = AnalysisPipeline::analyze(photo, realVision());
    ASSERT_GE(analysis.faces.size(), 2u);
    auto whole = decodeRegion(photo, {0, 0, 1e5, 1e5}, 1);
    ASSERT_TRUE(whole);
    const auto cut = MatteCutter(photo, analysis.faces, realVision()).cutOut(*whole);
    ASSERT_TRUE(cut && *cut);
    const auto alphaAt = [&](Point place) {
        return *(*cut)->alpha.pixel(static_cast<int>(place.x), static_cast<int>(place.y));
    };
    EXPECT_GT(alphaAt(analysis.faces[0].faceCenter()), 250);
    EXPECT_LT(alphaAt(analysis.faces[1].faceCenter()), 60);
}

}  // namespace
}  // namespace morva
