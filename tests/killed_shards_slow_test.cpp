// SPDX-License-Identifier: GPL-3.0-or-later
// Shards killed at random moments and started again leave what an undisturbed run leaves.
// MORVA_KILL_ROUNDS sets how often; 8 unless given.
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include "shard_fixture.h"

namespace morva {

namespace {

using KilledShards = Sharded;

TEST_F(KilledShards, finishTheRunWhenStartedAgain) {
    constexpr int shards = 3;
    const char* wanted = std::getenv("MORVA_KILL_ROUNDS");
    const int rounds = wanted != nullptr ? std::stoi(wanted) : 8;
    addShoot();
    const auto originals = tree();
    const fs::path whole = prepared("whole");
    const auto began = std::chrono::steady_clock::now();
    run(line(whole, ""));
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - began;
    const auto expected = written(whole);
    ASSERT_GT(expected.size(), 8u);

    std::mt19937 random(7);
    std::uniform_real_distribution<double> moment(0, 1.2 * took.count());
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        const fs::path parts = prepared("parts");
        std::vector<pid_t> running;
        for (int number = 1; number <= shards; ++number)
            running.push_back(
                start(line(parts, std::to_string(number) + "/" + std::to_string(shards))));
        for (const pid_t each : running) {
            std::this_thread::sleep_for(std::chrono::duration<double>(moment(random) / shards));
            kill(each, SIGKILL);
            waited(each);
        }
        // What is there is whole.
        for (const auto& [name, sum] : written(parts)) EXPECT_EQ(sum, expected.at(name)) << name;
        for (int number = 1; number <= shards; ++number)
            EXPECT_LE(run(line(parts, std::to_string(number) + "/" + std::to_string(shards))).code,
                      1);
        EXPECT_EQ(merged(parts).code, 0);
        EXPECT_EQ(written(parts), expected);
        EXPECT_EQ(tree(), originals);
    }
}

}  // namespace

}  // namespace morva
