// SPDX-License-Identifier: GPL-3.0-or-later
// What the photo's page says of one photo or of several: made from the job's records, shown by the
// page as it is. Measures nothing itself.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include <QStringList>

#include "app/working_job.h"
#include "ui/panel/figure_table.h"

namespace morva {

struct ReasonReport {
    QString title;
    QString explanation;

    bool operator==(const ReasonReport&) const = default;
};

/// The photos that are selected, one or more.
struct PhotoReport {
    using Rows = std::vector<FigureTable::Row>;

    QString title;
    /// Of a single photo.
    std::optional<ItemStatus> status;
    /// "2 ready, 2 in review", of several.
    QString summary;
    /// Who chose the crop type.
    QString source;
    std::vector<ReasonReport> reasons;
    QStringList notes;

    struct Confidence {
        double score = 0;
        double threshold = 0;
        Rows factors;
    };
    std::optional<Confidence> confidence;
    Rows measurements;
    Rows adjustment;
    /// Photos that are adjusted by hand.
    int adjusted = 0;
    Rows details;

    /// The first entry of the choice of crop types: what applies without a photo's own.
    QString withoutOwn;
    /// The preset of their own that all of them have.
    std::optional<Uuid> own;
    /// They are cropped by so many presets.
    int presets = 0;
    /// Some have a preset of their own and some not, or not the same.
    bool isMixed = false;

    int approved = 0;
    /// With a crop, and not approved.
    int approvable = 0;
};

/// `indices` of the job's photos; not empty.
PhotoReport photoReport(const WorkingJob& job, std::span<const std::size_t> indices,
                        std::span<const CropPreset> presets);

}  // namespace morva
