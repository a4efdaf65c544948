// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Where a note came from: its note-attributes, as far as they are read.
class EvernoteXMLItemNoteAttributes {
public:
    // What made the note, such as "web.clip" for a clipped page.
    [[nodiscard]] const QString& source() const { return m_source; }
    void setSource(const QString& source) { m_source = source; }
    void appendSource(QUtf8StringView chunk) { m_source += chunk.toString(); }

    // The page that a clip was taken from.
    [[nodiscard]] const QString& sourceURL() const { return m_sourceURL; }
    void setSourceURL(const QString& sourceURL) { m_sourceURL = sourceURL; }
    void appendSourceURL(QUtf8StringView chunk) { m_sourceURL += chunk.toString(); }

private:
    QString m_source;
    QString m_sourceURL;
};
