// SPDX-License-Identifier: GPL-3.0-or-later
// The photos of the selected job as a grid of cropped thumbnails, in the order and with the filter
// of the application state. Shows and selects; what is selected and shown is the state's.
#pragma once

#include <QWidget>

namespace morva {

class AppState;

class PhotoGrid final : public QWidget {
    Q_OBJECT

public:
    explicit PhotoGrid(AppState& state, QWidget* parent = nullptr);

    /// Selects every photo that the filter shows; the current one stays.
    void selectAllShown();
    /// A folder is being dragged over the window: "Drop to import NAME"; empty when not.
    void setDropName(const QString& name);

signals:
    /// A context menu is asked for, the photos it is about being selected; in global coordinates.
    void contextMenuWanted(const QPoint& place);
    /// A photo was double-clicked.
    void photoActivated();

private:
    AppState& state_;
};

}  // namespace morva
