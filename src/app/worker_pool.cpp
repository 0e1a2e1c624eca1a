// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/worker_pool.h"

#include <algorithm>
#include <utility>

namespace morva {

WorkerPool::WorkerPool(int width) : width_(static_cast<std::size_t>(std::max(width, 1))) {}

WorkerPool::~WorkerPool() {
    const std::lock_guard lock(mutex_);
    isEnding_ = true;
    wanted_.notify_all();
}

void WorkerPool::start(Task task) {
    const std::lock_guard lock(mutex_);
    tasks_.push_back(std::move(task));
    if (threads_.size() < width_ && threads_.size() - busy_ < tasks_.size())
        threads_.emplace_back([this] { work(); });
    wanted_.notify_one();
}

void WorkerPool::clear() {
    std::deque<Task> forgotten;
    const std::lock_guard lock(mutex_);
    forgotten.swap(tasks_);
}

void WorkerPool::wait() {
    std::unique_lock lock(mutex_);
    done_.wait(lock, [&] { return tasks_.empty() && busy_ == 0; });
}

void WorkerPool::work() {
    std::unique_lock lock(mutex_);
    while (true) {
        wanted_.wait(lock, [&] { return isEnding_ || !tasks_.empty(); });
        if (tasks_.empty()) return;
        Task task = std::exchange(tasks_.front(), {});
        tasks_.pop_front();
        ++busy_;
        lock.unlock();
        task();
        task = {};
        lock.lock();
        --busy_;
        if (tasks_.empty() && busy_ == 0) done_.notify_all();
    }
}

}  // namespace morva
