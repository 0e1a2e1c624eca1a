// SPDX-License-Identifier: GPL-3.0-or-later
// Holds the classifier that the analysis uses and builds it when it is first asked for. Workers
// read it while the main thread drops it.
#pragma once

#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>

#include "poses/tag_classifier.h"

namespace morva {

class TagClassifierSlot {
public:
    /// Null where no poses are installed or taught. Whoever took a classifier keeps it through a
    /// reload.
    std::shared_ptr<const TagClassifier> classifier();

    /// The next `classifier()` reads the model files again.
    void reload();

    /// Taught poses are kept in `dataFolder` from now on; the user's own folder until this is
    /// called.
    void readTaughtPosesFrom(std::filesystem::path dataFolder);

private:
    std::mutex lock_;
    std::optional<std::filesystem::path> dataFolder_;
    /// Absent until built, and again after a reload.
    std::optional<std::shared_ptr<const TagClassifier>> built_;
};

}  // namespace morva
