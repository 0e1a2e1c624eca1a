// SPDX-License-Identifier: GPL-3.0-or-later
#include "poses/tag_classifier_slot.h"

#include "base/files.h"

namespace morva {

std::shared_ptr<const TagClassifier> TagClassifierSlot::classifier() {
    const std::scoped_lock hold(lock_);
    if (!built_) {
        built_ = TagClassifier::loadDefault(dataFolder_ ? *dataFolder_ : Folders::standard().data);
    }
    return *built_;
}

void TagClassifierSlot::reload() {
    const std::scoped_lock hold(lock_);
    built_.reset();
}

void TagClassifierSlot::readTaughtPosesFrom(std::filesystem::path dataFolder) {
    const std::scoped_lock hold(lock_);
    dataFolder_ = std::move(dataFolder);
    built_.reset();
}

}  // namespace morva
