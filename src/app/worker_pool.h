// SPDX-License-Identifier: GPL-3.0-or-later
// Threads that work through tasks in the order in which those were started. One for each kind of
// background work of this room, made and ended by its owner. Knows nothing of what a task does.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace morva {

// Tasks are handed over under a lock of the standard library: a race detector sees that, and does
// not see the locks inside a library that was not built for it.
class WorkerPool {
public:
    /// Must not throw.
    using Task = std::function<void()>;

    /// At most `width` tasks at once, at least one. A thread is made when it is first needed.
    explicit WorkerPool(int width);
    /// Waits for every task.
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    int width() const { return static_cast<int>(width_); }

    /// Returns at once. What the task holds is let go on its thread as soon as it has run.
    void start(Task task);
    /// Forgets the tasks that have not begun.
    void clear();
    /// Returns when no task is left.
    void wait();

private:
    void work();

    const std::size_t width_;
    std::mutex mutex_;
    std::condition_variable wanted_;
    std::condition_variable done_;
    std::deque<Task> tasks_;
    /// Threads in a task.
    std::size_t busy_ = 0;
    bool isEnding_ = false;
    /// Last, so that they end before what they use.
    std::vector<std::jthread> threads_;
};

}  // namespace morva
