// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Texts written so that a reader takes their characters for what they are. None of these fails.

// Each backslash becomes two.
[[nodiscard]] QString stringByEscapingBackslashes(const QString& text);

// A backslash before each apostrophe and each double quote. Backslashes that are there already stay single.
[[nodiscard]] QString stringByEscapingQuotes(const QString& text);

// The text of the URL that the text's UTF-8 bytes make: what may not stand in a URL becomes %XX in capital
// letters. Kept are ASCII letters and digits, ! $ & ' ( ) * + , - . / : ; = ? @ _ ~, an escape that is one
// already, the first #, and the square brackets of a host that is an IPv6 address. An unpaired surrogate
// has no bytes; it becomes the escaped replacement character.
[[nodiscard]] QString percentEncodedURLString(const QString& text);
