// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/small_pictures.h"

#include <QPixmapCache>

namespace morva {

namespace {

/// Of what is cut away, so much at the top: heads are above the middle of a portrait.
constexpr double cutAbove = 0.2;

QPixmap filling(const QImage& image, const QSize& size) {
    const QImage scaled =
        image.scaled(size, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    const QPoint corner((scaled.width() - size.width()) / 2,
                        static_cast<int>((scaled.height() - size.height()) * cutAbove));
    return QPixmap::fromImage(scaled.copy(QRect(corner, size)));
}

}  // namespace

SmallPictures::SmallPictures(ThumbnailStore& store, QObject* parent)
    : QObject(parent), store_(store) {}

SmallPictures::~SmallPictures() {
    for (const auto& [key, ticket] : underWay_) store_.cancel(ticket);
}

QPixmap SmallPictures::picture(const ThumbnailStore::Request& request, const QSize& size,
                               qreal scale) {
    const std::string key = ThumbnailStore::key(request);
    used_.insert(key);
    const QSize pixels = (QSizeF(size) * scale).toSize();
    const QString name = QStringLiteral("small-%1-%2-").arg(pixels.width()).arg(pixels.height()) +
                         QString::fromStdString(key);
    QPixmap pixmap;
    if (!QPixmapCache::find(name, &pixmap)) {
        const QImage image = store_.cached(key);
        if (!image.isNull()) {
            pixmap = filling(image, pixels);
            QPixmapCache::insert(name, pixmap);
        } else if (!underWay_.contains(key)) {
            underWay_[key] = 0;
            const auto ticket = store_.request(request, [this, key](const QImage& made) {
                if (made.isNull())
                    underWay_[key] = 0;
                else
                    underWay_.erase(key);
                emit arrived();
            });
            if (const auto waiting = underWay_.find(key); waiting != underWay_.end())
                waiting->second = ticket;
        }
    }
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

void SmallPictures::keepUsed() {
    for (auto at = underWay_.begin(); at != underWay_.end();) {
        if (at->second == 0 || used_.contains(at->first)) {
            ++at;
        } else {
            store_.cancel(at->second);
            at = underWay_.erase(at);
        }
    }
    used_.clear();
}

}  // namespace morva
