// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/head_protector.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <vector>

#include "analysis/head_outline.h"

namespace morva::HeadProtector {

namespace {

constexpr int smallestEdgeMask = 5;     // pixels
constexpr int smallestHeadMask = 3;     // pixels
constexpr double smallestUnit = 2.0;    // mask pixels a face unit
constexpr double coverageReach = 0.35;  // face units to either side of the eyes
constexpr double enoughCoverage = 0.6;

bool isPerson(const Mask& mask, int x, int y) { return *mask.pixel(x, y) >= personThreshold; }

HeadContent unmeasured(const FaceGeometry& face) {
    HeadContent content;
    content.topY = face.faceBox.y;
    content.topX = face.eyeMidpoint().x;
    content.leftX = face.faceBox.x;
    content.rightX = face.faceBox.maxX();
    content.reliable = false;
    content.note = "No person outline available";
    return content;
}

/// Share of person pixels on the eye row across the middle of the face.
double faceCoverage(const Mask& mask, Point eyes, double unitX) {
    const int row = std::clamp(static_cast<int>(eyes.y), 0, mask.height() - 1);
    const int from =
        std::clamp(static_cast<int>(eyes.x - coverageReach * unitX), 0, mask.width() - 1);
    const int to =
        std::clamp(static_cast<int>(eyes.x + coverageReach * unitX), 0, mask.width() - 1);
    int count = 0;
    for (int x = from; x <= to; ++x) count += isPerson(mask, x, row) ? 1 : 0;
    return static_cast<double>(count) / std::max(1, to - from + 1);
}

/// The lowest row, looked at in steps of two, that shows the person under the face.
std::optional<int> outlineBottom(const Mask& mask, Point eyes, double unitX) {
    constexpr double reach = 3.0;
    const int enough = std::max(static_cast<int>(0.05 * unitX), 3);
    const int from = std::clamp(static_cast<int>(eyes.x - reach * unitX), 0, mask.width() - 1);
    const int to = std::clamp(static_cast<int>(eyes.x + reach * unitX), 0, mask.width() - 1);
    for (int y = mask.height() - 1; y > eyes.y; y -= 2) {
        int count = 0;
        for (int x = from; x <= to; ++x) count += isPerson(mask, x, y) ? 1 : 0;
        if (count >= enough) return y;
    }
    return std::nullopt;
}

}  // namespace

EdgeContact edgeContact(const Mask& mask) {
    if (mask.width() < smallestEdgeMask || mask.height() < smallestEdgeMask) return {};
    const int enough = std::max(std::min(mask.width(), mask.height()) / 100, 2);
    const auto touched = [&](int length, const std::function<bool(int along, int inward)>& person) {
        for (const int inward : {0, 1}) {
            int count = 0;
            for (int along = 0; along < length; ++along) count += person(along, inward) ? 1 : 0;
            if (count >= enough) return true;
        }
        return false;
    };
    EdgeContact contact;
    contact.top = touched(mask.width(), [&](int x, int in) { return isPerson(mask, x, in); });
    contact.bottom = touched(
        mask.width(), [&](int x, int in) { return isPerson(mask, x, mask.height() - 1 - in); });
    contact.left = touched(mask.height(), [&](int y, int in) { return isPerson(mask, in, y); });
    contact.right = touched(
        mask.height(), [&](int y, int in) { return isPerson(mask, mask.width() - 1 - in, y); });
    return contact;
}

HeadContent headContent(const Mask& mask, const FaceGeometry& face, Size sourceSize) {
    if (mask.width() < smallestHeadMask || mask.height() < smallestHeadMask)
        return unmeasured(face);
    if (!(sourceSize.width > 0 && sourceSize.height > 0)) return unmeasured(face);
    const double kx = mask.width() / sourceSize.width;
    const double ky = mask.height() / sourceSize.height;
    const Point eyes = face.eyeMidpoint().scaled(kx, ky);
    const double unitX = face.faceUnit() * kx;
    const double unitY = face.faceUnit() * ky;
    if (!(unitX > smallestUnit && unitY > smallestUnit)) return unmeasured(face);

    const HeadOutline outline = headOutline(mask, eyes, unitX, unitY);
    HeadContent content;
    content.topY = outline.topY / ky;
    content.topX = outline.topX / kx;
    content.leftX = outline.leftX / kx;
    content.rightX = outline.rightX / kx;
    content.reliable = true;
    if (!(faceCoverage(mask, eyes, unitX) > enoughCoverage)) {
        content.reliable = false;
        content.note = "Person outline does not cover the face";
    } else if (outline.runaway) {
        content.reliable = false;
        content.note = "Outline continues unusually far above the head";
    }
    // The row itself still shows the person: its lower edge is where the outline ends.
    if (const auto bottom = outlineBottom(mask, eyes, unitX)) content.bottomY = (*bottom + 1) / ky;
    return content;
}

}  // namespace morva::HeadProtector
