// SPDX-License-Identifier: GPL-3.0-or-later
// The program as a person runs it: how soon it answers, what a second worker brings, and whether it
// grows over a long batch. Runs the morva-cli named by MORVA_CLI on links to the test photographs,
// or to the sample portrait where there are none.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int versionRounds = 21;
constexpr int throughputPhotos = 40;
constexpr int shortBatch = 110;  // every photograph once
constexpr int longBatch = 205;

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// A child whose standard output comes through `lines`.
struct Child {
    pid_t id = 0;
    FILE* lines = nullptr;
};

Child start(const std::vector<std::string>& arguments) {
    const std::string program = variable("MORVA_CLI");
    std::vector<char*> words{const_cast<char*>(program.c_str())};
    for (const std::string& word : arguments) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    int ends[2];
    if (pipe(ends) != 0) std::abort();
    const pid_t id = fork();
    if (id == 0) {
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        close(ends[1]);
        dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
        execv(program.c_str(), words.data());
        _exit(127);
    }
    close(ends[1]);
    return {id, fdopen(ends[0], "r")};
}

/// Calls `onLine(number, child)` for each line from 1, waits, and returns the exit code.
template <class OnLine>
int run(const std::vector<std::string>& arguments, OnLine onLine) {
    const Child child = start(arguments);
    int count = 0;
    for (int c = std::getc(child.lines); c != EOF; c = std::getc(child.lines))
        if (c == '\n') onLine(++count, child);
    std::fclose(child.lines);
    int status = 0;
    waitpid(child.id, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int run(const std::vector<std::string>& arguments) {
    return run(arguments, [](int, const Child&) {});
}

/// The most that was ever resident.
double peakMegabytes(pid_t id) {
    std::ifstream status("/proc/" + std::to_string(id) + "/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmHWM:")) return std::stod(line.substr(6)) / 1024;
    return 0;
}

std::vector<fs::path> photographs() {
    const fs::path portraits = fs::path(variable("MORVA_TEST_DATA")) / "portraits";
    std::vector<fs::path> photos;
    std::error_code none;
    for (const auto& entry : fs::directory_iterator(portraits, none))
        if (!entry.path().filename().string().starts_with("noface")) photos.push_back(entry.path());
    std::sort(photos.begin(), photos.end());
    if (photos.empty()) photos.emplace_back(variable("MORVA_SAMPLE"));
    return photos;
}

/// A folder of `count` links that go round the photographs.
fs::path folderOf(int count, const fs::path& below) {
    const std::vector<fs::path> photos = photographs();
    const fs::path folder = below / ("photos-" + std::to_string(count));
    fs::create_directories(folder);
    for (int i = 0; i < count; ++i) {
        const fs::path& photo = photos[static_cast<std::size_t>(i) % photos.size()];
        fs::create_symlink(photo, folder / (std::to_string(i) + photo.extension().string()));
    }
    return folder;
}

std::vector<std::string> cropOf(const fs::path& photos, const fs::path& below, int jobs) {
    return {"crop",    photos.string(), "--out",  (below / "crops").string(),
            "--force", "--json",        "--jobs", std::to_string(jobs)};
}

void printVersionTime() {
    std::vector<double> times;
    for (int i = 0; i < versionRounds; ++i) {
        const auto begun = Clock::now();
        run({"--version"});
        times.push_back(secondsSince(begun) * 1000);
    }
    std::sort(times.begin(), times.end());
    std::printf("--version: median %.1f ms, fastest %.1f ms of %d (goal: under 50)\n",
                times[times.size() / 2], times.front(), versionRounds);
}

void printThroughput(const fs::path& below) {
    const fs::path photos = folderOf(throughputPhotos, below);
    double rates[2] = {};
    run(cropOf(photos, below, 2));  // compiles the models, fills the file cache
    for (const int jobs : {1, 2}) {
        const auto begun = Clock::now();
        run(cropOf(photos, below, jobs));
        rates[jobs - 1] = throughputPhotos / secondsSince(begun);
    }
    std::printf(
        "crop of %d photos: %.2f a second with one worker, %.2f with two: %.2f times "
        "(goal: 1.8)\n",
        throughputPhotos, rates[0], rates[1], rates[1] / rates[0]);
}

void printGrowth(const fs::path& below) {
    // Both halves of the way count: the last line comes when everything was measured and cropped.
    const auto peakOf = [&](int count) {
        double peak = 0;
        run(cropOf(folderOf(count, below), below, 2), [&](int line, const Child& child) {
            if (line == count) peak = peakMegabytes(child.id);
        });
        return peak;
    };
    const double few = peakOf(shortBatch);
    const double many = peakOf(longBatch);
    std::printf("peak memory: %.0f MB for %d photos, %.0f MB for %d: %+.1f %% (goal: within 10)\n",
                few, shortBatch, many, longBatch, (many / few - 1) * 100);
}

}  // namespace

int main() {
    if (!fs::exists(variable("MORVA_CLI"))) {
        std::fprintf(stderr, "MORVA_CLI does not name the program; use script/bench.\n");
        return 1;
    }
    std::string name = (fs::temp_directory_path() / "morva-bench-XXXXXX").string();
    const fs::path below = mkdtemp(name.data());
    printVersionTime();
    printThroughput(below);
    printGrowth(below);
    fs::remove_all(below);
}
