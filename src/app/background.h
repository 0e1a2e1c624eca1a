// SPDX-License-Identifier: GPL-3.0-or-later
// Single errands of the main thread that take a while: done on a worker, ended on the main thread.
// Whole batches of photos have runners of their own.
#pragma once

#include <atomic>
#include <memory>
#include <utility>

#include <QObject>

#include "app/callback_queue.h"
#include "app/worker_pool.h"

namespace morva {

/// Set to end an errand early; shared between whoever may and the errand.
using StopFlag = std::shared_ptr<std::atomic<bool>>;

class Background {
public:
    /// Ends are run in the event loop of `receiver`, which owns this.
    explicit Background(QObject& receiver) : back_(callbacksOf(receiver)) {}
    /// Waits for every errand.
    ~Background() = default;
    Background(const Background&) = delete;
    Background& operator=(const Background&) = delete;

    /// Calls `work()` on a worker and `done` with what it returned on the main thread.
    template <class Work, class Done>
    void run(Work work, Done done) {
        pool_.start([work = std::move(work), done = std::move(done), back = back_]() mutable {
            auto result = std::make_shared<decltype(work())>(work());
            back([done = std::move(done), result]() mutable { done(std::move(*result)); });
        });
    }

    /// Ends something on a worker, whose end waits for what it has begun.
    template <class Thing>
    void letGo(std::unique_ptr<Thing> thing) {
        pool_.start([held = std::shared_ptr<Thing>(std::move(thing))] {});
    }

    /// For news on the way.
    const CallbackQueue& mainThread() const { return back_; }

private:
    CallbackQueue back_;
    /// Several, for one that waits for a slow disk must not hold up the others.
    WorkerPool pool_{3};
};

}  // namespace morva
