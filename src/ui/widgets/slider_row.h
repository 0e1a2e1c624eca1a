// SPDX-License-Identifier: GPL-3.0-or-later
// One number with its label: a box with the unit in it, and a slider below. Both edit one value.
// Tells of edits by a person only.
#pragma once

#include <QWidget>

class QDoubleSpinBox;
class QLabel;
class QSlider;

namespace morva {

class SliderRow final : public QWidget {
    Q_OBJECT

public:
    /// How a value is shown: `factor` and `unit` turn the value 0.215 into "21.5 %".
    struct Scale {
        double factor = 1;
        QString unit = {};
        int decimals = 1;
        /// Both as shown. A value beyond is still shown as it is.
        double least = 0;
        double most = 100;
        /// One step of slider and arrows, as shown.
        double step = 0.1;
    };

    SliderRow(const QString& label, const Scale& scale, QWidget* parent = nullptr);

    /// Shows a value without telling of it.
    void setValue(double value);
    double value() const;

    QDoubleSpinBox* box() const { return box_; }
    QSlider* slider() const { return slider_; }
    const Scale& scale() const { return scale_; }

signals:
    /// The value that a person set.
    void edited(double value);
    /// A hand holds the slider and has let go of it.
    void held();
    void letGo();

private:
    int position(double shown) const;
    void take(double shown);

    Scale scale_;
    QLabel* label_;
    QDoubleSpinBox* box_;
    QSlider* slider_;
};

/// The scale of a share; `least`, `most` and `step` in percent.
SliderRow::Scale inPercent(double least, double most, double step = 0.1);
/// Of `ExportSettings::plateZoom`.
SliderRow::Scale plateZoomInPercent();

}  // namespace morva
