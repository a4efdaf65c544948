// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Text from notes and files as a terminal may have it: what would move its cursor, change its colours, hide
// text or turn the writing round (control and format characters, line and paragraph separators) becomes
// U+FFFD. The zero width joiner stays, of which emoji are made.
[[nodiscard]] QString terminalText(const QString& text);

// One line on standard output.
void printLine(const QString& text);
// One line on standard error, after the program's name.
void printProblem(const QString& text);
