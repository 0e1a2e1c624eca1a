// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid/cell_pictures.h"

#include <chrono>
#include <unordered_set>
#include <utility>

#include <QElapsedTimer>

namespace morva {

namespace {

/// Of scaled thumbnails; enough for several screens at twice the usual scale.
constexpr qsizetype keptKilobytes = 96 * 1024;

/// Time for scaling thumbnails in one turn of the event loop, milliseconds.
constexpr qint64 budget = 4;

/// A crop that is dragged changes faster than thumbnails are made; until it rests the old one is
/// laid where it belongs.
constexpr std::chrono::milliseconds calm{120};

qsizetype kilobytes(const QPixmap& pixmap) {
    return static_cast<qsizetype>(pixmap.width()) * pixmap.height() * pixmap.depth() / 8 / 1024 + 1;
}

std::optional<PhotoFrame> frameOf(const ImageItem& photo, const ThumbnailStore::Request& request) {
    if (!request.rect) return std::nullopt;
    return PhotoFrame{*request.rect, request.rotation, photo.analysis->sourceSize()};
}

QColor fillOf(const ThumbnailStore::Request& request) {
    if (request.fill.size() != 3) return {};
    return QColor::fromRgbF(static_cast<float>(request.fill[0]),
                            static_cast<float>(request.fill[1]),
                            static_cast<float>(request.fill[2]));
}

}  // namespace

CellPictures::CellPictures(AppState& state, QObject* parent)
    : QObject(parent), state_(state), pixmaps_(keptKilobytes) {
    takeTimer_.setSingleShot(true);
    connect(&takeTimer_, &QTimer::timeout, this, &CellPictures::take);
    calmTimer_.setSingleShot(true);
    connect(&calmTimer_, &QTimer::timeout, this, &CellPictures::askAgain);
}

CellPictures::~CellPictures() { clear(); }

bool CellPictures::setSlot(const QSize& slot, qreal scale) {
    if (slot == slot_ && scale == scale_) return false;
    slot_ = slot;
    scale_ = scale;
    for (auto& [item, entry] : entries_) entry.isOtherSize = true;
    return true;
}

void CellPictures::want(std::span<const std::size_t> items, std::size_t onScreen) {
    wanted_.assign(items.begin(), items.end());
    const std::unordered_set<std::size_t> wanted(items.begin(), items.end());
    for (auto kept = entries_.begin(); kept != entries_.end();) {
        if (wanted.contains(kept->first)) {
            ++kept;
            continue;
        }
        cancelExact(kept->second);
        cancelWhole(kept->second);
        kept = entries_.erase(kept);
    }
    std::size_t place = 0;
    for (const std::size_t item : items) {
        Entry& entry = entries_[item];
        entry.isOnScreen = place++ < onScreen;
        ask(item, current(item));
    }
}

void CellPictures::clear() {
    want({}, 0);
    arrivals_.clear();
}

void CellPictures::changed(std::span<const std::size_t> items) {
    for (const std::size_t item : items)
        if (const auto found = entries_.find(item); found != entries_.end())
            found->second.isOld = true;
    calmTimer_.start(calm);
}

void CellPictures::allChanged() {
    for (auto& [item, entry] : entries_) entry.isOld = true;
    calmTimer_.start(calm);
}

const CellPicture& CellPictures::picture(std::size_t item) { return current(item).picture; }

int CellPictures::waiting() const {
    int count = 0;
    for (const auto& [item, entry] : entries_)
        count += (entry.ticket != 0 ? 1 : 0) + (entry.wholeTicket != 0 ? 1 : 0);
    return count;
}

CellPictures::Entry& CellPictures::current(std::size_t item) {
    Entry& entry = entries_[item];
    if (std::exchange(entry.isOld, false)) lookUp(item, entry);
    return entry;
}

void CellPictures::lookUp(std::size_t item, Entry& entry) {
    const WorkingJob& job = *state_.selectedJob();
    const ImageItem& photo = job.item(item);
    auto request = job.preview(item, state_.presets(), ThumbnailStore::gridHeight);
    CellPicture& picture = entry.picture;
    picture.lacksCanvas = job.lacksCanvas(item, state_.presets());
    std::string key = ThumbnailStore::key(request);
    if (key == entry.key) return;
    cancelExact(entry);
    entry.isMoving = !entry.key.empty();
    const auto frame = frameOf(photo, request);
    if (request.url != entry.request.url || request.stamp != entry.request.stamp) {
        cancelWhole(entry);
        picture.exact = {};
        picture.before = picture.whole = {};
    } else if (!picture.exact.isNull()) {
        // The whole of a photo that was not measured is known to be so once it is.
        picture.before.frame =
            picture.frame.value_or(PhotoFrame::whole(frame ? frame->source : PhotoFrame().source));
        picture.before.pixmap = std::exchange(picture.exact, {});
    }
    picture.frame = frame;
    picture.fill = fillOf(request);
    picture.isUnreadable = false;
    entry.request = std::move(request);
    entry.key = std::move(key);
    if (const QPixmap* kept = pixmaps_.object(pixmapKey(entry.key))) setExact(entry, *kept);
}

void CellPictures::setExact(Entry& entry, const QPixmap& pixmap) {
    cancelWhole(entry);
    entry.isOtherSize = entry.isMoving = false;
    entry.picture.exact = pixmap;
    entry.picture.before = entry.picture.whole = {};
}

void CellPictures::ask(std::size_t item, Entry& entry) {
    const bool isThere = !entry.picture.exact.isNull() && !entry.isOtherSize;
    if (isThere || entry.isAsked || entry.picture.isUnreadable ||
        state_.selectedJob()->status(item) == ItemStatus::error)
        return;
    if (calmTimer_.isActive() && entry.isMoving && entry.picture.frame) {
        const auto& before = entry.picture.before;
        if (before.pixmap.isNull() || !before.frame.covers(*entry.picture.frame))
            askForWhole(item, entry);
        return;
    }
    entry.isAsked = true;
    const auto ticket = state_.thumbnails().request(
        entry.request, [this, item, key = entry.key](const QImage& image) {
            arrivals_.push_back({item, key, image});
            if (!takeTimer_.isActive()) takeTimer_.start(0);
        });
    entry.ticket = ticket;
}

void CellPictures::askForWhole(std::size_t item, Entry& entry) {
    if (!entry.isOnScreen || std::exchange(entry.isWholeAsked, true)) return;
    ThumbnailStore::Request request{.url = entry.request.url,
                                    .rect = {},
                                    .rotation = 0,
                                    .height = ThumbnailStore::gridHeight,
                                    .fill = {},
                                    .stamp = entry.request.stamp};
    const Size source = entry.picture.frame->source;
    entry.wholeTicket =
        state_.thumbnails().request(request, [this, item, source](const QImage& image) {
            Entry& asker = entries_[item];
            asker.wholeTicket = 0;
            asker.picture.whole = {QPixmap::fromImage(image), PhotoFrame::whole(source)};
            emit arrived(item);
        });
}

void CellPictures::askAgain() {
    for (const std::size_t item : wanted_) ask(item, current(item));
}

void CellPictures::cancelExact(Entry& entry) {
    if (entry.ticket != 0) state_.thumbnails().cancel(std::exchange(entry.ticket, 0));
    entry.isAsked = false;
}

void CellPictures::cancelWhole(Entry& entry) {
    if (entry.wholeTicket != 0) state_.thumbnails().cancel(std::exchange(entry.wholeTicket, 0));
    entry.isWholeAsked = false;
}

void CellPictures::take() {
    QElapsedTimer time;
    time.start();
    while (!arrivals_.empty() && time.elapsed() < budget) {
        const Arrival arrival = std::move(arrivals_.front());
        arrivals_.pop_front();
        show(arrival);
    }
    if (!arrivals_.empty()) takeTimer_.start(0);
}

void CellPictures::show(const Arrival& arrival) {
    const auto found = entries_.find(arrival.item);
    if (found == entries_.end() || found->second.key != arrival.key) return;
    show(arrival.item, found->second, arrival.image);
}

void CellPictures::show(std::size_t item, Entry& entry, const QImage& image) {
    entry.ticket = 0;
    entry.isAsked = false;
    entry.picture.isUnreadable = image.isNull();
    if (!image.isNull()) {
        const QSizeF shape = fitted(image.size(), {{0, 0}, slot_}, scale_).size() * scale_;
        const auto pixmap = QPixmap::fromImage(
            image.scaled(shape.toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        setExact(entry, pixmap);
        pixmaps_.insert(pixmapKey(entry.key), new QPixmap(pixmap), kilobytes(pixmap));
    }
    emit arrived(item);
}

QByteArray CellPictures::pixmapKey(const std::string& key) const {
    return QByteArray::fromStdString(key) + '@' + QByteArray::number(slot_.height()) + 'x' +
           QByteArray::number(scale_);
}

}  // namespace morva
