// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/callback_queue.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

#include <QMetaObject>
#include <QObject>

namespace morva {

CallbackQueue callbacksOf(QObject& receiver) {
    return [&receiver](std::function<void()> callback) {
        QMetaObject::invokeMethod(&receiver, std::move(callback), Qt::QueuedConnection);
    };
}

struct CallbackLoop::Waiting {
    std::mutex mutex;
    std::condition_variable arrived;
    std::deque<std::function<void()>> callbacks;
};

CallbackLoop::CallbackLoop() : waiting_(std::make_shared<Waiting>()) {}

CallbackQueue CallbackLoop::queue() const {
    return [waiting = waiting_](std::function<void()> callback) {
        const std::lock_guard lock(waiting->mutex);
        waiting->callbacks.push_back(std::move(callback));
        waiting->arrived.notify_one();
    };
}

bool CallbackLoop::runNext(std::chrono::milliseconds patience) {
    std::unique_lock lock(waiting_->mutex);
    if (!waiting_->arrived.wait_for(lock, patience, [&] { return !waiting_->callbacks.empty(); }))
        return false;
    const std::function<void()> callback = std::move(waiting_->callbacks.front());
    waiting_->callbacks.pop_front();
    lock.unlock();
    callback();
    return true;
}

}  // namespace morva
