// SPDX-License-Identifier: GPL-3.0-or-later
// How long the program takes from its start until its window can be used: it is on a screen (one
// of its own, Xvfb), has drawn itself, and bears the name of the last job. The time of a process of
// the same toolkit that shows an empty window is the floor. Needs $MORVA_WINDOW, the program.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include <xcb/xcb.h>
#include <QApplication>
#include <QProcess>
#include <QWidget>

#include "base/uuid.h"
#include "large_job.h"
#include "model/jobs/job_store.h"
#include "process_usage.h"

namespace morva {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int rounds = 9;
constexpr auto patience = std::chrono::seconds(20);
constexpr int colorsOfContent = 12;  // an empty window has one

struct Freed {
    void operator()(void* reply) const { std::free(reply); }
};
template <class T>
std::unique_ptr<T, Freed> owned(T* reply) {
    return std::unique_ptr<T, Freed>(reply);
}

/// A screen that nobody sees, and what can be seen on it.
class Screen {
public:
    Screen() {
        server_.start("Xvfb",
                      {"-displayfd", "1", "-screen", "0", "1440x900x24", "-nolisten", "tcp"});
        if (!server_.waitForReadyRead(20000)) throw std::runtime_error("Xvfb did not start");
        name_ = ":" + server_.readLine().trimmed().toStdString();
        connection_ = xcb_connect(name_.c_str(), nullptr);
        if (xcb_connection_has_error(connection_) != 0) throw std::runtime_error("no screen");
        root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    }
    ~Screen() {
        xcb_disconnect(connection_);
        server_.kill();
        server_.waitForFinished();
    }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    const std::string& name() const { return name_; }

    /// True when a window that can be seen bears this title and holds more than its ground.
    bool shows(const std::string& title, int leastColors) const {
        const auto tree =
            owned(xcb_query_tree_reply(connection_, xcb_query_tree(connection_, root_), nullptr));
        if (!tree) return false;
        const xcb_window_t* windows = xcb_query_tree_children(tree.get());
        for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i)
            if (titleOf(windows[i]) == title && colorsIn(windows[i]) >= leastColors) return true;
        return false;
    }

private:
    xcb_atom_t atom(const std::string& name) const {
        const auto reply = owned(xcb_intern_atom_reply(
            connection_,
            xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.c_str()),
            nullptr));
        return reply ? reply->atom : 0;
    }

    std::string titleOf(xcb_window_t window) const {
        const auto reply = owned(xcb_get_property_reply(
            connection_,
            xcb_get_property(connection_, 0, window, atom("_NET_WM_NAME"), XCB_ATOM_ANY, 0, 256),
            nullptr));
        if (!reply) return {};
        return {static_cast<const char*>(xcb_get_property_value(reply.get())),
                static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
    }

    /// Of every hundredth pixel; none when the window cannot be seen.
    int colorsIn(xcb_window_t window) const {
        const auto looks = owned(xcb_get_window_attributes_reply(
            connection_, xcb_get_window_attributes(connection_, window), nullptr));
        const auto place = owned(
            xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window), nullptr));
        if (!looks || looks->map_state != XCB_MAP_STATE_VIEWABLE || !place) return 0;
        const auto image =
            owned(xcb_get_image_reply(connection_,
                                      xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, window,
                                                    0, 0, place->width, place->height, ~0U),
                                      nullptr));
        if (!image) return 0;
        const auto* pixels =
            reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(image.get()));
        std::set<std::uint32_t> colors;
        for (int i = 0; i < xcb_get_image_data_length(image.get()) / 4; i += 100)
            colors.insert(pixels[i]);
        return static_cast<int>(colors.size());
    }

    QProcess server_;
    std::string name_;
    xcb_connection_t* connection_ = nullptr;
    xcb_window_t root_ = 0;
};

/// Seconds from the start of `program` until the window is there; the program is ended then.
double secondsUntilShown(const Screen& screen, const QString& program, const QStringList& arguments,
                         const std::string& title, int leastColors) {
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DISPLAY", QString::fromStdString(screen.name()));
    environment.insert("QT_QPA_PLATFORM", "xcb");
    environment.remove("WAYLAND_DISPLAY");
    process.setProcessEnvironment(environment);
    const auto begin = Clock::now();
    process.start(program, arguments);
    while (!screen.shows(title, leastColors)) {
        if (Clock::now() - begin > patience) throw std::runtime_error("no window came");
        usleep(2000);
    }
    const double seconds = std::chrono::duration<double>(Clock::now() - begin).count();
    process.kill();
    process.waitForFinished();
    return seconds;
}

void measure(const Screen& screen, const QString& self, const QString& program, int photoCount) {
    const fs::path folder = fs::temp_directory_path() / ("morva-start-" + Uuid::random().text());
    std::string title = "Morva";
    if (photoCount > 0) {
        const Job job = largeJob(photoCount);
        if (!JobStore(folder / "data").saveNow(job)) throw std::runtime_error("no job was written");
        title = job.name + " – Morva";
    }
    const QStringList arguments{"--data-dir", QString::fromStdString(folder / "data"),
                                "--cache-dir", QString::fromStdString(folder / "cache")};
    std::vector<double> floors;
    std::vector<double> starts;
    for (int i = 0; i < rounds; ++i) {
        floors.push_back(secondsUntilShown(screen, self, {"--empty"}, "Empty", 1));
        starts.push_back(secondsUntilShown(screen, program, arguments, title, colorsOfContent));
    }
    std::printf(
        "%6d photos: window ready after %.3f s (%.3f to %.3f), empty window %.3f s, ratio %.2f\n",
        photoCount, median(starts), std::ranges::min(starts), std::ranges::max(starts),
        median(floors), median(starts) / median(floors));
    fs::remove_all(folder);
}

int showEmptyWindow(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window;
    window.setWindowTitle("Empty");
    window.resize(1440, 900);
    window.show();
    return QApplication::exec();
}

}  // namespace
}  // namespace morva

int main(int argc, char** argv) {
    if (argc > 1 && std::string(argv[1]) == "--empty") return morva::showEmptyWindow(argc, argv);
    const char* program = std::getenv("MORVA_WINDOW");
    if (program == nullptr) {
        std::fprintf(stderr, "MORVA_WINDOW is not set; script/bench sets it.\n");
        return 1;
    }
    QCoreApplication application(argc, argv);
    const morva::Screen screen;
    for (const int photos : {0, 500, 2000, 10000})
        morva::measure(screen, QCoreApplication::applicationFilePath(), program, photos);
}
