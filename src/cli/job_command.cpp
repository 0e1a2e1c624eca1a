// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/job_command.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <utility>

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include "app/app_state.h"
#include "app/export_flow.h"
#include "cli/interruption.h"
#include "cli/job_report.h"

namespace morva {

namespace {

using Action = JobArguments::Action;

/// How often a task looks whether the user wants it to stop.
constexpr std::chrono::milliseconds interruptionCheck{100};

/// One command on the state, from its start to what is on disk.
class JobRun {
public:
    JobRun(const JobArguments& wanted, AppState& state, Console& console)
        : wanted_(wanted), state_(state), console_(console) {}

    ExitCode run();

private:
    ExitCode import();
    ExitCode list();
    ExitCode crop();
    ExitCode approve();
    ExitCode exportPhotos();
    ExitCode reviewList();
    ExitCode remove();

    /// Runs the task that was begun to its end.
    void finishTask(std::string_view what);
    /// Tells the alerts on screen; false when there were any.
    bool isQuiet();
    /// Writes everything; the code, or that of what could not be written.
    ExitCode saved(ExitCode code);
    /// Selects the job that was named; false, with a message, when there is not exactly one.
    bool selected();
    void print(const Json& json, const std::string& line);
    ExitCode end(ExitCode code) const;

    const JobArguments& wanted_;
    AppState& state_;
    Console& console_;
    bool wasInterrupted_ = false;
};

bool JobRun::isQuiet() {
    bool quiet = true;
    while (state_.alert()) {
        console_.wipeProgress();
        console_.failure(state_.alert()->title + ": " + state_.alert()->message);
        state_.dismissAlert();
        quiet = false;
    }
    return quiet;
}

void JobRun::finishTask(std::string_view what) {
    if (!state_.isBusy()) return;
    QEventLoop loop;
    QTimer interruption;
    bool began = false;
    const auto show = [&] {
        const auto& progress = state_.progress();
        if (!progress || progress->total == 0) return;
        if (!std::exchange(began, true))
            console_.beginProgress(what, static_cast<std::size_t>(progress->total));
        console_.progress(static_cast<std::size_t>(progress->completed));
    };
    QObject::connect(&interruption, &QTimer::timeout, &loop, [&] {
        if (!Interruption::requested()) return;
        wasInterrupted_ = true;
        state_.cancelProcessing();
    });
    QObject::connect(&state_, &AppState::progressChanged, &loop, show);
    QObject::connect(&state_, &AppState::taskEnded, &loop, &QEventLoop::quit);
    interruption.start(interruptionCheck);
    loop.exec();
    console_.wipeProgress();
}

ExitCode JobRun::end(ExitCode code) const { return wasInterrupted_ ? ExitCode::interrupted : code; }

ExitCode JobRun::saved(ExitCode code) {
    if (const auto done = state_.flushSaves(); !done) {
        console_.failure(done.error().message);
        return ExitCode::outputUnwritable;
    }
    return end(code);
}

bool JobRun::selected() {
    const auto found = JobReport::named(state_, wanted_.job);
    if (!found) {
        console_.failure(found.error().message);
        return false;
    }
    state_.selectJob(*found);
    return true;
}

void JobRun::print(const Json& json, const std::string& line) {
    std::cout << (wanted_.json ? jsonText(json) : line) << std::endl;
}

ExitCode JobRun::run() {
    const bool looksOnly = wanted_.action == Action::list || wanted_.action == Action::reviewList;
    if (state_.isReadOnly() && !looksOnly) {
        isQuiet();
        return ExitCode::outputUnwritable;
    }
    // Files that could not be read are told of; the other jobs are there.
    isQuiet();
    if (wanted_.action == Action::import) return import();
    if (wanted_.action == Action::list) return list();
    if (!selected()) return ExitCode::inputUnreadable;
    switch (wanted_.action) {
        case Action::crop:
            return crop();
        case Action::approve:
            return approve();
        case Action::exportPhotos:
            return exportPhotos();
        case Action::reviewList:
            return reviewList();
        default:
            return remove();
    }
}

ExitCode JobRun::import() {
    if (wanted_.preset) {
        const auto preset = JobReport::presetNamed(state_, *wanted_.preset);
        if (!preset) {
            console_.failure(preset.error().message);
            return ExitCode::inputUnreadable;
        }
        state_.showPreset(*preset);
    }
    state_.openFolder(wanted_.folder);
    finishTask("Importing");
    if (!isQuiet() || (!state_.selectedJob() && !wasInterrupted_)) return ExitCode::inputUnreadable;
    const ExitCode code = saved(ExitCode::done);
    if (const WorkingJob* job = state_.selectedJob())
        print(JobReport::json(*job), JobReport::line(*job));
    return code;
}

ExitCode JobRun::list() {
    for (const auto& job : state_.jobs()) print(JobReport::json(*job), JobReport::line(*job));
    return ExitCode::done;
}

ExitCode JobRun::crop() {
    state_.analyzeCurrentJob(wanted_.force);
    finishTask("Cropping");
    const WorkingJob& job = *state_.selectedJob();
    const bool nothingToDo = state_.mergesOfLastRun() == 0 && !wasInterrupted_;
    if (!isQuiet() && !nothingToDo) return ExitCode::inputUnreadable;
    const ExitCode code = saved(ExitCode::done);
    if (wanted_.json)
        for (std::size_t i = 0; i < job.job().items.size(); ++i)
            print(JobReport::photoJson(state_, job, i), {});
    else
        print({}, JobReport::line(job));
    if (code != ExitCode::done) return code;
    const int wrong = job.count(StatusFilter::failed) + job.count(ItemStatus::pending) +
                      (wanted_.strict ? job.count(ItemStatus::review) : 0);
    return wrong > 0 ? ExitCode::photosFailed : ExitCode::done;
}

ExitCode JobRun::approve() {
    const WorkingJob& job = *state_.selectedJob();
    std::vector<std::string> chosen;
    for (const std::string& photo : wanted_.photos) {
        const auto index = JobReport::photoNamed(job, photo);
        if (!index) {
            console_.failure(job.job().name + " has no photo " + photo + ".");
            return ExitCode::inputUnreadable;
        }
        chosen.push_back(job.item(*index).id);
    }
    if (wanted_.ready)
        for (const std::size_t index : job.matching(StatusFilter::ready))
            chosen.push_back(job.item(index).id);
    if (!chosen.empty()) {
        state_.selectMany(chosen, chosen.front());
        wanted_.takeBack ? state_.unapproveSelected() : state_.approveSelected(false);
    }
    const ExitCode code = saved(ExitCode::done);
    if (code != ExitCode::done) return code;
    bool all = true;
    for (const std::string& id : chosen) {
        const std::size_t index = *job.indexOf(id);
        all = all && job.item(index).approved != wanted_.takeBack;
        print(JobReport::photoJson(state_, job, index), JobReport::photoLine(state_, job, index));
    }
    return all ? ExitCode::done : ExitCode::photosFailed;
}

ExitCode JobRun::exportPhotos() {
    ExportFlow& exports = state_.exports();
    exports.begin();
    if (!isQuiet()) return ExitCode::inputUnreadable;
    if (wanted_.out) exports.setDestination(*wanted_.out);
    exports.setIncludeApprovedOnly(wanted_.approvedOnly);
    exports.setReplaceExisting(wanted_.replace);
    const auto plan = exports.plan();
    const bool isNothingNew = plan && plan->write.empty();
    const bool began = exports.run();
    finishTask("Exporting");
    const bool quiet = isQuiet();
    if (!began) return isNothingNew ? ExitCode::done : ExitCode::outputUnwritable;
    const ExitCode code = saved(quiet ? ExitCode::done : ExitCode::photosFailed);
    for (const ExportReport::Row& row : exports.lastRows())
        print(JobReport::exportJson(row), JobReport::exportLine(row));
    console_.say(state_.lastResult());
    return code;
}

ExitCode JobRun::reviewList() {
    if (!wanted_.out) {
        std::cout << state_.exports().reviewListCSV() << std::flush;
        return ExitCode::done;
    }
    state_.exports().saveReviewList(*wanted_.out);
    return isQuiet() ? ExitCode::done : ExitCode::outputUnwritable;
}

ExitCode JobRun::remove() {
    const Json removed = JobReport::json(*state_.selectedJob());
    const std::string line = JobReport::line(*state_.selectedJob());
    state_.removeJob();
    const ExitCode code = saved(ExitCode::done);
    if (code == ExitCode::done) print(removed, line);
    return code;
}

/// Workers may be about to give up what they had in hand, for seconds on a busy machine. They keep
/// nothing of it and write no file but whole ones, so the program can end under them.
[[noreturn]] void endNow(AppState& state, ExitCode code) {
    static_cast<void>(state.leaveFolder());
    std::cout.flush();
    std::cerr.flush();
    std::_Exit(static_cast<int>(code));
}

}  // namespace

ExitCode runJob(const JobArguments& job, const Arguments& common, Console& console) {
    Interruption::watch();
    int argc = 1;
    std::string name = "morva-cli";
    char* argv[] = {name.data(), nullptr};
    const QCoreApplication application(argc, argv);
    AppServices services = AppServices::real({common.dataFolder, common.cacheFolder});
    services.concurrency = job.jobs;
    AppState state(std::move(services));
    state.start();
    const ExitCode code = JobRun(job, state, console).run();
    if (code == ExitCode::interrupted) endNow(state, code);
    return code;
}

}  // namespace morva
