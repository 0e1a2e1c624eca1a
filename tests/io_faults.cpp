// SPDX-License-Identifier: GPL-3.0-or-later
#include "io_faults.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <string_view>

namespace {

/// Written before `isArmed`, read after it.
std::string watchedFolder;
bool isPlain = false;
std::atomic<bool> isArmed = false;
std::atomic<int> remaining = 0;
std::atomic<const char*> struck = nullptr;

bool isWatched(std::string_view path) {
    return path.starts_with(watchedFolder) &&
           (path.size() == watchedFolder.size() || path[watchedFolder.size()] == '/');
}

/// Counts one operation; true when it is the one to fail.
bool strikes(const char* operation, const char* path) {
    if (!isArmed || path == nullptr || !isWatched(path) || --remaining != 0) return false;
    struck = operation;
    return true;
}

bool strikes(const char* operation, int file) {
    if (!isArmed) return false;
    std::array<char, PATH_MAX> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    if (readlink(link.c_str(), path.data(), path.size() - 1) < 0) return false;
    return strikes(operation, path.data());
}

int failed(int error) {
    errno = error;
    return -1;
}

template <class Function>
Function systems(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

namespace morva {

IoFaults::IoFaults(const std::filesystem::path& folder, int failing, bool plain) {
    watchedFolder = folder.native();
    isPlain = plain;
    remaining = failing;
    struck = nullptr;
    isArmed = true;
}

IoFaults::~IoFaults() { end(); }

void IoFaults::end() { isArmed = false; }

bool IoFaults::hasStruck() const { return struck != nullptr; }

const char* IoFaults::operation() const { return struck != nullptr ? struck.load() : "nothing"; }

}  // namespace morva

// Each function is the system's own, looked up once, unless the fault strikes.
#define MORVA_SYSTEMS(name) static const auto real = systems<decltype(&name)>(#name)

extern "C" {

int open(const char* path, int flags, ...) {
    MORVA_SYSTEMS(open);
    std::va_list more;
    va_start(more, flags);
    const auto mode = va_arg(more, mode_t);
    va_end(more);
    if (isArmed && isPlain && (flags & O_TMPFILE) == O_TMPFILE && isWatched(path))
        return failed(EOPNOTSUPP);
    const bool writes = (flags & O_ACCMODE) != O_RDONLY;
    if (strikes(writes ? "open to write" : "open to read", path))
        return failed(writes ? ENOSPC : EIO);
    return real(path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    std::va_list more;
    va_start(more, flags);
    const auto mode = va_arg(more, mode_t);
    va_end(more);
    return open(path, flags | O_LARGEFILE, mode);
}

FILE* fopen(const char* path, const char* mode) {
    MORVA_SYSTEMS(fopen);
    if (strikes("fopen", path)) return failed(EIO), nullptr;
    return real(path, mode);
}

FILE* fopen64(const char* path, const char* mode) { return fopen(path, mode); }

ssize_t read(int file, void* bytes, size_t count) {
    MORVA_SYSTEMS(read);
    if (strikes("read", file)) return failed(EIO);
    return real(file, bytes, count);
}

ssize_t write(int file, const void* bytes, size_t count) {
    MORVA_SYSTEMS(write);
    if (strikes("write", file)) {
        static_cast<void>(real(file, bytes, count / 2));
        return failed(ENOSPC);
    }
    return real(file, bytes, count);
}

int fsync(int file) {
    MORVA_SYSTEMS(fsync);
    return strikes("fsync", file) ? failed(EIO) : real(file);
}

int fdatasync(int file) {
    MORVA_SYSTEMS(fdatasync);
    return strikes("fdatasync", file) ? failed(EIO) : real(file);
}

int rename(const char* from, const char* to) noexcept {
    MORVA_SYSTEMS(rename);
    return strikes("rename", to) ? failed(EIO) : real(from, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
              unsigned int flags) noexcept {
    MORVA_SYSTEMS(renameat2);
    return strikes("rename", to) ? failed(EIO) : real(fromFolder, from, toFolder, to, flags);
}

int link(const char* from, const char* to) noexcept {
    MORVA_SYSTEMS(link);
    return strikes("link", to) ? failed(EIO) : real(from, to);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    MORVA_SYSTEMS(linkat);
    return strikes("link", to) ? failed(EIO) : real(fromFolder, from, toFolder, to, flags);
}

int mkdir(const char* path, mode_t mode) noexcept {
    MORVA_SYSTEMS(mkdir);
    return strikes("mkdir", path) ? failed(ENOSPC) : real(path, mode);
}

}  // extern "C"

#undef MORVA_SYSTEMS
