// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/inspected_photo.h"

#include "app/app_state.h"
#include "base/leveling.h"
#include "crop/crop_solver.h"
#include "ui/inspector/inspector.h"

namespace morva {

namespace {

/// A height that the solver measured at a place of the photo, followed into the crop as adjusted.
struct Follower {
    const InspectedPhoto& photo;

    Point center() const { return {photo.crop.photo.width / 2, photo.crop.photo.height / 2}; }

    /// `solvedShare` of the solved crop's height, at the x of `measured` (source pixels).
    Point onPhoto(double solvedShare, Point measured) const {
        const CropSolution& solved = photo.solution;
        const double x = Leveling::level(measured, center(), solved.rotationDegrees).x;
        const double y = solved.rect.y + solvedShare * solved.rect.height;
        return Leveling::unlevel({x, y}, center(), solved.rotationDegrees);
    }

    double share(Point onPhoto) const {
        const Rect& frame = *photo.crop.frame;
        const Point level = Leveling::level(onPhoto, center(), photo.crop.rotation);
        return (level.y - frame.y) / frame.height;
    }
};

void addGuides(InspectedPhoto& photo, const ImageAnalysis& analysis) {
    const FaceGeometry* face = analysis.primary();
    if (!face || !photo.solution.metrics) return;
    const CropMetrics& metrics = *photo.solution.metrics;
    const Follower follower{photo};
    const auto add = [&](GuideKind kind, double solvedShare, Point measured) {
        const Point place = follower.onPhoto(solvedShare, measured);
        photo.guides.push_back({kind, follower.share(place)});
        return place;
    };
    if (metrics.headroom) {
        const auto& head = analysis.headContent;
        const Point top = head ? Point{head->topX, head->topY} : face->eyeMidpoint();
        const Point place = add(GuideKind::headTop, *metrics.headroom, top);
        if (head) photo.points.push_back({GuideKind::headTop, place});
    }
    add(GuideKind::eyeLine, metrics.eyeLine, face->eyeMidpoint());
    add(GuideKind::chinLine, metrics.chinLine, face->chin);
    photo.points.push_back({GuideKind::eyeLine, face->leftEye});
    photo.points.push_back({GuideKind::eyeLine, face->rightEye});
    photo.points.push_back({GuideKind::chinLine, face->chin});
}

void addFilling(InspectedPhoto& photo, BackdropMode backdrop) {
    const std::vector<double>& fill = photo.thumbnail.fill;
    if (backdrop == BackdropMode::replace && fill.size() == 3) {
        photo.filling = Filling::color;
        photo.fillColor = QColor::fromRgbF(static_cast<float>(fill[0]), static_cast<float>(fill[1]),
                                           static_cast<float>(fill[2]));
    } else {
        photo.filling = Filling::repeatedEdges;
    }
}

void addCrop(InspectedPhoto& photo, const AppState& state, const WorkingJob& job,
             std::size_t index) {
    const ImageItem& item = job.item(index);
    photo.solution = *item.solution;
    photo.crop.rotation = CropSolver::finalRotation(*item.solution, item.adjustment);
    photo.missing = job.canvasToAdd(index);
    addGuides(photo, *item.analysis);
    const CropPreset* preset = state.preset(job.solvedWith(index).presetID);
    if (!preset) return;
    photo.sideMargin = preset->minEdgeClearance;
    if (photo.missing && !job.lacksCanvas(index, state.presets()))
        addFilling(photo, preset->exportSettings.backdrop);
}

}  // namespace

std::optional<InspectedPhoto> InspectedPhoto::selected(const AppState& state) {
    const WorkingJob* job = state.selectedJob();
    const auto index =
        job && state.selectedItemID() ? job->indexOf(*state.selectedItemID()) : std::nullopt;
    if (!index) return std::nullopt;
    const ImageItem& item = job->item(*index);
    InspectedPhoto photo;
    photo.id = item.id;
    photo.file = item.url;
    photo.stamp = item.analyzedStamp;
    photo.status = job->status(*index);
    photo.adjustment = item.adjustment;
    photo.thumbnail = job->preview(*index, state.presets(), ThumbnailStore::gridHeight);
    if (item.analysis) {
        photo.error = item.analysis->error.value_or("");
        photo.crop.photo = item.analysis->sourceSize();
    }
    photo.crop.frame = job->finalRect(*index);
    if (photo.crop.frame) addCrop(photo, state, *job, *index);
    return photo;
}

QString nameOf(GuideKind kind) {
    switch (kind) {
        case GuideKind::headTop:
            return Inspector::tr("Head top");
        case GuideKind::eyeLine:
            return Inspector::tr("Eye line");
        case GuideKind::chinLine:
            return Inspector::tr("Chin line");
    }
    return {};
}

}  // namespace morva
