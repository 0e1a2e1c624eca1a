// SPDX-License-Identifier: GPL-3.0-or-later
// A box that tells something: icon, text, and one way out.
#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace morva {

class Notice final : public QFrame {
    Q_OBJECT

public:
    enum class Kind { warning, failure, success, info };

    explicit Notice(Kind kind, QWidget* parent = nullptr);

    void setText(const QString& text);
    /// Without a text there is no button.
    void setAction(const QString& text);

signals:
    void actionTriggered();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Kind kind_;
    QLabel* text_;
    QPushButton* action_;
};

}  // namespace morva
