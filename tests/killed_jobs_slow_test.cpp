// SPDX-License-Identifier: GPL-3.0-or-later
// A job from import to export, killed at random moments: nothing is lost that was said to be done,
// nothing is broken, and running it again does the rest and only that. MORVA_KILL_ROUNDS sets how
// often; 20 unless given.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <map>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>

#include "analysis/analysis_pipeline.h"
#include "analysis/photo_test_support.h"
#include "app/app_test_support.h"
#include "imaging/decode.h"
#include "imaging/metadata.h"
#include "model/jobs/analysis_cache.h"
#include "model/jobs/job_store.h"
#include "model/presets/preset_library.h"
#include "model/presets/preset_store.h"

namespace morva {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using Words = std::vector<std::string>;

constexpr int photoCount = 60;
/// Photos that a round measures afresh; the others come from the cache, or a round would take half
/// a minute.
constexpr int measuredAfresh = 3;
/// Approved one by one, each by a command of its own.
constexpr int approvedSingly = 8;

int rounds() {
    const char* wanted = std::getenv("MORVA_KILL_ROUNDS");
    return wanted != nullptr ? std::stoi(wanted) : 20;
}

std::string nameOf(int photo) { return "IMG " + std::to_string(1000 + photo) + ".jpg"; }

/// Copies of the sample portrait, each a little different.
void writePhotos(const fs::path& folder) {
    fs::create_directories(folder);
    const Picture portrait = PhotoDecode::open(samplePortrait(), 400)->whole(400);
    for (int i = 0; i < photoCount; ++i) {
        Picture photo = portrait.copy();
        for (int y = 0; y < 8; ++y)
            std::fill_n(photo.pixel(0, y), 24, static_cast<std::uint8_t>(4 * i));
        ASSERT_TRUE(writeFileAtomically(folder / nameOf(i), *encodeJpeg(photo, 0.9, 72)));
    }
}

/// A preset whose crops are small and carry stars, as the second library of a user.
CropPreset smallCrops() {
    CropPreset preset = PresetLibrary::standardPreset(PresetLibrary::headshotID());
    preset.id = Uuid::random();
    preset.name = "Small";
    preset.exportSettings.pixelWidth = 400;
    preset.exportSettings.pixelHeight = 500;
    preset.exportRating = 4;
    preset.exportSettings.backdrop = BackdropMode::repeatEdges;
    return preset;
}

std::map<fs::path, std::string> sums(const fs::path& folder, const std::string& extension) {
    std::map<fs::path, std::string> found;
    if (!fs::exists(folder)) return found;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.path().extension() == extension)
            found[entry.path().lexically_relative(folder)] = sha256(*readFile(entry.path()));
    }
    return found;
}

class KilledJob : public testing::Test {
protected:
    /// Starts `morva-cli job ...`; what it says goes to a file.
    pid_t start(Words words) const {
        words.insert(words.begin(), {MORVA_CLI, "job"});
        words.insert(words.end(), {"--data-dir", data, "--cache-dir", cache});
        std::vector<char*> arguments;
        for (std::string& word : words) arguments.push_back(word.data());
        arguments.push_back(nullptr);
        const pid_t child = fork();
        if (child == 0) {
            const int said =
                open((home.path() / "said").c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600);
            dup2(said, STDOUT_FILENO);
            dup2(said, STDERR_FILENO);
            execv(MORVA_CLI, arguments.data());
            _exit(127);
        }
        return child;
    }

    /// The exit code; nothing when it was killed at `deadline`.
    std::optional<int> run(const Words& words, Clock::time_point deadline) const {
        const pid_t child = start(words);
        int status = 0;
        while (waitpid(child, &status, WNOHANG) == 0) {
            if (Clock::now() >= deadline) {
                kill(child, SIGKILL);
                waitpid(child, &status, 0);
                return std::nullopt;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    /// An evening's work. Adds to `approved` what the program said to have approved; false when it
    /// was killed before its end.
    bool work(std::set<std::string>& approved,
              Clock::time_point deadline = Clock::time_point::max()) const {
        std::vector<Words> commands{{"import", source, "--preset", "Small"}, {"crop", source}};
        std::vector<Words> approvals;
        Words rest;
        for (int i = 0; i < photoCount; ++i)
            (i < approvedSingly ? approvals.emplace_back() : rest).push_back(nameOf(i));
        approvals.push_back(rest);
        for (const Words& photos : approvals) {
            commands.push_back({"approve", source});
            commands.back().insert(commands.back().end(), photos.begin(), photos.end());
        }
        commands.push_back({"export", source, "--out", out});
        for (std::size_t i = 0; i < commands.size(); ++i) {
            const auto code = run(commands[i], deadline);
            if (!code) return false;
            EXPECT_EQ(*code, 0) << commands[i].front() << ": "
                                << readFile(home.path() / "said").value_or("");
            if (i >= 2 && i - 2 < approvals.size())
                approved.insert(approvals[i - 2].begin(), approvals[i - 2].end());
        }
        return true;
    }

    void expectWholeCrops() const {
        for (const auto& [name, sum] : sums(out, ".jpg")) {
            const std::string bytes = *readFile(out / name);
            EXPECT_TRUE(bytes.ends_with("\xff\xd9")) << name;
            EXPECT_THAT(bytes, testing::HasSubstr("ICC_PROFILE")) << name;
            EXPECT_TRUE(decodeRegion(out / name, {0, 0, 400, 500}, 1)) << name;
            const auto properties = readProperties(out / name);
            EXPECT_TRUE(properties && properties->xmpRating == "4") << name;
        }
    }

    /// The one job on disk; none before its import was saved.
    std::optional<Job> savedJob() const {
        auto loaded = JobStore(data).loadAll();
        for (const Failure& problem : loaded.problems) ADD_FAILURE() << problem.message;
        EXPECT_LE(loaded.jobs.size(), 1);
        if (loaded.jobs.empty()) return std::nullopt;
        return std::move(loaded.jobs.front());
    }

    void expectKept(const std::set<std::string>& approved) const {
        const auto presets = PresetStore(data).load();
        EXPECT_THAT(presets.problems, testing::IsEmpty());
        EXPECT_EQ(presets.presets.back().name, "Small");
        const auto job = savedJob();
        EXPECT_TRUE(job || approved.empty());
        if (!job) return;
        for (const ImageItem& item : job->items) {
            if (approved.contains(item.relativePath)) {
                EXPECT_TRUE(item.approved) << item.relativePath;
            }
        }
    }

    /// When each crop was written that the job knows to be there.
    std::map<fs::path, fs::file_time_type> knownCrops() const {
        std::map<fs::path, fs::file_time_type> known;
        const auto job = savedJob();
        if (!job) return known;
        for (const ImageItem& item : job->items) {
            const fs::path crop = out / item.relativePath;
            if (item.exportedAt && fs::exists(crop)) known[crop] = fs::last_write_time(crop);
        }
        return known;
    }

    TemporaryFolder home;
    const fs::path source = home.path() / "class 3b";
    const fs::path data = home.path() / "data";
    const fs::path cache = home.path() / "cache";
    const fs::path out = home.path() / "crops";
};

TEST_F(KilledJob, losesNothingAndGoesOnWhereItWas) {
    writePhotos(source);
    auto library = PresetLibrary::standardLibrary();
    library.push_back(smallCrops());
    ASSERT_TRUE(PresetStore(data).save(library));
    const fs::path fresh = home.path() / "fresh data";
    fs::copy(data, fresh, fs::copy_options::recursive);
    const auto originals = sums(source, ".jpg");
    // Those that no round measures may pass for the last one, from which they hardly differ.
    ImageAnalysis analysis;
    for (int i = photoCount; i-- > 0;) {
        const fs::path photo = source / nameOf(i);
        if (i < measuredAfresh || i == photoCount - 1)
            analysis = AnalysisPipeline::analyze(photo, realVision());
        ASSERT_TRUE(
            AnalysisCache(cache).store(analysis, photo, *ImageLoader::fileSignature(photo)));
    }

    std::set<std::string> all;
    ASSERT_TRUE(work(all));
    const auto crops = sums(out, ".jpg");
    ASSERT_EQ(crops.size(), photoCount);

    std::mt19937 random(6);
    std::uniform_real_distribution<double> moment(0, 1);
    double seconds = 0;
    for (int round = -1; round < rounds(); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        fs::remove_all(data);
        fs::remove_all(out);
        fs::copy(fresh, data, fs::copy_options::recursive);
        for (int i = 0; i < measuredAfresh; ++i)
            fs::remove(cache / "analysis" / (AnalysisCache::key(source / nameOf(i)) + ".json"));
        const auto began = Clock::now();
        std::set<std::string> approved;
        if (round < 0) {  // how long it takes
            ASSERT_TRUE(work(approved));
            seconds = std::chrono::duration<double>(Clock::now() - began).count();
            continue;
        }
        work(approved,
             began + std::chrono::milliseconds(static_cast<int>(1000 * seconds * moment(random))));
        expectWholeCrops();
        expectKept(approved);
        const auto known = knownCrops();
        ASSERT_TRUE(work(approved));
        EXPECT_EQ(sums(out, ".jpg"), crops);
        for (const auto& [crop, time] : known) EXPECT_EQ(fs::last_write_time(crop), time) << crop;
        expectKept(all);
        EXPECT_EQ(sums(source, ".jpg"), originals);
        if (HasFailure()) break;
    }
}

}  // namespace
}  // namespace morva
