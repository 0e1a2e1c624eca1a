// SPDX-License-Identifier: GPL-3.0-or-later
// What is told of a photo in the grid and the filmstrip: name, badge, confidence, status or reason;
// in the cell, in its tooltip and read out. Values made anew for each paint; knows no painter.
#pragma once

#include <cstddef>

#include <QString>

#include "app/app_state.h"
#include "ui/widgets/status_look.h"

namespace morva {

struct CellContent {
    /// The file's name without its ending.
    QString name;
    /// Whose badge is shown; null for a photo without a crop.
    const CropPreset* preset = nullptr;
    /// "97 %", a dash without a crop.
    QString confidence;
    StatusLook look;
    /// The first reason of a photo in review, else the status.
    QString line;
    bool isAdjusted = false;
    /// Not cropped yet: shown at half strength.
    bool isPending = false;
    /// Could not be read.
    bool isError = false;
};

/// Of the photo at a place in the selected job.
CellContent contentOf(const AppState& state, std::size_t item);

QString nameOf(const WorkingJob& job, std::size_t item);
/// What stands below a small thumbnail: the number that the name ends in, else the name.
QString shortName(const QString& name);
/// As rich text: the whole file name, the crop type, the status and all reasons.
QString tooltipOf(const AppState& state, std::size_t item);
/// The same in one line, to be read out.
QString spokenOf(const AppState& state, std::size_t item);

}  // namespace morva
