// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/AttributedString.h"
#include "platform/rtfd/DocumentAttributes.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <random>

namespace test {

// The text's bytes behind the header's groups: from the first \pard or row on.
[[nodiscard]] QByteArray body(const QByteArray& rtf);

// Text in Helvetica 12, which is what text without a font is.
[[nodiscard]] platform::TextAttributes plainAttributes();
[[nodiscard]] platform::AttributedString plain(const QString& text);
// The text with one change to its attributes.
template <typename Change>
[[nodiscard]] platform::AttributedString styled(const QString& text, const Change& change)
{
    platform::TextAttributes attributes = plainAttributes();
    change(attributes);
    return platform::AttributedString(text, attributes);
}
[[nodiscard]] platform::AttributedString inStyle(const QString& text, platform::ParagraphStyle style);

// Reads what bytes, or a body of a document of Cocoa's, hold; fails the test when they are no rich text.
[[nodiscard]] platform::AttributedString readRtf(const QByteArray& rtf,
                                                 platform::DocumentAttributes* attributes = nullptr);
[[nodiscard]] platform::AttributedString readBody(const QByteArray& body);

// The text with everything it has, one line a run, in words: lists, tables and cells as numbers in the order in
// which they appear, so that equal texts whose objects differ look the same. Attachments are told by their
// file's name, bytes and size.
[[nodiscard]] QString described(const platform::AttributedString& text);

// Text with every attribute in random use, on values that rich text can hold exactly.
[[nodiscard]] platform::AttributedString randomText(std::mt19937& random);

} // namespace test
