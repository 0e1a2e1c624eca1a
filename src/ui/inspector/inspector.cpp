// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/inspector.h"

#include <QPainter>
#include <QVBoxLayout>

#include "app/app_state.h"
#include "ui/grid/filmstrip.h"
#include "ui/inspector/inspector_bar.h"
#include "ui/inspector/photo_canvas.h"
#include "ui/inspector/photo_words.h"
#include "ui/widgets/theme.h"

namespace morva {

Inspector::Inspector(AppState& state, QWidget* parent)
    : QWidget(parent), state_(state), bar_(new InspectorBar), canvas_(new PhotoCanvas(state)) {
    auto* regions = new QVBoxLayout(this);
    regions->setContentsMargins(0, 0, 0, 0);
    regions->setSpacing(1);  // the seams
    regions->addWidget(bar_);
    regions->addWidget(canvas_, 1);
    regions->addWidget(new Filmstrip(state));
    setFocusProxy(canvas_);

    connect(bar_, &InspectorBar::backWanted, this, [this] { state_.setMode(ViewMode::grid); });
    connect(bar_, &InspectorBar::guidesWanted, &state_, &AppState::setShowOverlay);
    connect(bar_, &InspectorBar::resultWanted, this, &Inspector::setShowsResult);
    connect(bar_, &InspectorBar::fitWanted, canvas_, &PhotoCanvas::zoomToFit);
    connect(bar_, &InspectorBar::zoomInWanted, canvas_, &PhotoCanvas::zoomIn);
    connect(bar_, &InspectorBar::zoomOutWanted, canvas_, &PhotoCanvas::zoomOut);
    connect(canvas_, &PhotoCanvas::contextMenuWanted, this, &Inspector::contextMenuWanted);
    connect(canvas_, &PhotoCanvas::zoomChanged, this, &Inspector::tellBar);
    connect(&state_, &AppState::overlayChanged, this, &Inspector::tellBar);
    connect(&state_, &AppState::selectionChanged, this, &Inspector::tellBar);
    connect(&state_, &AppState::filterChanged, this, &Inspector::tellBar);
    connect(&state_, &AppState::itemsChanged, this, &Inspector::tellBar);
    connect(&state_, &AppState::itemsReset, this, &Inspector::tellBar);
    connect(&state_, &AppState::selectedJobChanged, this, &Inspector::tellBar);
    tellBar();
}

void Inspector::tellBar() {
    if (!isVisible()) return;
    bar_->setPosition(positionText(state_));
    bar_->setGuides(state_.showOverlay());
    bar_->setShowsResult(canvas_->showsResult());
    bar_->setHasPhoto(state_.selectedItemID().has_value());
    bar_->setZoom(canvas_->isFitted(), canvas_->zoomShare());
}

void Inspector::zoomToFit() { canvas_->zoomToFit(); }

void Inspector::zoomIn() { canvas_->zoomIn(); }

void Inspector::zoomOut() { canvas_->zoomOut(); }

void Inspector::setShowsResult(bool shows) {
    if (canvas_->showsResult() == shows) return;
    canvas_->setShowsResult(shows);
    tellBar();
    emit showsResultChanged();
}

bool Inspector::showsResult() const { return canvas_->showsResult(); }

void Inspector::paintEvent(QPaintEvent*) { QPainter(this).fillRect(rect(), Theme::current().seam); }

}  // namespace morva
