// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/choice_box.h"

#include <algorithm>

#include <QAbstractItemView>
#include <QStyleOptionComboBox>
#include <QStylePainter>

#include "ui/widgets/calm_wheel.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"

namespace morva {

namespace {

/// What the frame and the arrow of a combo box take from its width.
constexpr int frameWidth = 8 + 12 + 12;
constexpr int iconGap = 8;

}  // namespace

ChoiceBox::ChoiceBox(const QString& accessibleName, QWidget* parent) : QComboBox(parent) {
    setAccessibleName(accessibleName);
    setIconSize({scaled(48), scaled(16)});
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(8);
    calmWheel(*this);
    connect(this, &QComboBox::currentIndexChanged, this, [this] { updateGeometry(); });
}

int ChoiceBox::textWidth(int width, const QIcon& icon) const {
    const int image = icon.isNull() ? 0 : icon.actualSize(iconSize()).width() + iconGap;
    return std::max(1, width - frameWidth - image);
}

int ChoiceBox::linesHeight(const QString& text, int width) const {
    const int oneLine = scaled(Metrics::fieldHeight);
    const int text_ =
        fontMetrics().boundingRect(QRect(0, 0, width, 1 << 16), Qt::TextWordWrap, text).height();
    return std::max(oneLine, text_ + 10);
}

int ChoiceBox::heightForWidth(int width) const {
    const int shown = currentIndex();
    return shown < 0 ? linesHeight(placeholderText(), textWidth(width, {}))
                     : linesHeight(itemText(shown), textWidth(width, itemIcon(shown)));
}

QSize ChoiceBox::sizeHint() const {
    int width = scaled(120);
    for (int i = 0; i < count(); ++i)
        width = std::max(width, fontMetrics().horizontalAdvance(itemText(i)) + frameWidth +
                                    (width - textWidth(width, itemIcon(i)) - frameWidth));
    return {width, scaled(Metrics::fieldHeight)};
}

QSize ChoiceBox::minimumSizeHint() const { return {scaled(96), scaled(Metrics::fieldHeight)}; }

void ChoiceBox::showPopup() {
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + 2 * Metrics::gap);
    QComboBox::showPopup();
}

void ChoiceBox::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    QRect room = style()->visualRect(
        layoutDirection(), rect(),
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this));
    const auto placed = [&](const QRect& logical) {
        return QStyle::visualRect(layoutDirection(), rect(), logical);
    };
    const QIcon image = currentIndex() < 0 ? QIcon() : itemIcon(currentIndex());
    if (!image.isNull()) {
        const QSize size = image.actualSize(iconSize());
        image.paint(
            &painter,
            placed(QRect(room.x(), (height() - size.height()) / 2, size.width(), size.height())),
            Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
        room.setLeft(room.left() + size.width() + iconGap);
    }
    painter.setPen(isEnabled() ? Theme::current().text : Theme::current().off);
    painter.drawText(placed(room),
                     static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)) |
                         Qt::AlignVCenter | Qt::TextWordWrap,
                     currentIndex() < 0 ? placeholderText() : currentText());
}

}  // namespace morva
