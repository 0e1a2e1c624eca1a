// SPDX-License-Identifier: GPL-3.0-or-later
// The export of the selected job before anything is written: where to, which photos, what stands
// in the way. Shows what `ExportPreview` finds and begins the run.
#pragma once

#include "app/export_preview.h"
#include "ui/widgets/sheet.h"

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace morva {

class AppState;
class Notice;
class StatTile;

class ExportSheet final : public Sheet {
    Q_OBJECT

public:
    ExportSheet(AppState& state, QWidget* window);

signals:
    /// "Show preset": the preset is shown in the panel already.
    void presetWanted();

private:
    QLayout* makeDestination();
    QLayout* makeChoice(QCheckBox* box, QLabel* hint);
    void setDestination();
    void refresh();
    void refreshDestination();
    void refreshCounts();
    void refreshTable();
    void refreshNotices();
    QString estimate() const;

    AppState& state_;
    ExportPreview preview_;
    QLineEdit* destination_;
    Notice* inside_;
    QCheckBox* approvedOnly_;
    QLabel* approvedHint_;
    QCheckBox* replace_;
    QLabel* replaceHint_;
    StatTile* toWrite_;
    StatTile* unchanged_;
    StatTile* review_;
    StatTile* failed_;
    QLabel* pending_;
    QWidget* table_;
    QVBoxLayout* notices_;
    /// The presets that the notices are about.
    std::vector<Uuid> noticed_;
    QLabel* estimate_;
    QPushButton* export_;
};

}  // namespace morva
