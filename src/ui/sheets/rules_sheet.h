// SPDX-License-Identifier: GPL-3.0-or-later
// The rules that pick the crop type of each photo of the selected job: edited as a draft, with the
// number of photos that each of them picks, and given to the job at the end.
#pragma once

#include <vector>

#include "crop/crop_rule.h"
#include "ui/widgets/sheet.h"

class QCheckBox;
class QLabel;

namespace morva {

class AppState;
class RuleList;

class RulesSheet final : public Sheet {
    Q_OBJECT

public:
    RulesSheet(AppState& state, QWidget* window);

private:
    QWidget* makeHeads();
    void askForPoses();
    void refreshCounts();
    QString whyNone(const CropRule& rule, bool ratingsInUse) const;
    void addRule();
    void apply();

    AppState& state_;
    QCheckBox* automatic_;
    RuleList* list_;
    QLabel* summary_;
};

}  // namespace morva
