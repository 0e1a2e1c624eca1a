// SPDX-License-Identifier: GPL-3.0-or-later
// A check box whose text wraps where the panel is too narrow for one line.
#pragma once

#include <QCheckBox>

namespace morva {

class WrappedCheckBox final : public QCheckBox {
    Q_OBJECT

public:
    explicit WrappedCheckBox(const QString& text, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& place) const override { return rect().contains(place); }
};

}  // namespace morva
