// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QString>

namespace platform {

// What a Content-Type header says; both in lower case, both may be empty.
struct ContentType {
    QString mimeType;
    QString charset;
};

[[nodiscard]] ContentType parseContentType(QStringView header);

// The type that a file name's extension stands for on web pages; empty when it is no such extension.
[[nodiscard]] QString mimeTypeForPath(QStringView path);

// The type that the first bytes show; where they show none, "text/plain" for text and
// "application/octet-stream" for the rest. 512 bytes are enough.
[[nodiscard]] QString mimeTypeOfBytes(QByteArrayView start);

[[nodiscard]] bool isHtmlType(const QString& mimeType);
// XHTML, SVG and every other XML type.
[[nodiscard]] bool isXmlType(const QString& mimeType);
[[nodiscard]] bool isImageType(const QString& mimeType);
// A view can show it as a document of its own, without plug-ins.
[[nodiscard]] bool isShowableType(const QString& mimeType);

} // namespace platform
