// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/theme.h"

#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QPalette>
#include <QToolTip>

#include "ui/widgets/morva_style.h"
#include "ui/widgets/typography.h"

namespace morva {

namespace {

QColor rgb(QRgb hex) { return QColor(hex); }

Theme makeDark() {
    Theme theme;
    theme.canvas = rgb(0x161616);
    theme.field = rgb(0x141414);
    theme.strip = rgb(0x1B1B1B);
    theme.panel = rgb(0x202020);
    theme.sheet = rgb(0x242424);
    theme.bar = rgb(0x262626);
    theme.raised = rgb(0x303030);
    theme.selected = rgb(0x343434);
    theme.hover = rgb(0x383838);
    theme.cellHover = rgb(0x232323);
    theme.pressed = rgb(0x222222);
    theme.on = rgb(0x444444);
    theme.disabledFill = rgb(0x272727);
    theme.line = rgb(0x363636);
    theme.seam = rgb(0x000000);
    theme.edge = rgb(0x6E6E6E);
    theme.comboEdge = rgb(0x5C5C5C);
    theme.checkEdge = rgb(0x8A8A8A);
    theme.sheetEdge = rgb(0x4A4A4A);
    theme.groove = rgb(0x4A4A4A);
    theme.sliderFill = rgb(0xA8A8A8);
    theme.sliderThumb = rgb(0xDCDCDC);
    theme.quietRing = rgb(0x6E6E6E);
    theme.text = rgb(0xEDEDED);
    theme.text2 = rgb(0xB8B8B8);
    theme.text3 = rgb(0xA2A2A2);
    theme.off = rgb(0x6F6F6F);
    theme.accent = rgb(0x4DB6C4);
    theme.accentBright = rgb(0x6FCBD6);
    theme.onAccent = rgb(0x08191C);
    theme.ready = rgb(0xA8D5B8);
    theme.review = rgb(0xF2B53C);
    theme.approved = rgb(0x58C88A);
    theme.failed = rgb(0xFF8177);
    theme.pending = rgb(0xA0A0A0);
    theme.reviewBox = rgb(0x33291A);
    theme.reviewBoxEdge = rgb(0x6B5320);
    theme.approvedBox = rgb(0x1C2E25);
    theme.approvedBoxEdge = rgb(0x33573F);
    theme.failedBox = rgb(0x351F1E);
    theme.failedBoxEdge = rgb(0x6E3B38);
    theme.hatchDark = rgb(0x3A3A3A);
    theme.hatchLight = rgb(0x686868);
    theme.eyeLine = rgb(0x63D4FF);
    theme.chinLine = rgb(0xFF96DC);
    theme.headTop = rgb(0xFFD75E);
    theme.margins = rgb(0xFFFFFF);
    theme.labelBox = QColor(0x11, 0x11, 0x11, 219);
    theme.scrim = QColor(0, 0, 0, 153);
    return theme;
}

/// Black surfaces, white text and edges, nothing dimmed; statuses keep their colours, which are
/// bright enough on black.
Theme makeHighContrast() {
    Theme theme = makeDark();
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    for (QColor Theme::*surface :
         {&Theme::canvas, &Theme::field, &Theme::strip, &Theme::panel, &Theme::sheet, &Theme::bar,
          &Theme::raised, &Theme::disabledFill, &Theme::pressed, &Theme::reviewBox,
          &Theme::approvedBox, &Theme::failedBox})
        theme.*surface = black;
    for (QColor Theme::*edge : {&Theme::line, &Theme::seam, &Theme::edge, &Theme::comboEdge,
                                &Theme::checkEdge, &Theme::sheetEdge, &Theme::quietRing})
        theme.*edge = white;
    for (QColor Theme::*ink : {&Theme::text, &Theme::text2, &Theme::text3, &Theme::pending,
                               &Theme::sliderFill, &Theme::sliderThumb})
        theme.*ink = white;
    theme.selected = rgb(0x303030);
    theme.hover = rgb(0x303030);
    theme.cellHover = rgb(0x303030);
    theme.on = rgb(0x404040);
    theme.groove = rgb(0x808080);
    theme.off = rgb(0xA0A0A0);
    theme.reviewBoxEdge = theme.review;
    theme.approvedBoxEdge = theme.approved;
    theme.failedBoxEdge = theme.failed;
    theme.labelBox = black;
    theme.scrim = QColor(0, 0, 0, 204);
    theme.ring = 3;
    return theme;
}

const Theme* inUse = nullptr;

QPalette paletteOf(const Theme& theme) {
    QPalette palette;
    palette.setColor(QPalette::Window, theme.panel);
    palette.setColor(QPalette::WindowText, theme.text);
    palette.setColor(QPalette::Base, theme.field);
    palette.setColor(QPalette::AlternateBase, theme.strip);
    palette.setColor(QPalette::Text, theme.text);
    palette.setColor(QPalette::PlaceholderText, theme.text3);
    palette.setColor(QPalette::Button, theme.raised);
    palette.setColor(QPalette::ButtonText, theme.text);
    palette.setColor(QPalette::BrightText, theme.failed);
    palette.setColor(QPalette::ToolTipBase, Qt::black);
    palette.setColor(QPalette::ToolTipText, theme.text);
    palette.setColor(QPalette::Light, theme.on);
    palette.setColor(QPalette::Midlight, theme.hover);
    palette.setColor(QPalette::Mid, theme.line);
    palette.setColor(QPalette::Dark, theme.field);
    palette.setColor(QPalette::Shadow, theme.seam);
    palette.setColor(QPalette::Highlight, theme.accent);
    palette.setColor(QPalette::HighlightedText, theme.onAccent);
    palette.setColor(QPalette::Link, theme.accentBright);
    palette.setColor(QPalette::LinkVisited, theme.accentBright);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText})
        palette.setColor(QPalette::Disabled, role, theme.off);
    palette.setColor(QPalette::Disabled, QPalette::Button, theme.disabledFill);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, theme.groove);
    return palette;
}

/// Of one channel, 0 to 1 in sRGB.
double linear(double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

}  // namespace

const Theme& Theme::dark() {
    static const Theme theme = makeDark();
    return theme;
}

const Theme& Theme::highContrast() {
    static const Theme theme = makeHighContrast();
    return theme;
}

const Theme& Theme::current() { return inUse ? *inUse : dark(); }

void applyTheme(QApplication& application, Contrast contrast) {
    inUse = contrast == Contrast::high ? &Theme::highContrast() : &Theme::dark();
    application.setStyle(new MorvaStyle);
    application.setPalette(paletteOf(*inUse));
    QToolTip::setPalette(application.palette());
    QToolTip::setFont(fontFor(TextRole::small));
}

double contrastRatio(const QColor& a, const QColor& b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor readable(QColor color, const QColor& surface) {
    constexpr double wanted = 4.5;
    constexpr int steps = 20;
    const QColor start = color;
    for (int step = 1; contrastRatio(color, surface) < wanted && step <= steps; ++step) {
        const double share = static_cast<double>(step) / steps;
        const auto lighter = [&](double value) { return value + (1 - value) * share; };
        color = QColor::fromRgbF(static_cast<float>(lighter(start.redF())),
                                 static_cast<float>(lighter(start.greenF())),
                                 static_cast<float>(lighter(start.blueF())));
    }
    return color;
}

}  // namespace morva
