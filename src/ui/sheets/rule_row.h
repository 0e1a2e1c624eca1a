// SPDX-License-Identifier: GPL-3.0-or-later
// One rule in the list of rules: grip, switch, condition, preset, how many photos it picks, acts.
// Holds the rule while it is edited; the list decides about its place.
#pragma once

#include <span>

#include <QStringList>
#include <QWidget>

#include "crop/crop_rule.h"
#include "model/presets/crop_preset.h"

class QCheckBox;
class QLabel;
class QToolButton;

namespace morva {

class ConditionEditor;
class PresetBox;

class RuleRow final : public QWidget {
    Q_OBJECT

public:
    /// Widths of the columns, for the heads above the list; logical pixels.
    struct Columns {
        int beforeTitle;
        int preset;
        int count;
        int more;
        int gap;
    };
    static Columns columns();

    RuleRow(const CropRule& rule, std::span<const CropPreset> presets, const QStringList& poses);

    const CropRule& rule() const { return rule_; }
    /// From 1.
    void setNumber(int number);
    /// A rule that stands last for good has no grip.
    void setMovable(bool movable);
    /// `note`: why it picks none, or empty.
    void setCount(int photos, const QString& note);
    int count() const { return count_; }
    /// Shows or hides the controls of the condition.
    void setEditing(bool editing);
    void setPoses(const QStringList& poses);
    /// In the order of Tab.
    QList<QWidget*> controls() const;

signals:
    void edited();
    /// Up by -1, down by 1.
    void moveWanted(int by);
    void removeWanted();
    /// The grip was pressed; in the row's coordinates.
    void gripped(const QPoint& place);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeMenu();
    void showTitle();
    bool takesKey(QObject* watched, const class QKeyEvent& event);

    CropRule rule_;
    int count_ = 0;
    bool isMovable_ = true;
    QWidget* grip_;
    QCheckBox* enabled_;
    QLabel* number_;
    QLabel* title_;
    QLabel* note_;
    PresetBox* preset_;
    QLabel* photos_;
    QToolButton* more_;
    ConditionEditor* editor_;
};

}  // namespace morva
