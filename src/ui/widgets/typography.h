// SPDX-License-Identifier: GPL-3.0-or-later
// The sizes and weights of type, relative to the system's font.
#pragma once

#include <QFont>
#include <QLabel>

class QString;

namespace morva {

enum class TextRole {
    welcome,  // title of the welcome view
    figure,   // counts of a plan
    sheetTitle,
    title,     // photo name, alert title
    body,      // controls, menus, lists
    emphasis,  // body, a little bolder
    section,   // headings of the right panel
    small,     // captions, notes, tables, status bar
    label,     // list headings, in capitals
    badge,
};

QFont fontFor(TextRole role);

/// A length given for the usual 10 point font, in this system's font: for widths and heights that
/// hold text. Never smaller than `pixels`.
int scaled(int pixels);

/// The ink of a label.
enum class Ink { text, text2, text3 };

/// A label of plain text in a role, in an ink that follows the theme.
class InkLabel : public QLabel {
    Q_OBJECT

public:
    explicit InkLabel(TextRole role, Ink ink = Ink::text, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;

private:
    void applyInk();

    Ink ink_;
};

/// A label in a role. Wraps its text when `wraps`; not a buddy of anything.
QLabel* makeLabel(const QString& text, TextRole role, Ink ink = Ink::text,
                  QWidget* parent = nullptr);
QLabel* makeWrappedLabel(const QString& text, TextRole role, Ink ink = Ink::text,
                         QWidget* parent = nullptr);

}  // namespace morva
