// SPDX-License-Identifier: GPL-3.0-or-later
// The application state over folders of its own, with scripted measurements in place of models.
#pragma once

#include <atomic>
#include <fstream>
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include <QCoreApplication>
#include <QEventLoop>

#include "app/app_state.h"
#include "app/app_test_support.h"
#include "app/backdrop_setup.h"
#include "app/export_flow.h"
#include "app/pose_flow.h"
#include "crop/synthetic_portrait.h"
#include "model/presets/preset_library.h"

namespace morva {

namespace fs = std::filesystem;

/// Timers and results from workers need an event loop.
inline void needEventLoop() {
    static int argc = 1;
    static char name[] = "morva-tests";
    static char* argv[] = {name, nullptr};
    if (!QCoreApplication::instance()) new QCoreApplication(argc, argv);
}

/// Lets things happen until `done`; false when that takes too long.
inline bool waitFor(const std::function<bool()>& done,
                    std::chrono::seconds patience = std::chrono::seconds(30)) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!done() && std::chrono::steady_clock::now() < end)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    return done();
}

/// The synthetic portrait on a photo of 400 x 500 that can really be exported.
inline ImageAnalysis smallPortrait() {
    ImageAnalysis photo = Synthetic::transformed(
        Synthetic::portrait(), [](Point point) { return point.scaled(0.1, 0.1); });
    photo.sourceWidth = 400;
    photo.sourceHeight = 500;
    return photo;
}

class StateTest : public testing::Test {
protected:
    StateTest() {
        needEventLoop();
        fs::create_directories(photos);
        services.folders = {home.path() / "data", home.path() / "cache"};
        services.prepare = [this] { return prepared; };
        services.analyze = [this](const fs::path& file, const std::stop_token&) {
            return analyze(file);
        };
        services.featurePrint = [](const fs::path& file) -> Result<std::vector<float>> {
            return failure("No print of " + file.string() + ".");
        };
        services.measureReference = [](const fs::path&) -> Result<ReferenceGeometry> {
            return failure("No face was found in the reference image.");
        };
        services.cutterFor = [](const fs::path&, const ImageAnalysis&, const std::stop_token&) {
            return nullptr;
        };
        services.posesChanged = [] {};
        services.saveDelays = {std::chrono::milliseconds(60), std::chrono::milliseconds(300),
                               std::chrono::milliseconds(50)};
        services.flushInterval = std::chrono::milliseconds(20);
        services.concurrency = 2;
    }

    ImageAnalysis analyze(const fs::path& file) {
        ++analyzed;
        const std::scoped_lock held(lock);
        const auto found = scripted.find(file.filename().string());
        return found == scripted.end() ? Synthetic::portrait() : found->second;
    }

    void writeFile(const fs::path& name, const std::string& content = "photo") const {
        fs::create_directories((photos / name).parent_path());
        std::ofstream(photos / name) << content << name;
    }

    /// "1.jpg", "2.jpg" and so on; no pixels, for nobody looks at them.
    void writeFiles(int count) const {
        for (int i = 1; i <= count; ++i) writeFile(std::to_string(i) + ".jpg");
    }

    std::unique_ptr<AppState> started() {
        auto state = std::make_unique<AppState>(services);
        state->start();
        return state;
    }

    /// Runs what the operation begins to its end.
    static void finish(AppState& state) {
        ASSERT_TRUE(waitFor([&] { return !state.isBusy(); }));
    }
    void import(AppState& state) const {
        state.openFolder(photos);
        finish(state);
    }
    static void crop(AppState& state, bool force = false) {
        state.analyzeCurrentJob(force);
        finish(state);
    }
    /// A state with the photos imported and cropped.
    std::unique_ptr<AppState> cropped(int count) {
        writeFiles(count);
        auto state = started();
        import(*state);
        crop(*state);
        return state;
    }

    static const ImageItem& item(const AppState& state, std::size_t index) {
        return state.selectedJob()->item(index);
    }
    fs::path jobFile(const AppState& state) const {
        return services.folders.data / "Jobs" / (state.jobs().front()->id().text() + ".json");
    }
    /// The title of the alert on screen, which is dismissed; empty without one.
    static std::string alertTitle(AppState& state) {
        const std::string title = state.alert() ? state.alert()->title : std::string();
        if (state.alert()) state.dismissAlert();
        return title;
    }
    static std::string alertText(AppState& state) {
        const std::string text =
            state.alert() ? state.alert()->title + ": " + state.alert()->message : std::string();
        if (state.alert()) state.dismissAlert();
        return text;
    }

    TemporaryFolder home;
    const fs::path photos = home.path() / "3b";
    AppServices services;
    Result<void> prepared;
    std::map<std::string, ImageAnalysis> scripted;
    std::mutex lock;
    std::atomic<int> analyzed{0};
};

}  // namespace morva
