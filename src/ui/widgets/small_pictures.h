// SPDX-License-Identifier: GPL-3.0-or-later
// Small pictures for lists and tiles outside of the grid: what is there now, cut to fill a size,
// and news when more has come. Asks the thumbnail store and decodes nothing itself.
#pragma once

#include <set>
#include <string>
#include <unordered_map>

#include <QObject>
#include <QPixmap>

#include "app/thumbnail_store.h"

namespace morva {

class SmallPictures final : public QObject {
    Q_OBJECT

public:
    explicit SmallPictures(ThumbnailStore& store, QObject* parent = nullptr);
    /// Asks for nothing any more.
    ~SmallPictures() override;

    /// The picture cut to fill `size`, in logical pixels at `scale` of the device; null while it
    /// is not there or cannot be made. It is asked for once.
    QPixmap picture(const ThumbnailStore::Request& request, const QSize& size, qreal scale);

    /// Forgets what is under way for pictures that were not asked for since the last call. For
    /// lists that were scrolled.
    void keepUsed();

signals:
    void arrived();

private:
    ThumbnailStore& store_;
    /// 0 for pictures that could not be made.
    std::unordered_map<std::string, ThumbnailStore::Ticket> underWay_;
    std::set<std::string> used_;
};

}  // namespace morva
