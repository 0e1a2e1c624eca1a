// SPDX-License-Identifier: GPL-3.0-or-later
// Above the grid: which photos are shown, how many of each there are, and how large.
#pragma once

#include <array>

#include <QWidget>

#include "app/app_state.h"

class QActionGroup;
class QSlider;
class QToolButton;

namespace morva {

/// Heights of thumbnails that the slider reaches, logical pixels.
inline constexpr int smallestThumbnail = 90;
inline constexpr int largestThumbnail = 360;

class FilterBar final : public QWidget {
    Q_OBJECT

public:
    FilterBar(AppState& state, QActionGroup* filters, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void refreshCounts();
    void makeRoom();

    AppState& state_;
    std::array<QToolButton*, 6> buttons_{};
    QWidget* sizes_;
    QSlider* slider_;
};

}  // namespace morva
