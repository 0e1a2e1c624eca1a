// SPDX-License-Identifier: GPL-3.0-or-later
// The strip below everything: how many photos and which are selected; the running task with its
// pace, or what the last act came to, or the keys of the inspector.
#pragma once

#include <QWidget>

#include "app/app_state.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace morva {

class ElidedLabel;
class KeyHints;

class StatusStrip final : public QWidget {
    Q_OBJECT

public:
    explicit StatusStrip(AppState& state, QWidget* parent = nullptr);

    /// A button beside the last result: "Undo" after a removal, "Open Folder" after an export.
    void offer(const QString& text, const std::function<void()>& act);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void refreshCount();
    void refreshTask();
    void refreshResult();
    void showWhatMatters();

    AppState& state_;
    ElidedLabel* count_;
    QWidget* task_;
    ElidedLabel* taskTitle_;
    QProgressBar* bar_;
    QLabel* done_;
    QLabel* rate_;
    QLabel* left_;
    QPushButton* cancel_;
    QWidget* result_;
    QLabel* resultIcon_;
    ElidedLabel* resultText_;
    QPushButton* offer_;
    std::function<void()> offered_;
    KeyHints* hints_;
};

}  // namespace morva
