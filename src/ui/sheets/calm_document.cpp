// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/calm_document.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"

namespace morva {

namespace {

/// Headings as the window has them, with room above.
void calmHeadings(QTextDocument& document) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextCursor cursor(block);
        QTextBlockFormat format = block.blockFormat();
        if (format.headingLevel() > 0) {
            cursor.select(QTextCursor::BlockUnderCursor);
            QTextCharFormat font;
            font.setFont(fontFor(TextRole::title));
            font.setProperty(QTextFormat::FontSizeAdjustment, 0);
            cursor.mergeCharFormat(font);
            format.setTopMargin(block == document.begin() ? 0 : 16);
        }
        if (!cursor.currentTable()) format.setBottomMargin(6);
        // Not by the cursor that has selected the heading: it reaches into the block before.
        QTextCursor(block).setBlockFormat(format);
    }
}

/// Tables with thin lines and room around their words.
void calmTables(QTextDocument& document) {
    for (QTextFrame* frame : document.rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (!table) continue;
        QTextTableFormat format = table->format();
        format.setBorder(1);
        format.setBorderCollapse(true);
        format.setBorderBrush(Theme::current().line);
        format.setCellPadding(4);
        format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
        table->setFormat(format);
    }
}

}  // namespace

void calm(QTextDocument& document) {
    calmHeadings(document);
    calmTables(document);
}

}  // namespace morva
