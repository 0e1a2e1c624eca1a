// SPDX-License-Identifier: GPL-3.0-or-later
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "base/files.h"
#include "imaging/decode.h"
#include "output/exporter.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

constexpr int killRounds = 20;

/// Exports over the same few names for ever.
[[noreturn]] void exportForEver(const fs::path& source, const fs::path& folder) {
    Exporter::Request request;
    request.sourceURL = source;
    request.rect = {50.3, 7.2, 400, 500};
    request.settings.pixelWidth = 800;
    request.settings.pixelHeight = 1000;
    for (int i = 0;; ++i) {
        request.destinationURL = folder / ("crop" + std::to_string(i % 5) + ".jpg");
        static_cast<void>(Exporter::exportPhoto(request));
    }
}

TEST(KilledExport, leavesNoPartOfAFileUnderAFinalName) {
    const char* sample = std::getenv("MORVA_SAMPLE");
    ASSERT_TRUE(sample);
    const std::string original = sha256(*readFile(sample));
    const fs::path folder = fs::path(testing::TempDir()) / "morva-killed-export";
    fs::remove_all(folder);
    std::mt19937 random(4);
    std::uniform_int_distribution<int> milliseconds(20, 400);
    int whole = 0;
    for (int round = 0; round < killRounds; ++round) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) exportForEver(sample, folder);
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds(random)));
        ASSERT_EQ(kill(child, SIGKILL), 0);
        ASSERT_EQ(waitpid(child, nullptr, 0), child);
        if (!fs::exists(folder)) continue;
        for (const auto& entry : fs::directory_iterator(folder)) {
            if (entry.path().extension() != ".jpg") continue;
            const std::string bytes = *readFile(entry.path());
            EXPECT_TRUE(bytes.ends_with("\xff\xd9")) << entry.path();
            EXPECT_TRUE(decodeRegion(entry.path(), {0, 0, 800, 1000}, 1)) << entry.path();
            ++whole;
        }
    }
    EXPECT_GT(whole, killRounds);
    EXPECT_EQ(sha256(*readFile(sample)), original);
    fs::remove_all(folder);
}

}  // namespace
}  // namespace morva
