// SPDX-License-Identifier: GPL-3.0-or-later
// The current photo large, with the frame that will be cut: bar, canvas, filmstrip. Made by the
// main window, which hands it keys and menus' wishes; everything else it reads from the state.
#pragma once

#include <QWidget>

namespace morva {

class AppState;
class InspectorBar;
class PhotoCanvas;

class Inspector final : public QWidget {
    Q_OBJECT

public:
    explicit Inspector(AppState& state, QWidget* parent = nullptr);

    /// The whole photo, and closer or further by steps.
    void zoomToFit();
    void zoomIn();
    void zoomOut();
    /// Whether the finished crop is shown beside the photo, or in its place where room is scarce.
    void setShowsResult(bool shows);
    bool showsResult() const;

    /// What the keyboard belongs to while the inspector is open.
    PhotoCanvas& canvas() { return *canvas_; }

signals:
    void contextMenuWanted(const QPoint& place);
    void showsResultChanged();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void tellBar();

    AppState& state_;
    InspectorBar* bar_;
    PhotoCanvas* canvas_;
};

}  // namespace morva
