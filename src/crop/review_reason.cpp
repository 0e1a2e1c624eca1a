// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/review_reason.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/case_names.h"

namespace morva {

namespace {

struct Entry {
    ReviewReason value;
    std::string_view key;
    std::string_view title;
};

using enum ReviewReason;

constexpr std::array<Entry, 19> entries{
    {{noFaceFound, "noFaceFound", "No face found"},
     {multipleFaces, "multipleFaces", "More than one face"},
     {lowLandmarkConfidence, "lowLandmarkConfidence", "Face not clearly located"},
     {landmarkSanity, "landmarkSanity", "Eyes/chin uncertain"},
     {unusualHeadPose, "unusualHeadPose", "Unusual head pose"},
     {headContentUncertain, "headContentUncertain", "Hair outline uncertain"},
     {unusualHeadContent, "unusualHeadContent", "Something tall above the head"},
     {headContentClipped, "headContentClipped", "Hair or accessory would be clipped"},
     {hairClippedAtSide, "hairClippedAtSide", "Hair clipped at the side"},
     {needsMoreCanvas, "needsMoreCanvas", "Needs more canvas"},
     {faceSitsLow, "faceSitsLow", "Face sits low (tall hair or bow)"},
     {faceSitsHigh, "faceSitsHigh", "Face sits high"},
     {headroomOutOfTolerance, "headroomOutOfTolerance", "Headroom outside tolerance"},
     {lowResolution, "lowResolution", "Low resolution for export size"},
     {lowConfidence, "lowConfidence", "Below confidence threshold"},
     {bodyNotFound, "bodyNotFound", "Body not found (cropped by the face)"},
     {bodyPartlyFound, "bodyPartlyFound", "Not enough of the body found"},
     {propClipped, "propClipped", "Prop would be cut off"},
     {zoomedOutForProp, "zoomedOutForProp", "Zoomed out to keep the prop"}}};

constexpr auto reasons = [] {
    std::array<ReviewReason, entries.size()> all{};
    std::ranges::transform(entries, all.begin(), &Entry::value);
    return all;
}();

}  // namespace

std::span<const ReviewReason> allReviewReasons() { return reasons; }

std::string_view key(ReviewReason reason) { return entryOf(entries, reason).key; }

std::string_view title(ReviewReason reason) { return entryOf(entries, reason).title; }

bool blocksExport(ReviewReason reason) {
    return reason == noFaceFound || reason == needsMoreCanvas;
}

void removeRepeats(std::vector<ReviewReason>& found) {
    std::vector<ReviewReason> kept;
    for (const ReviewReason reason : found)
        if (std::ranges::find(kept, reason) == kept.end()) kept.push_back(reason);
    found = std::move(kept);
}

void to_json(Json& json, ReviewReason reason) { json = std::string(key(reason)); }

void from_json(const Json& json, ReviewReason& reason) {
    reason = caseNamed(entries, json, "review reason");
}

}  // namespace morva
