// SPDX-License-Identifier: GPL-3.0-or-later
// screenshots OUT WIDTHxHEIGHT [FOLDER]: opens the real window over a folder of portraits (or a
// demo shoot made of the sample), goes through its views and sheets, and writes each as a PNG into
// OUT.
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <stdexcept>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QLocale>

#include "app/app_test_support.h"
#include "app/backdrop_setup.h"
#include "app/export_flow.h"
#include "app/pose_flow.h"
#include "demo_photos.h"
#include "ui/actions.h"
#include "ui/inspector/inspector.h"
#include "ui/language.h"
#include "ui/main_window.h"
#include "ui/widgets/theme.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

constexpr int demoPhotos = 36;

void letThingsHappen(int milliseconds) {
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < milliseconds) QApplication::processEvents(QEventLoop::AllEvents, 20);
}

class Tour {
public:
    Tour(fs::path out, const QSize& size, const fs::path& home)
        : out_(std::move(out)),
          state_(AppServices::real({home / "data", home / "cache"})),
          window_(state_) {
        fs::create_directories(out_);
        state_.start();
        window_.resize(size);
        window_.show();
        QApplication::setActiveWindow(&window_);
    }

    void run(const fs::path& folder) {
        shot("welcome");
        state_.openFolder(folder);
        waitForTask();
        if (!state_.selectedJob()) throw std::runtime_error("no photos in " + folder.string());
        shot("not-cropped");
        askForSmallFiles();
        state_.analyzeCurrentJob();
        letThingsHappen(2500);
        shot("cropping");
        waitForTask();
        decide();
        shot("grid");
        views();
        sheets();
        act(Act::highContrast);
        shot("high-contrast");
    }

private:
    void act(Act act) { window_.actions().action(act)->trigger(); }

    void waitForTask() {
        while (state_.isBusy()) letThingsHappen(20);
    }

    void shot(const char* name) {
        letThingsHappen(1200);
        const fs::path file = out_ / (std::string(name) + ".png");
        if (!window_.grab().save(QFile::decodeName(file.c_str())))
            throw std::runtime_error("cannot write " + file.string());
        std::cout << file.filename().string() << '\n';
    }

    std::string idAt(std::size_t index) const {
        const auto& items = state_.selectedJob()->job().items;
        return items[index % items.size()].id;
    }

    /// The sample has too few pixels for prints; that every photo says so would be all one sees.
    void askForSmallFiles() {
        std::vector<CropPreset> presets = state_.presets();
        for (CropPreset& preset : presets) {
            preset.exportSettings.pixelHeight /= 3;
            preset.exportSettings.pixelWidth /= 3;
        }
        state_.updatePresets(presets, "Change Size");
    }

    /// As in the middle of an evening: some approved, one adjusted.
    void decide() {
        for (const std::size_t index : {0, 2, 3}) {
            state_.select(idAt(index));
            state_.approveSelected(false);
        }
        state_.select(idAt(4));
        state_.scale(1.05);
        state_.rotate(1);
        state_.select(idAt(5));
        state_.setRightTab(RightTab::photo);
    }

    void views() {
        state_.setMode(ViewMode::inspect);
        shot("inspector");
        window_.inspector().setShowsResult(true);
        shot("before-after");
        window_.inspector().setShowsResult(false);
        state_.setMode(ViewMode::grid);
        state_.setRightTab(RightTab::preset);
        shot("preset");
        state_.selectMany({idAt(1), idAt(2), idAt(5)}, idAt(5));
        state_.setRightTab(RightTab::photo);
        shot("selection");
        state_.select(idAt(5));
        state_.setFilter(StatusFilter::adjusted);
        shot("filter");
        state_.setFilter(StatusFilter::all);
    }

    void sheets() {
        state_.exports().begin();
        shot("export");
        state_.exports().dismiss();
        state_.backdrops().begin();
        shot("backdrops");
        state_.backdrops().dismiss();
        state_.poses().begin();
        shot("pose");
        state_.poses().dismiss();
        for (const auto& [what, name] :
             {std::pair{Act::editRules, "rules"}, std::pair{Act::showKeys, "keys"},
              std::pair{Act::showGuide, "guide"}, std::pair{Act::about, "about"}}) {
            act(what);
            shot(name);
            pressEscape();
        }
        state_.analyzeCurrentJob();  // everything is cropped: an alert
        shot("alert");
        state_.dismissAlert();
    }

    void pressEscape() {
        QWidget* focus = QApplication::focusWidget();
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent key(type, Qt::Key_Escape, Qt::NoModifier);
            QApplication::sendEvent(focus ? focus : &window_, &key);
        }
        letThingsHappen(50);
    }

    fs::path out_;
    AppState state_;
    MainWindow window_;
};

QSize sizeOf(const std::string& text) {
    const QStringList parts = QString::fromStdString(text).split(QLatin1Char('x'));
    if (parts.size() != 2) throw std::runtime_error("a size is WIDTHxHEIGHT");
    return {parts[0].toInt(), parts[1].toInt()};
}

int run(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Morva"));
    if (argc < 3) throw std::runtime_error("Use: screenshots OUT WIDTHxHEIGHT [FOLDER]");
    const char* language = std::getenv("MORVA_LANGUAGE");
    QLocale::setDefault(QLocale(QString::fromLatin1(language ? language : "en")));
    installLanguage(application, QLocale());
    applyTheme(application, Contrast::ordinary);

    const TemporaryFolder home;
    fs::path folder = argc > 3 ? fs::path(argv[3]) : home.path() / "Oak Hill Primary";
    if (argc <= 3) {
        const char* sample = std::getenv("MORVA_SAMPLE");
        if (!sample) throw std::runtime_error("MORVA_SAMPLE names no portrait");
        DemoPhotos::write(sample, folder, demoPhotos);
    }
    Tour(argv[1], sizeOf(argv[2]), home.path()).run(folder);
    return 0;
}

}  // namespace
}  // namespace morva

int main(int argc, char** argv) {
    try {
        return morva::run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
