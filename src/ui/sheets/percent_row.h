// SPDX-License-Identifier: GPL-3.0-or-later
// A share with its label: a box with percents and a slider below, which edit one value.
#pragma once

#include <QWidget>

class QLabel;
class QSlider;
class QSpinBox;

namespace morva {

class PercentRow final : public QWidget {
    Q_OBJECT

public:
    /// From `least` to `most` percent.
    PercentRow(const QString& label, int least, int most, QWidget* parent = nullptr);

    /// 1 for 100 %. Without telling of it; a share beyond the ends is shown as the end.
    void setShare(double share);

signals:
    /// By a person.
    void edited(double share);

private:
    QSpinBox* box_;
    QSlider* slider_;
};

}  // namespace morva
