// SPDX-License-Identifier: GPL-3.0-or-later
// How sure the program is, as a bar, with a mark where the preset approves by itself.
#pragma once

#include <QWidget>

namespace morva {

class ConfidenceBar final : public QWidget {
    Q_OBJECT

public:
    explicit ConfidenceBar(QWidget* parent = nullptr);

    /// Both 0 to 1.
    void set(double confidence, double threshold);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double confidence_ = 0;
    double threshold_ = 0;
};

}  // namespace morva
