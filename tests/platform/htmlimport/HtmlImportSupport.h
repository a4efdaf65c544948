// SPDX-License-Identifier: MIT
#pragma once

#include "platform/htmlimport/HtmlImport.h"

#include <QString>

namespace test {

// The default options of these tests: Helvetica at 16 points, so that pixels and medium agree.
[[nodiscard]] platform::HtmlImportOptions htmlOptions();

[[nodiscard]] platform::AttributedString import(const QByteArray& html);
[[nodiscard]] platform::AttributedString import(const QByteArray& html,
                                                const platform::HtmlImportOptions& options);

// The text of a page whose body this is; attachments are shown as @, line separators as |,
// non-breaking blanks as ~ and tabs as >.
[[nodiscard]] QString shown(const QByteArray& body);
[[nodiscard]] QString shown(const platform::AttributedString& text);

// The attributes at the first occurrence of a text.
[[nodiscard]] const platform::TextAttributes& at(const platform::AttributedString& text,
                                                 const char* what);
[[nodiscard]] const platform::ParagraphStyle& paragraphAt(const platform::AttributedString& text,
                                                          const char* what);

// Fails when paragraphs do not have one style from their start to their end, or when runs do not
// cover the text.
void expectSound(const platform::AttributedString& text);

} // namespace test
