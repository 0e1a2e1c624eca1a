// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/save_queue.h"

#include <algorithm>
#include <mutex>
#include <utility>
#include <vector>

namespace morva {

struct SaveQueue::Done {
    struct Entry {
        std::string key;
        Snapshot snapshot;
        Result<void> result;
    };
    std::mutex lock;
    std::vector<Entry> entries;

    std::vector<Entry> taken() {
        const std::scoped_lock held(lock);
        return std::exchange(entries, {});
    }
};

SaveQueue::SaveQueue(Delays delays, QObject* parent)
    : QObject(parent), delays_(delays), done_(std::make_shared<Done>()), back_(callbacksOf(*this)) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &SaveQueue::writeDue);
}

SaveQueue::~SaveQueue() {
    // Nobody is left to be told.
    blockSignals(true);
    static_cast<void>(flush());
}

void SaveQueue::soon(const std::string& key, Snapshot snapshot, Urgency urgency) {
    const auto now = Clock::now();
    const auto latest = now + (urgency == Urgency::decision ? delays_.rest : delays_.longest);
    auto [at, isNew] = pending_.try_emplace(key, Pending{{}, {}, latest});
    Pending& pending = at->second;
    pending.snapshot = std::move(snapshot);
    pending.latest = std::min(pending.latest, latest);
    pending.due = std::min(now + delays_.rest, pending.latest);
    wakeForNext();
}

void SaveQueue::now(const std::string& key, const Snapshot& snapshot) {
    drop(key);
    writer_.start([key, snapshot, write = snapshot(), done = done_, back = back_, this] {
        Result<void> result = write();
        {
            const std::scoped_lock held(done->lock);
            done->entries.push_back({key, snapshot, std::move(result)});
        }
        back([this] { deliver(); });
    });
}

void SaveQueue::drop(const std::string& key) {
    pending_.erase(key);
    wakeForNext();
}

Result<void> SaveQueue::flush() {
    while (!pending_.empty()) {
        auto next = pending_.extract(pending_.begin());
        now(next.key(), next.mapped().snapshot);
    }
    writer_.wait();
    deliver();
    if (failing_.empty()) return {};
    return failure(failing_.begin()->second);
}

void SaveQueue::writeDue() {
    const auto now = Clock::now();
    std::vector<std::string> due;
    for (const auto& [key, pending] : pending_)
        if (pending.due <= now) due.push_back(key);
    for (const std::string& key : due) {
        const Snapshot snapshot = pending_.at(key).snapshot;
        this->now(key, snapshot);
    }
    wakeForNext();
}

void SaveQueue::deliver() {
    for (auto& [key, snapshot, result] : done_->taken()) settle(key, snapshot, result);
}

void SaveQueue::settle(const std::string& key, const Snapshot& snapshot,
                       const Result<void>& result) {
    if (result) {
        failing_.erase(key);
        emit saved(key);
        return;
    }
    const auto again = Clock::now() + delays_.retry;
    pending_.try_emplace(key, Pending{snapshot, again, again});
    wakeForNext();
    const bool isFirst = failing_.empty();
    failing_.insert_or_assign(key, result.error().message);
    if (isFirst) emit failed(result.error().message);
}

void SaveQueue::wakeForNext() {
    if (pending_.empty()) return timer_.stop();
    const auto soonest =
        std::ranges::min_element(pending_, {}, [](const auto& entry) { return entry.second.due; });
    const auto wait =
        std::chrono::ceil<std::chrono::milliseconds>(soonest->second.due - Clock::now());
    timer_.start(std::max(wait, std::chrono::milliseconds(0)));
}

}  // namespace morva
