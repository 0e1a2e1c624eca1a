// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop's own dialogs for folders and files: the only dialogs that are not sheets. Answers
// come later and only when something was chosen. Tests put functions of their own here.
#pragma once

#include <filesystem>
#include <functional>

#include <QString>

class QWidget;

namespace morva {

struct FileDialogs {
    using Path = std::filesystem::path;
    using Answer = std::function<void(const Path&)>;
    struct Question {
        QString title;
        /// Of the button that ends the dialog; empty for the desktop's own word.
        QString accept = {};
        /// The folder it begins in, or the name that is proposed for a file.
        Path proposed = {};
        /// "Pose packs (*.json)"; empty for all files.
        QString filter = {};
    };

    std::function<void(const Question&, const Answer&)> folder;
    std::function<void(const Question&, const Answer&)> fileToOpen;
    std::function<void(const Question&, const Answer&)> fileToSave;

    static FileDialogs native(QWidget* window);
};

}  // namespace morva
