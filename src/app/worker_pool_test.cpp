// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/worker_pool.h"

#include <algorithm>
#include <atomic>
#include <latch>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

namespace morva {
namespace {

TEST(WorkerPool, beginsTasksInTheirOrderAndEndsWithTheLast) {
    std::vector<int> order;
    {
        WorkerPool pool(1);
        for (int i = 0; i < 20; ++i) pool.start([&order, i] { order.push_back(i); });
    }
    ASSERT_EQ(order.size(), 20U);
    EXPECT_TRUE(std::ranges::is_sorted(order));
}

TEST(WorkerPool, worksOnAsManyAtOnceAsItIsWideAndNoMore) {
    constexpr int width = 3;
    std::latch met(width);
    std::atomic<int> atOnce{0};
    std::atomic<int> most{0};
    WorkerPool pool(width);
    for (int i = 0; i < 4 * width; ++i) {
        pool.start([&, i] {
            const int now = ++atOnce;
            for (int seen = most; seen < now && !most.compare_exchange_weak(seen, now);) continue;
            // The first ones can only go on together.
            if (i < width) met.arrive_and_wait();
            --atOnce;
        });
    }
    pool.wait();
    EXPECT_EQ(most, width);
}

TEST(WorkerPool, forgetsWhatHasNotBegunAndLetsGoOfWhatHas) {
    const auto held = std::make_shared<int>(0);
    std::latch begun(1);
    std::latch mayEnd(1);
    WorkerPool pool(1);
    pool.start([&, held] {
        begun.count_down();
        mayEnd.wait();
        ++*held;
    });
    begun.wait();
    for (int i = 0; i < 5; ++i) pool.start([held] { *held += 100; });
    pool.clear();
    mayEnd.count_down();
    pool.wait();
    EXPECT_EQ(*held, 1);
    EXPECT_EQ(held.use_count(), 1);
    // Ready for more.
    pool.start([held] { ++*held; });
    pool.wait();
    EXPECT_EQ(*held, 2);
}

}  // namespace
}  // namespace morva
