// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files.h"

#include <cerrno>
#include <system_error>

#include <unistd.h>

#include <QByteArray>
#include <QCryptographicHash>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>
#include <QString>

namespace morva {

namespace {

constexpr const char* asideMark = ".unreadable";

QString qtPath(const std::filesystem::path& file) { return QFile::decodeName(file.c_str()); }

std::filesystem::path ownFolderBelow(QStandardPaths::StandardLocation location) {
    const QString base = QStandardPaths::writableLocation(location);
    return std::filesystem::path(QFile::encodeName(base).toStdString()) / "Morva";
}

QByteArrayView viewOf(std::string_view content) {
    return {content.data(), static_cast<qsizetype>(content.size())};
}

/// Where a file system cannot flush, its own care has to do.
bool isFlushed(int file) {
    return fdatasync(file) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
}

}  // namespace

Result<std::string> readFile(const std::filesystem::path& path) {
    QFile file(qtPath(path));
    QByteArray content;
    if (file.open(QIODevice::ReadOnly)) content = file.readAll();
    // A disk that fails half way must not pass for a shorter file.
    if (file.error() != QFileDevice::NoError) {
        return failure("Could not read " + path.filename().string() + ": " +
                       file.errorString().toStdString() + ".");
    }
    return content.toStdString();
}

Result<void> writeFileAtomically(const std::filesystem::path& path, std::string_view content) {
    QSaveFile file(qtPath(path));
    const QByteArrayView bytes = viewOf(content);
    const auto failed = [&](const std::string& reason) {
        return failure("Could not write " + path.filename().string() + ": " + reason + ".");
    };
    // What is only buffered would be written by the commit, which takes no notice when the disk is
    // full or fails by then.
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(bytes.data(), bytes.size()) != bytes.size() || !file.flush())
        return failed(file.errorString().toStdString());
    if (!isFlushed(file.handle())) return failed(std::generic_category().message(errno));
    if (!file.commit()) return failed(file.errorString().toStdString());
    return {};
}

Result<void> makeFolder(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) return failure("Could not make " + folder.string() + ": " + error.message() + ".");
    return {};
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
