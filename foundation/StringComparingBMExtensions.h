// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Tests that ignore case, in no user's language in particular; composed and decomposed letters are the same.

// As many UTF-16 code units of the text's beginning as the prefix has are equal to it; a shorter text never
// is. An empty prefix begins every text.
[[nodiscard]] bool startsWith(const QString& text, const QString& prefix);

// The same for the text's end.
[[nodiscard]] bool endsWith(const QString& text, const QString& suffix);

// Whether the other text stands in this one, as whole letters with all their marks. Never for an empty one.
// Ignores case, unlike QString::contains.
[[nodiscard]] bool containsString(const QString& text, const QString& other);

[[nodiscard]] bool isCaseInsensitiveEqualToString(const QString& text, const QString& other);
