// SPDX-License-Identifier: GPL-3.0-or-later
// The joints' part of the accuracy table: distances from points read by eye, and joints reported
// where none is in the picture.
#pragma once

#include <array>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "analysis/record/image_analysis.h"

namespace morva {

using Joints = std::map<std::string, Point>;

inline Joints jointsOf(const BodyGeometry& body) {
    Joints joints;
    const auto add = [&](const char* name, const std::optional<Point>& joint) {
        if (joint) joints.emplace(name, *joint);
    };
    add("leftShoulder", body.leftShoulder);
    add("rightShoulder", body.rightShoulder);
    add("leftHip", body.leftHip);
    add("rightHip", body.rightHip);
    add("leftKnee", body.leftKnee);
    add("rightKnee", body.rightKnee);
    add("leftAnkle", body.leftAnkle);
    add("rightAnkle", body.rightAnkle);
    return joints;
}

/// The eight joints of a list of 33 body landmarks given as "x: 0.1" and "y: 0.2" in shares of the
/// picture.
inline Joints jointsOfLandmarks(const std::filesystem::path& file, Size picture) {
    std::vector<double> xs;
    std::vector<double> ys;
    std::ifstream text(file);
    for (std::string word; text >> word;) {
        if (word != "x:" && word != "y:") continue;
        double value = 0;
        text >> value;
        (word == "x:" ? xs : ys).push_back(value);
    }
    constexpr std::array<std::pair<const char*, std::size_t>, 8> order{{{"leftShoulder", 11},
                                                                        {"rightShoulder", 12},
                                                                        {"leftHip", 23},
                                                                        {"rightHip", 24},
                                                                        {"leftKnee", 25},
                                                                        {"rightKnee", 26},
                                                                        {"leftAnkle", 27},
                                                                        {"rightAnkle", 28}}};
    Joints joints;
    for (const auto& [name, index] : order)
        joints[name] = {xs.at(index) * picture.width, ys.at(index) * picture.height};
    return joints;
}

/// Portraits that show hips, knees or ankles, or where they would be behind a table; read from
/// contact sheets. Everywhere else the picture ends above them, and one reported is false.
inline const std::set<std::string>& showLowerBody() {
    static const std::set<std::string> names{
        "couple-historic",       "couple-piggyback",       "kid-climbing-full",
        "kid-full-small-birds",  "kids-two-frontal-table", "kids-two-table-full",
        "kids-two-vests",        "man-full-suit",          "man-hard-hat",
        "man-hood-sitting",      "scene-full-small",       "scene-speaker-side",
        "scene-two-farmers-box", "scene-two-lanyards",     "teen-boy-laptop",
        "teen-tshirt-text",      "woman-bar-boards",       "woman-blue-dress-half",
        "woman-full-forest",     "woman-seated-full",      "woman-sitting-ground"};
    return names;
}

/// "leftHip" without the side.
inline std::string kindOf(const std::string& joint) {
    return joint.substr(joint.starts_with("left") ? 4 : 5);
}

}  // namespace morva
