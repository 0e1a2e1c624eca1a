// SPDX-License-Identifier: GPL-3.0-or-later
// Teaching a pose: ticked examples, a name and a crop type in; a model, a rule and new tags in all
// jobs out. Part of the application state, on the main thread; prints and training are made in the
// background. Also the packs that carry poses to other machines.
#pragma once

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <QObject>

#include "app/app_types.h"
#include "app/background.h"
#include "app/print_cache.h"
#include "app/working_job.h"
#include "poses/pose_store.h"
#include "poses/pose_trainer.h"

namespace morva {

class AppState;

class PoseFlow final : public QObject {
    Q_OBJECT

public:
    using Path = std::filesystem::path;

    /// Other photos are compared with at most this many, spread over the job: more teach nothing
    /// and every one must be looked at.
    static constexpr std::size_t mostOthers = 600;

    struct Outcome {
        TagClassifier::Model model;
        PoseReport report;
        /// Examples that were missed and other photos that were taken for the pose, by item.
        std::vector<std::string> missed;
        std::vector<std::string> wrong;
    };

    explicit PoseFlow(AppState& state);

    /// The sheet is on screen.
    bool isShown() const { return isShown_; }
    /// Ticked photos of the selected job.
    const std::set<std::string>& examples() const { return examples_; }
    const std::string& name() const { return name_; }
    const std::optional<Uuid>& presetID() const { return presetID_; }
    bool isBusy() const { return stop_ != nullptr; }
    const std::optional<ProcessingProgress>& progress() const { return progress_; }
    const std::optional<Outcome>& outcome() const { return outcome_; }
    /// Why there is no outcome, one sentence; empty when nothing went wrong.
    const std::string& error() const { return error_; }

    /// Shows the sheet, with the selected photos ticked.
    void begin();
    void dismiss();
    void toggleExample(const std::string& itemID);
    void setName(const std::string& name);
    void setPreset(const Uuid& preset);
    /// Learns the pose from the ticked photos; `outcome` or `error` tells how it went.
    void train();
    void cancel();
    /// Stores the pose, adds its rule to every job and looks for it in all of them.
    void keep();

    /// "Poses you've taught".
    std::vector<TagClassifier::Model> taught() const;
    void removePose(const std::string& tag);
    /// Adds the poses of a pack, in place of those with the same names.
    bool addPack(const Path& pack);
    /// Writes the taught poses, or only those in `tags`.
    bool savePack(const Path& pack, const std::optional<std::vector<std::string>>& tags) const;

signals:
    void changed();

private:
    struct Lesson;
    struct Found;

    Lesson lesson(const WorkingJob& job) const;
    void learn(Lesson wanted);
    void learned(Lesson lesson, tl::expected<PoseTrainer::Result, std::string> result);
    void fail(const std::string& reason);
    /// In the photos of all jobs; once the running task is over.
    void lookForPoses();
    void tagsFound(const std::vector<Found>& found);

    AppState& state_;
    PrintCache prints_;
    bool isShown_ = false;
    std::set<std::string> examples_;
    std::string name_;
    std::optional<Uuid> presetID_;
    std::optional<ProcessingProgress> progress_;
    std::optional<Outcome> outcome_;
    std::string error_;
    /// The poses changed while a task ran.
    bool looksLater_ = false;
    /// Of the training that runs.
    StopFlag stop_;
};

}  // namespace morva
