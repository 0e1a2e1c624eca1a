// SPDX-License-Identifier: GPL-3.0-or-later
// Hundreds of damaged photos through the decoders and through the whole program: each becomes a
// crop or a reason, soon and in bounded memory, and none ends the program.
#include <sys/resource.h>

#include <cstdlib>

#include <gtest/gtest.h>

#include "analysis/image_loader.h"
#include "cli_fixture.h"
#include "imaging/decode.h"
#include "imaging/metadata.h"
#include "process_usage.h"

namespace morva {
namespace {

constexpr double mostSeconds = 5;
#ifdef __SANITIZE_ADDRESS__
constexpr double mostMegabytes = 2500;  // freed memory is kept for a while
#else
constexpr double mostMegabytes = 500;
#endif
/// The models and one crop of print size, beside the photo.
constexpr double programMegabytes = 600;

double peakMegabytes(int who) {
    rusage usage{};
    getrusage(who, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

class CorruptCorpus : public Cli {
protected:
    /// Damages the sample portrait as it is and as a small JPEG of our own, and photos in other
    /// formats where there are any.
    void makeCorpus() const {
        fs::create_directories(out);
        std::vector<fs::path> photos{std::getenv("MORVA_SAMPLE"), smallJpeg()};
        const char* data = std::getenv("MORVA_TEST_DATA");
        for (const char* name : {"heic/alpha-512.heic", "tiff/hopper_lzw.tif"}) {
            const fs::path photo = fs::path(data != nullptr ? data : "") / "formats" / name;
            if (fs::exists(photo)) photos.push_back(photo);
        }
        std::string command =
            std::string("'") + MORVA_PROJECT + "/script/corrupt_corpus' '" + corpus.string() + "'";
        for (const fs::path& photo : photos) command += " '" + photo.string() + "'";
        ASSERT_EQ(std::system((command + " >/dev/null").c_str()), 0);
    }

    fs::path smallJpeg() const {
        const fs::path preset = folder / "small.json";
        const Json small{{"name", "Small"},
                         {"export", {{"pixelWidth", 320}, {"pixelHeight", 400}}}};
        EXPECT_TRUE(writeFileAtomically(preset, small.dump()));
        const std::string sample = std::getenv("MORVA_SAMPLE");
        EXPECT_EQ(run({"crop", sample, "--preset", preset, "--force", "--out", folder}).code, 0);
        return (folder / fs::path(sample).filename()).replace_extension(".jpg");
    }

    const fs::path corpus =
        fs::path(testing::TempDir()) / ("morva-corrupt-" + std::to_string(getpid()));

    void TearDown() override {
        fs::remove_all(corpus);
        Cli::TearDown();
    }
};

TEST_F(CorruptCorpus, isDecodedOrRefusedSoonAndInBoundedMemory) {
    makeCorpus();
    int decoded = 0;
    int refused = 0;
    for (const auto& entry : fs::directory_iterator(corpus)) {
        SCOPED_TRACE(entry.path().filename());
        const double start = processorSeconds();
        const auto photo = PhotoDecode::open(entry.path(), 4096);
        const auto region = decodeRegion(entry.path(), {0, 0, 2000, 2000}, 0.5);
        (void)readProperties(entry.path());
        EXPECT_LT(processorSeconds() - start, mostSeconds);
        ++(photo ? decoded : refused);
        EXPECT_TRUE(photo || photo.error().message.starts_with("Could not read "));
    }
    EXPECT_LT(peakMegabytes(RUSAGE_SELF), mostMegabytes);
    EXPECT_GT(decoded, 100);
    EXPECT_GT(refused, 100);
}

TEST_F(CorruptCorpus, becomesCropsOrReasons) {
    makeCorpus();
    const auto photos = ImageLoader::listImages(corpus);
    ASSERT_TRUE(photos);
    ASSERT_GT(photos->size(), 300U);
    const Ended ended = run({"crop", corpus, "--out", out / "crops", "--json", "--jobs", "1"});
    EXPECT_EQ(ended.code, 1) << ended.err;
    EXPECT_LT(peakMegabytes(RUSAGE_CHILDREN), mostMegabytes + programMegabytes);
    const std::vector<Json> lines = ended.lines();
    ASSERT_EQ(lines.size(), photos->size());
    int written = 0;
    for (Json line : lines) {
        SCOPED_TRACE(line.dump());
        const bool hasOutput = line.contains("output");
        const bool hasReason = line.contains("error") || !line["solution"]["reasons"].empty();
        EXPECT_TRUE(hasOutput || hasReason);
        if (hasOutput) ++written;
    }
    EXPECT_GT(written, 2);  // at least the photos that are whole
    for (const auto& entry : fs::recursive_directory_iterator(out / "crops")) {
        const bool isCrop = entry.is_regular_file() && entry.path().extension() == ".jpg";
        EXPECT_TRUE(!isCrop || PhotoDecode::open(entry.path(), 500)) << entry.path();
    }
}

}  // namespace
}  // namespace morva
