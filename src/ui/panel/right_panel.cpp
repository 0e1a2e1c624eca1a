// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/right_panel.h"

#include <QHBoxLayout>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

#include "app/app_state.h"
#include "ui/panel/photo_page.h"
#include "ui/panel/preset_page.h"
#include "ui/panel/seam.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/typography.h"

namespace morva {

namespace {

constexpr int leastWidth = 288;
constexpr int usualWidth = 336;
constexpr int mostWidth = 420;

}  // namespace

RightPanel::RightPanel(AppState& state, QWidget* parent)
    : QWidget(parent),
      state_(state),
      tabs_(new QTabBar),
      pages_(new QStackedWidget),
      preset_(new PresetPage(state)),
      photo_(new PhotoPage(state)) {
    setMinimumWidth(leastWidth);
    setMaximumWidth(scaled(mostWidth));
    tabs_->setDrawBase(false);
    tabs_->setExpanding(false);
    tabs_->addTab(tr("Preset"));
    tabs_->addTab(tr("Photo"));
    tabs_->setAccessibleName(tr("Pages of the panel"));
    auto* line = new QHBoxLayout;
    line->setContentsMargins(Metrics::labelGap, 0, 0, 0);
    line->addWidget(tabs_);
    line->addStretch(1);
    pages_->addWidget(preset_);
    pages_->addWidget(photo_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(line);
    column->addWidget(new Seam);
    column->addWidget(pages_, 1);
    connect(tabs_, &QTabBar::currentChanged, this,
            [this](int tab) { state_.setRightTab(static_cast<RightTab>(tab)); });
    connect(&state_, &AppState::rightTabChanged, this, &RightPanel::showTab);
    connect(preset_, &PresetPage::rulesWanted, this, &RightPanel::rulesWanted);
    connect(preset_, &PresetPage::backdropsWanted, this, &RightPanel::backdropsWanted);
    connect(preset_, &PresetPage::posesWanted, this, &RightPanel::posesWanted);
    showTab();
}

QSize RightPanel::sizeHint() const { return {scaled(usualWidth), QWidget::sizeHint().height()}; }

void RightPanel::showTab() {
    const int tab = static_cast<int>(state_.rightTab());
    tabs_->setCurrentIndex(tab);
    pages_->setCurrentIndex(tab);
}

void RightPanel::revealExportSettings() {
    state_.setRightTab(RightTab::preset);
    preset_->revealExportSettings();
}

}  // namespace morva
