// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>
#include <QString>

namespace morva {

namespace {

QString qtPath(const std::filesystem::path& file) { return QFile::decodeName(file.c_str()); }

std::filesystem::path ownFolderBelow(QStandardPaths::StandardLocation location) {
    const QString base = QStandardPaths::writableLocation(location);
    return std::filesystem::path(QFile::encodeName(base).toStdString()) / "Morva";
}

QByteArrayView viewOf(std::string_view content) {
    return {content.data(), static_cast<qsizetype>(content.size())};
}

}  // namespace

Result<std::string> readFile(const std::filesystem::path& path) {
    QFile file(qtPath(path));
    if (!file.open(QIODevice::ReadOnly)) {
        return failure("Could not read " + path.filename().string() + ": " +
                       file.errorString().toStdString() + ".");
    }
    return file.readAll().toStdString();
}

Result<void> writeFileAtomically(const std::filesystem::path& path, std::string_view content) {
    QSaveFile file(qtPath(path));
    const QByteArrayView bytes = viewOf(content);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(bytes.data(), bytes.size()) != bytes.size() || !file.commit()) {
        return failure("Could not write " + path.filename().string() + ": " +
                       file.errorString().toStdString() + ".");
    }
    return {};
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
