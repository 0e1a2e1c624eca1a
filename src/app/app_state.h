// SPDX-License-Identifier: GPL-3.0-or-later
// The one object behind the window and the job commands: jobs, presets, what is selected and shown,
// and the flows that change them. Lives on the main thread; heavy work is handed out and its
// results come back through the event loop. Knows no widget: whoever shows it reads the fields,
// listens to the signals and calls the operations.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <QObject>
#include <QTimer>
#include <QUndoStack>

#include "app/app_services.h"
#include "app/app_types.h"
#include "app/background.h"
#include "app/folder_reading.h"
#include "app/key_table.h"
#include "app/save_queue.h"
#include "app/thumbnail_store.h"
#include "app/undo_steps.h"
#include "app/working_job.h"
#include "crop/rule_store.h"
#include "model/jobs/analysis_cache.h"
#include "model/jobs/job_lock.h"
#include "model/jobs/job_store.h"
#include "model/presets/preset_store.h"

namespace morva {

class BackdropSetup;
class ExportFlow;
class PoseFlow;

class AppState final : public QObject {
    Q_OBJECT

public:
    using Path = std::filesystem::path;
    using Indices = std::vector<std::size_t>;

    explicit AppState(AppServices services, QObject* parent = nullptr);
    /// Cancels what runs and writes what is not yet saved.
    ~AppState() override;

    /// Loads presets, rules and jobs and solves every photo. What could not be read is one alert.
    void start();
    /// Another program holds the data folder: everything can be looked at and nothing changed.
    bool isReadOnly() const { return holder_.has_value(); }

    // What is shown.

    const std::vector<std::unique_ptr<WorkingJob>>& jobs() const { return jobs_; }
    /// Null when there is no such job.
    const WorkingJob* job(const Uuid& id) const;
    const std::optional<Uuid>& selectedJobID() const { return selectedJobID_; }
    const WorkingJob* selectedJob() const;
    const std::vector<CropPreset>& presets() const { return presets_; }
    const CropPreset* preset(const Uuid& id) const;
    const Uuid& selectedPresetID() const { return selectedPresetID_; }
    StatusFilter filter() const { return filter_; }
    const std::optional<std::string>& selectedItemID() const { return selectedItemID_; }
    /// All selected photos, the current one included.
    const std::vector<std::string>& selection() const { return selection_; }
    ViewMode mode() const { return mode_; }
    bool showOverlay() const { return showOverlay_; }
    double thumbnailHeight() const { return thumbnailHeight_; }
    RightTab rightTab() const { return rightTab_; }
    const std::optional<ProcessingProgress>& progress() const { return progress_; }
    const std::optional<AlertInfo>& alert() const { return alert_; }
    /// What the last task or act came to, for the status bar.
    const std::string& lastResult() const { return lastResult_; }
    bool referenceBusy() const { return referenceBusy_; }

    /// The photos of the selected job that the filter shows, in the job's order.
    const Indices& filteredItems() const;
    /// The photo so many places after (or before) the selected one among those shown.
    std::optional<std::string> neighbor(int offset) const;

    ExportFlow& exports() { return *exports_; }
    BackdropSetup& backdrops() { return *backdrops_; }
    PoseFlow& poses() { return *poses_; }
    ThumbnailStore& thumbnails() { return thumbnails_; }
    QUndoStack& undoStack() { return undo_; }
    const AnalysisCache& cache() const { return cache_; }
    const AppServices& services() const { return services_; }

    void setFilter(StatusFilter filter);
    void setMode(ViewMode mode);
    void setShowOverlay(bool show);
    void setThumbnailHeight(double height);
    void setRightTab(RightTab tab);
    void dismissAlert();

    // Jobs: import, crop run.

    /// Asks the window for a folder.
    void importFolder();
    /// Imports a folder, or selects its job and looks for new, changed, renamed and vanished files.
    void openFolder(const Path& folder);
    void selectJob(const Uuid& id);
    /// Takes the selected job out of the list; its file is kept among the removed ones.
    void removeJob();
    void removeJob(const Uuid& id);
    void renameJob(const std::string& name);
    /// Measures the photos of the selected job that need it, or all of them (`force`), then crops.
    void analyzeCurrentJob(bool force = false);
    /// Loads in the background what the first crop would otherwise wait for, when photos of the
    /// selected job are still to be measured. What is missing is told when a crop run begins.
    void getReadyToCrop();
    /// Ends the running task; what it has done so far stays. The task is over when `taskEnded`
    /// tells so, within moments: it does not wait for what its workers are about to give up.
    void cancelProcessing();

    // Review and hand adjustment of the selected photos.

    void select(const std::optional<std::string>& itemID);
    /// `current` is one of `items`.
    void selectMany(std::vector<std::string> items, const std::optional<std::string>& current);
    void selectNext();
    void selectPrevious();
    /// Shows the photos in review, the first of them large.
    void startReview();
    void approveSelected(bool advance);
    void toggleApproveSelected();
    void unapproveSelected();
    /// Returns how many were approved.
    int approveAllReady();
    /// `dx` and `dy` in heights of the solved crop.
    void nudge(double dx, double dy);
    void scale(double by);
    void rotate(double degrees);
    /// Of all selected photos.
    void resetAdjustment();
    /// Between these two the adjustments of a photo, or the edits of a preset, are one step of
    /// undo, however long they take: a hand holds the frame or a slider.
    void beginGesture();
    void endGesture();
    /// A preset for the selected photos alone; none for what the job or the rules choose.
    void setOverride(const std::optional<Uuid>& presetID);
    /// True when the key did something.
    bool handleKey(const KeyPress& press);

    // Presets and rules.

    /// Shows a preset (or the rules, for the automatic choice) in the panel.
    void showPreset(const Uuid& id);
    /// The selected job's preset, or the automatic choice; also shows it.
    void choosePreset(const Uuid& id);
    /// `what`: the act as the undo menu names it, "Change Face Size".
    void updatePreset(const CropPreset& preset, const std::string& what = "Change Preset");
    void resetPreset(const Uuid& id);
    /// Adds a preset and shows it.
    Uuid newPreset(const std::string& name);
    std::optional<Uuid> duplicatePreset(const Uuid& id);
    /// Whatever uses it uses `replacement` from then on. The last preset stays.
    void deletePreset(const Uuid& id, const Uuid& replacement);
    /// Several presets at once, as one step.
    void updatePresets(const std::vector<CropPreset>& changed, const std::string& what);
    /// The rules of the selected job, and those that new jobs begin with.
    void setRules(const std::vector<CropRule>& rules);
    /// Models the shown preset on a finished portrait.
    void useReference(const Path& image);
    void clearReference();

    // Saving.

    /// Writes the job about a second after its last change, an approval at the latest a second
    /// after itself.
    void saveSoon(const Uuid& job, SaveQueue::Urgency urgency = SaveQueue::Urgency::edit);
    /// Writes what is pending and waits for it. Fails with a sentence when it could not be written.
    Result<void> flushSaves();
    /// For a program that ends without waiting for its workers: writes what is pending and leaves
    /// the data folder to the next program. Nothing can be changed afterwards.
    Result<void> leaveFolder();

    // For the undo steps and the flows of this room.

    void applyDecisions(const Uuid& job,
                        std::span<const std::pair<std::string, PhotoDecisions>> decisions);
    /// Selects the photo and its job.
    void reveal(const Uuid& job, const std::string& itemID);
    void applyChoices(const Uuid& job, const JobChoices& choices);
    void applyLibrary(const std::vector<CropPreset>& presets);
    /// Null when there is no such job.
    std::unique_ptr<WorkingJob> takeOut(const Uuid& job, std::size_t& place);
    void putBack(std::unique_ptr<WorkingJob> job, std::size_t place);

    WorkingJob* editable(const Uuid& id);
    /// Solves what the changed analyses reach and tells of it.
    void analysesChanged(WorkingJob& job, const Indices& changed);
    void setShowsFeet(const Uuid& job, std::optional<bool> answer);
    /// Puts a rule for a learned pose into every job and the rules that new jobs begin with, in
    /// place of one with the same condition.
    void addRule(const CropRule& rule);
    void removeRules(const RuleCondition& condition);

    void showAlert(AlertInfo alert);
    void say(const std::string& result);
    /// False, with an alert, while nothing may be changed.
    bool mayChange();
    /// False, with an alert, while nothing may be changed or a task runs.
    bool mayBegin();
    /// Begins the one task that may run, or returns false as `mayBegin`. `cancel` is called at most
    /// once and sees to it that the task ends soon.
    bool beginTask(const std::string& title, std::function<void()> cancel);
    void taskProgress(int completed, int total);
    void endTask();
    bool isBusy() const { return progress_.has_value(); }
    /// Into how many batches the results of the last crop run were gathered.
    int mergesOfLastRun() const { return lastMerges_; }
    Background& background() { return background_; }

signals:
    void jobsChanged();
    /// Name, counts, choices or export of a job.
    void jobChanged(const morva::Uuid& job);
    void itemsChanged(const morva::Uuid& job, const std::vector<std::size_t>& indices);
    /// The photos of a job are others than before.
    void itemsReset(const morva::Uuid& job);
    void selectedJobChanged();
    void selectionChanged();
    void filterChanged();
    void modeChanged();
    void overlayChanged();
    void thumbnailHeightChanged();
    void rightTabChanged();
    void presetsChanged();
    void selectedPresetChanged();
    void progressChanged();
    /// The running task is over.
    void taskEnded();
    void alertChanged();
    void resultChanged();
    void referenceBusyChanged();
    /// The window shows a dialog for a folder of photos and calls `openFolder`.
    void folderWanted(const std::string& title, const std::string& prompt);

private:
    struct CropRun;

    FolderAccess access() const;
    void loadPresets(std::vector<Failure>& problems);
    void loadJobs(std::vector<Failure>& problems);
    void adoptRetiredPresets(WorkingJob& job);

    void imported(const Path& folder, const std::optional<Uuid>& known,
                  Result<FolderReading> reading);
    Uuid addJob(const Path& folder, const FolderReading& reading);

    void startRunner(std::vector<Path> targets, bool force);
    void flushPending();
    void runEnded(bool cancelled);

    void decide(const QString& text, const Indices& indices,
                const std::function<void(std::size_t, PhotoDecisions&)>& change,
                DecisionsStep::Merging merging = DecisionsStep::Merging::never);
    void adjust(const QString& text, const std::function<void(ManualAdjustment&)>& change);
    void setApproved(const QString& text, const Indices& indices, bool approved);
    Indices selectedIndices() const;
    std::optional<std::size_t> currentIndex() const;
    bool isModal() const;
    void carryOut(const KeyBinding& binding, const KeyPress& press);

    void changeLibrary(const QString& text, std::vector<CropPreset> after,
                       std::optional<Uuid> edited = {});
    void solveStaleSoon();
    void saveLibrarySoon();
    void saveRules(const std::vector<CropRule>& rules);
    void changeRules(const std::function<void(std::vector<CropRule>&)>& change);
    void saveNow(const Uuid& job);
    SaveQueue::Snapshot snapshotOf(const Uuid& job);
    void touched(WorkingJob& job, const Indices& indices);

    AppServices services_;
    AnalysisCache cache_;
    ThumbnailStore thumbnails_;
    JobStore jobStore_;
    PresetStore presetStore_;
    std::optional<JobLock> lock_;
    /// Why nothing may be written: who else has the data folder.
    std::optional<std::string> holder_;

    std::vector<std::unique_ptr<WorkingJob>> jobs_;
    std::optional<Uuid> selectedJobID_;
    std::vector<CropPreset> presets_;
    Uuid selectedPresetID_;
    /// What new jobs begin with.
    std::vector<CropRule> rules_;
    StatusFilter filter_ = StatusFilter::all;
    std::optional<std::string> selectedItemID_;
    std::vector<std::string> selection_;
    ViewMode mode_ = ViewMode::grid;
    bool showOverlay_ = true;
    double thumbnailHeight_ = 180;
    RightTab rightTab_ = RightTab::preset;
    std::optional<ProcessingProgress> progress_;
    std::function<void()> cancelTask_;
    std::optional<AlertInfo> alert_;
    /// Those that wait until the one on screen is gone.
    std::vector<AlertInfo> waitingAlerts_;
    std::string lastResult_;
    bool referenceBusy_ = false;
    /// Absent when it must be made again.
    mutable std::optional<Indices> filtered_;

    std::unique_ptr<CropRun> run_;
    int lastMerges_ = 0;
    /// The gesture under way; 0 for none.
    int gesture_ = 0;
    int lastGesture_ = 0;
    QTimer flushTimer_;
    QTimer staleTimer_;
    QUndoStack undo_;
    std::unique_ptr<ExportFlow> exports_;
    std::unique_ptr<BackdropSetup> backdrops_;
    std::unique_ptr<PoseFlow> poses_;
    SaveQueue saves_;
    /// Last, so that nothing is worked on any more when the others go.
    Background background_;
};

}  // namespace morva
