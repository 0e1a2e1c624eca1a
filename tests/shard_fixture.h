// SPDX-License-Identifier: GPL-3.0-or-later
// A shoot whose photos depend on one another in every way there is, and what a run leaves of it.
#pragma once

#include "analysis/photo_test_support.h"
#include "cli_fixture.h"
#include "imaging/decode.h"
#include "imaging/encode.h"

namespace morva {

class Sharded : public Cli {
protected:
    using Words = std::vector<std::string>;

    /// The portrait at that size, taken at that time of day, with that many stars.
    void add(const std::string& name, int side, const std::string& time, int stars) const {
        const fs::path file = source / name;
        fs::create_directories(file.parent_path());
        const Picture photo = PhotoDecode::open(samplePortrait(), side)->whole(side);
        const bool png = file.extension() == ".png";
        ASSERT_TRUE(
            writeFileAtomically(file, png ? *encodePng(photo) : *encodeJpeg(photo, 0.9, 72)));
        const auto image = Exiv2::ImageFactory::open(file.string());
        image->exifData()["Exif.Photo.DateTimeOriginal"] = "2026:09:01 " + time;
        if (stars > 0) image->xmpData()["Xmp.xmp.Rating"] = std::to_string(stars);
        image->writeMetadata();
    }

    /// Two children with frames of several sizes, single ones, one name for two files, stars on one
    /// photo that choose for all, and a photo that cannot be read but has stars.
    void addShoot() const {
        add("IMG_1.jpg", 400, "10:00:00", 0);
        add("IMG_2.jpg", 412, "10:00:08", 0);
        add("b/IMG_3.jpg", 424, "10:00:19", 0);
        add("IMG_4.jpg", 400, "10:05:00", 4);
        add("IMG_4.png", 408, "10:05:05", 0);
        add("b/img \"5\", again.jpg", 380, "10:20:00", 0);
        add("IMG_10.jpg", 390, "11:00:00", 0);
        add("broken.jpg", 400, "12:00:00", 5);
        const std::string whole = readFile(source / "broken.jpg").value();
        const std::size_t scan = whole.rfind("\xff\xda");
        ASSERT_TRUE(writeFileAtomically(source / "broken.jpg", whole.substr(0, scan)));
    }

    Words line(const fs::path& folderOut, const std::string& shard) const {
        Words words{
            "crop",           source,          "--out",
            folderOut,        "--rules",       "auto",
            "--force",        "--preset",      "yearbook",
            "--data-dir",     folder / "data", "--cache-dir",
            folder / "cache", "--review-list", folderOut.string() + " lists/review list.csv"};
        if (!shard.empty()) words.insert(words.end(), {"--shard", shard});
        return words;
    }

    /// What a run wrote, by the path below its folders; without the parts of reports.
    static std::map<std::string, std::string> written(const fs::path& folderOut) {
        std::map<std::string, std::string> found;
        for (const fs::path& root : {folderOut, fs::path(folderOut.string() + " lists")}) {
            for (const auto& entry : fs::recursive_directory_iterator(root)) {
                const fs::path below = entry.path().lexically_relative(root);
                if (!entry.is_regular_file() ||
                    below.stem().string().find(" of ") != std::string::npos)
                    continue;
                const std::string text = readFile(entry.path()).value();
                found[below.string()] = below.extension() == ".csv" ? text : sha256(text);
            }
        }
        return found;
    }

    /// Folders for a run.
    fs::path prepared(const std::string& name) const {
        const fs::path made = folder / name;
        fs::remove_all(made);
        fs::remove_all(made.string() + " lists");
        fs::create_directories(made.string() + " lists");
        return made;
    }

    Ended merged(const fs::path& folderOut) const {
        return run({"merge-reports", folderOut, folderOut.string() + " lists"});
    }
};

}  // namespace morva
