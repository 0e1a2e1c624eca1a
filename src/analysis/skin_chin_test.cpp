// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/skin_chin.h"

#include <cmath>
#include <functional>
#include <numbers>

#include <gtest/gtest.h>

namespace morva {
namespace {

constexpr Size photo{2000, 1600};

/// A face with its eyes at (1000, 700), 200 pixels to the landmarks' chin, tilted about the eyes.
FaceGeometry tiltedFace(double degrees) {
    const Point eyes{1000, 700};
    FaceGeometry face;
    face.leftEye = Point{950, 700}.rotated(eyes, degrees);
    face.rightEye = Point{1050, 700}.rotated(eyes, degrees);
    face.chinFromContour = Point{1010, 900}.rotated(eyes, degrees);
    face.chinFromMedianLine = Point{1000, 900}.rotated(eyes, degrees);
    face.chin = face.chinFromContour.midpoint(face.chinFromMedianLine);
    return face;
}

/// Sees skin where `skin` says so, in face units across and below the middle of its window.
class ScriptedSkin final : public PersonSegmenter {
public:
    explicit ScriptedSkin(std::function<double(Point)> skin) : skin_(std::move(skin)) {}
    Result<PersonMap> persons(const Picture&, const Rect&) const override {
        return failure("unused");
    }
    Result<RegionMap> faceSkin(const Picture&, const PictureRegion& region) const override {
        if (!skin_) return failure("the model is gone");
        RegionMap map{region, 256, {}};
        for (int y = 0; y < 256; ++y) {
            for (int x = 0; x < 256; ++x) {
                const Point inPicture = region.toPicture({x + 0.5, y + 0.5}, 256);
                map.values.push_back(static_cast<float>(skin_(inPicture)));
            }
        }
        return map;
    }

private:
    std::function<double(Point)> skin_;
};

/// The image has half the photo's size; `below` is where the skin ends under the eyes, in face
/// units along the face.
FaceGeometry measured(double degrees,
                      const std::function<bool(double across, double below)>& isSkin) {
    const AnalysisImage image{Picture(1000, 800), photo};
    const ScriptedSkin segmenter([&](Point inImage) {
        const Point eyes{500, 350};
        const Point upright = inImage.rotated(eyes, -degrees) - eyes;
        return isSkin(upright.x / 100, upright.y / 100) ? 1.0 : 0.0;
    });
    return withSkinChin(segmenter, image, tiltedFace(degrees));
}

TEST(SkinChin, liesWhereTheSkinEndsAlongTheFace) {
    for (const double tilt : {-40.0, 0.0, 25.0}) {
        SCOPED_TRACE(tilt);
        const FaceGeometry face = measured(tilt, [](double across, double below) {
            return std::abs(across) < 0.6 && below < 1.1;
        });
        const Point expected = Point{1010, 920}.rotated({1000, 700}, tilt);
        EXPECT_LT(face.chinFromMedianLine.distance(expected), 3);
        EXPECT_EQ(face.chinFromContour, tiltedFace(tilt).chinFromContour);
        EXPECT_EQ(face.chin, face.chinFromContour.midpoint(face.chinFromMedianLine));
    }
}

TEST(SkinChin, keepsTheLandmarksWhereNoBorderShows) {
    struct Case {
        const char* what;
        std::function<bool(double, double)> isSkin;
    };
    for (const Case& c :
         {Case{"beard down the chest", [](double, double) { return true; }},
          Case{"mask over mouth and chin", [](double, double below) { return below < 0.5; }},
          Case{"border only beside the chin",
               [](double across, double below) { return across > 0.1 ? below < 1 : true; }}}) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(measured(10, c.isSkin), tiltedFace(10));
    }
    const AnalysisImage image{Picture(1000, 800), photo};
    EXPECT_EQ(withSkinChin(ScriptedSkin(nullptr), image, tiltedFace(0)), tiltedFace(0));
}

}  // namespace
}  // namespace morva
