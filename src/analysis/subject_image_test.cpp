// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analysis/composite_test_support.h"
#include "analysis/photo_test_support.h"

namespace morva {
namespace {

using Outline = std::vector<Point>;  // face units from the eyes, x to the right, y down

Outline box(double left, double top, double right, double bottom) {
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

Outline disc(Point center, double radius) {
    Outline outline;
    for (int i = 0; i < 48; ++i) {
        const double angle = i * std::numbers::pi / 24;
        outline.push_back(center + Point{radius * std::cos(angle), radius * std::sin(angle)});
    }
    return outline;
}

struct Prop {
    std::string name;
    Outline outline;
};

ImageAnalysis analysed(const AnalysisImage& image) {
    return AnalysisPipeline::analyze(image, std::nullopt, std::nullopt,
                                     AnalysisPipeline::Clock::now(), realVision());
}

Picture textureOf(const std::filesystem::path& file) {
    const auto photo = PhotoDecode::open(file, 1024);
    Picture whole = photo->whole(1024);
    // The middle half: printed matter and plush without the table around it.
    const int width = whole.width() / 2;
    const int height = whole.height() / 2;
    Picture part(width, height);
    for (int y = 0; y < height; ++y)
        std::memcpy(part.row(y), whole.pixel(width / 2, y + height / 2), part.rowBytes());
    return part;
}

std::string portraitName(const testing::TestParamInfo<std::string>& portrait) {
    std::string name = std::filesystem::path(portrait.param).stem().string();
    std::ranges::replace(name, '-', '_');
    return name;
}

class HeldThings : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override {
        if (!testData()) GTEST_SKIP() << "MORVA_TEST_DATA is not set";
    }
};

TEST_P(HeldThings, belongToTheSubject) {
    const auto folder = *testData() / "portraits";
    const AnalysisImage bare = loadForAnalysis(folder / GetParam());
    const ImageAnalysis without = analysed(bare);
    ASSERT_TRUE(without.subject && without.subject->reliable);
    const FaceGeometry& face = without.faces.front();
    const double unit = face.faceUnit();
    const Rect own = without.subject->bounds;
    const double left = (own.x - face.eyeMidpoint().x) / unit;
    const double right = (own.maxX() - face.eyeMidpoint().x) / unit;
    const double frameLeft = -face.eyeMidpoint().x / unit;
    const double frameRight = frameLeft + bare.sourceSize.width / unit;
    const std::vector<Prop> props{
        {"card at the chest", box(-1.2, 2.2, 1.2, 3.4)},
        {"book at the arm", box(right - 0.8, 2.2, right + 0.7, 3.6)},
        {"board wider than the child", box(std::max(left - 0.5, frameLeft + 0.2), 2.4,
                                           std::min(right + 0.5, frameRight - 0.2), 3.8)},
        {"ball under the arm", disc({left + 0.2, 2.9}, 0.9)},
        {"toy beside the head", disc({1.0, 1.4}, 0.75)},
        {"instrument", {{-0.4, 3.0}, {-0.1, 2.6}, {right + 0.9, 1.6}, {right + 1.1, 1.9}}},
    };
    const Picture texture = textureOf(folder / "noface-plush-notes.jpg");
    const Point toImage{1 / bare.scaleToSource().x, 1 / bare.scaleToSource().y};
    for (const Prop& prop : props) {
        SCOPED_TRACE(prop.name);
        AnalysisImage image = copyOf(bare);
        Outline corners;
        Rect expected = own;
        for (const Point corner : prop.outline) {
            const Point at = face.eyeMidpoint() + corner.scaled(unit, unit);
            corners.push_back(at.scaled(toImage.x, toImage.y));
            const Rect sofar = expected;
            const double x = std::clamp(at.x, 0.0, bare.sourceSize.width);
            const double y = std::clamp(at.y, 0.0, bare.sourceSize.height);
            expected.x = std::min(sofar.x, x);
            expected.y = std::min(sofar.y, y);
            expected.width = std::max(sofar.maxX(), x) - expected.x;
            expected.height = std::max(sofar.maxY(), y) - expected.y;
        }
        paste(image, texture, corners);
        const ImageAnalysis with = analysed(image);
        ASSERT_TRUE(with.subject);
        EXPECT_TRUE(with.subject->reliable) << with.subject->note.value_or("");
        const Rect found = with.subject->bounds;
        // Never cut, and not much more: the outline of the person moves a little with the thing.
        const double cut = 0.15 * unit;
        const double more = -0.3 * unit;
        EXPECT_THAT(found.x - expected.x, testing::AllOf(testing::Le(cut), testing::Ge(more)));
        EXPECT_THAT(found.y - expected.y, testing::AllOf(testing::Le(cut), testing::Ge(more)));
        EXPECT_THAT(expected.maxX() - found.maxX(),
                    testing::AllOf(testing::Le(cut), testing::Ge(more)));
        EXPECT_THAT(expected.maxY() - found.maxY(),
                    testing::AllOf(testing::Le(cut), testing::Ge(more)));
    }
}

INSTANTIATE_TEST_SUITE_P(Portraits, HeldThings,
                         testing::Values("pif-madhavi-bharadwaj.jpg", "pif-stephanie-farquhar.jpg",
                                         "woman-cap-text.jpg"),
                         portraitName);

}  // namespace
}  // namespace morva
