// SPDX-License-Identifier: GPL-3.0-or-later
// Makes values that several places ask for under one key: each key is made once at a time on a
// worker thread, the latest values are remembered, and who asks can change their mind. Used by the
// thumbnails and the inspector's images.
#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <QByteArray>
#include <QCache>

#include "app/callback_queue.h"
#include "app/worker_pool.h"

namespace morva {

/// `Value` is cheap to copy. All functions are for the thread that `callbacks` leads to.
template <class Value>
class SharedWork {
public:
    /// Runs on a worker; nothing when the value cannot be made.
    using Make = std::function<std::optional<Value>()>;
    using Completion = std::function<void(const std::optional<Value>&)>;
    /// Names one request; 0 when there is nothing to wait for.
    using Ticket = std::uint64_t;

    /// At most `width` values are made at once and `limit` of them remembered.
    SharedWork(int width, int limit, CallbackQueue callbacks)
        : state_(std::make_shared<State>(limit, std::move(callbacks))), pool_(width) {}
    /// What is remembered weighs no more than `most` altogether, besides.
    void limitWeight(qsizetype most, std::function<qsizetype(const Value&)> weigh) {
        const std::lock_guard lock(state_->mutex);
        state_->leastCost = most / state_->memory.maxCost();
        state_->memory.setMaxCost(most);
        state_->weigh = std::move(weigh);
    }
    /// Waits for what is being made; no completion is called any more.
    ~SharedWork() {
        {
            const std::lock_guard lock(state_->mutex);
            state_->completions.clear();
            state_->orders.clear();
        }
        pool_.clear();
    }
    SharedWork(const SharedWork&) = delete;
    SharedWork& operator=(const SharedWork&) = delete;

    std::optional<Value> cached(const std::string& key) const {
        const std::lock_guard lock(state_->mutex);
        return state_->remembered(key);
    }

    /// A remembered value completes before this returns. Else `make` runs, unless the key is being
    /// made already; values that could not be made are not remembered.
    Ticket request(const std::string& key, Make make, Completion completion) {
        std::unique_lock lock(state_->mutex);
        if (const auto value = state_->remembered(key)) {
            lock.unlock();
            completion(value);
            return 0;
        }
        const Ticket ticket = ++state_->latest;
        state_->completions.emplace(ticket, std::move(completion));
        const auto [waiting, isNew] = state_->inFlight.try_emplace(key);
        waiting->second.push_back(ticket);
        if (isNew) {
            state_->orders.emplace_back(key, std::move(make));
            // The pool's threads end before the state; what they work on stands under its lock.
            pool_.start([state = state_.get()] { state->makeNext(); });
        }
        return ticket;
    }

    /// The completion is not called any more, and what nobody waits for is not begun.
    void cancel(Ticket ticket) {
        const std::lock_guard lock(state_->mutex);
        state_->completions.erase(ticket);
    }

private:
    struct State : std::enable_shared_from_this<State> {
        State(int limit, CallbackQueue queue) : callbacks(std::move(queue)), memory(limit) {}

        const CallbackQueue callbacks;
        std::mutex mutex;
        QCache<QByteArray, Value> memory;
        /// What a value takes of the memory's room; at least so much that their number is limited.
        std::function<qsizetype(const Value&)> weigh;
        qsizetype leastCost = 1;
        /// What is still to be begun, first come, first made.
        std::deque<std::pair<std::string, Make>> orders;
        /// Who waits for a key that is being made or about to be.
        std::map<std::string, std::vector<Ticket>> inFlight;
        /// What to tell those who have not changed their mind.
        std::map<Ticket, Completion> completions;
        Ticket latest = 0;

        std::optional<Value> remembered(const std::string& key) const {
            const Value* value = memory.object(QByteArray::fromStdString(key));
            return value ? std::optional<Value>(*value) : std::nullopt;
        }

        /// The next order; none when nobody waits for it any more.
        std::optional<std::pair<std::string, Make>> nextWanted() {
            const std::lock_guard lock(mutex);
            if (orders.empty()) return std::nullopt;
            auto order = std::move(orders.front());
            orders.pop_front();
            const auto waiting = inFlight.find(order.first);
            if (std::ranges::any_of(waiting->second,
                                    [&](Ticket ticket) { return completions.contains(ticket); }))
                return order;
            inFlight.erase(waiting);
            return std::nullopt;
        }

        /// One order, on a worker.
        void makeNext() {
            const auto order = nextWanted();
            if (!order) return;
            const auto& [key, make] = *order;
            std::optional<Value> value;
            try {
                value = make();
            } catch (const std::exception&) {
                value.reset();  // memory can run out on one picture
            }
            std::vector<Ticket> waiting;
            {
                const std::lock_guard lock(mutex);
                if (value)
                    memory.insert(QByteArray::fromStdString(key), new Value(*value),
                                  std::max(leastCost, weigh ? weigh(*value) : 0));
                waiting = std::move(inFlight[key]);
                inFlight.erase(key);
            }
            callbacks([state = this->shared_from_this(), waiting = std::move(waiting),
                       value = std::move(value)] {
                for (const Ticket ticket : waiting) state->complete(ticket, value);
            });
        }

        void complete(Ticket ticket, const std::optional<Value>& value) {
            std::unique_lock lock(mutex);
            auto completion = completions.extract(ticket);
            lock.unlock();
            if (completion) completion.mapped()(value);
        }
    };

    std::shared_ptr<State> state_;
    WorkerPool pool_;
};

}  // namespace morva
