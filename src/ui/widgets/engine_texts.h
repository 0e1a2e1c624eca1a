// SPDX-License-Identifier: GPL-3.0-or-later
// Every text that the engine forms for a person, for the translators: whole sentences, and patterns
// with places for names and numbers. A text that is missing here is shown in English.
#pragma once

#include <span>

namespace morva {

/// In the context "engine"; "%1" to "%3" stand for what changes, which is itself translated where
/// it is a text of the engine.
std::span<const char* const> engineTexts();

}  // namespace morva
