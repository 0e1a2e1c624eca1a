// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/confidence_scorer.h"

#include <algorithm>
#include <cmath>

#include "crop/whole_number_text.h"

namespace morva::ConfidenceScorer {

namespace {

/// Landmark confidence that counts as nothing, and how far above it counts as certain.
constexpr double landmarkFloor = 0.45;
constexpr double landmarkSpan = 0.45;
/// Distance of the two chin estimates in face units that costs nothing.
constexpr double chinFree = 0.03;
/// Eye spacings outside this range are no child's face seen from the front.
constexpr double narrowestEyes = 0.36;
constexpr double widestEyes = 0.72;
constexpr double eyeSpacingFree = 0.1;
/// Degrees of a head angle that cost nothing.
constexpr double angleFree = 20;
constexpr double unreliableHeadFactor = 0.8;

double unitRange(double value) { return std::clamp(value, 0.0, 1.0); }

/// Towards zero, as the notes give their numbers.
std::string whole(double value) { return wholeNumberText(std::trunc(value)); }

void addFactor(Part part, double measured, double factor, Report& report) {
    report.factors.push_back({part, measured, unitRange(factor)});
}

void scoreLandmarks(const FaceGeometry& face, Report& report) {
    const double confidence = face.landmarkConfidence;
    addFactor(Part::landmarks, confidence, (confidence - landmarkFloor) / landmarkSpan, report);
    if (confidence >= landmarkWorthReview) return;
    report.reasons.push_back(ReviewReason::lowLandmarkConfidence);
    report.notes.push_back("Landmark confidence " + whole(confidence * 100) + "%.");
}

void scoreChin(const FaceGeometry& face, Report& report) {
    const double apart = face.chinAgreement();
    addFactor(Part::chin, apart, 1 - 8 * std::max(0.0, apart - chinFree), report);
    if (apart <= chinWorthReview) return;
    report.reasons.push_back(ReviewReason::landmarkSanity);
    report.notes.push_back("Chin estimates disagree by " + whole(apart * 100) + "% of the face.");
}

void scoreEyes(const FaceGeometry& face, Report& report) {
    const double ratio = face.eyeSpacingRatio();
    if (ratio < narrowestEyes || ratio > widestEyes) {
        report.reasons.push_back(ReviewReason::landmarkSanity);
        report.notes.emplace_back("Eye spacing is unusual for the face height.");
    }
    const double beyond = std::abs(ratio - typicalEyeSpacingRatio) - eyeSpacingFree;
    addFactor(Part::eyeSpacing, ratio, 1 - 4 * std::max(0.0, beyond), report);
}

/// One head angle, positive.
void checkAngle(double size, double worthReview, const char* verb, Report& report) {
    if (size <= worthReview) return;
    report.reasons.push_back(ReviewReason::unusualHeadPose);
    report.notes.push_back(std::string("Head ") + verb + " " + whole(size) + "°.");
}

/// `span` is the number of degrees beyond the free ones that costs the whole score.
void scoreAngle(Part part, double size, double span, Report& report) {
    addFactor(part, size, 1 - std::max(0.0, size - angleFree) / span, report);
}

}  // namespace

Report score(const FaceGeometry& face, const std::optional<HeadContent>& head) {
    Report report;
    scoreLandmarks(face, report);
    scoreChin(face, report);
    scoreEyes(face, report);
    if (face.yawDegrees) {
        checkAngle(std::abs(*face.yawDegrees), yawWorthReview, "turned", report);
        scoreAngle(Part::yaw, std::abs(*face.yawDegrees), 50, report);
    }
    if (face.pitchDegrees) {
        checkAngle(std::abs(*face.pitchDegrees), pitchWorthReview, "tipped", report);
        scoreAngle(Part::pitch, std::abs(*face.pitchDegrees), 40, report);
    }
    // The solver levels a tilt within its own limit, so it costs nothing here.
    checkAngle(std::abs(face.rollDegrees()), tiltWorthReview, "tilted", report);
    if (head)
        addFactor(Part::hair, head->reliable ? 1 : 0, head->reliable ? 1 : unreliableHeadFactor,
                  report);
    removeRepeats(report.reasons);
    report.score = 1;
    for (const Factor& factor : report.factors) report.score *= factor.factor;
    return report;
}

}  // namespace morva::ConfidenceScorer
