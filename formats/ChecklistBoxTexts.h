// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The plain texts that stand for a checkbox wherever it is not drawn: in stored notes, on
// pasteboards, and in pages made from notes. Their lengths differ: 3 and 2 UTF-16 code units.
namespace checklist {

// BALLOT BOX WITH CHECK, VARIATION SELECTOR-15 (text, no emoji), SPACE.
inline const QString checkedBoxText = QStringLiteral("\u2611\uFE0E ");
// BALLOT BOX, SPACE.
inline const QString uncheckedBoxText = QStringLiteral("\u2610 ");

} // namespace checklist
