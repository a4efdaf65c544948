// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace platform {

enum class MarkupKind { Html, Xml };

// Text of the web as UTF-8, without a byte order mark; what cannot be decoded becomes U+FFFD.
struct DecodedText {
    QByteArray utf8;
    // The encoding that it had, such as "windows-1252".
    QString encoding;
};

// A document's encoding is told by, in this order: its byte order mark, the response's charset, the
// document itself (a meta element in its first 1,024 bytes, an XML declaration), the encoding of the page
// around it. Where nothing tells, it is UTF-8 if the bytes are valid UTF-8, else windows-1252.
[[nodiscard]] DecodedText decodeDocument(const QByteArray& bytes, MarkupKind kind, const QString& charset,
                                         const QString& surroundingEncoding);

// A style sheet's: byte order mark, the response's charset, @charset, the link's charset attribute, the
// encoding of the document or sheet that refers to it.
[[nodiscard]] DecodedText decodeStyleSheet(const QByteArray& bytes, const QString& charset,
                                           const QString& referringCharset);

} // namespace platform
