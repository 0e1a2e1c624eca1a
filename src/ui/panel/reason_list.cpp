// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/reason_list.h"

#include <QLabel>
#include <QVBoxLayout>

#include "ui/panel/icon_text.h"

namespace morva {

namespace {

/// Under the title, beside its icon.
constexpr int indent = 16 + 8;

}  // namespace

ReasonList::ReasonList(QWidget* parent) : QWidget(parent), column_(new QVBoxLayout(this)) {
    column_->setContentsMargins(0, 0, 0, 0);
    column_->setSpacing(0);
}

void ReasonList::set(std::span<const ReasonReport> reasons) {
    while (lines_.size() < reasons.size()) {
        const Line line{new IconText(TextRole::emphasis),
                        makeWrappedLabel({}, TextRole::small, Ink::text2)};
        line.sentence->setContentsMargins(indent, 0, 0, 8);
        column_->addWidget(line.title);
        column_->addWidget(line.sentence);
        lines_.push_back(line);
    }
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const bool isUsed = i < reasons.size();
        if (isUsed) {
            lines_[i].title->set(QStringLiteral("s-review"), &Theme::review, reasons[i].title);
            lines_[i].sentence->setText(reasons[i].explanation);
        }
        lines_[i].title->setVisible(isUsed);
        lines_[i].sentence->setVisible(isUsed && !reasons[i].explanation.isEmpty());
    }
}

}  // namespace morva
