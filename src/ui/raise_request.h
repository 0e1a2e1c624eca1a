// SPDX-License-Identifier: GPL-3.0-or-later
// How a second start of the program asks the running one to come to the front and open a folder:
// by a small file in the data folder that both use. Needs no connection of any kind.
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>

#include <QFileSystemWatcher>
#include <QObject>

namespace morva {

/// In the running program.
class RaiseListener final : public QObject {
    Q_OBJECT

public:
    explicit RaiseListener(const std::filesystem::path& dataFolder);

signals:
    /// Come to the front, with this folder where there is one.
    void raiseWanted(const std::optional<std::filesystem::path>& folder);

private:
    void look();

    std::filesystem::path folder_;
    QFileSystemWatcher watcher_;
};

/// In the second start: asks, and waits until the running program has taken the request. False when
/// nobody does, because the other program is on another machine or has no window.
bool askToRaise(const std::filesystem::path& dataFolder,
                const std::optional<std::filesystem::path>& folder,
                std::chrono::milliseconds patience = std::chrono::seconds(3));

}  // namespace morva
