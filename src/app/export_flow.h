// SPDX-License-Identifier: GPL-3.0-or-later
// The export of the selected job: its sheet, the plan, the run, the reports. Part of the
// application state, on the main thread; never writes into a job's folder.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QObject>

#include "app/export_plan.h"
#include "app/export_run.h"
#include "output/export_report.h"
#include "output/review_list.h"

namespace morva {

class AppState;

class ExportFlow final : public QObject {
    Q_OBJECT

public:
    using Path = std::filesystem::path;

    explicit ExportFlow(AppState& state);
    ~ExportFlow() override;

    /// The export sheet is on screen.
    bool isShown() const { return isShown_; }
    const std::optional<Path>& destination() const { return destination_; }
    bool includeApprovedOnly() const { return approvedOnly_; }
    bool replaceExisting() const { return replaceExisting_; }
    bool isCancelled() const { return isCancelled_; }

    /// Shows the sheet for the selected job, with the folder of its last export, else one beside
    /// the job's.
    void begin();
    void dismiss();
    /// Asks the window for a folder.
    void chooseFolder();
    void setDestination(const Path& folder);
    void setIncludeApprovedOnly(bool only);
    void setReplaceExisting(bool replace);

    /// What an export would do now; nothing without a job or a folder. Looks at the disk.
    std::optional<ExportPlan> plan() const;
    /// Presets of photos to be exported whose size would stretch faces; the sheet warns of them.
    std::vector<const CropPreset*> presetsOfWrongRatio() const;

    /// Closes the sheet and writes the photos of the plan; false, with an alert, when there is a
    /// reason not to. `AppState::taskEnded` tells of the end.
    bool run();

    /// Asks the window for a file.
    void chooseReviewList();
    /// The photos of the selected job that wait on the user, as CSV.
    std::string reviewListCSV() const;
    bool saveReviewList(const Path& file);

    /// How long the last whole run took for one photo; absent before there was one.
    const std::optional<double>& secondsPerPhoto() const { return secondsPerPhoto_; }
    /// Of the last run, in the order of the photos.
    const std::vector<ExportReport::Row>& lastRows() const { return rows_; }

signals:
    void changed();
    /// The window shows a dialog for a folder, beginning in `proposed`, and calls `setDestination`.
    void folderWanted(const std::filesystem::path& proposed);
    /// The window shows a dialog for a file to write and calls `saveReviewList`.
    void reviewListWanted(const std::string& title, const std::string& proposedName);

private:
    struct Running;

    void start(const WorkingJob& job, const ExportPlan& planned);
    ExportRun::Photo photoToWrite(const WorkingJob& job, std::size_t index,
                                  const ExportPlan& plan) const;
    ExportReport::Row rowFor(const WorkingJob& job, std::size_t index,
                             const Result<Exporter::Exported>& result) const;
    void recordExport(const ExportRun::Done& done);
    void finish(bool cancelled);
    /// Why the export cannot begin; makes its folder where it can.
    std::optional<AlertInfo> obstacle(const ExportPlan& planned) const;

    AppState& state_;
    bool isShown_ = false;
    std::optional<Path> destination_;
    bool approvedOnly_ = false;
    bool replaceExisting_ = false;
    bool isCancelled_ = false;
    std::optional<double> secondsPerPhoto_;
    std::vector<ExportReport::Row> rows_;
    std::unique_ptr<Running> running_;
};

}  // namespace morva
