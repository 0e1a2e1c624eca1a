// SPDX-License-Identifier: GPL-3.0-or-later
// The preset's page of the right panel: which preset is shown or whether the rules choose, a menu
// of what can be done with presets, and the form of the one shown.
#pragma once

#include <string>
#include <vector>

#include <QWidget>

#include "model/presets/crop_preset.h"

class QLabel;
class QMenu;
class QPushButton;
class QScrollArea;
class QToolButton;
class QVBoxLayout;

namespace morva {

class AppState;
class ChoiceBox;
class PresetForm;

class PresetPage final : public QWidget {
    Q_OBJECT

public:
    explicit PresetPage(AppState& state, QWidget* parent = nullptr);

    PresetForm* form() const { return form_; }
    /// With the section of export settings open and in view.
    void revealExportSettings();

signals:
    void rulesWanted();
    void backdropsWanted();
    void posesWanted();

protected:
    void showEvent(QShowEvent* event) override;

private:
    /// What the choice lists; it is filled again only when this changes.
    struct Listed {
        Uuid id;
        std::string name;
        std::string badge;
        Rgb color{};
        bool operator==(const Listed&) const = default;
    };

    void fillMenu();
    void refresh();
    void refreshChoice();
    void refreshUse();
    void refreshRules();
    void chosen(int place);
    bool isAutomaticJob() const;

    AppState& state_;
    ChoiceBox* choice_;
    QToolButton* more_;
    QLabel* use_;
    QPushButton* useForAll_;
    QScrollArea* scroll_;
    PresetForm* form_;
    /// Instead of the form while the rules are shown.
    QWidget* automatic_;
    QVBoxLayout* inUse_;
    std::vector<QWidget*> rows_;
    std::vector<Listed> listed_;
    bool isOutdated_ = true;
};

}  // namespace morva
