// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/callback_queue.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

namespace morva {

namespace {

/// The functions wait under a lock of ours, which a race detector sees; the event loop, whose locks
/// it does not see, carries nothing but the news that there is one more.
class Mailbox final : public QObject {
public:
    explicit Mailbox(QObject& receiver) : QObject(&receiver) {}

    void put(std::function<void()> callback) {
        {
            const std::lock_guard lock(mutex_);
            callbacks_.push_back(std::move(callback));
        }
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }

    /// One function for each event: a function may run an event loop of its own, in which the next
    /// ones take their turn.
    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) return QObject::event(event);
        const std::function<void()> callback = next();
        callback();
        return true;
    }

private:
    std::function<void()> next() {
        const std::lock_guard lock(mutex_);
        auto callback = std::move(callbacks_.front());
        callbacks_.pop_front();
        return callback;
    }

    std::mutex mutex_;
    std::deque<std::function<void()>> callbacks_;
};

}  // namespace

CallbackQueue callbacksOf(QObject& receiver) {
    // Owned by the receiver.
    return [mailbox = new Mailbox(receiver)](std::function<void()> callback) {
        mailbox->put(std::move(callback));
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
