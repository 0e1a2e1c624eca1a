// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/condition_editor.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStackedWidget>

#include "crop/crop_rules.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

using Condition = RuleCondition;

constexpr int mostStars = 5;
constexpr int valueWidth = 168;

struct Kind {
    QString name;
    /// What a rule that becomes one of this kind begins with.
    RuleCondition fresh;
};

std::vector<Kind> kinds() {
    return {
        {ConditionEditor::tr("Star rating, at least"), {Condition::Rating{mostStars}}},
        {ConditionEditor::tr("Same pose as a frame with stars"),
         {Condition::RatedSibling{mostStars}}},
        {ConditionEditor::tr("Shot close, face at least"),
         {Condition::CloseUp{CropRules::defaultCloseUp}}},
        {ConditionEditor::tr("Color label"), {Condition::Label{"Red"}}},
        {ConditionEditor::tr("Learned pose"), {Condition::Tag{}}},
        {said(RuleCondition{Condition::Landscape{}}.title()), {Condition::Landscape{}}},
        {said(RuleCondition{Condition::Sign{}}.title()), {Condition::Sign{}}},
        {said(RuleCondition{Condition::FeetVisible{}}.title()), {Condition::FeetVisible{}}},
        {said(RuleCondition{Condition::Always{}}.title()), {Condition::Always{}}},
    };
}

QComboBox* names(const QString& accessibleName) {
    auto* box = new QComboBox;
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setAccessibleName(accessibleName);
    return box;
}

std::string textOf(const QComboBox& box) { return box.currentText().trimmed().toStdString(); }

}  // namespace

ConditionEditor::ConditionEditor(const RuleCondition& condition, const QStringList& poses,
                                 QWidget* parent)
    : QWidget(parent),
      condition_(condition),
      kind_(new QComboBox),
      values_(new QStackedWidget),
      stars_(new QSpinBox),
      share_(new QDoubleSpinBox),
      label_(names(tr("Color label"))),
      pose_(names(tr("Learned pose"))) {
    kind_->setAccessibleName(tr("Condition"));
    for (const Kind& kind : kinds()) kind_->addItem(kind.name);
    stars_->setRange(1, mostStars);
    stars_->setAccessibleName(tr("Stars"));
    share_->setRange(1, 100);
    share_->setDecimals(0);
    share_->setSuffix(tr(" %", "after a number"));
    share_->setAccessibleName(tr("Face height over the height of the frame"));
    // The names that photo software offers; any other may be typed.
    label_->addItems({tr("Red"), tr("Yellow"), tr("Green"), tr("Blue"), tr("Purple")});
    setPoses(poses);
    values_->addWidget(new QWidget);
    for (QWidget* value : {static_cast<QWidget*>(stars_), static_cast<QWidget*>(share_),
                           static_cast<QWidget*>(label_), static_cast<QWidget*>(pose_)})
        values_->addWidget(value);
    values_->setFixedWidth(scaled(valueWidth));
    values_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 12);
    row->setSpacing(Metrics::gap);
    row->addWidget(kind_);
    row->addWidget(values_);
    row->addStretch(1);
    showKind();
    connect(kind_, &QComboBox::activated, this, &ConditionEditor::chooseKind);
    connect(stars_, &QSpinBox::valueChanged, this, [this](int stars) {
        if (std::holds_alternative<Condition::RatedSibling>(condition_.when))
            take({Condition::RatedSibling{stars}});
        else
            take({Condition::Rating{stars}});
    });
    connect(share_, &QDoubleSpinBox::valueChanged, this,
            [this](double percents) { take({Condition::CloseUp{percents / 100}}); });
    connect(label_, &QComboBox::editTextChanged, this,
            [this] { take({Condition::Label{textOf(*label_)}}); });
    connect(pose_, &QComboBox::editTextChanged, this,
            [this] { take({Condition::Tag{textOf(*pose_)}}); });
}

void ConditionEditor::setPoses(const QStringList& poses) {
    const QSignalBlocker quiet(pose_);
    const QString now = pose_->currentText();
    pose_->clear();
    pose_->addItems(poses);
    pose_->setEditText(now);
}

QList<QWidget*> ConditionEditor::controls() const { return {kind_, stars_, share_, label_, pose_}; }

void ConditionEditor::take(const RuleCondition& condition) {
    if (condition == condition_) return;
    condition_ = condition;
    emit edited();
}

void ConditionEditor::chooseKind(int place) {
    const RuleCondition fresh = kinds()[static_cast<std::size_t>(place)].fresh;
    if (fresh.when.index() == condition_.when.index()) return;
    condition_ = fresh;
    if (auto* tag = std::get_if<Condition::Tag>(&condition_.when); tag && pose_->count() > 0)
        tag->text = pose_->itemText(0).toStdString();
    showKind();
    emit edited();
}

void ConditionEditor::showKind() {
    const QSignalBlocker quiet[] = {QSignalBlocker(stars_), QSignalBlocker(share_),
                                    QSignalBlocker(label_), QSignalBlocker(pose_)};
    const std::vector<Kind> all = kinds();
    for (std::size_t i = 0; i < all.size(); ++i)
        if (all[i].fresh.when.index() == condition_.when.index())
            kind_->setCurrentIndex(static_cast<int>(i));
    QWidget* value = values_->widget(0);
    if (const auto* rating = std::get_if<Condition::Rating>(&condition_.when)) {
        stars_->setValue(rating->stars);
        value = stars_;
    } else if (const auto* sibling = std::get_if<Condition::RatedSibling>(&condition_.when)) {
        stars_->setValue(sibling->stars);
        value = stars_;
    } else if (const auto* closeUp = std::get_if<Condition::CloseUp>(&condition_.when)) {
        share_->setValue(closeUp->share * 100);
        value = share_;
    } else if (const auto* label = std::get_if<Condition::Label>(&condition_.when)) {
        label_->setEditText(asGiven(label->text));
        value = label_;
    } else if (const auto* tag = std::get_if<Condition::Tag>(&condition_.when)) {
        pose_->setEditText(asGiven(tag->text));
        value = pose_;
    }
    values_->setCurrentWidget(value);
}

}  // namespace morva
