// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/photo_images.h"

#include <utility>

#include "app/app_state.h"

namespace morva {

PhotoImages::PhotoImages(AppState& state, QObject* parent) : QObject(parent), state_(state) {}

PhotoImages::~PhotoImages() { cancelAll(); }

void PhotoImages::cancelAll() {
    for (const auto ticket : std::exchange(tickets_, {}))
        state_.thumbnails().cancelInspector(ticket);
}

void PhotoImages::wantNothing() {
    cancelAll();
    key_.clear();
    image_ = {};
    size_ = {};
    isLost_ = false;
}

void PhotoImages::want(const InspectedPhoto& photo) {
    const std::string key = ThumbnailStore::key({.url = photo.file, .stamp = photo.stamp});
    if (key == key_) return;
    // Only then, so that a picture that was fetched ahead is not thrown away half made.
    const auto before = std::exchange(tickets_, {});
    wantNothing();
    key_ = key;
    tickets_.push_back(
        state_.thumbnails().inspectorImage(photo.file, photo.stamp, [this, key](const auto& image) {
            if (key == key_) arrived(image);
        }));
    for (const auto ticket : before) state_.thumbnails().cancelInspector(ticket);
}

void PhotoImages::arrived(const std::shared_ptr<const ThumbnailStore::InspectorImage>& image) {
    isLost_ = !image;
    if (image) {
        image_ = image->image;
        size_ = image->value.sourceSize;
    }
    emit changed();
    fetchNeighbors();
}

void PhotoImages::fetchNeighbors() {
    const WorkingJob* job = state_.selectedJob();
    // One is made at a time, and most go forward.
    for (const int offset : {1, -1}) {
        const auto id = state_.neighbor(offset);
        const auto index = job && id ? job->indexOf(*id) : std::nullopt;
        if (!index) continue;
        const ImageItem& item = job->item(*index);
        tickets_.push_back(
            state_.thumbnails().inspectorImage(item.url, item.analyzedStamp, [](const auto&) {}));
    }
}

}  // namespace morva
