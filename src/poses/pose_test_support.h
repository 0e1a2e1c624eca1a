// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of the poses share: a printer that prints what it is told, models of any length,
// a folder that goes away.
#pragma once

#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/files.h"
#include "poses/pose_features.h"
#include "poses/tag_classifier.h"

namespace morva {

class ScriptedPrinter final : public FeaturePrinter {
public:
    explicit ScriptedPrinter(std::vector<float> print) : print_(std::move(print)) {}

    Result<std::vector<float>> print(const Picture& picture) const override {
        ++prints;
        lastWidth = picture.width();
        lastLeftmost = *picture.pixel(0, 0);
        if (print_.empty()) return failure("The printer is out of order.");
        return print_;
    }

    mutable std::atomic<int> prints = 0;
    mutable std::atomic<int> lastWidth = 0;
    mutable std::atomic<int> lastLeftmost = 0;

private:
    std::vector<float> print_;
};

/// A model that says 1 / (1 + e^-bias) to every print of `length` numbers.
inline TagClassifier::Model constantModel(const std::string& tag, std::size_t length,
                                          double bias = 0) {
    TagClassifier::Model model;
    model.tag = tag;
    model.mean.assign(length, 0);
    model.std.assign(length, 1);
    model.weights.assign(length, 0);
    model.bias = bias;
    return model;
}

/// A child from head to hip, alone on a photo of 800 x 1000; `scale` enlarges the photo with all
/// that is on it.
inline ImageAnalysis measuredPhoto(double scale = 1) {
    const auto at = [scale](double x, double y) { return Point{x * scale, y * scale}; };
    ImageAnalysis record;
    record.sourceWidth = static_cast<int>(800 * scale);
    record.sourceHeight = static_cast<int>(1000 * scale);
    FaceGeometry face;
    face.leftEye = at(370, 300);
    face.rightEye = at(430, 300);
    face.chin = at(400, 400);
    record.faces = {face};
    record.body.emplace();
    record.body->leftShoulder = at(300, 480);
    record.body->rightShoulder = at(500, 480);
    record.body->leftHip = at(330, 850);
    record.body->rightHip = at(470, 850);
    record.subject.emplace();
    record.subject->bounds = {250 * scale, 200 * scale, 300 * scale, 800 * scale};
    record.subject->reliable = true;
    record.subject->propReach = 0.3;
    record.edgeContact.emplace();
    record.edgeContact->bottom = true;
    return record;
}

/// A grey picture whose columns count upward from 0.
inline Picture countingPicture(int width, int height) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            for (int c = 0; c < 3; ++c) picture.pixel(x, y)[c] = static_cast<std::uint8_t>(x);
    }
    return picture;
}

/// An empty folder of the running test; removed with its content at the end.
class PoseFolder {
public:
    PoseFolder()
        : path(std::filesystem::temp_directory_path() /
               ("morva-poses-" + std::to_string(::getpid()) + "-" +
                ::testing::UnitTest::GetInstance()->current_test_info()->name())) {
        std::filesystem::create_directories(path);
    }
    ~PoseFolder() { std::filesystem::remove_all(path); }
    PoseFolder(const PoseFolder&) = delete;
    PoseFolder& operator=(const PoseFolder&) = delete;

    std::filesystem::path write(const std::string& name, const std::string& text) const {
        EXPECT_TRUE(writeFileAtomically(path / name, text));
        return path / name;
    }

    std::filesystem::path path;
};

}  // namespace morva
