// SPDX-License-Identifier: GPL-3.0-or-later
// Fetches the thumbnails of the cells on screen and about to be, and forgets those of others. Each
// view of photos has one; decodes nothing itself and does no more at once than a frame allows.
#pragma once

#include <cstddef>
#include <deque>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include <QCache>
#include <QObject>
#include <QSize>
#include <QTimer>

#include "app/app_state.h"
#include "ui/grid/cell_picture.h"

namespace morva {

class CellPictures final : public QObject {
    Q_OBJECT

public:
    explicit CellPictures(AppState& state, QObject* parent = nullptr);
    /// Asks for nothing any more.
    ~CellPictures() override;

    /// Thumbnails shall fill this size, in logical pixels at `scale` of the device. True when that
    /// is another than before.
    bool setSlot(const QSize& slot, qreal scale);

    /// These photos of the selected job are wanted, the most urgent first; `onScreen` of them can
    /// be seen. What is under way for any other is cancelled.
    void want(std::span<const std::size_t> items, std::size_t onScreen);
    /// Other photos than before have these places.
    void clear();
    /// These may look different from now on.
    void changed(std::span<const std::size_t> items);
    void allChanged();

    /// What there is now to be drawn for a photo of the selected job.
    const CellPicture& picture(std::size_t item);

    /// Requests that the store has not answered yet.
    int waiting() const;

signals:
    void arrived(std::size_t item);

private:
    struct Entry {
        ThumbnailStore::Request request;
        std::string key;
        CellPicture picture;
        ThumbnailStore::Ticket ticket = 0;
        ThumbnailStore::Ticket wholeTicket = 0;
        /// What it shall show is to be looked up again.
        bool isOld = true;
        /// Its crop is being changed.
        bool isMoving = false;
        bool isAsked = false;
        bool isWholeAsked = false;
        /// Scaled for another size of slot.
        bool isOtherSize = false;
        bool isOnScreen = false;
    };
    struct Arrival {
        std::size_t item;
        std::string key;
        QImage image;
    };

    Entry& current(std::size_t item);
    void lookUp(std::size_t item, Entry& entry);
    void setExact(Entry& entry, const QPixmap& pixmap);
    void ask(std::size_t item, Entry& entry);
    void askForWhole(std::size_t item, Entry& entry);
    void askAgain();
    void cancelExact(Entry& entry);
    void cancelWhole(Entry& entry);
    void take();
    void show(const Arrival& arrival);
    void show(std::size_t item, Entry& entry, const QImage& image);
    QByteArray pixmapKey(const std::string& key) const;

    AppState& state_;
    QSize slot_{144, 180};
    qreal scale_ = 1;
    std::unordered_map<std::size_t, Entry> entries_;
    std::vector<std::size_t> wanted_;
    /// Thumbnails at the size of the slot, by what they show.
    QCache<QByteArray, QPixmap> pixmaps_;
    std::deque<Arrival> arrivals_;
    QTimer takeTimer_;
    /// Runs out when crops have stopped changing.
    QTimer calmTimer_;
};

}  // namespace morva
