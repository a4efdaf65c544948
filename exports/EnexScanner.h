// SPDX-License-Identifier: MIT
#pragma once

#include "exports/ByteWindow.h"

#include <QString>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// Looks through an ENEX file for its notes, about as fast as it can be read, and holds nothing of
// them.
//
// It knows only the part of XML that such files are made of: UTF-8; no declarations but that of XML
// itself and a DOCTYPE without a subset; no references but to characters and the predefined
// entities; plain ASCII names; notes that are children of the root element and hold no notes
// themselves. A file that it finds within these bounds XMLParser reads to its end, and finds the
// same notes in it. Of any other file it says only that it does not know it, never that it is
// wrong.
class EnexScanner {
public:
    // The stream must be open and outlive the scanner.
    explicit EnexScanner(platform::InputStream& stream);

    // Called for each note with the offsets of its first byte and of the byte behind its last.
    using NoteFound = std::function<void(qint64 start, qint64 end)>;
    void setNoteFound(NoteFound function) { m_noteFound = std::move(function); }

    // Unknown: what was found until then is of no use. Unreadable: the stream failed, see error().
    enum class Outcome { Known, Unknown, Unreadable };
    [[nodiscard]] Outcome scan();
    [[nodiscard]] const platform::Error& error() const { return m_window.error(); }

    [[nodiscard]] quint64 noteCount() const { return m_noteCount; }
    // Attributes of the root element, empty where it has none.
    [[nodiscard]] const QString& application() const { return m_application; }
    [[nodiscard]] const QString& version() const { return m_version; }

private:
    // Each is false where the file leaves the bounds, or ends.
    [[nodiscard]] bool scanDocument();
    [[nodiscard]] bool scanProlog();
    [[nodiscard]] bool scanContent();
    [[nodiscard]] bool scanMarkup();
    [[nodiscard]] bool scanStartTag();
    [[nodiscard]] bool scanEndTag();
    [[nodiscard]] bool scanText();
    [[nodiscard]] bool scanCData();
    [[nodiscard]] bool scanComment();
    [[nodiscard]] bool scanWhiteSpace();
    [[nodiscard]] bool passReference();
    [[nodiscard]] bool passSpecial();
    [[nodiscard]] bool passLiteral(std::string_view literal);
    void endElement();

    ByteWindow m_window;
    NoteFound m_noteFound;
    // The names of the open elements, one behind the other, and the length of each.
    std::string m_openNames;
    std::vector<std::size_t> m_nameLengths;
    qint64 m_noteStart = -1;
    quint64 m_noteCount = 0;
    QString m_application;
    QString m_version;
};
