// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QTextDocument;

namespace morva {

/// Gives a document that was read from Markdown the look of the window: headings in its type,
/// tables with thin lines. For the sheets that show texts.
void calm(QTextDocument& document);

}  // namespace morva
