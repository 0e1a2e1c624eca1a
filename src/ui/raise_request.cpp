// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/raise_request.h"

#include <algorithm>
#include <thread>
#include <vector>

#include <QFile>

#include "base/files.h"
#include "base/uuid.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

constexpr const char* extension = ".raise";

fs::path requestsIn(const fs::path& dataFolder) { return dataFolder / "Requests"; }

}  // namespace

RaiseListener::RaiseListener(const fs::path& dataFolder) : folder_(requestsIn(dataFolder)) {
    std::error_code error;
    fs::create_directories(folder_, error);
    watcher_.addPath(QFile::decodeName(folder_.c_str()));
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, &RaiseListener::look);
}

void RaiseListener::look() {
    std::vector<fs::path> requests;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder_, error))
        if (entry.path().extension() == extension) requests.push_back(entry.path());
    for (const fs::path& request : requests) {
        const auto content = readFile(request);
        // Whoever removes it has taken it.
        if (!fs::remove(request, error) || !content) continue;
        emit raiseWanted(content->empty() ? std::nullopt : std::optional<fs::path>(*content));
    }
}

bool askToRaise(const fs::path& dataFolder, const std::optional<fs::path>& folder,
                std::chrono::milliseconds patience) {
    const fs::path request = requestsIn(dataFolder) / (Uuid::random().text() + extension);
    if (!writeFileAtomically(request, folder ? fs::absolute(*folder).native() : std::string()))
        return false;
    const auto end = std::chrono::steady_clock::now() + patience;
    std::error_code error;
    while (std::chrono::steady_clock::now() < end) {
        if (!fs::exists(request, error)) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    // Nobody took it: take it back.
    return !fs::remove(request, error);
}

}  // namespace morva
