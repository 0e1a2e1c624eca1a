// SPDX-License-Identifier: GPL-3.0-or-later
// How controls are drawn: flat fills, thin lines, a clear focus ring, over the ordinary Fusion
// style. The one place that knows heights and shapes of controls; views paint only what is theirs.
#pragma once

#include <QProxyStyle>

class QPushButton;

namespace morva {

/// Heights and radii in logical pixels.
namespace Metrics {
inline constexpr int buttonHeight = 32;
inline constexpr int smallButtonHeight = 24;
inline constexpr int fieldHeight = 28;
inline constexpr int barHeight = 40;
inline constexpr int toolbarHeight = 48;
inline constexpr int statusBarHeight = 32;
inline constexpr int sectionHeight = 36;
inline constexpr int tableRowHeight = 20;
inline constexpr int listRowHeight = 48;
inline constexpr int panelPadding = 16;
inline constexpr int sheetPadding = 24;
inline constexpr int gap = 8;       // between controls
inline constexpr int labelGap = 4;  // label over control
inline constexpr int badgeRadius = 3;
inline constexpr int controlRadius = 4;
inline constexpr int cellRadius = 6;
inline constexpr int sheetRadius = 8;
inline constexpr int focusGap = 2;  // between a button and its ring
}  // namespace Metrics

/// Looks of a button beside the ordinary one.
enum class ButtonLook {
    raised,
    primary,  // the next sensible step: filled with the accent
    quiet,    // no fill until the pointer is over it
};
void setLook(QWidget& button, ButtonLook look);
ButtonLook lookOf(const QWidget* button);

/// A field whose value is refused shows it by its border.
void setFaulty(QWidget& field, bool faulty);
bool isFaulty(const QWidget* field);

class MorvaStyle final : public QProxyStyle {
    Q_OBJECT

public:
    MorvaStyle();

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
};

/// A rounded rectangle, filled and outlined; an invalid colour leaves that part out. The outline
/// lies inside `rect`.
void drawBox(QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& outline,
             qreal radius, qreal lineWidth = 1);

}  // namespace morva
