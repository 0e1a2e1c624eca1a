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
constexpr double landmarkWorthReview = 0.65;
/// Distance of the two chin estimates in face units that costs nothing, and that needs a look.
constexpr double chinFree = 0.03;
constexpr double chinWorthReview = 0.08;
/// Eye spacings outside this range are no child's face seen from the front.
constexpr double narrowestEyes = 0.36;
constexpr double widestEyes = 0.72;
constexpr double eyeSpacingFree = 0.1;
/// Head angles in degrees: free up to the first, worth a look above the others.
constexpr double angleFree = 20;
constexpr double yawWorthReview = 32;
constexpr double pitchWorthReview = 30;
constexpr double tiltWorthReview = 30;
constexpr double unreliableHeadFactor = 0.8;

double unitRange(double value) { return std::clamp(value, 0.0, 1.0); }

/// Towards zero, as the notes give their numbers.
std::string whole(double value) { return wholeNumberText(std::trunc(value)); }

void scoreLandmarks(const FaceGeometry& face, Report& report) {
    const double confidence = face.landmarkConfidence;
    report.score = unitRange((confidence - landmarkFloor) / landmarkSpan);
    if (confidence >= landmarkWorthReview) return;
    report.reasons.push_back(ReviewReason::lowLandmarkConfidence);
    report.notes.push_back("Landmark confidence " + whole(confidence * 100) + "%.");
}

void scoreChin(const FaceGeometry& face, Report& report) {
    const double apart = face.chinAgreement();
    if (apart > chinFree) report.score *= unitRange(1 - 8 * (apart - chinFree));
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
    report.score *= unitRange(1 - 4 * std::max(0.0, beyond));
}

/// One head angle. `span` is the number of degrees beyond the free ones that costs the whole score;
/// an angle without a span costs nothing.
void scoreAngle(double degrees, double worthReview, std::optional<double> span, const char* verb,
                Report& report) {
    const double size = std::abs(degrees);
    if (size > worthReview) {
        report.reasons.push_back(ReviewReason::unusualHeadPose);
        report.notes.push_back(std::string("Head ") + verb + " " + whole(size) + "°.");
    }
    if (span && size > angleFree) report.score *= unitRange(1 - (size - angleFree) / *span);
}

}  // namespace

Report score(const FaceGeometry& face, const std::optional<HeadContent>& head) {
    Report report;
    scoreLandmarks(face, report);
    scoreChin(face, report);
    scoreEyes(face, report);
    if (face.yawDegrees) scoreAngle(*face.yawDegrees, yawWorthReview, 50, "turned", report);
    if (face.pitchDegrees) scoreAngle(*face.pitchDegrees, pitchWorthReview, 40, "tipped", report);
    // The solver levels a tilt within its own limit, so it costs nothing here.
    scoreAngle(face.rollDegrees(), tiltWorthReview, std::nullopt, "tilted", report);
    if (head && !head->reliable) report.score *= unreliableHeadFactor;
    removeRepeats(report.reasons);
    report.score = unitRange(report.score);
    return report;
}

}  // namespace morva::ConfidenceScorer
