// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

// ENEX documents of a few notes, for tests.
namespace test {

// The classic form: no white space between the elements of a note.
[[nodiscard]] inline QByteArray note(const QByteArray& title, const QByteArray& body = "text",
                                     const QByteArray& more = {})
{
    return "<note><title>" + title + "</title><content><![CDATA[<en-note>" + body +
           "</en-note>]]></content>" + more + "</note>";
}

[[nodiscard]] inline QByteArray document(const QByteArray& notes,
                                         const QByteArray& version = "10.104.3")
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE en-export SYSTEM \"http://xml.evernote.com/pub/evernote-export4.dtd\">\n"
           "<en-export export-date=\"20240907T063818Z\" application=\"Evernote\" version=\"" +
           version + "\">\n" + notes + "</en-export>\n";
}

// An attached file.
[[nodiscard]] inline QByteArray resource(const QByteArray& bytes, const QByteArray& mime,
                                         const QByteArray& fileName)
{
    return "<resource><data encoding=\"base64\">" + bytes.toBase64() + "</data><mime>" + mime +
           "</mime><resource-attributes><file-name>" + fileName +
           "</file-name></resource-attributes></resource>";
}

// What shows it in a body.
[[nodiscard]] QByteArray media(const QByteArray& bytes, const QByteArray& mime);

} // namespace test
