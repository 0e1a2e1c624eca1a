// SPDX-License-Identifier: GPL-3.0-or-later
// What a photo costs in jobs of 100 to 100,000: processor time of everything that works on a whole
// job, which a busy machine does not distort. No photo is opened.
#include <malloc.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <QCoreApplication>

#include "app/app_state.h"
#include "app/working_job.h"
#include "crop/subject_grouping.h"
#include "large_job.h"
#include "model/jobs/job_solver.h"
#include "model/jobs/job_store.h"
#include "model/presets/preset_library.h"
#include "process_usage.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

constexpr std::array sizes{100, 1000, 10000, 100000};

/// On the heap, large blocks included.
double bytesHeld() {
    const auto heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}

void check(bool held, const char* what) {
    if (held) return;
    std::fprintf(stderr, "scaling_bench: %s\n", what);
    std::_Exit(1);
}

/// Microseconds a photo, for each size.
struct Row {
    std::string what;
    std::vector<double> costs;
};

/// The table, filled size by size.
class Table {
public:
    /// Median of as many rounds as fit into a third of a second, at most 500 and at least one.
    void measure(const std::string& what, int photos, const std::function<void()>& act) {
        std::vector<double> rounds;
        double spent = 0;
        while (rounds.empty() || (spent < 0.33 && rounds.size() < 500)) {
            const double start = processorSeconds();
            act();
            rounds.push_back(processorSeconds() - start);
            spent += rounds.back();
        }
        std::ranges::nth_element(rounds, rounds.begin() + std::ssize(rounds) / 2);
        add(what, rounds[rounds.size() / 2] * 1e6 / photos);
    }

    void add(const std::string& what, double cost) {
        auto row = std::ranges::find(rows_, what, &Row::what);
        if (row == rows_.end()) row = rows_.insert(rows_.end(), {what, {}});
        row->costs.push_back(cost);
    }

    void print() const {
        std::printf("%-40s", "a photo, in a job of");
        for (const int size : sizes) std::printf(" %9d", size);
        std::printf("  last / first\n");
        for (const Row& row : rows_) {
            std::printf("%-40s", row.what.c_str());
            for (const double cost : row.costs) std::printf(" %9.3f", cost);
            std::printf("  %.2f\n", row.costs.back() / row.costs.front());
        }
    }

private:
    std::vector<Row> rows_;
};

/// Three shoots in one: children of three frames; one child without an end; and one camera whose
/// photos carry no time.
void measureGrouping(Table& table, Job job) {
    const int photos = static_cast<int>(job.items.size());
    const auto grouped = [&](const std::string& what) {
        std::vector<const ImageAnalysis*> analyses;
        for (const ImageItem& item : job.items) analyses.push_back(&*item.analysis);
        const std::vector<std::string> cameras(analyses.size(), "IMG_");
        table.measure(what, photos, [&] {
            const auto units = SubjectGrouping::steadyFaceUnits(analyses, cameras,
                                                                SubjectGrouping::defaultGapSeconds,
                                                                [](std::size_t) { return true; });
            check(units.size() <= analyses.size(), "more shared sizes than photos");
        });
    };
    grouped("group and share sizes, three frames each");
    for (std::size_t i = 0; i < job.items.size(); ++i)
        job.items[i].analysis->captureTime = 1.7e9 + static_cast<double>(i);
    grouped("the same, one group of all");
    for (ImageItem& item : job.items) item.analysis->captureTime.reset();
    grouped("the same, no times");
}

void measureValues(Table& table, int photos) {
    const double before = bytesHeld();
    Job job = largeJob(photos);
    const auto presets = PresetLibrary::standardLibrary();
    JobSolver::solve(job, presets);
    table.add("memory, kB", (bytesHeld() - before) / 1000 / photos);
    table.measure("solve, one preset, us", photos, [&] { JobSolver::solve(job, presets); });
    job.autoAssign = true;
    table.measure("solve, by rules", photos, [&] { JobSolver::solve(job, presets); });
    job.autoAssign = false;
    measureGrouping(table, job);
    table.measure("copy for a save", photos, [&] {
        const Job copy = job;
        check(copy.items.size() == job.items.size(), "not copied");
    });

    WorkingJob working(job);
    working.solve(presets);
    table.measure("one photo measured anew, the job updated", photos, [&] {
        check(!working.remeasured(presets, std::array{std::size_t{0}}).empty(), "not updated");
    });
    table.measure("counts of all six filters", photos, [&] {
        int shown = 0;
        for (const StatusFilter filter :
             {StatusFilter::all, StatusFilter::ready, StatusFilter::review, StatusFilter::approved,
              StatusFilter::failed, StatusFilter::adjusted})
            shown += working.count(filter);
        check(shown >= photos, "not counted");
    });
    table.measure("photos of one filter", photos,
                  [&] { check(!working.matching(StatusFilter::all).empty(), "not matched"); });
}

void measureStored(Table& table, int photos, const fs::path& folder) {
    const JobStore store(folder / "Jobs");
    const Job job = largeJob(photos);
    table.measure("save", photos, [&] { check(store.saveNow(job).has_value(), "not saved"); });
    table.measure("open", photos, [&] { check(store.loadAll().jobs.size() == 1, "not opened"); });
}

/// A decision about every photo, with its step of undo, and taken back.
void measureState(Table& table, int photos, const fs::path& folder) {
    check(JobStore(folder).saveNow(largeJob(photos)).has_value(), "not saved");
    AppServices services;
    services.folders = {folder, folder / "cache"};
    AppState app(services);
    app.start();
    check(app.jobs().size() == 1, "not started");
    app.selectJob(app.jobs().front()->id());
    std::vector<std::string> all;
    for (const ImageItem& item : app.selectedJob()->job().items) all.push_back(item.id);
    app.selectMany(all, all.front());
    const Uuid own = PresetLibrary::standardLibrary().back().id;
    // Once each: the same act a second time would join the first or change nothing.
    double start = processorSeconds();
    app.setOverride(own);
    table.add("preset for all photos, undo step", (processorSeconds() - start) * 1e6 / photos);
    check(app.undoStack().canUndo(), "no step of undo");
    start = processorSeconds();
    app.undoStack().undo();
    table.add("that undone", (processorSeconds() - start) * 1e6 / photos);
}

}  // namespace
}  // namespace morva

int main(int argc, char** argv) {
    using namespace morva;
    const QCoreApplication application(argc, argv);
    Table table;
    for (const int photos : sizes) {
        const fs::path folder =
            fs::temp_directory_path() / ("morva-scaling-" + Uuid::random().text());
        measureValues(table, photos);
        measureStored(table, photos, folder / "store");
        measureState(table, photos, folder / "state");
        fs::remove_all(folder);
    }
    table.print();
    return 0;
}
