// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/color_button.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QRegularExpressionValidator>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <QVBoxLayout>
#include <QWidgetAction>

#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"

namespace morva {

namespace {

constexpr int swatchSide = 16;
constexpr int arrowSide = 12;
constexpr int columns = 6;

QColor shown(const Rgb& color) {
    return QColor::fromRgbF(static_cast<float>(color[0]), static_cast<float>(color[1]),
                            static_cast<float>(color[2]));
}

QIcon swatchIcon(const QColor& color) {
    QPixmap pixmap(2 * swatchSide, 2 * swatchSide);
    pixmap.setDevicePixelRatio(2);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawBox(painter, QRectF(0, 0, swatchSide, swatchSide), color, QColor(), 3);
    return QIcon(pixmap);
}

}  // namespace

ColorButton::ColorButton(const QString& accessibleName, std::span<const Swatch> swatches,
                         QWidget* parent)
    : QToolButton(parent), hex_(new QLineEdit) {
    setAccessibleName(accessibleName);
    setPopupMode(QToolButton::InstantPopup);
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(12, 8, 12, 8);
    auto* grid = new QGridLayout;
    grid->setSpacing(4);
    int place = 0;
    for (const Swatch& swatch : swatches) {
        auto* button = new QToolButton;
        button->setIcon(swatchIcon(QColor(swatch.color)));
        button->setToolTip(tr(swatch.name));
        button->setAccessibleName(tr(swatch.name));
        setLook(*button, ButtonLook::quiet);
        connect(button, &QToolButton::clicked, this,
                [this, swatch] { pick(QColor(swatch.color)); });
        grid->addWidget(button, place / columns, place % columns);
        ++place;
    }
    column->addLayout(grid);
    hex_->setAccessibleName(tr("Color as a hexadecimal number"));
    hex_->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("#[0-9A-Fa-f]{6}")), hex_));
    connect(hex_, &QLineEdit::returnPressed, this, [this] { pick(QColor(hex_->text())); });
    column->addWidget(hex_);
    auto* menu = new QMenu(this);
    auto* action = new QWidgetAction(menu);
    action->setDefaultWidget(content);
    menu->addAction(action);
    setMenu(menu);
}

void ColorButton::setColor(const Rgb& color) {
    color_ = color;
    const QString name = shown(color).name().toUpper();
    if (!hex_->hasFocus()) hex_->setText(name);
    setAccessibleDescription(name);
    update();
}

void ColorButton::pick(const QColor& color) {
    menu()->close();
    emit picked({color.redF(), color.greenF(), color.blueF()});
}

QSize ColorButton::sizeHint() const {
    return {8 + swatchSide + 8 + arrowSide + 8, scaled(Metrics::fieldHeight)};
}

void ColorButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    painter.drawPrimitive(QStyle::PE_PanelButtonTool, option);
    const auto placed = [&](int x, int side) {
        return QStyle::visualRect(layoutDirection(), rect(),
                                  QRect(x, (height() - side) / 2, side, side));
    };
    const Theme& theme = Theme::current();
    drawBox(painter, placed(8, swatchSide), isEnabled() ? shown(color_) : theme.groove, theme.edge,
            3);
    painter.drawPixmap(placed(8 + swatchSide + 8, arrowSide).topLeft(),
                       iconPixmap(QStringLiteral("down"), isEnabled() ? theme.text2 : theme.off,
                                  arrowSide, devicePixelRatioF()));
}

}  // namespace morva
