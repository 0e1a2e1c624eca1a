// SPDX-License-Identifier: GPL-3.0-or-later
// Every file that the program keeps, on a disk that fails at each step in turn, is full, or is
// read-only: what was there stays whole, the caller is told, nothing is left lying about.
#include <sys/mount.h>

#include <fstream>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "app/app_test_support.h"
#include "app/preview_files.h"
#include "base/files.h"
#include "crop/crop_rules.h"
#include "crop/rule_store.h"
#include "crop/synthetic_portrait.h"
#include "imaging/decode.h"
#include "imaging/encode.h"
#include "io_faults.h"
#include "model/jobs/analysis_cache.h"
#include "model/jobs/job_lock.h"
#include "model/jobs/job_store.h"
#include "model/presets/preset_library.h"
#include "model/presets/preset_store.h"
#include "output/export_report.h"
#include "output/exporter.h"
#include "poses/pose_store.h"
#include "poses/pose_test_support.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

using Contents = std::map<fs::path, std::string>;

/// All files below `folder` by their path in it.
Contents contentsOf(const fs::path& folder) {
    Contents contents;
    if (!fs::exists(folder)) return contents;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file())
            contents[entry.path().lexically_relative(folder)] = *readFile(entry.path());
    }
    return contents;
}

/// One way to write what must not be lost. `before` makes the state to start from, `act` changes
/// it; both work below the folder that they are given.
struct Change {
    const char* what;
    std::function<void(const fs::path&)> before;
    std::function<bool(const fs::path&)> act;
};

Job job(int photos) {
    Job job;
    job.id = Uuid::fixed("11111111-2222-3333-4444-555555555555");
    job.presetID = PresetLibrary::headshotID();
    job.folderURL = "/pictures/class";
    for (int i = 0; i < photos; ++i) {
        ImageItem item;
        item.id = std::to_string(i);
        item.url = job.folderURL / (item.id + ".jpg");
        item.relativePath = item.url.filename();
        item.analysis = Synthetic::portrait();
        item.approved = true;
        job.items.push_back(std::move(item));
    }
    return job;
}

/// The built-in presets and copies of the first one, the same ones every time.
std::vector<CropPreset> presets(int own) {
    auto library = PresetLibrary::standardLibrary();
    for (int i = 0; i < own; ++i) {
        CropPreset preset = library.front();
        preset.id = Uuid::fixed("11111111-2222-3333-4444-00000000000" + std::to_string(i));
        library.push_back(preset);
    }
    return library;
}

fs::path photo() {
    static const fs::path file = [] {
        const fs::path made = fs::temp_directory_path() / "morva-fault-photo.png";
        Picture picture(600, 800);
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                std::fill_n(picture.pixel(x, y), 3,
                            static_cast<std::uint8_t>((x * 7 + y * 3) & 255));
        EXPECT_TRUE(writeFileAtomically(made, *encodePng(picture)));
        return made;
    }();
    return file;
}

bool exported(const fs::path& folder, int width) {
    Exporter::Request request;
    request.sourceURL = photo();
    request.destinationURL = folder / "out" / "crop.jpg";
    request.rect = {50, 60, 400, 500};
    request.settings.pixelWidth = width;
    request.settings.pixelHeight = width * 5 / 4;
    return Exporter::exportPhoto(request).has_value();
}

bool reported(const fs::path& folder, int untouched) {
    ExportReport::Row row;
    row.file = "a.jpg";
    const std::vector<ExportReport::Row> rows(200, row);
    return ExportReport::write(folder / ExportReport::fileName, rows, untouched).has_value();
}

std::vector<Change> changes() {
    const auto nothing = [](const fs::path&) {};
    const auto savedJob = [](const fs::path& f) { return JobStore(f).saveNow(job(3)).has_value(); };
    const auto savedPresets = [](const fs::path& f) {
        return PresetStore(f).save(presets(2)).has_value();
    };
    const auto oldLibrary = [=](const fs::path& f) {
        ASSERT_TRUE(savedPresets(f));
        std::ofstream(PresetStore(f).versionURL()) << "1\n";
    };
    const auto rules = CropRules::defaults(PresetLibrary::standardLibrary());
    const auto savedRules = [=](const fs::path& f) {
        return RuleStore(f, PresetLibrary::standardLibrary()).save(rules).has_value();
    };
    const auto newRule = [=](const fs::path& f) {
        CropRule rule = rules.front();
        rule.condition.when = RuleCondition::Rating{2};
        return RuleStore(f, PresetLibrary::standardLibrary()).put(rule).has_value();
    };
    const auto savedPose = [](const char* tag) {
        return [=](const fs::path& f) {
            return PoseStore(f).put(constantModel(tag, 500)).has_value();
        };
    };
    const auto savedAnalysis = [](double mark) {
        return [=](const fs::path& f) {
            ImageAnalysis analysis = Synthetic::portrait();
            analysis.analysisSeconds = mark;
            return AnalysisCache(f)
                .store(analysis, photo(), *ImageLoader::fileSignature(photo()))
                .has_value();
        };
    };
    const auto made = [](auto act) { return [=](const fs::path& f) { ASSERT_TRUE(act(f)); }; };
    return {
        {"first job", nothing, savedJob},
        {"job over another", [](const fs::path& f) { ASSERT_TRUE(JobStore(f).saveNow(job(30))); },
         savedJob},
        {"deleted job", made(savedJob),
         [](const fs::path& f) { return JobStore(f).remove(job(0).id).has_value(); }},
        {"first presets", nothing, savedPresets},
        {"presets over others",
         [](const fs::path& f) { ASSERT_TRUE(PresetStore(f).save(presets(9))); }, savedPresets},
        {"library of an older program", oldLibrary,
         [](const fs::path& f) { return PresetStore(f).load().problems.empty(); }},
        {"reading presets", made(savedPresets),
         [](const fs::path& f) { return PresetStore(f).load().problems.empty(); }},
        {"reading jobs", made(savedJob),
         [](const fs::path& f) {
             const auto loaded = JobStore(f).loadAll();
             return loaded.problems.empty() && loaded.jobs.size() == 1;
         }},
        {"job under the lock", nothing,
         [=](const fs::path& f) {
             const auto lock = JobLock::tryAcquire(f);
             return lock.has_value() && savedJob(f);
         }},
        {"first rules", nothing, savedRules},
        {"one more rule", made(savedRules), newRule},
        {"first pose", nothing, savedPose("sitting")},
        {"second pose", made(savedPose("sitting")), savedPose("standing")},
        {"first analysis", nothing, savedAnalysis(1)},
        {"analysis over another", made(savedAnalysis(2)), savedAnalysis(1)},
        {"first export", nothing, [](const fs::path& f) { return exported(f, 400); }},
        {"export over another", [](const fs::path& f) { ASSERT_TRUE(exported(f, 600)); },
         [](const fs::path& f) { return exported(f, 400); }},
        {"first report", nothing, [](const fs::path& f) { return reported(f, 1); }},
        {"report over another", [](const fs::path& f) { ASSERT_TRUE(reported(f, 2)); },
         [](const fs::path& f) { return reported(f, 1); }},
    };
}

std::string nameOf(const testing::TestParamInfo<Change>& change) {
    std::string name;
    for (const char c : std::string(change.param.what))
        if (c != ' ') name += c;
    return name;
}

class KeptFiles : public testing::TestWithParam<Change> {
protected:
    KeptFiles() : folder_(fs::temp_directory_path() / ("morva-faults-" + Uuid::random().text())) {
        fs::create_directories(folder_);
    }
    ~KeptFiles() override { fs::remove_all(folder_); }

    /// The state to start from; also sets what the change is to lead to.
    void start() {
        for (const auto& entry : fs::directory_iterator(folder_)) fs::remove_all(entry.path());
        GetParam().before(folder_);
        if (!before_) {
            before_ = contentsOf(folder_);
            ASSERT_TRUE(GetParam().act(folder_));
            after_ = contentsOf(folder_);
            start();
        }
    }

    /// After an attempt: whole files of before or after, none of before lost, none of no name.
    void expectWhole(bool succeeded) const {
        const Contents left = contentsOf(folder_);
        EXPECT_TRUE(!succeeded || left == *after_) << "reported as done";
        for (const auto& [file, content] : left) {
            const auto holds = [&](const Contents& state) {
                return state.contains(file) && state.at(file) == content;
            };
            EXPECT_TRUE(holds(*before_) || holds(*after_))
                << file << " holds " << content.size() << " bytes";
        }
        for (const auto& [file, content] : *before_)
            EXPECT_TRUE(left.contains(file) || !after_->contains(file)) << file << " is gone";
    }

    void expectItWorksAgain() const {
        EXPECT_TRUE(GetParam().act(folder_));
        EXPECT_TRUE(contentsOf(folder_) == *after_);
    }

    fs::path folder_;
    std::optional<Contents> before_;
    std::optional<Contents> after_;
};

class FailingDisk : public KeptFiles {};

TEST_P(FailingDisk, leavesTheOldStateOrTheNew) {
    for (const bool plain : {false, true}) {
        int failing = 1;
        for (bool struck = true; struck; ++failing) {
            start();
            IoFaults faults(folder_, failing, plain);
            const bool succeeded = GetParam().act(folder_);
            faults.end();
            SCOPED_TRACE(std::string(plain ? "plain disk, " : "") + faults.operation() +
                         ", operation " + std::to_string(failing));
            struck = faults.hasStruck();
            EXPECT_TRUE(struck || succeeded);
            expectWhole(succeeded);
            if (struck) expectItWorksAgain();
        }
        EXPECT_GT(failing, 2) << "the faults missed the folder";
    }
}

INSTANTIATE_TEST_SUITE_P(Of, FailingDisk, testing::ValuesIn(changes()), nameOf);

/// A file system of its own, small; mounting one is the superuser's right.
class SmallDisk : public KeptFiles {
protected:
    void SetUp() override {
        if (mount("tmpfs", folder_.c_str(), "tmpfs", 0, "size=4m") != 0)
            GTEST_SKIP() << "may not mount a file system here";
        isMounted_ = true;
        start();
    }
    void TearDown() override {
        if (isMounted_) umount2(folder_.c_str(), MNT_DETACH);
    }

    /// Every last byte and a little back, so that files can be begun but not finished.
    void fill() const {
        std::ofstream filler(filler_, std::ios::binary);
        const std::string block(4096, 'x');
        while (filler.write(block.data(), 4096).flush()) {
        }
        filler.close();
    }

    bool isMounted_ = false;
    fs::path filler_ = folder_ / "filler";
};

TEST_P(SmallDisk, leavesTheOldStateOrTheNewWhenItIsFull) {
    fill();
    const bool succeeded = GetParam().act(folder_);
    fs::remove(filler_);
    expectWhole(succeeded);
    expectItWorksAgain();
}

TEST_P(SmallDisk, leavesTheOldStateWhenItIsReadOnly) {
    ASSERT_EQ(mount(nullptr, folder_.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
    const bool succeeded = GetParam().act(folder_);
    ASSERT_EQ(mount(nullptr, folder_.c_str(), nullptr, MS_REMOUNT, nullptr), 0);
    EXPECT_EQ(succeeded, before_ == after_);
    EXPECT_TRUE(contentsOf(folder_) == *before_);
    expectItWorksAgain();
}

INSTANTIATE_TEST_SUITE_P(Of, SmallDisk, testing::ValuesIn(changes()), nameOf);

TEST(CachesOnAFailingDisk, costTimeAndNothingElse) {
    const TemporaryFolder folder;
    const AnalysisCache cache(folder.path());
    const ImageAnalysis analysis = Synthetic::portrait();
    const auto useBoth = [&] {
        EXPECT_TRUE(PreviewFiles::picture(folder.path(), {.url = photo(), .height = 90}));
        const auto known = cache.load(photo());
        EXPECT_TRUE(!known || *known == analysis);
        static_cast<void>(cache.store(analysis, photo(), *ImageLoader::fileSignature(photo())));
    };
    useBoth();
    const Contents filled = contentsOf(folder.path());
    for (const bool startsFilled : {false, true}) {
        bool struck = true;
        for (int failing = 1; struck; ++failing) {
            for (const auto& entry : fs::directory_iterator(folder.path()))
                fs::remove_all(entry.path());
            if (startsFilled) useBoth();
            IoFaults faults(folder.path(), failing);
            useBoth();
            faults.end();
            SCOPED_TRACE(faults.operation());
            struck = faults.hasStruck();
            for (const auto& [file, content] : contentsOf(folder.path()))
                EXPECT_TRUE(filled.contains(file) && filled.at(file) == content) << file;
        }
    }
}

}  // namespace
}  // namespace morva
