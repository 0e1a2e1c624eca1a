// SPDX-License-Identifier: GPL-3.0-or-later
// Teaching a pose: photos to tick on one side, name, crop type, training and what came of it on the
// other. Shows what `PoseFlow` says.
#pragma once

#include <string>
#include <vector>

#include "ui/widgets/sheet.h"

class QGridLayout;
class QLabel;
class QLineEdit;
class QProgressBar;

namespace morva {

class AppState;
class ExampleList;
class Notice;
class PoseList;
class PresetBox;
class SegmentedSwitch;
class SmallPictures;

class PoseSheet final : public Sheet {
    Q_OBJECT

public:
    PoseSheet(AppState& state, QWidget* window);

    PoseList& taught() const { return *taught_; }

signals:
    void addPackWanted();
    void savePackWanted();

private:
    /// A photo worth a second look, as the last training saw it.
    struct Doubt {
        std::string item;
        bool wasTicked = false;

        bool operator==(const Doubt&) const = default;
    };

    QWidget* makePhotos();
    QWidget* makeForm();
    QWidget* makeOutcome();
    void connectAll();
    void refresh();
    void refreshTraining();
    void refreshOutcome();
    void takeDoubts();
    void refreshDoubts();
    QWidget* makeDoubt(const Doubt& doubt);
    void goOn();

    AppState& state_;
    SmallPictures* pictures_;
    SegmentedSwitch* which_;
    ExampleList* photos_;
    QLineEdit* name_;
    PresetBox* preset_;
    QLabel* examples_;
    QWidget* training_;
    QLabel* trainingText_;
    QProgressBar* bar_;
    QPushButton* stop_;
    Notice* failure_;
    Notice* verdict_;
    QWidget* figures_;
    QLabel* found_;
    QLabel* right_;
    QLabel* doubtsTitle_;
    QVBoxLayout* doubtRows_;
    PoseList* taught_;
    QPushButton* again_;
    QPushButton* main_;
    std::vector<Doubt> doubts_;
    /// Those that have a row.
    std::vector<Doubt> shownDoubts_;
    /// The doubts are those of the outcome at hand.
    bool hasDoubts_ = false;
    /// Training was begun by keyboard: its button gets the focus in the end.
    bool isWaitedFor_ = false;
};

}  // namespace morva
