// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the built program as a person does, on copies of the sample portrait.
#pragma once

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <exiv2/exiv2.hpp>

#include "base/files.h"
#include "base/json.h"

namespace morva {

namespace fs = std::filesystem;
using testing::HasSubstr;

struct Ended {
    int code = -1;
    std::string out;
    std::string err;

    std::vector<Json> lines() const {
        std::vector<Json> found;
        std::istringstream stream(out);
        for (std::string line; std::getline(stream, line);) found.push_back(Json::parse(line));
        return found;
    }
};

class Cli : public testing::Test {
protected:
    void SetUp() override {
        folder = fs::path(testing::TempDir()) / ("morva-cli-" + std::to_string(getpid()));
        fs::remove_all(folder);
        fs::create_directories(source);
    }
    void TearDown() override { fs::remove_all(folder); }

    void addPortrait(const std::string& name) {
        fs::create_directories((source / name).parent_path());
        fs::copy_file(std::getenv("MORVA_SAMPLE"), source / name);
    }

    /// The portrait as if taken at that time of day, with that many stars.
    void addPortrait(const std::string& name, const std::string& time, int stars) {
        addPortrait(name);
        const auto image = Exiv2::ImageFactory::open((source / name).string());
        image->exifData()["Exif.Photo.DateTimeOriginal"] = "2026:09:01 " + time;
        if (stars > 0) image->xmpData()["Xmp.xmp.Rating"] = std::to_string(stars);
        image->writeMetadata();
    }

    /// Starts the program; its output goes to files in `folder`.
    pid_t start(const std::vector<std::string>& arguments) const {
        std::vector<char*> words{const_cast<char*>(MORVA_CLI)};
        for (const std::string& word : arguments) words.push_back(const_cast<char*>(word.c_str()));
        words.push_back(nullptr);
        const pid_t child = fork();
        if (child == 0) {
            dup2(creat((folder / "stdout").c_str(), 0600), STDOUT_FILENO);
            dup2(creat((folder / "stderr").c_str(), 0600), STDERR_FILENO);
            execv(MORVA_CLI, words.data());
            _exit(127);
        }
        return child;
    }

    Ended waited(pid_t child) const {
        int status = 0;
        waitpid(child, &status, 0);
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1,
                readFile(folder / "stdout").value_or(""), readFile(folder / "stderr").value_or("")};
    }

    Ended run(const std::vector<std::string>& arguments) const { return waited(start(arguments)); }

    /// Every file below the source folder by its SHA-256.
    std::map<std::string, std::string> tree() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(source)) {
            files[entry.path().string()] =
                entry.is_regular_file() ? sha256(readFile(entry.path()).value()) : "folder";
        }
        return files;
    }

    fs::path folder;
    // Built from `folder` once it is known.
    const fs::path& source = source_;
    const fs::path& out = out_;

private:
    fs::path source_ =
        fs::path(testing::TempDir()) / ("morva-cli-" + std::to_string(getpid())) / "class 3b";
    fs::path out_ = source_.parent_path() / "crops";
};

}  // namespace morva
