// SPDX-License-Identifier: GPL-3.0-or-later
// The colours of the window. Surfaces are pure greys, so that skin is judged against neutral; one
// record for ordinary and one for high contrast. Read by every widget that paints itself.
#pragma once

#include <QColor>

class QApplication;

namespace morva {

struct Theme {
    // Surfaces, darkest use first.
    QColor canvas;    // behind photos
    QColor field;     // text fields, spin boxes
    QColor strip;     // filter bar, inspector bar, filmstrip
    QColor panel;     // sidebar, right panel
    QColor sheet;     // sheets and alerts
    QColor bar;       // menu, toolbar, status bar
    QColor raised;    // buttons, combo boxes
    QColor selected;  // selected cell, job, list row
    QColor hover;     // buttons under the pointer
    QColor cellHover;
    QColor pressed;
    QColor on;            // pressed-in switch, open toggle, dragged row
    QColor disabledFill;  // of a button

    // Lines.
    QColor line;  // inside a surface
    QColor seam;  // between regions
    QColor edge;  // fields and spin boxes
    QColor comboEdge;
    QColor checkEdge;
    QColor sheetEdge;
    QColor groove;  // slider track, progress
    QColor sliderFill;
    QColor sliderThumb;
    QColor quietRing;  // around cells of a window without focus

    // Text and what stands for it.
    QColor text;
    QColor text2;  // labels, secondary lines
    QColor text3;  // hints, column heads, targets; never on `on`
    QColor off;    // disabled only
    QColor accent;
    QColor accentBright;  // focus ring, current cell, drop line
    QColor onAccent;

    // Statuses.
    QColor ready;
    QColor review;
    QColor approved;
    QColor failed;
    QColor pending;

    // Boxes that tell something.
    QColor reviewBox, reviewBoxEdge;
    QColor approvedBox, approvedBoxEdge;
    QColor failedBox, failedBoxEdge;

    // The inspector.
    QColor hatchDark, hatchLight;
    QColor eyeLine, chinLine, headTop, margins;
    QColor labelBox;  // behind words that lie on a photo

    QColor scrim;  // under a sheet

    /// Width of focus rings, in pixels.
    int ring = 2;

    static const Theme& dark();
    static const Theme& highContrast();
    /// The one in use.
    static const Theme& current();
};

enum class Contrast { ordinary, high };

/// Gives the program its palette, style and type. May be called again when the contrast changes.
void applyTheme(QApplication& application, Contrast contrast);

/// `color`, made lighter until it is read well (4.5 : 1) as text on `surface`.
QColor readable(QColor color, const QColor& surface);

/// How well two opaque colours are told apart, 1 to 21; relative luminance as in WCAG 2.1.
double contrastRatio(const QColor& a, const QColor& b);

}  // namespace morva
