// SPDX-License-Identifier: GPL-3.0-or-later
// What must hold for every photo and preset, over random ones from a fixed seed.
#include <algorithm>
#include <cmath>
#include <random>
#include <set>

#include <gtest/gtest.h>

#include "crop/crop_solver.h"
#include "crop/synthetic_portrait.h"

namespace morva {
namespace {

constexpr int rounds = 4000;

class Chance {
public:
    double between(double low, double high) {
        return std::uniform_real_distribution(low, high)(engine_);
    }
    bool percent(int share) { return between(0, 100) < share; }
    template <PresetChoice T>
    T any() {
        const auto all = choices<T>();
        return all[std::uniform_int_distribution<std::size_t>(0, all.size() - 1)(engine_)].value;
    }

private:
    std::mt19937 engine_{20240917};
};

ImageAnalysis randomPhoto(Chance& chance) {
    const double size = chance.between(0.2, 1.6);
    const Point offset{chance.between(-1200, 1200), chance.between(-700, 1500)};
    ImageAnalysis photo = Synthetic::transformed(Synthetic::portrait(), [&](Point p) {
        return (p - Point{2000, 1800}).scaled(size, size) + Point{2000, 1800} + offset;
    });
    photo = Synthetic::turnedBy(photo, chance.between(-8, 8));
    HeadContent& head = *photo.headContent;
    head.topY += chance.between(-600, 300) * size;
    head.leftX -= chance.between(-100, 600) * size;
    head.rightX += chance.between(-100, 600) * size;
    head.reliable = chance.percent(80);
    if (chance.percent(30)) head.bottomY = chance.between(3000, 5000);
    if (chance.percent(10)) photo.headContent.reset();
    if (chance.percent(20)) photo.body.reset();
    if (photo.body && chance.percent(30)) photo.body->leftKnee = photo.body->rightKnee = {};
    if (photo.body && chance.percent(30)) photo.body->leftAnkle = Point{1900, 4900};
    if (chance.percent(60)) {
        const double left = chance.between(0, 1800);
        const double top = chance.between(0, 2500);
        photo = Synthetic::holding(
            photo, {left, top, chance.between(200, 4000 - left), chance.between(200, 5000 - top)});
    }
    if (chance.percent(50))
        photo.edgeContact = EdgeContact{.top = chance.percent(10),
                                        .bottom = chance.percent(60),
                                        .left = chance.percent(20),
                                        .right = chance.percent(20)};
    photo.faces[0].landmarkConfidence = chance.between(0.4, 1);
    return photo;
}

CropPreset randomPreset(Chance& chance) {
    CropPreset preset;
    preset.aspectWidth = chance.between(3, 7);
    preset.faceScale = chance.between(0.06, 0.3);
    preset.horizontalAnchor = chance.any<HorizontalAnchor>();
    preset.verticalMode = chance.any<VerticalMode>();
    preset.framing = chance.percent(50) ? Framing::face : chance.any<Framing>();
    preset.rotationMode = chance.any<RotationMode>();
    preset.cameraRollDegrees = chance.between(-2, 2);
    preset.levelMaxDegrees = chance.between(0, 6);
    preset.levelStrength = chance.between(0, 1);
    preset.protectHair = chance.percent(80);
    preset.protectAccessories = chance.percent(80);
    preset.protectProps = chance.percent(60);
    preset.protectPropsOverhead = chance.percent(50);
    preset.exportSettings.backdrop = chance.any<BackdropMode>();
    preset.bodyBottomAnchor = chance.between(0.7, 1.2);
    return preset;
}

ImageAnalysis mirrored(ImageAnalysis photo) {
    const double width = photo.sourceWidth;
    const auto mirror = [=](Point p) { return Point{width - p.x, p.y}; };
    photo = Synthetic::transformed(photo, mirror);
    if (photo.headContent) std::swap(photo.headContent->leftX, photo.headContent->rightX);
    if (photo.edgeContact) std::swap(photo.edgeContact->left, photo.edgeContact->right);
    return photo;
}

void expectConsistent(const CropSolution& s, const ImageAnalysis& photo, const CropPreset& preset) {
    EXPECT_NEAR(s.rect.width / s.rect.height, preset.aspectRatio(), 1e-9);
    const bool bodyFound = isBody(preset.framing) && !s.has(ReviewReason::bodyNotFound);
    if (!bodyFound && !s.metrics->propZoom) {
        EXPECT_NEAR(s.metrics->faceScale, preset.faceScale, 1e-9);
        if (s.metrics->headroom && preset.verticalMode == VerticalMode::topMargin) {
            EXPECT_NEAR(*s.metrics->headroom, preset.topMargin, 1e-9);
        }
    }
    if (preset.rotationMode == RotationMode::levelEyes) {
        EXPECT_LE(std::abs(s.rotationDegrees), preset.levelMaxDegrees);
    }
    if (s.metrics->propZoom) {
        EXPECT_GT(*s.metrics->propZoom, 1);
        EXPECT_LE(*s.metrics->propZoom, preset.protectPropsOverhead ? 2.4 : 1.6);
    }
    EXPECT_EQ(s.status, s.reasons.empty() ? CropStatus::ready : CropStatus::review);
    EXPECT_EQ(std::set(s.reasons.begin(), s.reasons.end()).size(), s.reasons.size());
    EXPECT_EQ(s.shortfall, CropSolver::shortfall(s.rect, s.rotationDegrees, photo.sourceSize()));
    EXPECT_EQ(s.has(ReviewReason::needsMoreCanvas), s.shortfall && !s.canvasExtendable);
    EXPECT_TRUE(s.shortfall || !s.canvasExtendable);
    EXPECT_EQ(CropSolver::finalRect(s, {}, photo.sourceSize()), s.rect);
}

void expectMirrored(const CropSolution& s, const CropSolution& other, double width) {
    EXPECT_NEAR(other.rect.maxX(), width - s.rect.x, 1e-5);
    EXPECT_NEAR(other.rect.y, s.rect.y, 1e-5);
    EXPECT_NEAR(other.rect.height, s.rect.height, 1e-5);
    EXPECT_NEAR(other.rotationDegrees, -s.rotationDegrees, 1e-9);
    EXPECT_EQ(other.reasons, s.reasons);
    if (!s.shortfall) return;
    ASSERT_TRUE(other.shortfall);
    EXPECT_NEAR(other.shortfall->left, s.shortfall->right, 1e-5);
    EXPECT_NEAR(other.shortfall->top, s.shortfall->top, 1e-5);
}

TEST(CropSolverProperties, holdForEveryPhotoAndPreset) {
    Chance chance;
    int failures = 0;
    for (int round = 0; round < rounds && !::testing::Test::HasFailure(); ++round) {
        SCOPED_TRACE(round);
        const ImageAnalysis photo = randomPhoto(chance);
        CropPreset preset = randomPreset(chance);
        const CropSolution solution = CropSolver::solve(photo, preset);
        expectConsistent(solution, photo, preset);
        EXPECT_EQ(CropSolver::solve(photo, preset), solution);
        if (preset.rotationMode == RotationMode::correctCameraRoll) preset.cameraRollDegrees *= -1;
        expectMirrored(solution, CropSolver::solve(mirrored(photo), preset), photo.sourceWidth);
        failures += solution.status == CropStatus::failed;
    }
    EXPECT_EQ(failures, 0);
}

TEST(CropSolverProperties, slideNeverWorsensTheOverhang) {
    Chance chance;
    for (int round = 0; round < rounds; ++round) {
        const ImageAnalysis photo = randomPhoto(chance);
        CropPreset preset = randomPreset(chance);
        preset.protectProps = false;
        const CropSolution slid = CropSolver::solveOnce(photo, preset);
        const Rect before{slid.anchor.x - slid.rect.width * preset.horizontalPosition, slid.rect.y,
                          slid.rect.width, slid.rect.height};
        const Size size = photo.sourceSize();
        const auto overhang = [&](const Rect& rect) {
            const auto [left, right] = CropSolver::sideShortfall(
                rect, slid.rotationDegrees, {size.width / 2, size.height / 2}, size);
            return std::max(left, right);
        };
        EXPECT_LE(overhang(slid.rect), overhang(before) + 1e-6) << round;
        EXPECT_LE(std::abs(slid.rect.x - before.x), 0.12 * slid.rect.width + 1e-6) << round;
    }
}

}  // namespace
}  // namespace morva
