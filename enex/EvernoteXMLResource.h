// SPDX-License-Identifier: MIT
#pragma once

#include "enex/EvernoteXMLItemResourceAttributes.h"
#include "enex/EvernoteXMLItemType.h"
#include "platform/core/Error.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

// One attached file of a note, as an ENEX file holds it.
class EvernoteXMLResource {
public:
    // Makes a fresh identifier.
    EvernoteXMLResource();

    // A UUID, unique to this resource; it names the file of a resource that has no name.
    [[nodiscard]] const QString& identifier() const { return m_identifier; }

    // The text of the data element: base64 with whatever white space it was written with, in UTF-8. Kept as
    // bytes, because it is most of what an ENEX file holds.
    [[nodiscard]] const QByteArray& base64Data() const { return m_base64Data; }
    void appendBase64Data(QUtf8StringView chunk) { m_base64Data.append(chunk.data(), chunk.size()); }

    // As accumulated, not trimmed.
    [[nodiscard]] const QString& mime() const { return m_mime; }
    void setMime(const QString& mime) { m_mime = mime; }
    void appendMime(QUtf8StringView chunk) { m_mime += chunk.toString(); }

    // In pixels; 0 when the file names none.
    [[nodiscard]] double width() const { return m_width; }
    void setWidth(double width) { m_width = width; }
    [[nodiscard]] double height() const { return m_height; }
    void setHeight(double height) { m_height = height; }

    [[nodiscard]] EvernoteXMLItemResourceAttributes& attributes() { return m_attributes; }
    [[nodiscard]] const EvernoteXMLItemResourceAttributes& attributes() const { return m_attributes; }

    // The decoded bytes, once they have been asked for with success.
    [[nodiscard]] const std::optional<QByteArray>& contentData() const { return m_contentData; }

    // Decodes the data at the first call that succeeds. Characters outside the base64 alphabet are skipped;
    // padding before the end, or a count that is no multiple of four, is an error.
    [[nodiscard]] std::optional<QByteArray> getContentData(platform::Error* error = nullptr);

    // The MD5 digest (RFC 1321) of the decoded bytes in 32 lower-case hexadecimal digits, by which a note's
    // body names the resource. Computed once.
    [[nodiscard]] std::optional<QString> md5Hash(platform::Error* error = nullptr);

    // The kind of library item that the resource is: by its MIME type when it has one, else by its file
    // name's extension.
    [[nodiscard]] EvernoteXMLItemType itemType() const;

    // Writes the decoded bytes over whatever is at the URL.
    [[nodiscard]] bool writeToURL(const QUrl& url, platform::Error* error = nullptr);

private:
    QString m_identifier;
    QByteArray m_base64Data;
    QString m_mime;
    double m_width = 0;
    double m_height = 0;
    EvernoteXMLItemResourceAttributes m_attributes;
    std::optional<QByteArray> m_contentData;
    QString m_md5Hash;
};
