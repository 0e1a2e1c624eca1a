// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/subject_analyzer.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "analysis/backdrop_sampler.h"

namespace morva {
namespace {

struct Color {
    int red, green, blue;
};

/// A studio photo of 320 x 400 pixels: a wall that darkens toward the corners, a child of one
/// colour, a face 40 pixels in size with its eyes at (160, 100).
struct Studio {
    AnalysisImage image{Picture(320, 400), {320, 400}};
    Mask persons{320, 400};
    FaceGeometry face;

    explicit Studio(Rect child = {110, 60, 100, 340}) {
        for (int y = 0; y < 400; ++y) {
            for (int x = 0; x < 320; ++x) {
                const int fall = ((x - 160) * (x - 160) + (y - 200) * (y - 200)) / 1500;
                set(x, y, {150 - fall, 160 - fall, 170 - fall});
                *persons.pixel(x, y) = 0;
            }
        }
        fill(child, {90, 40, 60});
        for (int y = static_cast<int>(child.y); y < child.maxY(); ++y)
            std::fill_n(persons.pixel(static_cast<int>(child.x), y), static_cast<int>(child.width),
                        std::uint8_t{255});
        face.leftEye = {145, 100};
        face.rightEye = {175, 100};
        face.chin = {160, 140};
        face.faceBox = {133, 88, 54, 54};
    }
    void set(int x, int y, Color color) {
        std::uint8_t* pixel = image.image.pixel(x, y);
        pixel[0] = static_cast<std::uint8_t>(color.red);
        pixel[1] = static_cast<std::uint8_t>(color.green);
        pixel[2] = static_cast<std::uint8_t>(color.blue);
    }
    void fill(Rect rect, Color color) {
        for (int y = static_cast<int>(rect.y); y < rect.maxY(); ++y)
            for (int x = static_cast<int>(rect.x); x < rect.maxX(); ++x) set(x, y, color);
    }
    SubjectContent subject() const {
        const MainPerson child = mainPerson(persons, image, std::vector{face}, {});
        return *SubjectAnalyzer::subject(image, child, persons, face,
                                         BackdropSampler::color(image.image, persons));
    }
};

TEST(SubjectAnalyzer, measuresTheChildAloneOnAnUnevenWall) {
    const SubjectContent subject = Studio().subject();
    EXPECT_TRUE(subject.reliable) << subject.note.value_or("");
    EXPECT_EQ(subject.bounds, (Rect{110, 60, 100, 340}));
    EXPECT_EQ(subject.propReach, 0);
    EXPECT_EQ(subject.edges, (EdgeContact{false, true, false, false}));
}

TEST(SubjectAnalyzer, addsWhatIsHeldAndSaysHowFarItReaches) {
    Studio studio;
    studio.fill({200, 220, 60, 50}, {200, 60, 30});
    const SubjectContent subject = studio.subject();
    EXPECT_TRUE(subject.reliable);
    EXPECT_NEAR(subject.bounds.maxX(), 260, 3);
    EXPECT_NEAR(subject.propReach, 50.0 / 40, 0.08) << "face units";
    Studio apart;
    apart.fill({230, 220, 60, 50}, {200, 60, 30});
    EXPECT_EQ(apart.subject().bounds.maxX(), 210) << "a thing on the wall is not held";
    Studio shadow;
    shadow.fill({210, 120, 20, 200}, {138, 148, 158});
    EXPECT_EQ(shadow.subject().bounds.maxX(), 210) << "the child's shadow is not a thing";
}

TEST(SubjectAnalyzer, takesAFloorForBackdrop) {
    Studio studio({130, 60, 60, 300});
    for (int y = 300; y < 400; ++y) {
        for (int x = 0; x < 320; ++x) {
            if (*studio.persons.pixel(x, y) == 0) studio.set(x, y, {110, 80, 50});
        }
    }
    const SubjectContent subject = studio.subject();
    EXPECT_TRUE(subject.reliable) << subject.note.value_or("");
    EXPECT_EQ(subject.bounds, (Rect{130, 60, 60, 300}));
}

TEST(SubjectAnalyzer, saysWhyAnOutlineIsNotReliable) {
    Studio furniture;
    furniture.fill({190, 150, 130, 250}, {60, 30, 10});
    EXPECT_EQ(furniture.subject().note,
              "Something behind the child cannot be told from a held thing");
    EXPECT_EQ(furniture.subject().bounds.maxX(), 210) << "the child's own outline remains";
    Studio busy;
    for (int i = 0; i < 320 * 400; ++i) {
        const int x = i % 320;
        const int y = i / 320;
        if (*busy.persons.pixel(x, y) == 0)
            busy.set(x, y,
                     {(x / 9 * 71 + y / 7 * 37) % 256, (y / 5 * 53) % 256, (x / 6 * 91) % 256});
    }
    EXPECT_EQ(busy.subject().note, "The backdrop is too busy to tell held things from it");
    EXPECT_EQ(Studio({0, 0, 320, 400}).subject().note,
              "Too little backdrop is seen to tell held things from it");
}

TEST(BackdropSampler, samplesTheWallAndNotWhatHangsOnIt) {
    Studio studio;
    for (int y = 0; y < 400; ++y) {
        for (int x = 0; x < 320; ++x) {
            if (*studio.persons.pixel(x, y) == 0) studio.set(x, y, {51, 102, 153});
        }
    }
    studio.fill({0, 0, 100, 150}, {255, 0, 0});
    const auto color = BackdropSampler::color(studio.image.image, studio.persons);
    ASSERT_TRUE(color);
    ASSERT_EQ(color->size(), 3u);
    EXPECT_NEAR((*color)[0], 0.2, 0.01);
    EXPECT_NEAR((*color)[1], 0.4, 0.01);
    EXPECT_NEAR((*color)[2], 0.6, 0.01);
    const Studio filled({0, 0, 320, 400});
    EXPECT_FALSE(BackdropSampler::color(filled.image.image, filled.persons));
}

}  // namespace
}  // namespace morva
