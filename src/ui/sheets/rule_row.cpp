// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/rule_row.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QToolButton>
#include <QVBoxLayout>

#include "ui/sheets/condition_editor.h"
#include "ui/sheets/preset_box.h"
#include "ui/widgets/icon_label.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

constexpr int rowHeight = 48;
constexpr int gripSide = 16;
constexpr int numberWidth = 24;
constexpr int presetWidth = 208;
constexpr int countWidth = 48;
constexpr int moreWidth = 32;
constexpr int gap = 12;
constexpr int checkWidth = 16;

}  // namespace

RuleRow::Columns RuleRow::columns() {
    return {.beforeTitle = gripSide + gap + checkWidth + gap + scaled(numberWidth) + gap,
            .preset = scaled(presetWidth),
            .count = scaled(countWidth),
            .more = moreWidth,
            .gap = gap};
}

RuleRow::RuleRow(const CropRule& rule, std::span<const CropPreset> presets,
                 const QStringList& poses)
    : rule_(rule),
      grip_(new IconLabel(QStringLiteral("drag"), &Theme::text2, gripSide)),
      enabled_(new QCheckBox),
      number_(makeLabel({}, TextRole::body, Ink::text2)),
      title_(makeWrappedLabel({}, TextRole::body)),
      note_(makeWrappedLabel({}, TextRole::small, Ink::text2)),
      preset_(new PresetBox(presets)),
      photos_(makeLabel({}, TextRole::body)),
      more_(new QToolButton),
      editor_(new ConditionEditor(rule.condition, poses)) {
    preset_->setFixedWidth(scaled(presetWidth));
    preset_->setPreset(rule_.presetID);
    grip_->setCursor(Qt::OpenHandCursor);
    grip_->setAttribute(Qt::WA_TransparentForMouseEvents, false);
    grip_->setToolTip(tr("Drag, or Alt+Up and Alt+Down"));
    enabled_->setChecked(rule_.enabled);
    number_->setFixedWidth(scaled(numberWidth));
    number_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    photos_->setFixedWidth(scaled(countWidth));
    photos_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    more_->setIcon(icon(QStringLiteral("more")));
    setLook(*more_, ButtonLook::quiet);
    more_->setFixedWidth(moreWidth);
    more_->setPopupMode(QToolButton::InstantPopup);
    more_->setFocusPolicy(Qt::StrongFocus);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addStretch(1);
    texts->addWidget(title_);
    texts->addWidget(note_);
    texts->addStretch(1);
    auto* line = new QHBoxLayout;
    line->setSpacing(gap);
    line->addStrut(scaled(rowHeight));
    line->addWidget(grip_);
    line->addWidget(enabled_);
    line->addWidget(number_);
    line->addLayout(texts, 1);
    line->addWidget(preset_);
    line->addWidget(photos_);
    line->addWidget(more_);
    auto* below = new QHBoxLayout;
    below->setContentsMargins(0, 0, 0, 0);
    below->addSpacing(columns().beforeTitle);
    below->addWidget(editor_, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(8, 0, 8, 0);
    column->setSpacing(0);
    column->addLayout(line, 1);
    column->addLayout(below);
    editor_->hide();
    note_->hide();
    makeMenu();
    showTitle();

    connect(enabled_, &QCheckBox::toggled, this, [this](bool on) {
        rule_.enabled = on;
        emit edited();
    });
    connect(preset_, &PresetBox::chosen, this, [this](const Uuid& preset) {
        rule_.presetID = preset;
        emit edited();
    });
    connect(editor_, &ConditionEditor::edited, this, [this] {
        rule_.condition = editor_->condition();
        showTitle();
        emit edited();
    });
    grip_->installEventFilter(this);
    for (QWidget* control : controls()) control->installEventFilter(this);
}

void RuleRow::makeMenu() {
    auto* menu = new QMenu(more_);
    QAction* edit = menu->addAction(tr("Edit Condition"));
    edit->setCheckable(true);
    connect(edit, &QAction::toggled, this, &RuleRow::setEditing);
    menu->addSeparator();
    connect(menu->addAction(tr("Move Up\tAlt+Up")), &QAction::triggered, this,
            [this] { emit moveWanted(-1); });
    connect(menu->addAction(tr("Move Down\tAlt+Down")), &QAction::triggered, this,
            [this] { emit moveWanted(1); });
    menu->addSeparator();
    connect(menu->addAction(icon(QStringLiteral("trash")), tr("Remove\tDel")), &QAction::triggered,
            this, &RuleRow::removeWanted);
    connect(menu, &QMenu::aboutToShow, this,
            [this, edit] { edit->setChecked(editor_->isVisibleTo(this)); });
    more_->setMenu(menu);
}

void RuleRow::showTitle() {
    const QString title = said(rule_.condition.title());
    title_->setText(title);
    setAccessibleName(title);
    enabled_->setAccessibleName(title);
    preset_->setAccessibleDescription(title);
    more_->setAccessibleName(tr("Acts on the rule “%1”").arg(title));
}

void RuleRow::setNumber(int number) { number_->setText(morva::count(number)); }

void RuleRow::setMovable(bool movable) {
    isMovable_ = movable;
    static_cast<IconLabel*>(grip_)->setLook(movable ? QStringLiteral("drag") : QString(),
                                            &Theme::text2);
}

void RuleRow::setCount(int photos, const QString& note) {
    count_ = photos;
    photos_->setText(morva::count(photos));
    photos_->setAccessibleName(tr("%n photo(s)", "", photos));
    note_->setText(note);
    note_->setVisible(!note.isEmpty());
    title_->setEnabled(rule_.enabled);
}

void RuleRow::setEditing(bool editing) {
    if (editor_->isVisibleTo(this) == editing) return;
    editor_->setVisible(editing);
    if (editing) editor_->controls().front()->setFocus(Qt::TabFocusReason);
}

void RuleRow::setPoses(const QStringList& poses) { editor_->setPoses(poses); }

QList<QWidget*> RuleRow::controls() const {
    return QList<QWidget*>{enabled_, preset_, more_} + editor_->controls();
}

bool RuleRow::takesKey(QObject* watched, const QKeyEvent& event) {
    const bool isAlt = event.modifiers() & Qt::AltModifier;
    if (isAlt && (event.key() == Qt::Key_Up || event.key() == Qt::Key_Down)) {
        emit moveWanted(event.key() == Qt::Key_Up ? -1 : 1);
        return true;
    }
    const bool isPlain = watched == enabled_ || watched == preset_ || watched == more_;
    if (isPlain && event.key() == Qt::Key_Delete) {
        emit removeWanted();
        return true;
    }
    return false;
}

bool RuleRow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress &&
        takesKey(watched, static_cast<const QKeyEvent&>(*event)))
        return true;
    if (watched == grip_ && event->type() == QEvent::MouseButtonPress && isMovable_) {
        const auto& press = static_cast<const QMouseEvent&>(*event);
        emit gripped(grip_->mapTo(this, press.position().toPoint()));
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace morva
