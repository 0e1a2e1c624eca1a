// SPDX-License-Identifier: GPL-3.0-or-later
// Writes what changed, each file once per burst of changes and never on the main thread. Used by
// the application state for jobs and presets. A write that fails is tried again until it succeeds,
// and told once.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include <QObject>
#include <QTimer>

#include "app/callback_queue.h"
#include "app/worker_pool.h"
#include "base/result.h"

namespace morva {

class SaveQueue final : public QObject {
    Q_OBJECT

public:
    /// Runs on the write thread.
    using Write = std::function<Result<void>()>;
    /// Runs on the main thread when the write is due and takes what is to be written as a value.
    using Snapshot = std::function<Write()>;

    struct Delays {
        /// From the last change of a burst to its write.
        std::chrono::milliseconds rest{1000};
        /// From the first change of a burst that never ends to its write.
        std::chrono::milliseconds longest{5000};
        /// Until a failed write is tried again.
        std::chrono::milliseconds retry{10000};
    };

    enum class Urgency {
        /// May be put off by further changes.
        edit,
        /// An approval: written within `rest`, whatever follows it.
        decision,
    };

    explicit SaveQueue(Delays delays, QObject* parent = nullptr);
    /// Writes what is pending.
    ~SaveQueue() override;

    /// Writes `key` soon; a further request for it takes the place of this one.
    void soon(const std::string& key, Snapshot snapshot, Urgency urgency);
    /// Hands it to the write thread at once. Writes happen in the order of these calls.
    void now(const std::string& key, const Snapshot& snapshot);
    /// Forgets a pending write.
    void drop(const std::string& key);
    /// Writes everything that is pending and waits for it. Fails with the reason of one
    /// that could not be written.
    Result<void> flush();

    bool isPending(const std::string& key) const { return pending_.contains(key); }

signals:
    /// The first failure after a time without one.
    void failed(const std::string& reason);
    void saved(const std::string& key);

private:
    using Clock = std::chrono::steady_clock;
    struct Pending {
        Snapshot snapshot;
        Clock::time_point due;
        /// Further changes do not put it off beyond this.
        Clock::time_point latest;
    };
    struct Done;

    void writeDue();
    void deliver();
    void settle(const std::string& key, const Snapshot& snapshot, const Result<void>& result);
    void wakeForNext();

    const Delays delays_;
    std::map<std::string, Pending> pending_;
    QTimer timer_;
    /// Why the keys that were not written were not.
    std::map<std::string, std::string> failing_;
    /// What was written, on its way back to the main thread.
    std::shared_ptr<Done> done_;
    CallbackQueue back_;
    WorkerPool writer_{1};
};

}  // namespace morva
