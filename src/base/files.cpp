// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include <QByteArray>
#include <QCryptographicHash>
#include <QFile>
#include <QStandardPaths>
#include <QString>

#include "base/file_draft.h"

namespace morva {

namespace {

constexpr const char* asideMark = ".unreadable";

std::filesystem::path ownFolderBelow(QStandardPaths::StandardLocation location) {
    const QString base = QStandardPaths::writableLocation(location);
    return std::filesystem::path(QFile::encodeName(base).toStdString()) / "Morva";
}

QByteArrayView viewOf(std::string_view content) {
    return {content.data(), static_cast<qsizetype>(content.size())};
}

struct OpenFile {
    explicit OpenFile(const std::filesystem::path& path)
        : number(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}
    ~OpenFile() {
        if (number != -1) close(number);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    const int number;
};

std::error_code lastError() { return {errno, std::generic_category()}; }

tl::unexpected<Failure> failed(const std::string& what, const std::filesystem::path& file,
                               const std::error_code& error) {
    return failure("Could not " + what + " " + file.filename().string() + ": " + error.message() +
                   ".");
}

/// The file behind links, also where it is not there yet: a link to a file that lies elsewhere
/// stays one.
std::filesystem::path linkedFile(std::filesystem::path file) {
    constexpr int longestChain = 40;  // as the system has it
    std::error_code none;
    for (int i = 0; i < longestChain && std::filesystem::is_symlink(file, none); ++i)
        file = file.parent_path() / std::filesystem::read_symlink(file, none);
    return file;
}

}  // namespace

Result<std::string> readFile(const std::filesystem::path& path) {
    const OpenFile file(path);
    struct stat status {};
    if (file.number == -1 || fstat(file.number, &status) != 0)
        return failed("read", path, lastError());
    // One byte more shows the end without growing.
    std::string content(static_cast<std::size_t>(status.st_size) + 1, '\0');
    std::size_t filled = 0;
    while (true) {
        const ssize_t count = read(file.number, content.data() + filled, content.size() - filled);
        if (count == 0) break;
        if (count < 0 && errno == EINTR) continue;
        // A disk that fails half way must not pass for a shorter file.
        if (count < 0) return failed("read", path, lastError());
        filled += static_cast<std::size_t>(count);
        if (filled == content.size()) content.resize(content.size() * 2);
    }
    content.resize(filled);
    return content;
}

Result<void> writeFileAtomically(const std::filesystem::path& path, std::string_view content) {
    const std::filesystem::path file = linkedFile(path);
    std::error_code none;
    if (std::filesystem::is_symlink(file, none))
        return failed("write", path,
                      std::make_error_code(std::errc::too_many_symbolic_link_levels));
    return replaceFile(file, content);
}

Result<void> replaceFile(const std::filesystem::path& path, std::string_view content) {
    auto draft = FileDraft::begin(path);
    if (!draft) return failed("write", path, draft.error());
    const auto written =
        draft->write(content).and_then([&] { return draft->flush(); }).and_then([&] {
            return draft->publish();
        });
    if (!written) return failed("write", path, written.error());
    return {};
}

Result<void> makeFolder(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) return failure("Could not make " + folder.string() + ": " + error.message() + ".");
    return {};
}

Result<void> emptyFolder(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::remove_all(folder, error);
    if (error) return failure("Could not empty " + folder.string() + ": " + error.message());
    return makeFolder(folder);
}

bool isThere(const std::filesystem::path& file) {
    std::error_code none;
    return std::filesystem::exists(file, none);
}

Result<void> setAside(const std::filesystem::path& file) {
    const auto named = [&](const std::string& mark) {
        std::filesystem::path other = file;
        return other.replace_filename(file.stem().string() + mark + file.extension().string());
    };
    std::filesystem::path aside = named(asideMark);
    std::error_code error;
    for (int number = 2; std::filesystem::exists(aside, error); ++number)
        aside = named(asideMark + (" " + std::to_string(number)));
    std::filesystem::rename(file, aside, error);
    if (error)
        return failure("Could not move " + file.string() + " aside: " + error.message() + ".");
    return {};
}

bool isSetAside(const std::filesystem::path& file) {
    return file.stem().string().find(asideMark) != std::string::npos;
}

Folders Folders::standard() {
    return {ownFolderBelow(QStandardPaths::GenericDataLocation),
            ownFolderBelow(QStandardPaths::GenericCacheLocation)};
}

std::string sha256(std::string_view content) {
    return QCryptographicHash::hash(viewOf(content), QCryptographicHash::Sha256)
        .toHex()
        .toStdString();
}

}  // namespace morva
