// SPDX-License-Identifier: GPL-3.0-or-later
// What the user waits for in a job of large photographs: the first crop on screen after a run
// begins, and the end of a run or an export that is cancelled at any moment. Real models, which an
// earlier process has compiled; each measurement is a process of its own.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <QCoreApplication>
#include <QTimer>

#include "app/app_state.h"
#include "app/export_flow.h"
#include "base/uuid.h"
#include "photographs.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

using Clock = std::chrono::steady_clock;

constexpr int rounds = 24;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void check(bool held, const char* what) {
    if (held) return;
    std::fprintf(stderr, "job_run_bench: %s\n", what);
    std::_Exit(1);
}

void waitUntil(const std::function<bool()>& done) {
    while (!done())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

/// Lets things happen for so long.
void wait(std::chrono::milliseconds time) {
    bool isOver = false;
    QTimer::singleShot(time, [&] { isOver = true; });
    waitUntil([&] { return isOver; });
}

/// A folder with links to the photographs of 20 to 33 megapixels, over and over.
class School {
public:
    School(const fs::path& data, int count) {
        fs::create_directories(photos());
        constexpr std::array names{"pif-kevin-luo.jpg", "woman-bar-boards.jpg",
                                   "pif-rajni-aneja.jpg"};
        for (int i = 0; i < count; ++i) {
            const fs::path photo = photos() / ("IMG_" + std::to_string(1000 + i) + ".jpg");
            fs::create_symlink(
                fs::absolute(data / "portraits" / names[static_cast<std::size_t>(i) % 3]), photo);
        }
    }
    ~School() { fs::remove_all(folder_); }
    School(const School&) = delete;
    School& operator=(const School&) = delete;

    fs::path photos() const { return folder_ / "photos"; }
    fs::path out() const { return folder_ / "out"; }

    AppServices services() const {
        return AppServices::real({folder_ / "data", folder_ / "cache"});
    }
    /// A fresh program with the job imported.
    std::unique_ptr<AppState> opened() const {
        auto app = std::make_unique<AppState>(services());
        app->start();
        app->openFolder(photos());
        waitUntil([&] { return !app->isBusy(); });
        check(app->selectedJob() != nullptr, "no job");
        return app;
    }

private:
    const fs::path folder_ =
        fs::temp_directory_path() / ("morva-job-run-bench-" + Uuid::random().text());
};

/// Runs `work` in a process of its own.
void apart(const std::function<void()>& work) {
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        int argc = 1;
        char name[] = "job_run_bench";
        char* argv[] = {name, nullptr};
        const QCoreApplication application(argc, argv);
        work();
        std::fflush(stdout);
        std::_Exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    check(status == 0, "a measuring process");
}

/// What the first run of a program has to wait for before its first photo.
void measureModels(const School& school) {
    const auto start = Clock::now();
    check(school.services().prepare().has_value(), "models");
    std::printf("models loaded from the cache in %.2f s\n", secondsSince(start));
}

void measureFirstResult(const School& school) {
    const auto app = school.opened();
    // The window does the same as soon as the job is there, and nobody presses the button sooner.
    app->getReadyToCrop();
    wait(std::chrono::seconds(2));
    std::optional<double> cropped;
    std::optional<double> shown;
    const auto start = Clock::now();
    QObject::connect(app.get(), &AppState::itemsChanged, app.get(),
                     [&](const Uuid&, const AppState::Indices& indices) {
                         if (cropped) return;
                         cropped = secondsSince(start);
                         app->thumbnails().request(
                             app->selectedJob()->preview(indices.front(), app->presets(),
                                                         ThumbnailStore::gridHeight),
                             [&](const QImage&) { shown = secondsSince(start); });
                     });
    app->analyzeCurrentJob();
    waitUntil([&] { return shown.has_value(); });
    std::printf("first of %zu photos: cropped after %.2f s, its thumbnail there after %.2f s\n",
                app->selectedJob()->job().items.size(), *cropped, *shown);
    app->cancelProcessing();
    waitUntil([&] { return !app->isBusy(); });
}

struct Delays {
    /// Until the task is over, and until its workers have given up, which the end of a program
    /// waits for.
    std::vector<double> task;
    std::vector<double> workers;

    void print(const char* what) {
        const auto line = [](std::vector<double>& values) {
            std::ranges::sort(values);
            return std::pair(values[values.size() / 2], values.back());
        };
        const auto [taskMiddle, taskMost] = line(task);
        const auto [workersMiddle, workersMost] = line(workers);
        std::printf(
            "%s cancelled at %zu random moments: over after %.3f s (at most %.3f), its workers "
            "free after %.3f s (at most %.3f)\n",
            what, task.size(), taskMiddle, taskMost, workersMiddle, workersMost);
    }
};

/// `begin` starts a task on a state; it is cancelled after up to `longest`.
Delays cancelled(const School& school, std::chrono::milliseconds longest,
                 const std::function<void(AppState&)>& begin) {
    Delays delays;
    std::mt19937 random(7);
    std::uniform_int_distribution<long> moment(1, longest.count());
    for (int round = 0; round < rounds; ++round) {
        auto app = school.opened();
        begin(*app);
        wait(std::chrono::milliseconds(moment(random)));
        check(app->isBusy(), "a task that is over before it is cancelled");
        const auto start = Clock::now();
        app->cancelProcessing();
        waitUntil([&] { return !app->isBusy(); });
        delays.task.push_back(secondsSince(start));
        app.reset();
        delays.workers.push_back(secondsSince(start));
    }
    return delays;
}

void measureCancelling(const School& school) {
    cancelled(school, std::chrono::milliseconds(3000), [](AppState& app) {
        app.analyzeCurrentJob(true);
    }).print("crop run");
    {
        const auto app = school.opened();
        CropPreset preset = *app->preset(app->selectedJob()->job().presetID);
        preset.exportSettings.backdrop = BackdropMode::replace;
        app->updatePreset(preset);
        app->analyzeCurrentJob();
        waitUntil([&] { return !app->isBusy(); });
        app->approveAllReady();
    }
    cancelled(school, std::chrono::milliseconds(4000), [&](AppState& app) {
        app.exports().begin();
        app.exports().setDestination(school.out());
        app.exports().setReplaceExisting(true);
        check(app.exports().run(), "an export that does not begin");
    }).print("export with replaced backdrops");
}

}  // namespace
}  // namespace morva

int main() {
    using namespace morva;
    const auto data = testPhotographs("job_run_bench");
    if (!data) return 0;
    const School large(*data, 500);
    const School small(*data, 33);
    for (const School* school : {&large, &small})
        apart([&] { check(school->services().prepare().has_value(), "models"); });
    apart([&] { measureModels(large); });
    apart([&] { measureFirstResult(large); });
    apart([&] { measureCancelling(small); });
    return 0;
}
