// SPDX-License-Identifier: GPL-3.0-or-later
// The poses that were taught on this computer, each with its day and a way to remove it. Reads the
// store in the background.
#pragma once

#include <vector>

#include <QWidget>

#include "poses/tag_classifier.h"

class QPushButton;
class QVBoxLayout;

namespace morva {

class AppState;

class PoseList final : public QWidget {
    Q_OBJECT

public:
    explicit PoseList(AppState& state, QWidget* parent = nullptr);

    /// Reads the store again.
    void reload();

signals:
    void addPackWanted();
    void savePackWanted();

private:
    void show(const std::vector<TagClassifier::Model>& taught);
    void addRow(const TagClassifier::Model& pose);

    AppState& state_;
    QVBoxLayout* rows_;
    QPushButton* save_;
};

}  // namespace morva
