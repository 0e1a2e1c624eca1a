// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/preset_box.h"

#include <algorithm>

#include <QPainter>

#include "ui/widgets/badge.h"
#include "ui/widgets/calm_wheel.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

/// Badges are painted for the finest screens and scaled down for others.
constexpr qreal badgeScale = 2;
constexpr int badgeHeight = 18;
constexpr int badgeGap = 4;

/// At the leading side of a column of badges, so that the names beside them begin in one line.
QIcon inColumn(const QPixmap& badge, int width, Qt::LayoutDirection direction) {
    if (badge.isNull()) return {};
    const QSizeF size = badge.deviceIndependentSize();
    QPixmap column(QSize(width, badgeHeight) * badgeScale);
    column.setDevicePixelRatio(badgeScale);
    column.fill(Qt::transparent);
    const double left = direction == Qt::RightToLeft ? width - size.width() : 0;
    QPainter(&column).drawPixmap(QPointF(left, (badgeHeight - size.height()) / 2), badge);
    return column;
}

}  // namespace

PresetBox::PresetBox(std::span<const CropPreset> presets, QWidget* parent) : QComboBox(parent) {
    setAccessibleName(tr("Crop type"));
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    calmWheel(*this);
    setPlaceholderText(tr("The crop type is gone"));
    int widest = badgeHeight;
    for (const CropPreset& preset : presets) widest = std::max(widest, badgeSize(preset).width());
    widest += badgeGap;
    for (const CropPreset& preset : presets) {
        addItem(inColumn(badgePixmap(preset, badgeScale), widest, layoutDirection()),
                asGiven(preset.name));
        presets_.push_back(preset.id);
    }
    setIconSize({widest, badgeHeight});
    connect(this, &QComboBox::activated, this,
            [this](int place) { emit chosen(presets_[static_cast<std::size_t>(place)]); });
}

void PresetBox::setPreset(const Uuid& preset) {
    const auto at = std::ranges::find(presets_, preset);
    setCurrentIndex(at == presets_.end() ? -1 : static_cast<int>(at - presets_.begin()));
}

}  // namespace morva
