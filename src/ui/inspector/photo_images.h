// SPDX-License-Identifier: GPL-3.0-or-later
// Brings the large picture of the inspected photo and fetches those of its neighbours ahead. Owned
// by the canvas; decodes nothing on the main thread.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <QImage>
#include <QObject>

#include "app/thumbnail_store.h"
#include "base/geometry.h"
#include "ui/inspector/inspected_photo.h"

namespace morva {

class AppState;

class PhotoImages final : public QObject {
    Q_OBJECT

public:
    explicit PhotoImages(AppState& state, QObject* parent = nullptr);
    ~PhotoImages() override;

    /// The same photo in the same state is not fetched again.
    void want(const InspectedPhoto& photo);
    void wantNothing();

    /// Null until it has come.
    const QImage& image() const { return image_; }
    /// Of the photo in source pixels; 0 x 0 until it has come.
    Size size() const { return size_; }
    /// The file cannot be read.
    bool isLost() const { return isLost_; }

signals:
    void changed();

private:
    void fetchNeighbors();
    void arrived(const std::shared_ptr<const ThumbnailStore::InspectorImage>& image);
    void cancelAll();

    AppState& state_;
    std::string key_;
    QImage image_;
    Size size_;
    bool isLost_ = false;
    std::vector<ThumbnailStore::Ticket> tickets_;
};

}  // namespace morva
