// SPDX-License-Identifier: GPL-3.0-or-later
// The photo's page of the right panel: what is known of the selected photo or photos, their crop
// type, and the next step at the foot. Values are set anew from photo to photo, nothing is built
// anew.
#pragma once

#include <string>
#include <vector>

#include <QTimer>
#include <QWidget>

#include "ui/panel/photo_report.h"

class QLabel;
class QPushButton;
class QScrollArea;

namespace morva {

class AppState;
class ChoiceBox;
class ConfidenceBar;
class ElidedLabel;
class FigureTable;
class IconText;
class KeyButton;
class ReasonList;
class Section;

class PhotoPage final : public QWidget {
    Q_OBJECT

public:
    explicit PhotoPage(AppState& state, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void buildHead(QWidget* content);
    void buildFoot();
    QWidget* buildAdjustment();
    void listen();
    void refreshSoon();
    void refresh();
    void showReport(const PhotoReport& report);
    void showCropTypes(const PhotoReport& report);
    void showFoot(const PhotoReport& report);
    std::vector<std::size_t> selected() const;
    void goOn();

    AppState& state_;
    QTimer soon_;
    QLabel* hint_;
    QWidget* page_;
    QScrollArea* scroll_;
    ElidedLabel* title_;
    IconText* status_;
    QLabel* summary_;
    ChoiceBox* cropType_;
    QLabel* source_;
    Section* reasonsSection_;
    ReasonList* reasons_;
    Section* notesSection_;
    QLabel* notes_;
    Section* confidenceSection_;
    ConfidenceBar* bar_;
    FigureTable* factors_;
    Section* measurementsSection_;
    FigureTable* measurements_;
    Section* adjustmentSection_;
    FigureTable* adjustment_;
    QPushButton* resetAdjustment_;
    Section* detailsSection_;
    FigureTable* details_;
    QWidget* foot_;
    KeyButton* primary_;
    QPushButton* takeBack_;
    QPushButton* reset_;
    /// What the choice lists: it is filled again only when a text changes.
    std::vector<std::string> listed_;
    std::string shownItem_;
};

}  // namespace morva
