// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/record/body_geometry.h"
#include "analysis/record/edge_contact.h"
#include "analysis/record/face_geometry.h"
#include "analysis/record/head_content.h"
#include "analysis/record/subject_content.h"
#include "base/geometry.h"
#include "base/json.h"

namespace morva {

/// Everything measured on one photo. Built once by the analysis, kept in the cache, read by
/// everything after it; only `tags` are replaced later, when the learned poses change.
/// All geometry is in source pixels of the upright photo.
struct ImageAnalysis {
    /// Rises with every change of what the analysers measure; records of another version are
    /// measured again.
    static constexpr int currentVersion = 11;

    int version = currentVersion;
    int sourceWidth = 0;
    int sourceHeight = 0;
    /// Largest face unit first; the first is the main face.
    std::vector<FaceGeometry> faces;
    std::optional<HeadContent> headContent;
    /// Wall-clock time that the analysis took.
    double analysisSeconds = 0;
    /// A failure or warning in words, "No face was found."
    std::optional<std::string> error;
    /// Face detection itself failed, as opposed to finding no face.
    bool detectionFailed = false;
    std::optional<BodyGeometry> body;
    /// Star rating and colour label of the photo's metadata.
    std::optional<int> rating;
    std::optional<std::string> label;
    /// A held sign or board was found.
    bool signDetected = false;
    /// Learned poses that apply to this photo.
    std::vector<std::string> tags;
    /// Colour components as the backdrop sampler defines them.
    std::optional<std::vector<double>> backdropColor;
    std::optional<SubjectContent> subject;
    /// Edges that the person's outline touches.
    std::optional<EdgeContact> edgeContact;
    /// Seconds since 1970-01-01 00:00:00, the camera's local clock taken as if it were UTC.
    std::optional<double> captureTime;

    Size sourceSize() const;
    /// The main face; null when no face was found. Points into `faces`.
    const FaceGeometry* primary() const;
    /// True when this record was measured by the current analysers.
    bool isCurrent() const { return version == currentVersion; }

    bool operator==(const ImageAnalysis&) const = default;
};

/// Reading requires only the source size; what else is missing keeps its default, and a missing
/// version counts as 0, so that records of older formats can be read and are then measured again.
void to_json(Json& json, const ImageAnalysis& analysis);
void from_json(const Json& json, ImageAnalysis& analysis);

}  // namespace morva
