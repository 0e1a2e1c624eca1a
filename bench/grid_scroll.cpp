// SPDX-License-Identifier: GPL-3.0-or-later
// What the grid costs the main thread: 10,000 photos scrolled at three speeds, a crop nudged, and a
// preset dragged over 2,000 photos, with the memory of the whole program. The thumbnails lie on
// disk as after a first look, so scrolling reads and decodes them in the background.
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QThread>

#include "app/app_state.h"
#include "base/files.h"
#include "imaging/encode.h"
#include "large_job.h"
#include "model/jobs/job_store.h"
#include "process_usage.h"
#include "ui/grid/photo_grid.h"
#include "ui/widgets/theme.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

constexpr int photoCount = 10000;
constexpr int draggedCount = 2000;
constexpr double frame = 1000.0 / 60;

/// Different enough that their files are not all one.
constexpr int kinds = 12;

/// Something with edges and grain, so that it weighs what a portrait weighs.
Picture picture(int width, int height, int kind) {
    Picture made(width, height);
    std::uint32_t noise = static_cast<std::uint32_t>(kind) * 7919 + 1;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            noise = noise * 1664525 + 1013904223;
            const int grain = static_cast<int>(noise >> 28);
            const bool inside = std::hypot(x - width / 2, y - height / 2) < height / 3.0;
            const int base = inside ? 170 + kind * 5 : 60 + y * 80 / height;
            for (int channel = 0; channel < 3; ++channel)
                made.pixel(x, y)[channel] =
                    static_cast<std::uint8_t>(std::min(255, base + grain - channel * 20));
        }
    }
    return made;
}

void writeKinds(const fs::path& folder, int width, int height) {
    fs::create_directories(folder);
    for (int kind = 0; kind < kinds; ++kind)
        static_cast<void>(writeFileAtomically(folder / std::to_string(kind),
                                              *encodeJpeg(picture(width, height, kind), 0.85, 72)));
}

/// The folders of a user who has a job of that many photos and has looked at all of them.
Folders seenJob(const fs::path& home, int count) {
    const Folders folders{home / "data", home / "cache"};
    writeKinds(home / "photo kinds", 1600, 2000);
    writeKinds(home / "thumbnail kinds", 288, ThumbnailStore::gridHeight);
    fs::create_directories(folders.cache / "previews");
    Job job = largeJob(count, home / "photos");
    for (std::size_t i = 0; i < job.items.size(); ++i) {
        fs::create_directories(job.items[i].url.parent_path());
        fs::create_hard_link(home / "photo kinds" / std::to_string(i % kinds), job.items[i].url);
    }
    static_cast<void>(JobStore(folders.data).saveNow(job));
    WorkingJob solved(std::move(job));
    const auto& presets = PresetLibrary::standardLibrary();
    solved.solve(presets);
    for (std::size_t i = 0; i < solved.job().items.size(); ++i) {
        auto request = solved.preview(i, presets, ThumbnailStore::gridHeight);
        request.stamp = ImageLoader::fileSignature(request.url);
        fs::create_hard_link(
            home / "thumbnail kinds" / std::to_string(i % kinds),
            folders.cache / "previews" / (sha256(ThumbnailStore::key(request)) + ".jpg"));
    }
    return folders;
}

/// A window over one job, driven frame by frame.
class Bench {
public:
    explicit Bench(const Folders& folders) : state_(servicesIn(folders)) {
        state_.start();
        grid_ = std::make_unique<PhotoGrid>(state_);
        grid_->resize(1000, 800);
        grid_->show();
        state_.selectJob(state_.jobs().front()->id());
        rest(1000);
    }

    AppState& state() { return state_; }
    PhotoGrid& grid() { return *grid_; }

    /// Does `act` once per frame and prints how long the main thread was busy with each.
    void drive(const char* what, int frames, double goal, const std::function<void(int)>& act) {
        std::vector<double> times;
        std::vector<double> work;
        int blank = 0;
        int cells = 0;
        for (int i = 0; i < frames; ++i) {
            QElapsedTimer time;
            time.start();
            const double before = worked();
            act(i);
            QCoreApplication::processEvents();
            const double busy = static_cast<double>(time.nsecsElapsed()) / 1e6;
            times.push_back(busy);
            work.push_back(worked() - before);
            countBlank(blank, cells);
            if (busy < frame) rest(static_cast<int>(frame - busy));
        }
        std::printf("%-34s", what);
        const double slow = print(times);
        print(work);
        std::printf("  under %.0f: %-4s %5.1f %% %5.0f MB\n", goal, slow < goal ? "yes" : "NO",
                    100.0 * blank / std::max(1, cells), residentBytes() / 1e6);
        std::fflush(stdout);
    }

    void rest(int milliseconds) {
        QElapsedTimer time;
        time.start();
        do {
            QCoreApplication::processEvents();
            QThread::usleep(500);
        } while (time.elapsed() < milliseconds);
    }

private:
    static AppServices servicesIn(const Folders& folders) {
        AppServices services;
        services.folders = folders;
        return services;
    }

    /// Processor time of the main thread so far, milliseconds: what other programs do not change.
    static double worked() {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    }

    /// Median, 99 of 100, and longest; returns the second.
    static double print(std::vector<double>& times) {
        std::ranges::sort(times);
        const auto at = [&](double share) {
            return times[static_cast<std::size_t>(share * static_cast<double>(times.size() - 1))];
        };
        std::printf(" %7.1f %6.1f %6.1f", at(0.5), at(0.99), times.back());
        return at(0.99);
    }

    /// Cells on screen without a picture.
    void countBlank(int& blank, int& cells) {
        const QModelIndex first = grid_->indexAt({40, 40});
        for (int row = std::max(0, first.row()); row < grid_->photos().rowCount(); ++row) {
            const QRect place = grid_->visualRect(grid_->photos().index(row));
            if (place.top() > grid_->viewport()->height()) break;
            ++cells;
            blank += grid_->pictures().picture(*grid_->photos().itemAt(row)).isEmpty() ? 1 : 0;
        }
    }

    AppState state_;
    std::unique_ptr<PhotoGrid> grid_;
};

void scroll(const fs::path& home) {
    Bench bench(seenJob(home, photoCount));
    std::printf("%-34s %22s %21s %11s %7s\n", "milliseconds: median, p99, longest", "passed",
                "worked", "p99", "blank");
    std::printf("%d photos\n", photoCount);
    QScrollBar& bar = *bench.grid().verticalScrollBar();
    bench.drive("scroll, 40 pixels a frame", 600, 16, [&](int) { bar.setValue(bar.value() + 40); });
    bench.drive("scroll, a row a frame", 300, 16, [&](int) { bar.setValue(bar.value() + 240); });
    bench.drive("scroll, a screen a frame", 300, 16,
                [&](int) { bar.setValue(bar.value() + bar.pageStep()); });
    bench.drive("drag the scroll bar to and fro", 300, 16, [&](int i) {
        bar.setValue(static_cast<int>(static_cast<qint64>(bar.maximum()) * (i * 37 % 300) / 300));
    });
    bar.setValue(0);
    bench.rest(1000);
    bench.state().select(bench.grid().photos().idAt(1));
    bench.drive("nudge to repaint", 200, 16,
                [&](int i) { bench.state().nudge(i % 2 == 0 ? 0.005 : -0.004, 0); });
    bench.drive("select the next photo", 200, 16, [&](int) { bench.state().selectNext(); });
    bench.drive("select all and one", 50, 16, [&](int i) {
        if (i % 2 == 0)
            bench.grid().selectAllShown();
        else
            bench.state().select(bench.grid().photos().idAt(1));
    });
}

void drag(const fs::path& home) {
    Bench bench(seenJob(home, draggedCount));
    std::printf("%d photos\n", draggedCount);
    CropPreset preset = *bench.state().preset(bench.state().selectedPresetID());
    bench.drive("drag a preset: solve and repaint", 200, 33, [&](int i) {
        preset.faceScale *= i / 20 % 2 == 0 ? 0.99 : 1 / 0.99;
        bench.state().updatePreset(preset);
    });
}

}  // namespace
}  // namespace morva

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    morva::applyTheme(*qApp, morva::Contrast::ordinary);
    const auto home = std::filesystem::temp_directory_path() /
                      ("morva-grid-bench-" + morva::Uuid::random().text());
    morva::scroll(home / "large");
    morva::drag(home / "dragged");
    std::filesystem::remove_all(home);
}
