// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/main_person.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <opencv2/imgproc.hpp>

#include "analysis/body_analyzer.h"
#include "analysis/head_protector.h"
#include "imaging/mat_view.h"

namespace morva {

namespace {

/// Face units between the eyes of two whose bodies are told apart by guess only.
constexpr double tellApartDistance = 2.5;
/// A hair band or the rim of a hat may part a head by this much, in face units.
constexpr double bridgedGap = 0.03;
/// An outline loses this much of its certainty for each face width that a pixel lies beside its
/// face's axis, up to the limit: outlines spill onto neighbours.
constexpr double distanceWeight = 0.25;
constexpr double distanceLimit = 4;  // face widths

/// A face and its outline in pixels of the mask.
struct Claim {
    Point eyes;
    double faceWidth = 0;
    const BodyObservation* body = nullptr;
};

class Place {
public:
    Place(const Mask& mask, Size source)
        : kx_(mask.width() / source.width), ky_(mask.height() / source.height) {}
    Point of(Point source) const { return source.scaled(kx_, ky_); }
    double length(double source) const { return source * kx_; }

private:
    double kx_;
    double ky_;
};

/// Labels of what hangs together, across gaps of twice `bridge` pixels.
cv::Mat components(const Mask& persons, int bridge) {
    cv::Mat person = viewOf(persons) >= HeadProtector::personThreshold;
    cv::dilate(person, person,
               cv::getStructuringElement(cv::MORPH_RECT, {2 * bridge + 1, 2 * bridge + 1}));
    cv::Mat labels;
    cv::connectedComponents(person, labels, 8, CV_32S);
    return labels;
}

/// The component that most of the middle of the face lies on; 0, the background, when there is
/// none.
int labelAt(const cv::Mat& labels, const Claim& claim) {
    const int reach = std::max(1, static_cast<int>(claim.faceWidth / 4));
    const cv::Rect middle =
        cv::Rect(static_cast<int>(claim.eyes.x) - reach, static_cast<int>(claim.eyes.y) - reach,
                 2 * reach + 1, 2 * reach + 1) &
        cv::Rect(0, 0, labels.cols, labels.rows);
    std::vector<int> count;
    for (int y = middle.y; y < middle.br().y; ++y) {
        for (int x = middle.x; x < middle.br().x; ++x) {
            const auto label = static_cast<std::size_t>(labels.at<int>(y, x));
            if (label >= count.size()) count.resize(label + 1);
            if (label > 0) ++count[label];
        }
    }
    if (count.empty()) return 0;
    const auto best = std::ranges::max_element(count);
    return *best > 0 ? static_cast<int>(best - count.begin()) : 0;
}

/// How surely each mask pixel shows the claim's person, from its outline; 0 outside the outline's
/// window.
cv::Mat outlineOn(const Mask& mask, const AnalysisImage& image, const Claim& claim) {
    cv::Mat result = cv::Mat::zeros(mask.height(), mask.width(), CV_32FC1);
    if (claim.body == nullptr) return result;
    const RegionMap& outline = claim.body->outline;
    const double toMask = static_cast<double>(mask.width()) / image.image.width();
    const auto onMask = [&](Point cell) {
        return outline.region.toPicture(cell, outline.side).scaled(toMask, toMask);
    };
    const Point origin = onMask({0.5, 0.5});
    const Point right = onMask({1.5, 0.5}) - origin;
    const Point down = onMask({0.5, 1.5}) - origin;
    const cv::Matx23d map(right.x, down.x, origin.x - 0.5, right.y, down.y, origin.y - 0.5);
    const cv::Mat grid = viewOf(outline.values, outline.side);
    cv::warpAffine(grid, result, map, result.size(), cv::INTER_LINEAR, cv::BORDER_CONSTANT);
    return result;
}

float beside(int x, const Claim& claim) {
    const double faces = std::abs(x + 0.5 - claim.eyes.x) / claim.faceWidth;
    return static_cast<float>(distanceWeight * std::min(faces, distanceLimit));
}

/// Clears every pixel on which another claim is stronger than the first.
void share(Mask& mask, const AnalysisImage& image, std::span<const Claim> claims) {
    const cv::Mat own = outlineOn(mask, image, claims.front());
    std::vector<cv::Mat> others;
    for (const Claim& claim : claims.subspan(1)) others.push_back(outlineOn(mask, image, claim));
    for (int y = 0; y < mask.height(); ++y) {
        for (int x = 0; x < mask.width(); ++x) {
            const float mine = own.at<float>(y, x) - beside(x, claims.front());
            for (std::size_t i = 0; i < others.size(); ++i) {
                if (others[i].at<float>(y, x) - beside(x, claims[i + 1]) > mine)
                    *mask.pixel(x, y) = 0;
            }
        }
    }
}

void keepComponent(Mask& mask, const Claim& claim, int bridge) {
    const cv::Mat labels = components(mask, bridge);
    viewOf(mask).setTo(0, labels != labelAt(labels, claim));
}

}  // namespace

MainPerson mainPerson(const Mask& persons, const AnalysisImage& image,
                      std::span<const FaceGeometry> faces,
                      std::span<const BodyObservation> bodies) {
    const Place place(persons, image.sourceSize);
    std::vector<Claim> claims;
    for (const FaceGeometry& face : faces) {
        Claim claim{place.of(face.eyeMidpoint()), place.length(face.faceBox.width)};
        for (const BodyObservation& body : bodies) {
            if (BodyAnalyzer::isSamePerson(body, image, face)) claim.body = &body;
        }
        claims.push_back(claim);
    }
    MainPerson result{persons.copy(), persons.copy()};
    const int bridge =
        std::max(1, static_cast<int>(bridgedGap / 2 * place.length(faces.front().faceUnit())));
    const cv::Mat labels = components(persons, bridge);
    const int own = labelAt(labels, claims.front());
    cv::Mat others = cv::Mat::zeros(labels.size(), CV_8UC1);
    std::vector<Claim> joined{claims.front()};
    for (std::size_t i = 1; i < claims.size(); ++i) {
        const int label = labelAt(labels, claims[i]);
        if (label == 0) continue;
        others |= labels == label;
        if (label != own) continue;
        joined.push_back(claims[i]);
        result.touched |= faces[i].eyeMidpoint().distance(faces.front().eyeMidpoint()) <
                          tellApartDistance * faces.front().faceUnit();
    }
    viewOf(result.mask).setTo(0, own == 0 ? cv::Mat(labels >= 0) : cv::Mat(labels != own));
    if (joined.size() > 1) {
        // Without the child's own outline the others' would take everything.
        if (joined.front().body == nullptr)
            for (Claim& claim : joined) claim.body = nullptr;
        share(result.mask, image, joined);
        keepComponent(result.mask, joined.front(), bridge);
    }
    viewOf(result.others).setTo(0, ~others);
    viewOf(result.others).setTo(0, viewOf(result.mask) >= HeadProtector::personThreshold);
    return result;
}

}  // namespace morva
