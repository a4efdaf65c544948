// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/CharacterSet.h"

#include <QString>

// Texts without what should not be in them. None of these fails, and unpaired surrogates stay unless the
// set has them. Lengths are in UTF-16 code units; no result is longer than its text.

// Each line feed, carriage return and tab becomes a blank of its own; then white space (tabs and Unicode's
// blanks, no line ends) goes from both ends.
[[nodiscard]] QString stringByRemovingNewlinesAndTabs(const QString& text);

// The same for line feeds and carriage returns only; tabs within the text stay.
[[nodiscard]] QString stringByRemovingNewlines(const QString& text);

// Without white space and line ends at both ends.
[[nodiscard]] QString stringByTrimmingWhitespace(const QString& text);

// Without the set's characters, wherever they stand. Where two surrogates meet because what stood between
// them went, they are one character and may be in the set.
[[nodiscard]] QString stringByRemovingCharactersInSet(const QString& text, const platform::CharacterSet& set);

// Without the platform's control characters, then without the characters that Unicode has not assigned.
[[nodiscard]] QString stringByRemovingControlAndIllegalCharacters(const QString& text);

// A line feed for each CR LF, LF CR and CR, read from the left.
[[nodiscard]] QString stringByStandardizingNewlines(const QString& text);
