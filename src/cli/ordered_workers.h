// SPDX-License-Identifier: GPL-3.0-or-later
// Works on many things at once and hands the results back one by one in their own order. Used by
// the commands that go through photos.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

namespace morva {

/// Calls `work(index)` for 0 to `count` - 1 on `workers` threads, and on the calling thread
/// `deliver(index, result)` in rising order and `tick(finished)` whenever one more is finished,
/// which may be ahead of the order. Once `stop` is true nothing further is begun; what was begun is
/// finished and delivered. Returns how many were delivered. Neither function may throw.
template <class Work, class Deliver, class Tick>
std::size_t inOrder(std::size_t count, int workers, const std::atomic<bool>& stop, Work work,
                    Deliver deliver, Tick tick) {
    std::mutex mutex;
    std::condition_variable changed;
    std::map<std::size_t, decltype(work(std::size_t{}))> finished;
    std::size_t begun = 0;  // indices below were taken, so they form a row without gaps
    int running = workers;

    const auto worker = [&] {
        std::unique_lock lock(mutex);
        while (begun < count && !stop.load()) {
            const std::size_t index = begun++;
            lock.unlock();
            auto result = work(index);
            lock.lock();
            finished.emplace(index, std::move(result));
            changed.notify_one();
        }
        --running;
        changed.notify_one();
    };
    std::vector<std::jthread> threads;
    threads.reserve(static_cast<std::size_t>(workers));
    for (int i = 0; i < workers; ++i) threads.emplace_back(worker);

    std::size_t delivered = 0;
    std::unique_lock lock(mutex);
    while (true) {
        changed.wait(lock, [&] { return running == 0 || !finished.empty(); });
        tick(delivered + finished.size());
        if (const auto next = finished.find(delivered); next != finished.end()) {
            auto result = std::move(next->second);
            finished.erase(next);
            lock.unlock();
            deliver(delivered++, std::move(result));
            lock.lock();
        } else if (running == 0) {
            return delivered;
        } else {
            const std::size_t known = finished.size();
            changed.wait(lock, [&] { return running == 0 || finished.size() != known; });
        }
    }
}

}  // namespace morva
