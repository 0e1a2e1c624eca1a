// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>

#include <gmock/gmock.h>

#include "base/files.h"
#include "base/uuid.h"
#include "model/jobs/job_lock.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

class DataFolderLock : public testing::Test {
protected:
    DataFolderLock()
        : folder_(fs::temp_directory_path() / ("morva-lock-" + Uuid::random().text())) {}
    ~DataFolderLock() override { fs::remove_all(folder_); }

    /// Another program that takes the lock and keeps it until it is killed.
    pid_t startHolder() const {
        int ready[2];
        EXPECT_EQ(pipe(ready), 0);
        const pid_t child = fork();
        if (child == 0) {
            const auto lock = JobLock::tryAcquire(folder_);
            const char got = lock ? 'y' : 'n';
            if (write(ready[1], &got, 1) == 1) pause();
            _exit(1);
        }
        char got = 0;
        EXPECT_EQ(read(ready[0], &got, 1), 1);
        EXPECT_EQ(got, 'y');
        close(ready[0]);
        close(ready[1]);
        return child;
    }

    fs::path folder_;
};

TEST_F(DataFolderLock, isHeldByOneProgramUntilItEnds) {
    const pid_t holder = startHolder();
    const auto refused = JobLock::tryAcquire(folder_);
    ASSERT_FALSE(refused);
    ASSERT_TRUE(refused.error().heldBy);
    EXPECT_EQ(refused.error().heldBy->pid, holder);
    EXPECT_FALSE(refused.error().heldBy->host.empty());
    EXPECT_THAT(refused.error().message, testing::HasSubstr(std::to_string(holder)));

    kill(holder, SIGKILL);
    waitpid(holder, nullptr, 0);
    EXPECT_TRUE(fs::exists(JobLock::file(folder_))) << "nobody has cleaned up";
    EXPECT_TRUE(JobLock::tryAcquire(folder_));
}

TEST_F(DataFolderLock, isReleasedWithItsOwnerAndMovesWithIt) {
    {
        auto first = JobLock::tryAcquire(folder_);
        ASSERT_TRUE(first);
        const JobLock moved = std::move(*first);
        EXPECT_FALSE(JobLock::tryAcquire(folder_)) << "not even by the same program";
    }
    EXPECT_FALSE(fs::exists(JobLock::file(folder_)));
    EXPECT_TRUE(JobLock::tryAcquire(folder_));
}

TEST_F(DataFolderLock, isTakenOverFromACrashedMachineButNotFromAnotherOne) {
    fs::create_directories(folder_);
    for (const char* remains : {"", "48", "no number\n"}) {
        std::ofstream(JobLock::file(folder_)) << remains;
        EXPECT_TRUE(JobLock::tryAcquire(folder_)) << "after \"" << remains << '"';
    }
    std::ofstream(JobLock::file(folder_)) << "4711\nmorva\nstudio-2\n";
    const auto refused = JobLock::tryAcquire(folder_);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().heldBy, (JobLock::Holder{4711, "studio-2", "morva"}));
}

TEST_F(DataFolderLock, cannotBeHadWhereNothingCanBeWritten) {
    std::ofstream(folder_) << "a file in place of the folder";
    const auto refused = JobLock::tryAcquire(folder_);
    ASSERT_FALSE(refused);
    EXPECT_FALSE(refused.error().heldBy);
    EXPECT_FALSE(refused.error().message.empty());
}

}  // namespace
}  // namespace morva
