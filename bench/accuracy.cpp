// SPDX-License-Identifier: GPL-3.0-or-later
// Prints how far the analysis lies from reference measurements, as fractions of the reference face
// unit.
// It reads references.json (read by eye), regression-points.json (checked by eye) and every
// portrait in $MORVA_TEST_DATA. Run it before and after any change of a detector.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "analysis/analysis_pipeline.h"
#include "analysis/image_loader.h"
#include "base/files.h"
#include "base/json.h"
#include "crop/crop_solver.h"
#include "joint_accuracy.h"
#include "model/presets/preset_library.h"
#include "photographs.h"

namespace morva {
namespace {

struct Measure {
    std::string name;
    std::vector<std::pair<double, std::string>> errors;  // absolute fraction, photo
};

double quantile(std::vector<double> values, double share) {
    if (values.empty()) return 0;
    std::ranges::sort(values);
    const double at = share * static_cast<double>(values.size() - 1);
    const auto low = static_cast<std::size_t>(at);
    const std::size_t high = std::min(low + 1, values.size() - 1);
    return values[low] + (at - static_cast<double>(low)) * (values[high] - values[low]);
}

void print(Measure measure) {
    std::vector<double> values;
    for (const auto& [error, photo] : measure.errors) values.push_back(error);
    std::printf("%-14s %4zu photos   median %.3f   90 %% %.3f   worst:", measure.name.c_str(),
                values.size(), quantile(values, 0.5), quantile(values, 0.9));
    std::ranges::sort(measure.errors, std::greater{});
    for (std::size_t i = 0; i < std::min<std::size_t>(5, measure.errors.size()); ++i) {
        std::printf(" %s %.3f", measure.errors[i].second.c_str(), measure.errors[i].first);
    }
    std::printf("\n");
}

void printRatio(const std::vector<double>& ratios) {
    double sum = 0;
    double squares = 0;
    for (const double ratio : ratios) sum += ratio;
    const double mean = sum / static_cast<double>(ratios.size());
    for (const double ratio : ratios) squares += (ratio - mean) * (ratio - mean);
    std::printf("measured / reference face unit: mean %.3f, standard deviation %.1f %%\n", mean,
                100 * std::sqrt(squares / static_cast<double>(ratios.size())));
}

class Photos {
public:
    Photos(std::filesystem::path folder, VisionServices vision)
        : folder_(std::move(folder)), vision_(std::move(vision)) {}

    const ImageAnalysis& analysis(const std::string& file) {
        const auto known = records_.find(file);
        if (known != records_.end()) return known->second;
        return records_.emplace(file, AnalysisPipeline::analyze(folder_ / file, vision_))
            .first->second;
    }
    const std::filesystem::path& folder() const { return folder_; }

private:
    std::filesystem::path folder_;
    VisionServices vision_;
    std::map<std::string, ImageAnalysis> records_;
};

std::string reasonsOf(const ImageAnalysis& analysis) {
    const CropSolution solution =
        CropSolver::solve(analysis, PresetLibrary::standardPreset(PresetLibrary::headshotID()));
    std::string text;
    for (const ReviewReason reason : solution.reasons)
        text += (text.empty() ? "" : ", ") + std::string(title(reason));
    return text.empty() ? "no reason" : text;
}

void againstReferences(Photos& photos) {
    const Json references = Json::parse(*readFile(photos.folder() / "references.json"));
    Measure eyes{"eye midpoint", {}};
    Measure chin{"chin", {}};
    Measure top{"head top", {}};
    Measure unit{"face unit", {}};
    std::vector<double> ratios;
    for (const Json& reference : references) {
        const auto file = reference["file"].get<std::string>();
        const std::string name = std::filesystem::path(file).stem().string();
        const ImageAnalysis& measured = photos.analysis(file);
        const FaceGeometry* face = measured.primary();
        if (face == nullptr) {
            std::printf("%s: no face found (%s)\n", name.c_str(),
                        measured.error.value_or("").c_str());
            continue;
        }
        const Point midpoint =
            reference["left_eye"].get<Point>().midpoint(reference["right_eye"].get<Point>());
        const auto chinPoint = reference["chin"].get<Point>();
        const double u = midpoint.distance(chinPoint);
        const auto add = [&](Measure& measure, double error) {
            measure.errors.emplace_back(error / u, name);
            if (error / u > 0.2) {
                std::printf("beyond 0.2: %s of %s by %.3f; headshot: %s\n", measure.name.c_str(),
                            name.c_str(), error / u, reasonsOf(measured).c_str());
            }
        };
        add(eyes, face->eyeMidpoint().distance(midpoint));
        add(chin, face->chin.distance(chinPoint));
        add(unit, std::abs(face->faceUnit() - u));
        if (measured.headContent)
            add(top, std::abs(measured.headContent->topY - reference["crown"][1].get<double>()));
        ratios.push_back(face->faceUnit() / u);
    }
    for (const Measure& measure : {eyes, chin, top, unit}) print(measure);
    printRatio(ratios);
}

int againstRegressionPoints(Photos& photos) {
    const Json points = Json::parse(*readFile(photos.folder() / "regression-points.json"));
    int outside = 0;
    for (const Json& point : points["photos"]) {
        const auto file = point["file"].get<std::string>();
        const ImageAnalysis& measured = photos.analysis(file);
        const FaceGeometry* face = measured.primary();
        if (face == nullptr || !measured.headContent) {
            std::printf("regression: %s was not measured\n", file.c_str());
            ++outside;
            continue;
        }
        const auto u = point["faceUnit"].get<double>();
        const auto check = [&](const char* what, double error) {
            if (error <= point["tolerance"][what].get<double>()) return;
            std::printf("regression: %s of %s is off by %.3f face units\n", what, file.c_str(),
                        error);
            ++outside;
        };
        check("eye", face->eyeMidpoint().distance(point["eyeMidpoint"].get<Point>()) / u);
        check("chin", face->chin.distance(point["chin"].get<Point>()) / u);
        check("crown", std::abs(measured.headContent->topY - point["crownY"].get<double>()) / u);
    }
    std::printf("regression points outside their tolerance: %d\n", outside);
    return outside;
}

class JointTable {
public:
    /// `reference` holds the joints that are in the picture; `unit` is the reference face unit.
    void add(const std::string& photo, const Joints& reference, const Joints& measured,
             double unit) {
        for (const auto& [name, place] : reference) {
            const auto found = measured.find(name);
            if (found == measured.end())
                missed_.push_back(name + " of " + photo);
            else
                errors_[kindOf(name)].emplace_back(found->second.distance(place) / unit, photo);
        }
        for (const auto& [name, place] : measured) {
            if (!reference.contains(name)) unread_.push_back(name + " of " + photo);
        }
    }
    void print() const {
        Measure both{"upper joints", {}};
        for (const char* kind : {"Shoulder", "Hip", "Knee", "Ankle"}) {
            const auto found = errors_.find(kind);
            if (found == errors_.end()) continue;
            morva::print({kind, found->second});
            if (std::string(kind) == "Shoulder" || std::string(kind) == "Hip")
                both.errors.insert(both.errors.end(), found->second.begin(), found->second.end());
        }
        morva::print(both);
        printList("joints in the picture that were not found", missed_);
        printList("joints reported where the reader saw none (hidden or outside)", unread_);
    }

private:
    static void printList(const char* title, const std::vector<std::string>& names) {
        std::printf("%s: %zu", title, names.size());
        for (const std::string& name : names) std::printf(" %s;", name.c_str());
        std::printf("\n");
    }
    std::map<std::string, std::vector<std::pair<double, std::string>>> errors_;
    std::vector<std::string> missed_;
    std::vector<std::string> unread_;
};

void jointsAgainstReferences(Photos& photos) {
    JointTable table;
    for (const Json& reference : Json::parse(*readFile(photos.folder() / "references.json"))) {
        const auto file = reference["file"].get<std::string>();
        Joints joints;
        for (const auto& [name, place] : reference["joints"].items()) {
            if (!place.is_null()) joints[name] = place.get<Point>();
        }
        const Point eyes =
            reference["left_eye"].get<Point>().midpoint(reference["right_eye"].get<Point>());
        table.add(std::filesystem::path(file).stem().string(), joints,
                  jointsOf(photos.analysis(file).body.value_or(BodyGeometry{})),
                  eyes.distance(reference["chin"].get<Point>()));
    }
    const std::string pose = "groundtruth/pose/pose.jpg";
    const ImageAnalysis& measured = photos.analysis(pose);
    if (const FaceGeometry* face = measured.primary()) {
        table.add("pose",
                  jointsOfLandmarks(photos.folder() / "groundtruth/pose/pose_landmarks.pbtxt",
                                    measured.sourceSize()),
                  jointsOf(measured.body.value_or(BodyGeometry{})), face->faceUnit());
    }
    table.print();
}

void countFalseJoints(Photos& photos) {
    const auto files = ImageLoader::listImages(photos.folder() / "portraits");
    if (!files) return;
    std::size_t reported = 0;
    std::size_t outside = 0;
    int withoutBody = 0;
    for (const auto& file : *files) {
        const std::string name = file.stem().string();
        const ImageAnalysis& measured = photos.analysis("portraits/" + file.filename().string());
        withoutBody += !measured.faces.empty() && !measured.body ? 1 : 0;
        for (const auto& [joint, place] : jointsOf(measured.body.value_or(BodyGeometry{}))) {
            ++reported;
            if (kindOf(joint) == "Shoulder" || showLowerBody().contains(name)) continue;
            ++outside;
            std::printf("false joint: %s of %s\n", joint.c_str(), name.c_str());
        }
    }
    std::printf(
        "joints reported: %zu, of a lower body outside the picture: %zu (%.1f %%); "
        "faces without a body: %d\n",
        reported, outside, 100.0 * static_cast<double>(outside) / static_cast<double>(reported),
        withoutBody);
}

void countFaces(Photos& photos) {
    const auto files = ImageLoader::listImages(photos.folder() / "portraits");
    if (!files) return;
    int with = 0;
    for (const auto& file : *files) {
        const std::string name = file.stem().string();
        const ImageAnalysis& measured = photos.analysis("portraits/" + file.filename().string());
        const bool expected = !name.starts_with("noface-");
        with += measured.faces.empty() ? 0 : 1;
        if (measured.faces.empty() == expected) {
            std::printf("faces: %s has %zu, expected %s\n", name.c_str(), measured.faces.size(),
                        expected ? "some" : "none");
        }
    }
    std::printf("portraits: %zu, with a face: %d\n", files->size(), with);
}

int run(const std::filesystem::path& testdata) {
    const auto vision =
        VisionServices::open(VisionServices::modelFolder(), Folders::standard().cache);
    if (!vision) {
        std::fprintf(stderr, "%s\n", vision.error().message.c_str());
        return 1;
    }
    Photos photos(testdata, *vision);
    againstReferences(photos);
    againstRegressionPoints(photos);
    countFaces(photos);
    jointsAgainstReferences(photos);
    countFalseJoints(photos);
    return 0;
}

}  // namespace
}  // namespace morva

int main() {
    const auto folder = morva::testPhotographs("accuracy");
    return folder ? morva::run(*folder) : 0;
}
