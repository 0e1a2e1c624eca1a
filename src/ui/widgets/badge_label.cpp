// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/badge_label.h"

#include "ui/widgets/badge.h"

namespace morva {

BadgeLabel::BadgeLabel(const CropPreset& preset, QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setPreset(preset);
}

void BadgeLabel::setPreset(const CropPreset& preset) {
    preset_ = preset;
    // Shown without a parent it would be a window.
    if (preset_.badge.empty())
        hide();
    else if (parentWidget())
        show();
    updateGeometry();
    update();
}

QSize BadgeLabel::sizeHint() const { return badgeSize(preset_); }

void BadgeLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawBadge(painter, preset_, {0, 0});
}

}  // namespace morva
