// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/morva_style.h"

#include <algorithm>
#include <cmath>

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>

#include "ui/widgets/icons.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"

namespace morva {

namespace {

constexpr const char* lookProperty = "morvaLook";
constexpr const char* faultyProperty = "morvaFaulty";

constexpr int checkSide = 16;
constexpr int grooveHeight = 4;
constexpr int thumbSide = 16;
constexpr int scrollBarWidth = 12;
constexpr int arrowSide = 12;
constexpr int spinButtonWidth = 20;

bool has(const QStyleOption* option, QStyle::StateFlag flag) { return option->state & flag; }

bool showsFocus(const QStyleOption* option) {
    return has(option, QStyle::State_HasFocus) && has(option, QStyle::State_KeyboardFocusChange);
}

void drawFocusRing(QPainter& painter, const QRectF& around, qreal radius) {
    const Theme& theme = Theme::current();
    drawBox(painter, around, QColor(), theme.accentBright, radius, theme.ring);
}

void drawIcon(QPainter& painter, const QString& name, const QColor& color, const QRect& rect,
              int side) {
    const qreal scale = painter.device()->devicePixelRatioF();
    painter.drawPixmap(rect.center().x() - side / 2 + 1, rect.center().y() - side / 2 + 1,
                       iconPixmap(name, color, side, scale));
}

QColor buttonFill(const QStyleOption* option, ButtonLook look) {
    const Theme& theme = Theme::current();
    const bool enabled = has(option, QStyle::State_Enabled);
    const bool over = has(option, QStyle::State_MouseOver);
    const bool down = has(option, QStyle::State_Sunken);
    if (look == ButtonLook::primary) {
        if (!enabled) return theme.groove;
        return down ? theme.accent.darker(115) : over ? theme.accentBright : theme.accent;
    }
    if (has(option, QStyle::State_On)) return theme.on;
    if (!enabled) return look == ButtonLook::quiet ? QColor() : theme.disabledFill;
    if (down) return theme.pressed;
    if (over) return theme.hover;
    return look == ButtonLook::quiet ? QColor() : theme.raised;
}

/// The panel of a push or tool button, with its ring. The ring lies outside of the fill, so the
/// fill is drawn a little smaller where a ring may come.
void drawButtonPanel(QPainter& painter, const QStyleOption* option, ButtonLook look) {
    const Theme& theme = Theme::current();
    const QRectF rect = option->rect;
    const bool outlined = theme.raised == theme.panel && look != ButtonLook::quiet;
    drawBox(painter, rect, buttonFill(option, look), outlined ? theme.edge : QColor(),
            Metrics::controlRadius);
    if (showsFocus(option)) drawFocusRing(painter, rect, Metrics::controlRadius);
}

void drawField(QPainter& painter, const QStyleOption* option, const QWidget* widget) {
    const Theme& theme = Theme::current();
    const bool enabled = has(option, QStyle::State_Enabled);
    const bool focused = has(option, QStyle::State_HasFocus);
    const QColor outline = isFaulty(widget) ? theme.failed
                           : !enabled       ? theme.line
                           : focused        ? theme.accentBright
                                            : theme.edge;
    drawBox(painter, option->rect, theme.field, outline, Metrics::controlRadius,
            focused || isFaulty(widget) ? theme.ring : 1);
}

void drawCheckBox(QPainter& painter, const QStyleOption* option) {
    const Theme& theme = Theme::current();
    const bool enabled = has(option, QStyle::State_Enabled);
    const bool checked = has(option, QStyle::State_On) || has(option, QStyle::State_NoChange);
    const QRect box = QStyle::alignedRect(option->direction, Qt::AlignCenter,
                                          QSize(checkSide, checkSide), option->rect);
    const QColor fill = !checked ? QColor() : enabled ? theme.accent : theme.groove;
    drawBox(painter, box, fill, checked ? fill : enabled ? theme.checkEdge : theme.off, 3);
    if (!checked) return;
    const QColor ink = enabled ? theme.onAccent : theme.off;
    drawIcon(painter, has(option, QStyle::State_On) ? "check" : "minus", ink, box, 12);
}

void drawRadioButton(QPainter& painter, const QStyleOption* option) {
    const Theme& theme = Theme::current();
    const bool enabled = has(option, QStyle::State_Enabled);
    const bool checked = has(option, QStyle::State_On);
    const QRect box = QStyle::alignedRect(option->direction, Qt::AlignCenter,
                                          QSize(checkSide, checkSide), option->rect);
    const QColor fill = !checked ? QColor() : enabled ? theme.accent : theme.groove;
    drawBox(painter, box, fill,
            checked   ? fill
            : enabled ? theme.checkEdge
                      : theme.off,
            checkSide / 2.0);
    if (checked)
        drawBox(painter, QRectF(box).adjusted(5, 5, -5, -5), enabled ? theme.onAccent : theme.off,
                QColor(), 3);
}

void drawSlider(QPainter& painter, const QStyleOptionSlider& option, const QRect& handle) {
    const Theme& theme = Theme::current();
    const bool enabled = has(&option, QStyle::State_Enabled);
    const bool inUse = enabled && (has(&option, QStyle::State_HasFocus) ||
                                   (option.activeSubControls & QStyle::SC_SliderHandle &&
                                    has(&option, QStyle::State_Sunken)));
    const QRect rect = option.rect;
    const int y = rect.center().y() - grooveHeight / 2 + 1;
    // From edge to edge, so that it lines up with what stands above and below it.
    const QRect track(rect.x(), y, rect.width(), grooveHeight);
    drawBox(painter, track, theme.groove, QColor(), grooveHeight / 2.0);
    const int thumb = handle.center().x();
    const QRect filled = option.upsideDown
                             ? QRect(QPoint(thumb, y), QPoint(track.right(), y + grooveHeight - 1))
                             : QRect(QPoint(track.x(), y), QPoint(thumb, y + grooveHeight - 1));
    drawBox(painter, filled,
            !enabled ? theme.off
            : inUse  ? theme.accent
                     : theme.sliderFill,
            QColor(), grooveHeight / 2.0);
    const QRectF knob =
        QStyle::alignedRect(option.direction, Qt::AlignCenter, QSize(thumbSide, thumbSide), handle);
    drawBox(painter, knob,
            !enabled ? theme.off
            : inUse  ? theme.text
                     : theme.sliderThumb,
            QColor(), thumbSide / 2.0);
    if (inUse) drawFocusRing(painter, knob.adjusted(-2, -2, 2, 2), thumbSide / 2.0 + 2);
}

void drawScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QRect& slider) {
    const Theme& theme = Theme::current();
    if (!(option.maximum > option.minimum)) return;
    const bool inUse = has(&option, QStyle::State_MouseOver) || has(&option, QStyle::State_Sunken);
    const int margin = 3;
    drawBox(painter, QRectF(slider).adjusted(margin, margin, -margin, -margin),
            inUse ? theme.edge : theme.on, QColor(), 3);
}

void drawComboBox(QPainter& painter, const QStyleOptionComboBox& option, const QWidget* widget) {
    const Theme& theme = Theme::current();
    const bool enabled = has(&option, QStyle::State_Enabled);
    if (option.editable) {
        drawField(painter, &option, widget);
    } else {
        const bool focused = showsFocus(&option);
        const QColor fill = !enabled                                ? theme.disabledFill
                            : has(&option, QStyle::State_MouseOver) ? theme.hover
                                                                    : theme.raised;
        drawBox(painter, option.rect, fill, focused ? theme.accentBright : theme.comboEdge,
                Metrics::controlRadius, focused ? theme.ring : 1);
    }
    const int left = option.direction == Qt::RightToLeft ? option.rect.x() + 8
                                                         : option.rect.right() - 8 - arrowSide;
    drawIcon(painter, "down", enabled ? theme.text2 : theme.off,
             QRect(left, option.rect.y(), arrowSide, option.rect.height()), arrowSide);
}

/// Icon and text in the middle, 8 pixels between them; either may be missing.
void drawIconAndText(QPainter& painter, const QStyleOption& option, const QIcon& icon,
                     const QSize& image, const QString& text, const QColor& ink) {
    const int gap = !icon.isNull() && !text.isEmpty() ? Metrics::gap : 0;
    const int textWidth =
        text.isEmpty() ? 0 : option.fontMetrics.size(Qt::TextShowMnemonic, text).width();
    const int width = (icon.isNull() ? 0 : image.width()) + gap + textWidth;
    const QRect rect = option.rect;
    const int x = rect.x() + (rect.width() - width) / 2;
    if (!icon.isNull())
        icon.paint(&painter,
                   QStyle::visualRect(option.direction, rect,
                                      QRect(x, rect.y() + (rect.height() - image.height()) / 2,
                                            image.width(), image.height())),
                   Qt::AlignCenter,
                   has(&option, QStyle::State_Enabled) ? QIcon::Normal : QIcon::Disabled);
    if (text.isEmpty()) return;
    painter.setPen(ink);
    painter.drawText(
        QStyle::visualRect(option.direction, rect,
                           QRect(x + width - textWidth, rect.y(), textWidth + 1, rect.height())),
        Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic, text);
}

void drawToolLabel(QPainter& painter, const QStyleOptionToolButton& option) {
    const Theme& theme = Theme::current();
    const auto shows = option.toolButtonStyle;
    painter.setFont(option.font);
    drawIconAndText(painter, option, shows == Qt::ToolButtonTextOnly ? QIcon() : option.icon,
                    option.iconSize, shows == Qt::ToolButtonIconOnly ? QString() : option.text,
                    has(&option, QStyle::State_Enabled) ? theme.text : theme.off);
}

bool hasIconAndText(const QStyleOptionButton& option) {
    return !option.icon.isNull() && !option.text.isEmpty();
}

void drawTab(QPainter& painter, const QStyleOptionTab& option) {
    const Theme& theme = Theme::current();
    const bool chosen = has(&option, QStyle::State_Selected);
    painter.setFont(fontFor(TextRole::emphasis));
    painter.setPen(chosen || has(&option, QStyle::State_MouseOver) ? theme.text : theme.text2);
    painter.drawText(option.rect, Qt::AlignCenter | Qt::TextShowMnemonic, option.text);
    if (chosen) {
        const int width = QFontMetrics(painter.font()).horizontalAdvance(option.text);
        painter.fillRect(option.rect.center().x() - width / 2, option.rect.bottom() - 1, width + 1,
                         2, theme.accent);
    }
    if (showsFocus(&option))
        drawFocusRing(painter, QRectF(option.rect).adjusted(2, 4, -2, -4), Metrics::controlRadius);
}

void drawMenuItem(QPainter& painter, const QStyleOptionMenuItem& option) {
    const Theme& theme = Theme::current();
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        painter.fillRect(option.rect.x() + 8, option.rect.center().y(), option.rect.width() - 16, 1,
                         theme.line);
        return;
    }
    const bool enabled = has(&option, QStyle::State_Enabled);
    if (has(&option, QStyle::State_Selected) && enabled)
        drawBox(painter, QRectF(option.rect).adjusted(4, 0, -4, 0), theme.on, QColor(),
                Metrics::controlRadius);
    const bool mirrored = option.direction == Qt::RightToLeft;
    const QRect left =
        QStyle::visualRect(option.direction, option.rect,
                           QRect(option.rect.x() + 12, option.rect.y(), 16, option.rect.height()));
    const QColor ink = enabled ? theme.text : theme.off;
    if (option.checkType != QStyleOptionMenuItem::NotCheckable) {
        if (option.checked) drawIcon(painter, "check", ink, left, 16);
    } else if (!option.icon.isNull()) {
        option.icon.paint(&painter, left, Qt::AlignCenter,
                          enabled ? QIcon::Normal : QIcon::Disabled);
    }
    const QRect text =
        QStyle::visualRect(option.direction, option.rect, option.rect.adjusted(36, 0, -16, 0));
    const auto parts = option.text.split(QLatin1Char('\t'));
    const int side = mirrored ? Qt::AlignRight : Qt::AlignLeft;
    const int other = mirrored ? Qt::AlignLeft : Qt::AlignRight;
    painter.setFont(option.font);
    painter.setPen(ink);
    painter.drawText(text, side | Qt::AlignVCenter | Qt::TextShowMnemonic, parts.value(0));
    painter.setPen(enabled ? theme.text3 : theme.off);
    if (option.menuItemType == QStyleOptionMenuItem::SubMenu)
        drawIcon(painter, "right", ink,
                 QStyle::visualRect(
                     option.direction, option.rect,
                     QRect(option.rect.right() - 24, option.rect.y(), 12, option.rect.height())),
                 12);
    else if (parts.size() > 1)
        painter.drawText(text, other | Qt::AlignVCenter, parts.value(1));
}

}  // namespace

void setLook(QWidget& button, ButtonLook look) {
    button.setProperty(lookProperty, static_cast<int>(look));
    if (look == ButtonLook::primary) {
        QPalette palette = button.palette();
        palette.setColor(QPalette::Active, QPalette::ButtonText, Theme::current().onAccent);
        palette.setColor(QPalette::Inactive, QPalette::ButtonText, Theme::current().onAccent);
        button.setPalette(palette);
    }
    button.update();
}

ButtonLook lookOf(const QWidget* button) {
    return button ? static_cast<ButtonLook>(button->property(lookProperty).toInt())
                  : ButtonLook::raised;
}

void setFaulty(QWidget& field, bool faulty) {
    field.setProperty(faultyProperty, faulty);
    field.update();
}

bool isFaulty(const QWidget* field) { return field && field->property(faultyProperty).toBool(); }

void drawBox(QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& outline,
             qreal radius, qreal lineWidth) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QRectF inner = rect;
    if (outline.isValid()) {
        inner.adjust(lineWidth / 2, lineWidth / 2, -lineWidth / 2, -lineWidth / 2);
        painter.setPen(QPen(outline, lineWidth));
    } else {
        painter.setPen(Qt::NoPen);
    }
    painter.setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(inner, radius, radius);
    painter.restore();
}

MorvaStyle::MorvaStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void MorvaStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QPushButton*>(widget) || qobject_cast<QToolButton*>(widget))
        widget->setFont(fontFor(TextRole::emphasis));
    if (qobject_cast<QPushButton*>(widget) || qobject_cast<QToolButton*>(widget) ||
        qobject_cast<QComboBox*>(widget) || qobject_cast<QTabBar*>(widget) ||
        qobject_cast<QScrollBar*>(widget))
        widget->setAttribute(Qt::WA_Hover);
}

void MorvaStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    const Theme& theme = Theme::current();
    switch (element) {
        case PE_PanelButtonCommand:
        case PE_PanelButtonTool:
            drawButtonPanel(*painter, option, lookOf(widget));
            return;
        case PE_FrameDefaultButton:
            return;
        case PE_FrameFocusRect:
            return;  // rings are drawn with the control
        case PE_PanelLineEdit:
            // A field inside a spin or combo box leaves the frame to that.
            if (widget && (qobject_cast<QAbstractSpinBox*>(widget->parentWidget()) ||
                           qobject_cast<QComboBox*>(widget->parentWidget())))
                return;
            drawField(*painter, option, widget);
            return;
        case PE_FrameLineEdit:
            return;
        case PE_IndicatorCheckBox:
        case PE_IndicatorItemViewItemCheck:
            drawCheckBox(*painter, option);
            return;
        case PE_IndicatorRadioButton:
            drawRadioButton(*painter, option);
            return;
        case PE_PanelMenu:
        case PE_FrameMenu:
            painter->fillRect(option->rect, theme.raised);
            drawBox(*painter, option->rect, QColor(), theme.sheetEdge, 0);
            return;
        case PE_PanelTipLabel:
            painter->fillRect(option->rect, Qt::black);
            drawBox(*painter, option->rect, QColor(), theme.sheetEdge, 0);
            return;
        case PE_FrameTabBarBase:
        case PE_PanelToolBar:
        case PE_FrameStatusBarItem:
        case PE_PanelStatusBar:
        case PE_PanelMenuBar:
            return;
        default:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void MorvaStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    const Theme& theme = Theme::current();
    switch (element) {
        case CE_CheckBox:
        case CE_RadioButton:
            QProxyStyle::drawControl(element, option, painter, widget);
            if (showsFocus(option))
                drawFocusRing(*painter, QRectF(option->rect), Metrics::controlRadius);
            return;
        case CE_TabBarTab:
            if (const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option))
                drawTab(*painter, *tab);
            return;
        case CE_PushButtonLabel:
            if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
                button && hasIconAndText(*button))
                drawIconAndText(*painter, *option, button->icon, button->iconSize, button->text,
                                option->palette.color(QPalette::ButtonText));
            else
                QProxyStyle::drawControl(element, option, painter, widget);
            return;
        case CE_ToolButtonLabel:
            if (const auto* tool = qstyleoption_cast<const QStyleOptionToolButton*>(option))
                drawToolLabel(*painter, *tool);
            return;
        case CE_MenuItem:
            if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option))
                drawMenuItem(*painter, *item);
            return;
        case CE_MenuBarEmptyArea:
            painter->fillRect(option->rect, theme.bar);
            return;
        case CE_MenuBarItem:
            if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
                painter->fillRect(option->rect, theme.bar);
                if (has(option, State_Selected) && has(option, State_Enabled))
                    drawBox(*painter, QRectF(option->rect).adjusted(1, 2, -1, -2), theme.on,
                            QColor(), Metrics::controlRadius);
                painter->setPen(has(option, State_Enabled) ? theme.text : theme.off);
                painter->drawText(option->rect, Qt::AlignCenter | Qt::TextShowMnemonic, item->text);
            }
            return;
        case CE_ToolBar:
            painter->fillRect(option->rect, theme.bar);
            return;
        case CE_Splitter:
            painter->fillRect(option->rect, theme.seam);
            return;
        case CE_ProgressBarGroove:
            drawBox(*painter, option->rect, theme.groove, QColor(), option->rect.height() / 2.0);
            return;
        case CE_ProgressBarContents:
            if (const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option)) {
                const double share = bar->maximum > bar->minimum
                                         ? static_cast<double>(bar->progress - bar->minimum) /
                                               (bar->maximum - bar->minimum)
                                         : 0;
                QRect done = option->rect;
                done.setWidth(static_cast<int>(std::lround(done.width() * share)));
                if (done.width() < 1) return;
                drawBox(*painter, visualRect(option->direction, option->rect, done), theme.accent,
                        QColor(), std::min(done.width(), done.height()) / 2.0);
            }
            return;
        default:
            QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void MorvaStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    const Theme& theme = Theme::current();
    switch (control) {
        case CC_Slider:
            if (const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
                slider && slider->orientation == Qt::Horizontal) {
                drawSlider(*painter, *slider,
                           subControlRect(control, option, SC_SliderHandle, widget));
                return;
            }
            break;
        case CC_ScrollBar:
            if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option)) {
                drawScrollBar(*painter, *bar,
                              subControlRect(control, option, SC_ScrollBarSlider, widget));
                return;
            }
            break;
        case CC_ComboBox:
            if (const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option)) {
                drawComboBox(*painter, *box, widget);
                return;
            }
            break;
        case CC_SpinBox:
            if (const auto* box = qstyleoption_cast<const QStyleOptionSpinBox*>(option)) {
                drawField(*painter, option, widget);
                if (box->buttonSymbols == QAbstractSpinBox::NoButtons) return;
                const bool enabled = has(option, State_Enabled);
                for (const auto& [part, flag] :
                     {std::pair{SC_SpinBoxUp, QAbstractSpinBox::StepUpEnabled},
                      std::pair{SC_SpinBoxDown, QAbstractSpinBox::StepDownEnabled}}) {
                    const QRect rect = subControlRect(control, option, part, widget);
                    const bool possible = enabled && (box->stepEnabled & flag);
                    painter->save();
                    painter->translate(rect.center() + QPointF(0.5, 0.5));
                    if (part == SC_SpinBoxUp) painter->scale(1, -1);
                    painter->drawPixmap(
                        -5, -5,
                        iconPixmap(QStringLiteral("down"), possible ? theme.text2 : theme.off, 10,
                                   painter->device()->devicePixelRatioF()));
                    painter->restore();
                }
                return;
            }
            break;
        case CC_ToolButton:
            if (const auto* tool = qstyleoption_cast<const QStyleOptionToolButton*>(option)) {
                drawButtonPanel(*painter, option, lookOf(widget));
                QStyleOptionToolButton label = *tool;
                label.state &= ~(State_Sunken | State_On);  // the label does not move
                proxy()->drawControl(CE_ToolButtonLabel, &label, painter, widget);
                return;
            }
            break;
        default:
            break;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

int MorvaStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
    switch (metric) {
        case PM_SmallIconSize:
        case PM_ButtonIconSize:
        case PM_ToolBarIconSize:
            return 16;
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
            return checkSide;
        case PM_CheckBoxLabelSpacing:
        case PM_RadioButtonLabelSpacing:
            return 8;
        case PM_ScrollBarExtent:
            return scrollBarWidth;
        case PM_ScrollBarSliderMin:
            return 32;
        case PM_SliderThickness:
        case PM_SliderControlThickness:
        case PM_SliderLength:
            return thumbSide + 4;
        case PM_SplitterWidth:
            return 1;
        case PM_ButtonShiftHorizontal:
        case PM_ButtonShiftVertical:
        case PM_ButtonDefaultIndicator:
        case PM_ToolBarFrameWidth:
        case PM_ToolBarItemMargin:
            return 0;
        case PM_ToolBarItemSpacing:
            return Metrics::gap;
        case PM_MenuPanelWidth:
            return 1;
        case PM_MenuVMargin:
            return 4;
        case PM_MenuBarPanelWidth:
        case PM_MenuBarVMargin:
            return 0;
        case PM_MenuBarHMargin:
            return 8;
        case PM_TabBarTabHSpace:
            return 24;
        case PM_TabBarBaseHeight:
        case PM_TabBarBaseOverlap:
            return 0;
        case PM_ToolTipLabelFrameWidth:
            return 8;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int MorvaStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const {
    switch (hint) {
        case SH_EtchDisabledText:
        case SH_DitherDisabledText:
            return 0;
        case SH_Slider_AbsoluteSetButtons:
            return Qt::LeftButton;
        case SH_ComboBox_Popup:
            return 0;
        case SH_ToolTip_WakeUpDelay:
            return 500;
        case SH_UnderlineShortcut:
            return 1;
        case SH_Widget_Animation_Duration:
            return 0;
        default:
            return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

QSize MorvaStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const {
    switch (type) {
        case CT_PushButton: {
            const bool isSmall = widget && widget->property("morvaSmall").toBool();
            const auto& button = *static_cast<const QStyleOptionButton*>(option);
            // Where there are both, half of the gap between them is counted already.
            const int gap = hasIconAndText(button) ? Metrics::gap / 2 : 0;
            const int sides = isSmall || button.text.isEmpty() ? 16 : 24;
            return {size.width() + gap + sides,
                    scaled(isSmall ? Metrics::smallButtonHeight : Metrics::buttonHeight)};
        }
        case CT_ToolButton: {
            const QSize base = QProxyStyle::sizeFromContents(type, option, size, widget);
            const int side = scaled(Metrics::buttonHeight);
            const auto* tool = qstyleoption_cast<const QStyleOptionToolButton*>(option);
            const bool hasText = tool && tool->toolButtonStyle != Qt::ToolButtonIconOnly;
            return {std::max(side, size.width() + (hasText ? 24 : 8)),
                    std::max(side, hasText ? side : base.height())};
        }
        case CT_SpinBox:
            // The text has a margin of 8 at either side, as in a field, and the frame one of 2.
            return {size.width() + spinButtonWidth + 2 * 8 + 2 * 2, scaled(Metrics::fieldHeight)};
        case CT_LineEdit: {
            QSize base = QProxyStyle::sizeFromContents(type, option, size, widget);
            return {base.width() + 8, scaled(Metrics::fieldHeight)};
        }
        case CT_ComboBox:
            return {size.width() + 16 + arrowSide + 12, scaled(Metrics::fieldHeight)};
        case CT_MenuBarItem:
            return {size.width() + 16, scaled(28)};
        case CT_MenuItem: {
            const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
            if (item && item->menuItemType == QStyleOptionMenuItem::Separator)
                return {size.width(), 9};
            return {size.width() + 72, scaled(28)};
        }
        case CT_TabBarTab:
            return {size.width(), scaled(Metrics::barHeight)};
        default:
            return QProxyStyle::sizeFromContents(type, option, size, widget);
    }
}

QRect MorvaStyle::subElementRect(SubElement element, const QStyleOption* option,
                                 const QWidget* widget) const {
    switch (element) {
        case SE_LineEditContents:
            return option->rect.adjusted(8, 1, -8, -1);
        case SE_ProgressBarGroove:
        case SE_ProgressBarContents:
            return option->rect;
        default:
            return QProxyStyle::subElementRect(element, option, widget);
    }
}

QRect MorvaStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                 SubControl part, const QWidget* widget) const {
    const QRect rect = option->rect;
    const auto placed = [&](const QRect& logical) {
        return visualRect(option->direction, rect, logical);
    };
    if (control == CC_SpinBox) {
        const auto* box = static_cast<const QStyleOptionSpinBox*>(option);
        const bool hasButtons = box->buttonSymbols != QAbstractSpinBox::NoButtons;
        const int buttons = hasButtons ? spinButtonWidth : 0;
        const int half = rect.height() / 2;
        switch (part) {
            case SC_SpinBoxUp:
                return placed({rect.right() - buttons, rect.y() + 2, buttons, half - 2});
            case SC_SpinBoxDown:
                return placed({rect.right() - buttons, rect.y() + half, buttons, half - 2});
            case SC_SpinBoxEditField:
                return placed(rect.adjusted(2, 2, -buttons - 2, -2));
            default:
                break;
        }
    }
    if (control == CC_ComboBox && part == SC_ComboBoxEditField)
        return placed(rect.adjusted(8, 1, -arrowSide - 12, -1));
    if (control == CC_ScrollBar) {
        // No arrow buttons: the whole length is for the slider.
        if (part == SC_ScrollBarAddLine || part == SC_ScrollBarSubLine) return {};
        const auto* bar = static_cast<const QStyleOptionSlider*>(option);
        const bool across = bar->orientation == Qt::Horizontal;
        const int length = across ? rect.width() : rect.height();
        const qint64 range = static_cast<qint64>(bar->maximum) - bar->minimum;
        const int least = pixelMetric(PM_ScrollBarSliderMin, option, widget);
        const int slider = range > 0
                               ? std::clamp(static_cast<int>(static_cast<qint64>(bar->pageStep) *
                                                             length / (range + bar->pageStep)),
                                            std::min(least, length), length)
                               : length;
        const int start = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition,
                                                  length - slider, bar->upsideDown);
        const auto span = [&](int from, int size) {
            return across ? QRect(rect.x() + from, rect.y(), size, rect.height())
                          : QRect(rect.x(), rect.y() + from, rect.width(), size);
        };
        switch (part) {
            case SC_ScrollBarSlider:
                return span(start, slider);
            case SC_ScrollBarSubPage:
                return span(0, start);
            case SC_ScrollBarAddPage:
                return span(start + slider, length - start - slider);
            case SC_ScrollBarGroove:
                return rect;
            default:
                break;
        }
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

}  // namespace morva
