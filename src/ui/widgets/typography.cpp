// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/typography.h"

#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QEvent>
#include <QFontInfo>

#include "ui/widgets/theme.h"

namespace morva {

namespace {

struct Type {
    double pixels;  // at a body of 13
    QFont::Weight weight;
};

constexpr double bodyPixels = 13;

Type typeOf(TextRole role) {
    switch (role) {
        case TextRole::welcome:
            return {24, QFont::DemiBold};
        case TextRole::figure:
            return {22, QFont::DemiBold};
        case TextRole::sheetTitle:
            return {18, QFont::DemiBold};
        case TextRole::title:
            return {15, QFont::DemiBold};
        case TextRole::body:
            return {bodyPixels, QFont::Normal};
        case TextRole::emphasis:
            return {bodyPixels, QFont::Medium};
        case TextRole::section:
            return {12, QFont::DemiBold};
        case TextRole::small:
            return {12, QFont::Normal};
        case TextRole::label:
            return {11, QFont::DemiBold};
        case TextRole::badge:
            return {10, QFont::DemiBold};
    }
    return {bodyPixels, QFont::Normal};
}

QColor colorOf(Ink ink) {
    const Theme& theme = Theme::current();
    switch (ink) {
        case Ink::text:
            return theme.text;
        case Ink::text2:
            return theme.text2;
        case Ink::text3:
            return theme.text3;
    }
    return theme.text;
}

double systemPixels() { return QFontInfo(QApplication::font()).pixelSize(); }

}  // namespace

QFont fontFor(TextRole role) {
    const Type type = typeOf(role);
    QFont font = QApplication::font();
    font.setPixelSize(
        std::max(8, static_cast<int>(std::lround(type.pixels * systemPixels() / bodyPixels))));
    font.setWeight(type.weight);
    if (role == TextRole::label) {
        font.setCapitalization(QFont::AllUppercase);
        font.setLetterSpacing(QFont::AbsoluteSpacing, 0.4);
    }
    return font;
}

int scaled(int pixels) {
    return std::max(pixels, static_cast<int>(std::lround(pixels * systemPixels() / bodyPixels)));
}

InkLabel::InkLabel(TextRole role, Ink ink, QWidget* parent) : QLabel(parent), ink_(ink) {
    setTextFormat(Qt::PlainText);
    setFont(fontFor(role));
    applyInk();
}

void InkLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    // The theme comes with its style.
    if (event->type() == QEvent::StyleChange) applyInk();
}

void InkLabel::applyInk() {
    QPalette colors = palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        colors.setColor(group, QPalette::WindowText, colorOf(ink_));
    setPalette(colors);
}

QLabel* makeLabel(const QString& text, TextRole role, Ink ink, QWidget* parent) {
    auto* label = new InkLabel(role, ink, parent);
    label->setText(text);
    return label;
}

QLabel* makeWrappedLabel(const QString& text, TextRole role, Ink ink, QWidget* parent) {
    QLabel* label = makeLabel(text, role, ink, parent);
    label->setWordWrap(true);
    return label;
}

}  // namespace morva
