// SPDX-License-Identifier: GPL-3.0-or-later
// The language of the window: the desktop's where there is a translation, else English.
#pragma once

class QApplication;
class QLocale;

namespace morva {

/// Installs the texts for a language and the toolkit's own; call it before any widget is made.
/// English needs it too: its plurals are in the translation.
void installLanguage(QApplication& application, const QLocale& locale);

}  // namespace morva
