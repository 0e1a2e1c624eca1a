// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "analysis/image_loader.h"
#include "base/files.h"
#include "base/leveling.h"
#include "imaging/colour.h"
#include "imaging/decode.h"
#include "imaging/dot_chart.h"
#include "imaging/encode.h"
#include "imaging/metadata.h"
#include "output/exporter.h"
#include "output/preview_renderer.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

Picture flat(int width, int height, int value) {
    Picture picture(width, height);
    std::fill_n(picture.row(0), picture.byteCount(), static_cast<std::uint8_t>(value));
    return picture;
}

class ExportedCrop : public testing::Test {
protected:
    void SetUp() override {
        fs::remove_all(folder);
        fs::create_directories(folder / "photos");
    }
    void TearDown() override { fs::remove_all(folder); }

    Exporter::Request request(const fs::path& source, const Rect& rect, int width,
                              int height) const {
        Exporter::Request made;
        made.sourceURL = source;
        made.destinationURL = folder / "out" / "crop.jpg";
        made.rect = rect;
        made.settings.pixelWidth = width;
        made.settings.pixelHeight = height;
        return made;
    }

    fs::path photo(const Picture& picture, const std::string& name) const {
        fs::path file = folder / "photos" / name;
        const bool png = file.extension() == ".png";
        const auto bytes = png ? encodePng(picture) : encodeJpeg(picture, 1, 300);
        EXPECT_TRUE(bytes && writeFileAtomically(file, *bytes));
        return file;
    }

    static Picture written(const Exporter::Request& done) {
        const auto result = Exporter::exportPhoto(done);
        EXPECT_TRUE(result) << result.error().message();
        auto region = decodeRegion(done.destinationURL, {0, 0, 1e5, 1e5}, 1);
        return region ? std::move(region->pixels) : Picture();
    }

    const fs::path folder = fs::path(testing::TempDir()) / "morva-exported-crop";
};

TEST_F(ExportedCrop, showsEveryDotWhereTheGeometryPutsIt) {
    const DotChart chart(1501, 1203, 11);
    const fs::path png = photo(chart.picture, "chart.png");
    const fs::path jpeg = photo(chart.picture, "chart.jpg");
    const Point center{750.5, 601.5};
    for (const double degrees : {0.0, -3.0, 0.25, 12.0}) {
        for (const int width : {200, 560, 1000}) {  // half-scale decode, reduced, enlarged
            for (const fs::path& source : {png, jpeg}) {
                SCOPED_TRACE(source.extension().string() + std::to_string(degrees) + " degrees, " +
                             std::to_string(width) + " wide");
                Exporter::Request made =
                    request(source, {310.37, 77.81, 800, 1000}, width, width * 5 / 4);
                made.rotationDegrees = degrees;
                const Picture crop = written(made);
                ASSERT_EQ(crop.width(), width);
                const double scale = width / 800.0;
                double worst = 0;
                for (const Point& dot : chart.centers) {
                    const Point at =
                        (Leveling::level(dot, center, degrees) - Point{made.rect.x, made.rect.y})
                            .scaled(scale, scale);
                    const double reach = (chart.radius + 6) * scale + 2;
                    if (std::min(at.x, at.y) < reach + 1 || at.x > crop.width() - reach - 2 ||
                        at.y > crop.height() - reach - 2)
                        continue;
                    worst = std::max(worst, DotChart::found(crop, at, reach).distance(at));
                }
                EXPECT_GT(worst, 0);
                EXPECT_LT(worst, 0.15);
            }
        }
    }
}

TEST_F(ExportedCrop, fillsWhatLiesOutsideThePhoto) {
    Picture picture = flat(200, 200, 30);
    std::fill_n(picture.row(0), picture.rowBytes(), std::uint8_t{220});
    const fs::path source = photo(picture, "top row light.png");
    Exporter::Request made = request(source, {50, -40, 80, 100}, 160, 200);
    const Picture grey = written(made);
    EXPECT_NEAR(grey.pixel(80, 20)[0], 128, 1);
    EXPECT_NEAR(grey.pixel(80, 150)[0], 30, 1);
    for (const BackdropMode mode : {BackdropMode::repeatEdges, BackdropMode::replace}) {
        made.settings.backdrop = mode;
        const Picture repeated = written(made);
        EXPECT_NEAR(repeated.pixel(80, 20)[0], 220, 1);
        EXPECT_NEAR(repeated.pixel(80, 150)[0], 30, 1);
    }
}

TEST_F(ExportedCrop, isNeverStretched) {
    struct Case {
        Size rect;
        int width, height, expectedHeight;
    };
    const fs::path source = photo(flat(300, 300, 90), "flat.png");
    for (const Case& c : {
             Case{{80, 100}, 240, 300, 300},
             Case{{80.15, 100}, 240, 300, 300},  // ratio off by 0.0015: as asked
             Case{{80.25, 100}, 240, 300, 299},  // off by 0.0025: follows the crop
             Case{{100, 80}, 250, 300, 200},
             Case{{1.5, 50}, 30, 1000, 1000},
         }) {
        const Picture crop =
            written(request(source, {20, 20, c.rect.width, c.rect.height}, c.width, c.height));
        EXPECT_EQ(crop.width(), c.width);
        EXPECT_EQ(crop.height(), c.expectedHeight);
    }
}

TEST_F(ExportedCrop, carriesProfileRatingAndMarkerAndLeavesTheSourceAlone) {
    const fs::path source = photo(flat(100, 100, 90), "plain.jpg");
    const std::string before = sha256(*readFile(source));
    Exporter::Request made = request(source, {10, 10, 40, 50}, 80, 100);
    made.destinationURL = folder / "out" / "2024" / "a.jpg";
    made.settings.starRating = 4;
    made.settings.preserveMetadata = false;
    written(made);
    EXPECT_EQ(sha256(*readFile(source)), before);
    EXPECT_TRUE(fs::exists(folder / "out" / "2024" / ImageLoader::exportMarkerName));
    const auto files = fs::directory_iterator(made.destinationURL.parent_path());
    EXPECT_EQ(std::distance(files, {}), 2);
    EXPECT_EQ(readProperties(made.destinationURL)->xmpRating, "4");
    EXPECT_EQ(readFile(made.destinationURL)->find("ICC_PROFILE") != std::string::npos, true);
    EXPECT_EQ(decodeRegion(made.destinationURL, {0, 0, 9, 9}, 1)->iccProfile, srgbProfile());
}

TEST_F(ExportedCrop, takesThePlaceOfALinkAndLeavesWhatItLeadsTo) {
    const Exporter::Request made =
        request(photo(flat(100, 100, 90), "a.png"), {10, 10, 40, 50}, 80, 100);
    ASSERT_TRUE(writeFileAtomically(folder / "theirs", "kept"));
    fs::create_directories(folder / "out");
    fs::create_symlink("../theirs", made.destinationURL);
    fs::create_symlink("../new", folder / "out" / ImageLoader::exportMarkerName);
    EXPECT_EQ(written(made).width(), 80);
    EXPECT_FALSE(fs::is_symlink(made.destinationURL));
    EXPECT_EQ(*readFile(folder / "theirs"), "kept");
    EXPECT_FALSE(fs::exists(folder / "new"));
}

TEST_F(ExportedCrop, failsInTheFixedOrderWithItsSentence) {
    const fs::path source = photo(flat(100, 100, 90), "a.png");
    const fs::path broken = folder / "photos" / "broken.jpg";
    ASSERT_TRUE(writeFileAtomically(broken, "no photo"));
    ASSERT_TRUE(writeFileAtomically(folder / "file", ""));
    fs::create_symlink(source, folder / "link.jpg");
    fs::create_directories(folder / "taken.jpg" / "inside");
    const Rect good{10, 10, 40, 50};
    struct Case {
        fs::path source;
        fs::path destination;
        Rect rect;
        int pixelWidth;
        std::string message;
    };
    const std::string neverOverwritten =
        "The export folder must be different from the source folder. Originals are never "
        "overwritten.";
    for (const Case& c : {
             Case{broken, broken, {10, 10, 1, 500}, 0, "The crop rectangle is empty."},
             Case{source,
                  folder / "o.jpg",
                  {10, 10, 40, std::nan("")},
                  80,
                  "The crop rectangle is empty."},
             Case{source, folder / "photos" / "." / "a.png", good, 80, neverOverwritten},
             Case{source, folder / "link.jpg", good, 80, neverOverwritten},
             Case{broken, folder / "file" / "o.jpg", good, 0, "Could not read broken.jpg."},
             Case{source, folder / "file" / "o.jpg", good, 0,
                  "Could not render the crop for a.png."},
             Case{source, folder / "file" / "o.jpg", good, 80,
                  "Could not create the folder file: Not a directory."},
             Case{source, folder / "taken.jpg", good, 80, "Could not write taken.jpg."},
         }) {
        Exporter::Request made = request(c.source, c.rect, c.pixelWidth, 100);
        made.destinationURL = c.destination;
        const auto result = Exporter::exportPhoto(made);
        ASSERT_FALSE(result) << c.message;
        EXPECT_EQ(result.error().message(), c.message);
    }
}

TEST_F(ExportedCrop, isTheSameFromFourThreadsAtOnce) {
    const fs::path source = photo(DotChart(300, 250, 8).picture, "chart.jpg");
    const auto bytesFrom = [&](int number) {
        Exporter::Request made = request(source, {40.5, 30.5, 80, 100}, 160, 200);
        made.destinationURL = folder / "out" / (std::to_string(number) + ".jpg");
        made.rotationDegrees = number % 2 * 3;
        made.settings.starRating = 5;
        EXPECT_TRUE(Exporter::exportPhoto(made));
        return *readFile(made.destinationURL);
    };
    const std::string straight = bytesFrom(0);
    const std::string turned = bytesFrom(1);
    std::vector<std::thread> workers;
    for (int worker = 1; worker <= 4; ++worker) {
        workers.emplace_back([&, worker] {
            for (int i = 0; i < 10; ++i)
                EXPECT_EQ(bytesFrom(worker * 100 + i), i % 2 ? turned : straight);
        });
    }
    for (std::thread& worker : workers) worker.join();
}

TEST(CropPreview, showsTheCutOfTheExporterOnItsFill) {
    const DotChart chart(900, 700, 10);
    const Size source{1800, 1400};  // the chart is the photo at half its size
    const Rect rect{300.4, 250.2, 800, 1000};
    for (const double degrees : {0.0, 7.0}) {
        const auto preview =
            PreviewRenderer::cropPreview(chart.picture, rect, degrees, source, 400);
        ASSERT_TRUE(preview);
        ASSERT_EQ(preview->width(), 320);
        for (const Point& dot : chart.centers) {
            const Point levelled = Leveling::level(dot.scaled(2, 2), {900, 700}, degrees);
            const Point at = (levelled - Point{rect.x, rect.y}).scaled(0.4, 0.4);
            const double reach = 14;
            if (std::min(at.x, at.y) < reach + 1 || at.x > 320 - reach - 2 ||
                at.y > 400 - reach - 2)
                continue;
            EXPECT_LT(DotChart::found(*preview, at, reach).distance(at), 0.1);
        }
    }
    const Rect outside{-900, 0, 800, 1000};
    const double blue[] = {0.2, 0.4, 1};
    EXPECT_EQ(PreviewRenderer::cropPreview(chart.picture, outside, 0, source, 50)->pixel(9, 9)[0],
              115);
    EXPECT_EQ(
        PreviewRenderer::cropPreview(chart.picture, outside, 0, source, 50, blue)->pixel(9, 9)[2],
        255);
    EXPECT_FALSE(PreviewRenderer::cropPreview(chart.picture, {0, 0, 0, 10}, 0, source, 50));
    EXPECT_FALSE(PreviewRenderer::cropPreview("/no/photo.jpg", rect, 0, source, 50, 900));
}

/// Asks for the end of the run while the child is cut out.
class StoppingCutter final : public ChildCutter {
public:
    explicit StoppingCutter(std::stop_source& stop) : stop_(stop) {}
    Result<std::optional<CutOut>> cutOut(DecodedRegion&) const override {
        ++calls;
        stop_.request_stop();
        return failure("The cutting out was stopped.");
    }
    mutable int calls = 0;

private:
    std::stop_source& stop_;
};

TEST_F(ExportedCrop, thatIsCancelledIsNotRenderedAnotherWay) {
    auto made = request(photo(Picture(60, 80), "a.png"), {5, 5, 40, 50}, 32, 40);
    made.settings.backdrop = BackdropMode::replace;
    std::stop_source stop;
    const StoppingCutter cutter(stop);
    for (int time = 0; time < 2; ++time) {
        const auto done = Exporter::finish(made, &cutter, stop.get_token());
        ASSERT_FALSE(done);
        EXPECT_EQ(done.error().kind, ExportError::Kind::cancelled);
    }
    EXPECT_EQ(cutter.calls, 1);
    EXPECT_FALSE(fs::exists(folder / "out"));
}

}  // namespace
}  // namespace morva
