// SPDX-License-Identifier: GPL-3.0-or-later
// What the window shows without a job: how to begin, and the folders of before.
#pragma once

#include <filesystem>
#include <vector>

#include <QWidget>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace morva {

class DropBox;

class WelcomeView final : public QWidget {
    Q_OBJECT

public:
    struct Recent {
        std::filesystem::path folder;
        int photos = 0;
        /// Seconds since 1970.
        double lastUsed = 0;
    };

    explicit WelcomeView(QWidget* parent = nullptr);

    /// The latest first; shows the first few.
    void setRecent(const std::vector<Recent>& recent);
    /// A folder is being dragged over the window; empty when not.
    void setDropName(const QString& name);

signals:
    void importWanted();
    void folderChosen(const std::filesystem::path& folder);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLayout* makeSteps();

    DropBox* box_;
    QLabel* title_;
    QLabel* hint_;
    QPushButton* import_;
    QWidget* recent_;
    QVBoxLayout* recentRows_;
};

}  // namespace morva
