// SPDX-License-Identifier: GPL-3.0-or-later
// The condition of a rule as controls: what kind, and with which number or name.
#pragma once

#include <QStringList>
#include <QWidget>

#include "crop/crop_rule.h"

class QComboBox;
class QDoubleSpinBox;
class QSpinBox;
class QStackedWidget;

namespace morva {

class ConditionEditor final : public QWidget {
    Q_OBJECT

public:
    /// `poses`: the names that are offered for learned poses.
    ConditionEditor(const RuleCondition& condition, const QStringList& poses,
                    QWidget* parent = nullptr);

    const RuleCondition& condition() const { return condition_; }
    void setPoses(const QStringList& poses);
    /// In the order of Tab.
    QList<QWidget*> controls() const;

signals:
    void edited();

private:
    void showKind();
    void take(const RuleCondition& condition);
    void chooseKind(int place);

    RuleCondition condition_;
    QComboBox* kind_;
    QStackedWidget* values_;
    QSpinBox* stars_;
    QDoubleSpinBox* share_;
    QComboBox* label_;
    QComboBox* pose_;
};

}  // namespace morva
