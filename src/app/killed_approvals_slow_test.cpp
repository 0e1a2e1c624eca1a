// SPDX-License-Identifier: GPL-3.0-or-later
// The window's part of an evening: approvals come one after another, and the program is killed.
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <random>
#include <thread>

#include <QTimer>

#include "app/state_test_support.h"
#include "model/jobs/job_store.h"

namespace morva {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int killRounds = 10;
constexpr int photoCount = 60;
constexpr std::chrono::milliseconds betweenApprovals{50};
/// What was approved longer ago is on disk.
constexpr std::chrono::milliseconds longestLoss{1500};

class KilledApprovals : public StateTest {
protected:
    /// Runs in a process of its own until it is killed, and tells each approval as it is made.
    [[noreturn]] void approveAll(int told) {
        services.saveDelays = {};
        const auto state = started();
        import(*state);
        crop(*state);
        int next = 0;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            if (next == photoCount) return;
            const std::string id = item(*state, static_cast<std::size_t>(next)).id;
            state->selectMany({id}, id);
            state->approveSelected(false);
            const auto number = static_cast<char>(next++);
            if (write(told, &number, 1) != 1) _exit(1);
        });
        timer.start(betweenApprovals);
        QCoreApplication::exec();
        _exit(0);
    }

    /// When each photo was approved until `end`, by its place in the job.
    static std::vector<Clock::time_point> listen(int told, Clock::duration patience) {
        std::vector<Clock::time_point> approvals;
        std::optional<Clock::time_point> end;
        char number = 0;
        while ((!end || Clock::now() < *end) && approvals.size() < photoCount &&
               read(told, &number, 1) == 1) {
            approvals.push_back(Clock::now());
            if (!end) end = Clock::now() + patience;
        }
        return approvals;
    }
};

TEST_F(KilledApprovals, loseAtMostTheLastSecondAndAHalf) {
    writeFiles(photoCount);
    std::mt19937 random(5);
    std::uniform_int_distribution<int> milliseconds(0, 3200);
    std::size_t mustBeThere = 0;
    for (int round = 0; round < killRounds; ++round) {
        fs::remove_all(services.folders.data);
        int told[2];
        ASSERT_EQ(pipe(told), 0);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) approveAll(told[1]);
        close(told[1]);
        const auto approvals = listen(told[0], std::chrono::milliseconds(milliseconds(random)));
        const auto killed = Clock::now();
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        close(told[0]);
        ASSERT_FALSE(approvals.empty());

        const auto loaded = JobStore(services.folders.data).loadAll();
        for (const Failure& problem : loaded.problems) ADD_FAILURE() << problem.message;
        for (std::size_t i = 0; i < approvals.size(); ++i) {
            if (killed - approvals[i] <= longestLoss) continue;
            ASSERT_EQ(loaded.jobs.size(), 1) << "round " << round;
            EXPECT_TRUE(loaded.jobs.front().items.at(i).approved) << "round " << round;
            ++mustBeThere;
        }
    }
    EXPECT_GT(mustBeThere, killRounds);
}

}  // namespace
}  // namespace morva
