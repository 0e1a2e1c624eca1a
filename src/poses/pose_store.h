// SPDX-License-Identifier: GPL-3.0-or-later
// The poses the user has taught, one file per user, and the packs that carry them to other
// machines. Used by the teaching and sharing of poses; the classifier reads the file by itself.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/result.h"
#include "poses/tag_classifier.h"

namespace morva {

class PoseStore {
public:
    using Models = std::vector<TagClassifier::Model>;

    /// The name that is proposed for a new pack.
    static constexpr const char* packName = "Morva poses.json";

    /// Poses are kept in `directory`, which is made with the first save.
    explicit PoseStore(std::filesystem::path directory) : directory_(std::move(directory)) {}

    /// "poses.json" in the directory.
    std::filesystem::path file() const { return directory_ / "poses.json"; }

    /// The stored poses; none when the file is missing or cannot be understood.
    Models load() const;

    /// Writes the list whole or leaves the old file. A file that cannot be understood is first set
    /// aside as "poses.unreadable.json"; one that cannot even be read is left alone. Fails with a
    /// sentence that names the file.
    Result<void> save(const Models& models) const;

    /// Adds the pose at the end, in place of the one of the same tag. Refuses a model that no print
    /// can be scored with.
    Result<void> put(const TagClassifier::Model& model) const;

    /// Drops the pose of that tag.
    Result<void> remove(const std::string& tag) const;

    /// The poses of a pack that this program can use, at most one a tag, the last one. A pack comes
    /// from strangers: models that are not usable, longer than any print or named beyond 200 bytes
    /// are left out. Empty when the pack holds no model at all. Fails with a sentence that names
    /// the file when it cannot be read or none of its models can be used.
    static Result<Models> read(const std::filesystem::path& pack);

    /// Writes a pack of the stored poses, only of those in `tags` when there is a list.
    Result<void> write(const std::filesystem::path& pack,
                       const std::optional<std::vector<std::string>>& tags) const;

private:
    Result<Models> forChange() const;

    std::filesystem::path directory_;
};

}  // namespace morva
