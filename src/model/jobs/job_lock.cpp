// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/jobs/job_lock.h"

#include <utility>

#include <QFile>
#include <QLockFile>
#include <QString>

#include "base/files.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

std::optional<JobLock::Holder> holderOf(const QLockFile& lock) {
    qint64 pid = 0;
    QString host;
    QString program;
    if (!lock.getLockInfo(&pid, &host, &program)) return std::nullopt;
    return JobLock::Holder{pid, host.toStdString(), program.toStdString()};
}

bool acquired(QLockFile& lock) {
    if (lock.tryLock(0)) return true;
    // A lock without a name in it is that of a program which the machine took down with it. It is
    // removed only where no living program keeps it open.
    const bool nameless = lock.error() == QLockFile::LockFailedError && !holderOf(lock);
    return nameless && lock.removeStaleLockFile() && lock.tryLock(0);
}

JobLock::Refusal refusal(const QLockFile& lock, const fs::path& folder) {
    const auto holder = holderOf(lock);
    if (lock.error() != QLockFile::LockFailedError || !holder)
        return {std::nullopt, "Could not lock the folder " + folder.string() + "."};
    return {holder, "Another program works with " + folder.string() + ": " + holder->program +
                        ", process " + std::to_string(holder->pid) + " on " + holder->host + "."};
}

}  // namespace

JobLock::JobLock(std::unique_ptr<QLockFile> lock) : lock_(std::move(lock)) {}
JobLock::JobLock(JobLock&&) noexcept = default;
JobLock& JobLock::operator=(JobLock&&) noexcept = default;
JobLock::~JobLock() = default;

fs::path JobLock::file(const fs::path& dataFolder) { return dataFolder / "morva.lock"; }

tl::expected<JobLock, JobLock::Refusal> JobLock::tryAcquire(const fs::path& dataFolder) {
    if (const auto made = makeFolder(dataFolder); !made)
        return tl::unexpected(Refusal{std::nullopt, made.error().message});
    auto lock = std::make_unique<QLockFile>(QFile::decodeName(file(dataFolder).c_str()));
    // An evening's work outlasts any age at which a lock could count as forgotten.
    lock->setStaleLockTime(0);
    if (!acquired(*lock)) return tl::unexpected(refusal(*lock, dataFolder));
    return JobLock(std::move(lock));
}

}  // namespace morva
