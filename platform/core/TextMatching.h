// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

// Texts compared as people read them: by Unicode's full case folding, whatever the user's language, and with
// composed and decomposed letters the same. Unpaired surrogates match themselves only.
namespace platform {

[[nodiscard]] bool isEqualIgnoringCase(QStringView left, QStringView right);

// Whether the part stands somewhere in the text, from the beginning of a letter to the end of one with all
// its marks: "cafe" is not in "cafe" + U+0301. An empty part is in no text.
[[nodiscard]] bool containsIgnoringCase(QStringView text, QStringView part);

// Unicode form D. The length may grow.
[[nodiscard]] QString decomposedString(const QString& text);

} // namespace platform
