// SPDX-License-Identifier: GPL-3.0-or-later
// The real detectors on real photographs: the sample portrait everywhere, the reference photographs
// where they are.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <future>
#include <map>
#include <optional>
#include <set>

#include <gtest/gtest.h>

#include "analysis/analysis_pipeline.h"
#include "analysis/image_loader.h"
#include "analysis/photo_test_support.h"
#include "base/files.h"
#include "base/json.h"
#include "imaging/decode.h"
#include "vision/picture_region.h"

namespace morva {
namespace {

ImageAnalysis analyzed(const std::filesystem::path& file) {
    return AnalysisPipeline::analyze(file, realVision());
}

/// Shares its records between the tests of this file: each photo is measured once.
const ImageAnalysis& reference(const std::string& file) {
    static std::map<std::string, ImageAnalysis> known;
    const auto found = known.find(file);
    return found != known.end() ? found->second
                                : known.emplace(file, analyzed(*testData() / file)).first->second;
}

double quantile(std::vector<double> values, double share) {
    std::ranges::sort(values);
    return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1) + 0.5)];
}

TEST(SamplePortrait, isMeasuredWhereAPersonReadsIt) {
    const ImageAnalysis record = analyzed(samplePortrait());
    ASSERT_EQ(record.faces.size(), 1u);
    EXPECT_FALSE(record.error);
    const FaceGeometry& face = record.faces.front();
    const double unit = 76;  // read by eye, like the places below
    EXPECT_LT(face.eyeMidpoint().distance({224.5, 102}), 0.05 * unit);
    EXPECT_LT(face.chin.distance({224, 178}), 0.1 * unit);
    ASSERT_TRUE(record.headContent);
    EXPECT_TRUE(record.headContent->reliable);
    EXPECT_NEAR(record.headContent->topY, 15, 0.05 * unit);
    EXPECT_GT(face.landmarkConfidence, 0.9);
    ASSERT_TRUE(record.edgeContact);
    EXPECT_TRUE(record.edgeContact->bottom);
    EXPECT_FALSE(record.edgeContact->top || record.edgeContact->left);
    EXPECT_EQ(decoded<ImageAnalysis>(Json(record).dump(), "the record"), record);
}

/// The sample portrait on a large grey canvas, reduced and turned about its middle.
Picture onCanvas(int width, int height, double scale, double degrees) {
    const auto decode = PhotoDecode::open(samplePortrait(), 4096);
    const Picture portrait = decode->whole(4096);
    Picture canvas(width, height);
    const Point middle{width / 2.0, height / 2.0};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const Point at = (Point{x + 0.5, y + 0.5}.rotated(middle, -degrees) - middle)
                                 .scaled(1 / scale, 1 / scale) +
                             Point{portrait.width() / 2.0, portrait.height() / 2.0};
            const bool inside =
                at.x >= 0 && at.y >= 0 && at.x < portrait.width() && at.y < portrait.height();
            for (int c = 0; c < 3; ++c) {
                canvas.pixel(x, y)[c] =
                    inside ? portrait.pixel(static_cast<int>(at.x), static_cast<int>(at.y))[c]
                           : std::uint8_t{128};
            }
        }
    }
    return canvas;
}

TEST(SecondLooks, findSmallTiltedAndFallenFaces) {
    struct Case {
        const char* what;
        int width, height;
        double scale, degrees;
    };
    for (const Case& c :
         {Case{"upright", 600, 600, 1, 0}, Case{"tilted by 40 degrees", 800, 800, 1, 40},
          Case{"small in a full-length photo", 1400, 2048, 0.4, 0},
          Case{"very small and tilted", 1800, 2048, 0.4, -25},
          Case{"nearly on its side", 800, 800, 1, 80}}) {
        SCOPED_TRACE(c.what);
        const auto faces = FaceAnalyzer::detectFaces(
            *realVision().faces, onCanvas(c.width, c.height, c.scale, c.degrees),
            {static_cast<double>(c.width), static_cast<double>(c.height)});
        ASSERT_TRUE(faces);
        ASSERT_EQ(faces->size(), 1u);
        const FaceGeometry& face = faces->front();
        const Point middle{c.width / 2.0, c.height / 2.0};
        const Point eyes = (Point{224.5 - 256, 102 - 256}.scaled(c.scale, c.scale) + middle)
                               .rotated(middle, c.degrees);
        EXPECT_LT(face.eyeMidpoint().distance(eyes), 0.15 * 76 * c.scale);
        EXPECT_NEAR(face.faceUnit() / (76 * c.scale), 1, 0.12);
    }
}

TEST(ReferencePhotographs, areMeasuredAsWellAsPromised) {
    if (!testData()) GTEST_SKIP() << "no reference photographs here";
    std::vector<double> eyes;
    std::vector<double> chins;
    std::vector<double> tops;
    std::vector<double> ratios;
    const Json entries = Json::parse(*readFile(*testData() / "references.json"));
    for (const Json& entry : entries) {
        const auto file = entry["file"].get<std::string>();
        SCOPED_TRACE(file);
        const ImageAnalysis& record = reference(file);
        ASSERT_FALSE(record.faces.empty());
        const FaceGeometry& face = record.faces.front();
        const Point midpoint =
            entry["left_eye"].get<Point>().midpoint(entry["right_eye"].get<Point>());
        const double unit = midpoint.distance(entry["chin"].get<Point>());
        eyes.push_back(face.eyeMidpoint().distance(midpoint) / unit);
        chins.push_back(face.chin.distance(entry["chin"].get<Point>()) / unit);
        tops.push_back(std::abs(record.headContent.value().topY - entry["crown"][1].get<double>()) /
                       unit);
        ratios.push_back(face.faceUnit() / unit);
    }
    EXPECT_LE(quantile(eyes, 0.5), 0.017);
    EXPECT_LE(quantile(eyes, 0.9), 0.026);
    EXPECT_LE(quantile(chins, 0.5), 0.038);
    EXPECT_LE(quantile(chins, 0.9), 0.085);
    EXPECT_LE(quantile(tops, 0.5), 0.007);
    EXPECT_LE(quantile(tops, 0.9), 0.019);
    double mean = 0;
    double variance = 0;
    for (const double ratio : ratios) mean += ratio / static_cast<double>(ratios.size());
    for (const double ratio : ratios)
        variance += (ratio - mean) * (ratio - mean) / static_cast<double>(ratios.size());
    EXPECT_NEAR(mean, 1, 0.02);
    EXPECT_LE(std::sqrt(variance), 0.024);
}

TEST(ReferencePhotographs, keepToTheirRegressionPoints) {
    if (!testData()) GTEST_SKIP() << "no reference photographs here";
    // Read by eye, this chin lies 0.08 units below the stored point, and the border of the skin
    // follows the eye.
    const std::string readLower = "portraits/official-portrait-obama.jpg";
    const Json points = Json::parse(*readFile(*testData() / "regression-points.json"));
    for (const Json& point : points["photos"]) {
        const auto file = point["file"].get<std::string>();
        SCOPED_TRACE(file);
        const ImageAnalysis& record = reference(file);
        ASSERT_FALSE(record.faces.empty());
        const FaceGeometry& face = record.faces.front();
        const auto unit = point["faceUnit"].get<double>();
        const auto tolerance = [&](const char* what) {
            return point["tolerance"][what].get<double>();
        };
        EXPECT_LE(face.eyeMidpoint().distance(point["eyeMidpoint"].get<Point>()) / unit,
                  tolerance("eye"));
        EXPECT_LE(face.chin.distance(point["chin"].get<Point>()) / unit,
                  file == readLower ? 0.08 : tolerance("chin"));
        EXPECT_LE(std::abs(record.headContent.value().topY - point["crownY"].get<double>()) / unit,
                  tolerance("crown"));
    }
}

TEST(ReferencePhotographs, yieldTheirFacesAndNoOthers) {
    if (!testData()) GTEST_SKIP() << "no reference photographs here";
    // Full profiles, on which no landmarks can be measured, and a face behind a camera.
    const std::set<std::string> unmeasurable{"man-cap-profile-bench", "teen-profile-glasses",
                                             "scene-camera-man-profile"};
    const auto files = ImageLoader::listImages(*testData() / "portraits");
    ASSERT_TRUE(files);
    for (const auto& file : *files) {
        const std::string name = file.stem().string();
        SCOPED_TRACE(name);
        const ImageAnalysis& record = reference("portraits/" + file.filename().string());
        const bool expected = !name.starts_with("noface-") && !unmeasurable.contains(name);
        EXPECT_EQ(!record.faces.empty(), expected);
        EXPECT_EQ(record.error.value_or(""), expected ? "" : "No face was found.");
        EXPECT_FALSE(record.detectionFailed);
    }
}

TEST(UnreadablePhotos, getARecordThatSaysSo) {
    const auto file = std::filesystem::path(testing::TempDir()) / "not-a-photo.jpg";
    ASSERT_TRUE(writeFileAtomically(file, "this is no picture"));
    const ImageAnalysis record = analyzed(file);
    EXPECT_EQ(record.error, "Could not read this image.");
    EXPECT_TRUE(record.detectionFailed);
    EXPECT_EQ(record.version, 11);
    std::filesystem::remove(file);
}

TEST(Repeatability, isTheSameAloneAndInAPool) {
    const auto withoutTime = [](ImageAnalysis record) {
        record.analysisSeconds = 0;
        return record;
    };
    const ImageAnalysis alone = withoutTime(analyzed(samplePortrait()));
    std::vector<std::future<ImageAnalysis>> pool;
    for (int worker = 0; worker < 4; ++worker) {
        pool.push_back(std::async(std::launch::async, [] { return analyzed(samplePortrait()); }));
    }
    for (auto& result : pool) EXPECT_EQ(withoutTime(result.get()), alone);
}

/// Finds the faces and has the run cancelled meanwhile.
class CancellingFaces final : public FaceDetector {
public:
    explicit CancellingFaces(std::stop_source& stop) : stop_(stop) {}
    Result<std::vector<FaceObservation>> faces(const Picture& picture) const override {
        stop_.request_stop();
        return realVision().faces->faces(picture);
    }

private:
    std::stop_source& stop_;
};

TEST(Analysis, thatIsCancelledAsksNoFurtherDetectorAndGivesNothing) {
    std::stop_source stop;
    VisionServices vision;  // what comes after the faces is not there
    vision.faces = std::make_shared<CancellingFaces>(stop);
    EXPECT_FALSE(AnalysisPipeline::analyze(samplePortrait(), vision, stop.get_token()));
    vision.faces = nullptr;
    EXPECT_FALSE(AnalysisPipeline::analyze(samplePortrait(), vision, stop.get_token()));
}

}  // namespace
}  // namespace morva
