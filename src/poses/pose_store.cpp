// SPDX-License-Identifier: GPL-3.0-or-later
#include "poses/pose_store.h"

#include <algorithm>
#include <system_error>

#include "base/files.h"

namespace morva {

namespace {

namespace fs = std::filesystem;
using Model = TagClassifier::Model;

constexpr std::size_t longestPrint = 16384;
constexpr std::size_t longestTag = 200;

/// Keys sorted, so that two versions of a pack can be compared line by line.
Result<void> writeModels(const fs::path& file, const PoseStore::Models& models) {
    if (const fs::path folder = file.parent_path(); !folder.empty()) {
        if (auto made = makeFolder(folder); !made) return made;
    }
    const nlohmann::json sorted = Json(models);
    return writeFileAtomically(
        file, sorted.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n");
}

/// Puts `model` at the end and takes out its namesake.
void replace(PoseStore::Models& models, Model model) {
    std::erase_if(models, [&](const Model& known) { return known.tag == model.tag; });
    models.push_back(std::move(model));
}

bool isAcceptable(const Model& model) {
    return model.isUsable() && model.weights.size() <= longestPrint &&
           model.tag.size() <= longestTag;
}

}  // namespace

PoseStore::Models PoseStore::load() const { return TagClassifier::load(file()).value_or(Models{}); }

/// The poses that a change starts from. What the disk does not give now it may give later, so that
/// is never taken for a file without poses.
Result<PoseStore::Models> PoseStore::forChange() const {
    if (!isThere(file())) return Models{};
    const auto text = readFile(file());
    if (!text) return tl::unexpected(text.error());
    if (auto models = TagClassifier::parse(*text, file().filename().string())) return models;
    if (const auto safe = setAside(file()); !safe) return tl::unexpected(safe.error());
    return Models{};
}

Result<void> PoseStore::save(const Models& models) const {
    if (const auto safe = forChange(); !safe) return tl::unexpected(safe.error());
    return writeModels(file(), models);
}

Result<void> PoseStore::put(const Model& model) const {
    if (!model.isUsable())
        return failure("The pose \"" + model.tag + "\" does not fit this version of Morva.");
    Result<Models> models = forChange();
    if (!models) return tl::unexpected(models.error());
    replace(*models, model);
    return writeModels(file(), *models);
}

Result<void> PoseStore::remove(const std::string& tag) const {
    Result<Models> models = forChange();
    if (!models) return tl::unexpected(models.error());
    std::erase_if(*models, [&](const Model& known) { return known.tag == tag; });
    return writeModels(file(), *models);
}

Result<PoseStore::Models> PoseStore::read(const fs::path& pack) {
    auto models = TagClassifier::load(pack);
    if (!models) return models;
    Models accepted;
    for (Model& model : *models)
        if (isAcceptable(model)) replace(accepted, std::move(model));
    if (accepted.empty() && !models->empty()) {
        return failure(pack.filename().string() +
                       " holds no poses that this version of Morva can use.");
    }
    return accepted;
}

Result<void> PoseStore::write(const fs::path& pack,
                              const std::optional<std::vector<std::string>>& tags) const {
    auto models = isThere(file()) ? TagClassifier::load(file()) : Models{};
    if (!models) return tl::unexpected(models.error());
    if (tags) {
        std::erase_if(*models, [&](const Model& model) {
            return std::ranges::find(*tags, model.tag) == tags->end();
        });
    }
    return writeModels(pack, *models);
}

}  // namespace morva
