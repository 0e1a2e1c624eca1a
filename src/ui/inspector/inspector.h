// SPDX-License-Identifier: GPL-3.0-or-later
// The current photo large, with the frame that will be cut: bar, canvas, filmstrip.
#pragma once

#include <QWidget>

namespace morva {

class AppState;

class Inspector final : public QWidget {
    Q_OBJECT

public:
    explicit Inspector(AppState& state, QWidget* parent = nullptr);

    /// The whole photo, and closer or further by steps.
    void zoomToFit();
    void zoomIn();
    void zoomOut();
    /// Whether the finished crop is shown in place of the photo with its frame.
    void setShowsResult(bool shows);
    bool showsResult() const;

signals:
    void contextMenuWanted(const QPoint& place);

private:
    AppState& state_;
    bool showsResult_ = false;
};

}  // namespace morva
