// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/AttributedString.h"
#include "platform/core/Error.h"

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace platform {

// A stretch of text that comes through the import untouched: whatever stands between the two texts
// keeps its blanks and tabs. The opening text ends with a blank and the closing one begins with
// one; a second blank next to either is collapsed into it as everywhere else, and belongs to it.
struct PreservedSpanDelimiters {
    QString opening;
    QString closing;
};

struct HtmlImportOptions {
    // The font of text that names none; empty or unknown: Helvetica.
    QString standardFontFamily;
    // Points; stands for the size "medium". A pixel of the page is one point: the platform's
    // importer never scaled between the two, so 16px give 16 points, and 12pt, which are 16px, do
    // too.
    double defaultFontSize = 12;
    // Relative references to images resolve here and never lead out of here; empty: there are no
    // files.
    QString baseDirectory;
    std::optional<PreservedSpanDelimiters> preservedSpanDelimiters;
};

inline const QString htmlImportErrorDomain = QStringLiteral("HtmlImportErrorDomain");
enum class HtmlImportErrorCode { Unreadable = 1, NotText = 2 };

// A page as text with attributes.
//
// The page is UTF-8 whatever it says itself; invalid bytes become U+FFFD. A well-formed page is
// read as XML, by its own tags; any other is repaired as HTML. Nothing outside the base directory
// is read and nothing is fetched. Every block ends with one newline, the last one too; a line break
// (br) is a newline in plain blocks and U+2028 within paragraphs, headings and list items, which
// stay one paragraph each. None with an error only when there is no memory for the page; an empty
// page gives an empty text.
[[nodiscard]] std::optional<AttributedString>
attributedStringFromHtml(QByteArrayView utf8, const HtmlImportOptions& options,
                         Error* error = nullptr);

// The same of a file. None with an error when it cannot be read.
[[nodiscard]] std::optional<AttributedString>
attributedStringFromHtmlFile(const QString& path, const HtmlImportOptions& options,
                             Error* error = nullptr);

} // namespace platform
