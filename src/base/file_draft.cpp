// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/file_draft.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <optional>
#include <string>
#include <utility>

#include "base/uuid.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

constexpr mode_t readableAndWritable = 0666;  // less what the user's mask takes away
constexpr mode_t forItsOwner = S_IRUSR | S_IWUSR;

tl::unexpected<std::error_code> failed() {
    return tl::unexpected(std::error_code(errno, std::generic_category()));
}

/// The answer of a system call that returns -1 when it fails.
FileDraft::Done done(int answer) {
    if (answer == -1) return failed();
    return {};
}

/// Where a file system cannot flush, its own care has to do.
bool isNoFlush(int error) { return error == EINVAL || error == ENOTSUP || error == ENOSYS; }

/// The names in a folder onto the disk, for a rename is one of those.
FileDraft::Done flushedFolder(const fs::path& folder) {
    const int file = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    // One may be allowed to write into a folder and not to read it.
    if (file == -1) return errno == EACCES ? FileDraft::Done() : failed();
    const auto flushed = fsync(file) == 0 || isNoFlush(errno) ? FileDraft::Done() : failed();
    close(file);
    return flushed;
}

/// The permissions of any new file: all but what the user's mask takes away. The system's table is
/// asked for the mask, for umask() would change it for the other threads as well.
mode_t permissionsOfNewFiles() {
    static const mode_t permissions = [] {
        std::ifstream status("/proc/self/status");
        const std::string key = "Umask:";
        for (std::string line; std::getline(status, line);) {
            if (line.starts_with(key))
                return readableAndWritable &
                       ~static_cast<mode_t>(std::stoul(line.substr(key.size()), nullptr, 8));
        }
        return forItsOwner;
    }();
    return permissions;
}

std::optional<mode_t> permissionsOf(const fs::path& file) {
    struct stat status {};
    if (lstat(file.c_str(), &status) != 0 || S_ISLNK(status.st_mode)) return std::nullopt;
    return status.st_mode & ALLPERMS;
}

fs::path folderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

}  // namespace

FileDraft::FileDraft(int file, fs::path target, fs::path name)
    : file_(file), target_(std::move(target)), name_(std::move(name)) {}

FileDraft::FileDraft(FileDraft&& other) noexcept
    : file_(std::exchange(other.file_, -1)),
      target_(std::move(other.target_)),
      name_(std::move(other.name_)),
      isNamed_(std::exchange(other.isNamed_, false)) {}

FileDraft::~FileDraft() {
    if (file_ != -1) close(file_);
    if (isNamed_) unlink(name_.c_str());
}

tl::expected<FileDraft, std::error_code> FileDraft::begin(const fs::path& target) {
    // A file that its owner has locked against writing is not replaced either.
    if (faccessat(AT_FDCWD, target.c_str(), W_OK, AT_SYMLINK_NOFOLLOW) != 0 && errno != ENOENT)
        return failed();
    const fs::path folder = folderOf(target);
    FileDraft draft(-1, target, folder / (".morva-" + Uuid::random().text()));
    draft.file_ = open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, readableAndWritable);
    if (draft.file_ == -1 && (errno == EOPNOTSUPP || errno == EISDIR || errno == ENOENT)) {
        draft.file_ =
            open(draft.name_.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, forItsOwner);
        draft.isNamed_ = draft.file_ != -1;
    }
    if (draft.file_ == -1) return failed();
    return draft;
}

FileDraft::Done FileDraft::write(std::string_view content) const {
    while (!content.empty()) {
        const ssize_t written = ::write(file_, content.data(), content.size());
        if (written >= 0)
            content.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR)
            return failed();
    }
    return {};
}

FileDraft::Done FileDraft::flush() const {
    if (fdatasync(file_) == 0 || isNoFlush(errno)) return {};
    return failed();
}

FileDraft::Done FileDraft::publish() {
    // What was made without a name has a new file's permissions already, those of its folder too.
    auto permissions = permissionsOf(target_);
    if (!permissions && isNamed_) permissions = permissionsOfNewFiles();
    if (permissions && fchmod(file_, *permissions) != 0 && errno != EPERM && errno != ENOTSUP)
        return failed();
    if (!isNamed_) {
        const std::string itself = "/proc/self/fd/" + std::to_string(file_);
        if (auto linked =
                done(linkat(AT_FDCWD, itself.c_str(), AT_FDCWD, name_.c_str(), AT_SYMLINK_FOLLOW));
            !linked)
            return linked;
        isNamed_ = true;
    }
    // A network file system may only now tell that it could not keep the content.
    if (close(std::exchange(file_, -1)) != 0 && errno != EINTR) return failed();
    if (auto renamed = done(rename(name_.c_str(), target_.c_str())); !renamed) return renamed;
    isNamed_ = false;
    return flushedFolder(folderOf(target_));
}

}  // namespace morva
