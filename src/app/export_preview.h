// SPDX-License-Identifier: GPL-3.0-or-later
// What an export of the selected job would write, kept up to date for the export sheet while it is
// on screen. Looks at the disk in the background, so that a slow one stalls nothing; writes
// nothing. On the main thread.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include <QObject>
#include <QTimer>

#include "app/export_plan.h"
#include "base/uuid.h"

namespace morva {

class AppState;

class ExportPreview final : public QObject {
    Q_OBJECT

public:
    using Path = std::filesystem::path;

    /// The files of one crop type.
    struct CropType {
        Uuid preset;
        int files = 0;
        /// Its size has the ratio of its crops; the export does not begin otherwise.
        bool fits = true;
    };

    /// Fewer files in the folder, or photos in the last run, tell nothing of the others.
    static constexpr int fewestToEstimateBy = 8;

    explicit ExportPreview(AppState& state);

    /// The disk was looked at; the rest means nothing before.
    bool isReady() const { return look_.has_value(); }
    /// Without destinations.
    const ExportPlan& plan() const { return plan_; }
    /// Files that are there with the same crop, also those that would be replaced.
    int unchanged() const { return unchanged_; }
    /// Of the photos to write, in the library's order.
    const std::vector<CropType>& cropTypes() const { return cropTypes_; }
    /// A file would be written into the folder of a job.
    bool isInsideAJob() const { return look_ && look_->isInsideAJob; }
    /// What the files to write will take, by those that are there; absent where they tell too
    /// little.
    std::optional<double> bytes() const { return bytes_; }
    /// How long it will take, by the last export of this session.
    std::optional<double> seconds() const;

signals:
    void changed();

private:
    struct Look {
        /// The size of the file of each photo, in the job's order; absent where there is none.
        std::vector<std::optional<std::uintmax_t>> sizes;
        bool isInsideAJob = false;
    };

    void lookSoon();
    void look();
    void decideSoon();
    void decide();
    std::optional<double> bytesToWrite(const WorkingJob& job) const;

    AppState& state_;
    QTimer lookTimer_;
    QTimer decideTimer_;
    /// The folder and the job that were looked at last, and how often.
    std::optional<Path> destination_;
    std::uint64_t looks_ = 0;
    std::optional<Look> look_;
    ExportPlan plan_;
    int unchanged_ = 0;
    std::vector<CropType> cropTypes_;
    std::optional<double> bytes_;
};

}  // namespace morva
