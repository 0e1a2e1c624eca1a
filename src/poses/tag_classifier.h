// SPDX-License-Identifier: GPL-3.0-or-later
// The taught poses: one small linear model a tag, scored on a photo's features. Used by the
// analysis on many threads at once; never changes after it was built.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/json.h"
#include "base/result.h"
#include "imaging/raster.h"
#include "poses/pose_features.h"
#include "poses/pose_report.h"

namespace morva {

class TagClassifier {
public:
    /// One learned tag. The model files and the pose packs hold these.
    struct Model {
        /// The only family of models that there is.
        static constexpr std::string_view featurePrintLogistic = "featureprint-logistic";

        std::string kind{featurePrintLogistic};
        /// Of the features it was taught with.
        int revision = PoseFeatures::revision;
        /// The pose's name, given to matching photos.
        std::string tag;
        /// One of each for every feature.
        std::vector<double> mean;
        std::vector<double> std;
        std::vector<double> weights;
        double bias = 0;
        /// The probability from which the tag applies.
        double threshold = 0.5;
        /// Seconds since 1970; absent for models that came with the program.
        std::optional<double> taughtAt;
        std::optional<PoseReport> report;
        /// Where the model came from, such as the pose pack it was added from.
        std::optional<std::string> origin;

        bool isTaught() const { return taughtAt.has_value(); }
        /// Whether this program's features can be scored with it: of the known kind and their
        /// revision, with a tag, as many means and deviations as weights and at least one, finite
        /// numbers, no deviation of zero.
        bool isUsable() const;

        bool operator==(const Model&) const = default;
    };

    explicit TagClassifier(std::vector<Model> models) : models_(std::move(models)) {}

    const std::vector<Model>& models() const { return models_; }

    /// 0 to 1; 0 when the model is not made for features of this length.
    static double probability(std::span<const float> features, const Model& model);

    /// The tags of the models whose probability reaches their threshold, in the models' order and
    /// as often as there are such models. Takes one print, none without models; empty when the
    /// print fails.
    std::vector<std::string> tags(const FeaturePrinter& printer, const Picture& image,
                                  const ImageAnalysis& record) const;

    /// The same for features (`PoseFeatures::of`) that are at hand.
    std::vector<std::string> tags(std::span<const float> features) const;

    /// The models of a JSON file that holds a list of them or a single one. Fails with a sentence
    /// that names the file; files above 32 MB are refused.
    static Result<std::vector<Model>> load(const std::filesystem::path& file);
    /// The same from the text of a file of that name.
    static Result<std::vector<Model>> parse(const std::string& text, const std::string& name);

    /// Where models are looked for, in this order: "croptags.json" among the program's resources
    /// and beside the program, the file that $MORVA_TAGS names, and the taught poses
    /// ("poses.json") in `dataFolder`.
    static std::vector<std::filesystem::path> places(const std::filesystem::path& dataFolder);

    /// All usable models of `files`, file after file. Nothing is preferred: where two files teach
    /// the same tag, either may give it. Files that are missing or unreadable give none; null when
    /// nothing is left.
    static std::shared_ptr<const TagClassifier> loadAll(
        std::span<const std::filesystem::path> files);

    /// `loadAll` of the `places`.
    static std::shared_ptr<const TagClassifier> loadDefault(
        const std::filesystem::path& dataFolder);

private:
    std::vector<Model> models_;
};

void to_json(Json& json, const TagClassifier::Model& model);
/// The last three keys may be missing; throws.
void from_json(const Json& json, TagClassifier::Model& model);

}  // namespace morva
