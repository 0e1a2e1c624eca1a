// SPDX-License-Identifier: GPL-3.0-or-later
// The panel at the right: one page for the preset, one for the photo, chosen by tabs.
#pragma once

#include <QWidget>

class QStackedWidget;
class QTabBar;

namespace morva {

class AppState;
class PhotoPage;
class PresetPage;

class RightPanel final : public QWidget {
    Q_OBJECT

public:
    explicit RightPanel(AppState& state, QWidget* parent = nullptr);

    /// Shows the preset's page with its export section open, where the size is mended.
    void revealExportSettings();

    PresetPage* presetPage() const { return preset_; }
    PhotoPage* photoPage() const { return photo_; }
    QSize sizeHint() const override;

signals:
    /// The sheets that the panel's menus lead to.
    void rulesWanted();
    void backdropsWanted();
    void posesWanted();

private:
    void showTab();

    AppState& state_;
    QTabBar* tabs_;
    QStackedWidget* pages_;
    PresetPage* preset_;
    PhotoPage* photo_;
};

}  // namespace morva
