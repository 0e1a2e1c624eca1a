// SPDX-License-Identifier: GPL-3.0-or-later
// What a hand at a slider waits for: a value of the preset is dragged over a job of 2,000 photos,
// until the window has drawn its grid with the new crops. Without a display: nothing is shown.
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <stdexcept>

#include <benchmark/benchmark.h>
#include <QApplication>
#include <QFile>
#include <QImage>
#include <QLocale>
#include <QPainter>
#include <QSlider>

#include "app/app_state.h"
#include "base/file_url.h"
#include "crop/crop_rules.h"
#include "crop/synthetic_portrait.h"
#include "model/jobs/job_store.h"
#include "model/presets/preset_library.h"
#include "ui/grid/photo_grid.h"
#include "ui/language.h"
#include "ui/main_window.h"
#include "ui/panel/preset_form.h"
#include "ui/widgets/slider_row.h"
#include "ui/widgets/theme.h"

namespace morva {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int photoCount = 2000;
constexpr QSize photoSize{400, 500};

/// A child a minute, three frames each, on photos that can be opened.
Job measuredJob(const fs::path& folder, bool byRules) {
    QImage photo(photoSize, QImage::Format_RGB32);
    photo.fill(Qt::gray);
    QPainter(&photo).fillRect(120, 100, 160, 400, Qt::darkCyan);
    fs::create_directories(folder);
    const fs::path first = folder / "first";
    if (!photo.save(QFile::decodeName(first.c_str()), "JPEG"))
        throw std::runtime_error("no photo was written");
    Job job;
    job.name = "School";
    job.folderURL = folder;
    job.presetID = PresetLibrary::headshotID();
    job.rules = CropRules::defaults(PresetLibrary::standardLibrary());
    job.autoAssign = byRules;
    for (int i = 0; i < photoCount; ++i) {
        ImageItem item;
        item.relativePath = "IMG_" + std::to_string(i) + ".jpg";
        item.url = folder / item.relativePath;
        item.id = fileURL(item.relativePath);
        fs::copy_file(first, item.url);
        const double scale = photoSize.width() / 4000.0;
        const Point shift{i % 17 - 8.0, i % 13 - 6.0};
        item.analysis = Synthetic::transformed(Synthetic::portrait(), [&](Point point) {
            return Point{point.x * scale + shift.x, point.y * scale + shift.y};
        });
        item.analysis->sourceWidth = photoSize.width();
        item.analysis->sourceHeight = photoSize.height();
        item.analysis->rating = i % 11 == 0 ? 4 : 0;
        item.analysis->captureTime = 1.7e9 + i / 3 * 60 + i % 3 * 4;
        job.items.push_back(std::move(item));
    }
    return job;
}

/// Notices that a widget was drawn.
class PaintWatch final : public QObject {
public:
    explicit PaintWatch(QWidget& watched) { watched.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        wasDrawn_ = wasDrawn_ || event->type() == QEvent::Paint;
        return false;
    }
    void wait() {
        for (wasDrawn_ = false; !wasDrawn_;) QCoreApplication::processEvents();
    }

private:
    bool wasDrawn_ = false;
};

void letThingsHappen(std::chrono::milliseconds time) {
    for (const auto end = Clock::now() + time; Clock::now() < end;)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

class Dragged : public benchmark::Fixture {
public:
    void SetUp(const benchmark::State& state) override {
        const JobStore store(folder / "data");
        if (!store.saveNow(measuredJob(folder / "photos", state.range(0) == 1)))
            throw std::runtime_error("no job was written");
    }
    void TearDown(const benchmark::State&) override { fs::remove_all(folder); }

    const fs::path folder = fs::temp_directory_path() / ("morva-window-" + Uuid::random().text());
};

BENCHMARK_DEFINE_F(Dragged, recropsAndDraws)(benchmark::State& state) {
    state.SetLabel(state.range(0) == 1 ? "by rules" : "one preset");
    AppServices services;
    services.folders = {folder / "data", folder / "cache"};
    AppState app(services);
    app.start();
    MainWindow window(app);
    window.resize(1440, 900);
    window.show();
    app.selectJob(app.jobs().front()->id());
    app.showPreset(PresetLibrary::headshotID());
    letThingsHappen(std::chrono::seconds(2));
    auto* row = window.findChild<SliderRow*>(QStringLiteral("topMargin"));
    PaintWatch grid(*window.findChild<PhotoGrid*>()->viewport());
    double longest = 0;
    int place = 20;
    row->slider()->setSliderDown(true);
    for (auto _ : state) {
        const auto begin = Clock::now();
        place = place < 90 ? place + 1 : 20;
        row->slider()->setSliderPosition(place);
        grid.wait();
        longest = std::max(longest,
                           std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
    }
    row->slider()->setSliderDown(false);
    state.counters["longest"] = longest;
}
BENCHMARK_REGISTER_F(Dragged, recropsAndDraws)
    ->DenseRange(0, 1)
    ->Iterations(200)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace morva

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QLocale::setDefault(QLocale(QLocale::English));
    morva::installLanguage(application, QLocale());
    morva::applyTheme(application, morva::Contrast::ordinary);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
