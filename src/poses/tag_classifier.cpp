// SPDX-License-Identifier: GPL-3.0-or-later
#include "poses/tag_classifier.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "base/files.h"
#include "vision/vision_services.h"

namespace morva {

namespace {

constexpr std::uintmax_t largestModelFile = 32U << 20U;

bool fits(const TagClassifier::Model& model, std::size_t features) {
    return model.weights.size() == features && model.mean.size() == features &&
           model.std.size() == features;
}

bool allFinite(const std::vector<double>& values) {
    return std::ranges::all_of(values, [](double value) { return std::isfinite(value); });
}

std::filesystem::path programFolder() {
    std::error_code none;
    return std::filesystem::read_symlink("/proc/self/exe", none).parent_path();
}

}  // namespace

bool TagClassifier::Model::isUsable() const {
    return kind == featurePrintLogistic && revision == PoseFeatures::revision && !tag.empty() &&
           !weights.empty() && fits(*this, weights.size()) && allFinite(mean) && allFinite(std) &&
           allFinite(weights) && std::isfinite(bias) && std::isfinite(threshold) &&
           std::ranges::none_of(std, [](double deviation) { return deviation == 0; });
}

double TagClassifier::probability(std::span<const float> features, const Model& model) {
    if (!fits(model, features.size())) return 0;
    double z = model.bias;
    for (std::size_t i = 0; i < features.size(); ++i)
        z += model.weights[i] * (static_cast<double>(features[i]) - model.mean[i]) / model.std[i];
    return 1 / (1 + std::exp(-z));
}

std::vector<std::string> TagClassifier::tags(const FeaturePrinter& printer, const Picture& image,
                                             const ImageAnalysis& record) const {
    if (models_.empty()) return {};
    auto print = PoseFeatures::print(printer, image);
    return print ? tags(PoseFeatures::of(std::move(*print), record)) : std::vector<std::string>();
}

std::vector<std::string> TagClassifier::tags(std::span<const float> features) const {
    std::vector<std::string> tags;
    for (const Model& model : models_) {
        if (fits(model, features.size()) && model.threshold <= probability(features, model))
            tags.push_back(model.tag);
    }
    return tags;
}

Result<std::vector<TagClassifier::Model>> TagClassifier::load(const std::filesystem::path& file) {
    const std::string name = file.filename().string();
    std::error_code none;
    if (!std::filesystem::is_regular_file(file, none))
        return failure("Could not read " + name + ": there is no such file.");
    if (std::filesystem::file_size(file, none) > largestModelFile)
        return failure("Could not read " + name + ": it is too large for a file of poses.");
    const auto text = readFile(file);
    if (!text) return tl::unexpected(text.error());
    return parse(*text, name);
}

Result<std::vector<TagClassifier::Model>> TagClassifier::parse(const std::string& text,
                                                               const std::string& name) {
    if (auto list = decoded<std::vector<Model>>(text, name)) return list;
    auto single = decoded<Model>(text, name);
    if (!single) return tl::unexpected(single.error());
    return std::vector<Model>{std::move(*single)};
}

std::vector<std::filesystem::path> TagClassifier::places(const std::filesystem::path& dataFolder) {
    const char* const modelsOfTheProgram = "croptags.json";
    std::vector<std::filesystem::path> files{
        VisionServices::modelFolder().parent_path() / modelsOfTheProgram,
        programFolder() / modelsOfTheProgram};
    if (const char* named = std::getenv("MORVA_TAGS"); named != nullptr && *named != '\0')
        files.emplace_back(named);
    files.push_back(dataFolder / "poses.json");
    return files;
}

std::shared_ptr<const TagClassifier> TagClassifier::loadAll(
    std::span<const std::filesystem::path> files) {
    std::vector<Model> usable;
    for (const auto& file : files) {
        auto models = load(file);
        if (!models) continue;
        std::ranges::copy_if(std::move(*models), std::back_inserter(usable), &Model::isUsable);
    }
    if (usable.empty()) return nullptr;
    return std::make_shared<const TagClassifier>(std::move(usable));
}

std::shared_ptr<const TagClassifier> TagClassifier::loadDefault(
    const std::filesystem::path& dataFolder) {
    return loadAll(places(dataFolder));
}

}  // namespace morva
