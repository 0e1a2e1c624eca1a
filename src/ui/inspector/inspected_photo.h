// SPDX-License-Identifier: GPL-3.0-or-later
// The selected photo as the inspector shows it, read from the application state: crop, guides,
// measured points, missing canvas, and what there is to say. A value, made anew whenever something
// changes; knows no pixel.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <QColor>
#include <QString>

#include "analysis/image_loader.h"
#include "analysis/record/canvas_shortfall.h"
#include "app/thumbnail_store.h"
#include "crop/crop_solution.h"
#include "crop/manual_adjustment.h"
#include "model/jobs/image_item.h"
#include "ui/inspector/canvas_geometry.h"

namespace morva {

class AppState;

enum class GuideKind { headTop, eyeLine, chinLine };

/// A horizontal line through the frame.
struct Guide {
    GuideKind kind;
    /// From the frame's top, as a share of its height; below 0 or above 1 it lies outside.
    double share = 0;
};

/// A place that was measured, in source pixels.
struct MeasuredPoint {
    GuideKind kind;
    Point place;
};

/// What stands where the frame passes the photo.
enum class Filling { none, repeatedEdges, color };

struct InspectedPhoto {
    std::string id;
    std::filesystem::path file;
    std::optional<FileSignature> stamp;
    ItemStatus status = ItemStatus::pending;
    /// Why the photo was not measured, or what was not found in it; empty for most.
    std::string error;

    /// Of 0 x 0 while the photo was never measured.
    CropOnPhoto crop;
    /// What the crop is made of; meaningless without a frame.
    CropSolution solution;
    ManualAdjustment adjustment;

    std::vector<Guide> guides;
    std::vector<MeasuredPoint> points;
    /// Gap that should stay at the sides, as a share of the frame's width.
    double sideMargin = 0;
    /// Absent when the frame lies on the photo.
    std::optional<CanvasShortfall> missing;
    Filling filling = Filling::none;
    /// For `Filling::color`.
    QColor fillColor;
    /// What the grid shows of the photo.
    ThumbnailStore::Request thumbnail;

    /// Nothing when no photo is selected.
    static std::optional<InspectedPhoto> selected(const AppState& state);
};

/// "Eye line".
QString nameOf(GuideKind kind);

}  // namespace morva
