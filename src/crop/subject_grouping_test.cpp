// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/subject_grouping.h"

#include <gmock/gmock.h>

#include "crop/batch_test_support.h"

namespace morva {

namespace {

using BatchTest::frame;
using BatchTest::pointers;
using SubjectGrouping::Group;
using testing::ElementsAre;
using Units = std::map<std::size_t, double>;

constexpr double gap = SubjectGrouping::defaultGapSeconds;

/// The shared units of faces photographed within seconds.
Units steady(
    const std::vector<double>& units,
    const std::function<bool(std::size_t)>& isEligible = [](std::size_t) { return true; }) {
    std::vector<ImageAnalysis> photos;
    for (const double unit : units)
        photos.push_back(frame(static_cast<double>(photos.size()), unit));
    return SubjectGrouping::steadyFaceUnits(pointers(photos), {}, gap, isEligible);
}

TEST(CameraKey, isTheFileNameWithoutItsCounter) {
    for (const auto& [file, key] : std::map<std::string, std::string>{
             {"class 3b/IMG_0042.jpg", "IMG_"},
             {"A7_0001-2.tif", "A7_0001-"},
             {"0042.jpg", "0042"},
             {"B12.final.heic", "B12.final"},
             {"anna", "anna"},
         })
        EXPECT_EQ(SubjectGrouping::cameraKey(file), key) << file;
}

TEST(SubjectGroups, endWhereTheCameraPausedLonger) {
    const std::vector<ImageAnalysis> photos{frame(124.5, 100), frame(100, 100), frame({}, 100),
                                            frame(112, 100), frame(-50, 100)};
    std::vector<const ImageAnalysis*> batch = pointers(photos);
    batch.push_back(nullptr);
    EXPECT_THAT(SubjectGrouping::groups(batch, {}),
                ElementsAre(Group{4}, Group{1, 3}, Group{0}, Group{2}, Group{5}));
    EXPECT_THAT(SubjectGrouping::groups(batch, {}, 12.5),
                ElementsAre(Group{4}, Group{1, 3, 0}, Group{2}, Group{5}));
    EXPECT_TRUE(SubjectGrouping::groups({}, {}).empty());
}

TEST(SubjectGroups, keepCamerasApartWhereEveryPhotoNamesOne) {
    const std::vector<ImageAnalysis> photos{frame(0, 100), frame(0, 100), frame(5, 100),
                                            frame({}, 100), frame(6, 100)};
    const auto batch = pointers(photos);
    const std::vector<std::string> cameras{"right", "left", "right", "left", "left"};
    EXPECT_THAT(SubjectGrouping::groups(batch, cameras),
                ElementsAre(Group{1, 4}, Group{3}, Group{0, 2}));
    EXPECT_THAT(SubjectGrouping::groups(batch, std::span(cameras).first(4)),
                ElementsAre(Group{0, 1, 2, 4}, Group{3}))
        << "names that do not fit the photos are ignored";
}

TEST(SteadyFaceUnits, areTheMedianOfFacesOfNearlyOneSize) {
    struct Case {
        const char* what;
        std::vector<double> units;
        Units expected;
    };
    for (const Case& c : {
             Case{"two children in turn",
                  {133, 104, 100, 130, 107},
                  {{2, 104}, {1, 104}, {4, 104}, {3, 131.5}, {0, 131.5}}},
             Case{"too different", {100, 109}, {}},
             Case{"exactly at the tolerance", {100, 108}, {{0, 104}, {1, 104}}},
             Case{"a single frame", {100}, {}},
             Case{"the first of equally long runs takes the middle frame",
                  {100, 107, 114},
                  {{0, 103.5}, {1, 103.5}}},
             Case{"a later run may be longer than the first",
                  {100, 107, 112, 115},
                  {{1, 112}, {2, 112}, {3, 112}}},
             Case{"what is left on both sides of a run is looked at again",
                  {98, 100, 105, 106, 107, 115},
                  {{1, 105.5}, {2, 105.5}, {3, 105.5}, {4, 105.5}}},
         }) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(steady(c.units), c.expected);
    }
}

TEST(SteadyFaceUnits, leaveOutPhotosThatMayNotOrCannotTakePart) {
    EXPECT_EQ(steady({100, 102, 104}, [](std::size_t i) { return i != 1; }),
              (Units{{0, 102}, {2, 102}}));
    std::vector<ImageAnalysis> photos{frame(0, 100), frame(1, 101), frame({}, 101), frame(2, 103)};
    photos[1].faces.clear();
    const auto all = [](std::size_t) { return true; };
    EXPECT_EQ(SubjectGrouping::steadyFaceUnits(pointers(photos), {}, gap, all),
              (Units{{0, 101.5}, {3, 101.5}}));
}

}  // namespace

}  // namespace morva
