// SPDX-License-Identifier: GPL-3.0-or-later
// What the window looked like and where the user was, kept beside the jobs, so that the next start
// (after a crash too) begins at the same place.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <QByteArray>
#include <QSettings>

#include "app/app_types.h"
#include "base/uuid.h"
#include "ui/widgets/theme.h"

namespace morva {

class WindowMemory {
public:
    /// In the file "window.ini" of the program's data folder.
    explicit WindowMemory(const std::filesystem::path& dataFolder);

    struct Place {
        std::optional<Uuid> job;
        std::optional<std::string> item;
        ViewMode mode = ViewMode::grid;
        StatusFilter filter = StatusFilter::all;
        RightTab tab = RightTab::preset;

        bool operator==(const Place&) const = default;
    };
    Place place() const;
    /// On disk when it returns.
    void remember(const Place& place);

    struct Look {
        QByteArray geometry;
        QByteArray regions;
        bool showsSidebar = true;
        bool showsPanel = true;
        double thumbnailHeight = 180;
        bool showsOverlay = true;
        /// Absent while the desktop decides.
        std::optional<Contrast> contrast;
    };
    Look look() const;
    void remember(const Look& look);

    /// The latest first.
    struct Recent {
        std::filesystem::path folder;
        int photos = 0;
        /// Seconds since 1970.
        double lastUsed = 0;
    };
    std::vector<Recent> recent() const;
    /// Puts a folder first; the oldest beyond ten is forgotten.
    void used(const Recent& recent);

private:
    mutable QSettings settings_;
};

}  // namespace morva
