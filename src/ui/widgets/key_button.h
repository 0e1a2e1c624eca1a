// SPDX-License-Identifier: GPL-3.0-or-later
// A button that shows its key beside its text.
#pragma once

#include <QPushButton>
#include <QStringList>

namespace morva {

class KeyButton final : public QPushButton {
    Q_OBJECT

public:
    /// `caps`: the keys as their caps show them, {"Ctrl", "I"}.
    KeyButton(const QString& text, const QStringList& caps, QWidget* parent = nullptr);

    void set(const QString& text, const QStringList& caps);

    QSize sizeHint() const override;
    /// The caps give way before the text does.
    QSize minimumSizeHint() const override { return QPushButton::minimumSizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// Of the caps with the gaps before them.
    int capsWidth() const;

    QStringList caps_;
};

}  // namespace morva
