// SPDX-License-Identifier: MIT
#include "bench/generator/NoteWriter.h"

#include "bench/generator/Attachments.h"

#include <QCryptographicHash>

#include <algorithm>
#include <iterator>

namespace bench {

namespace {

constexpr qsizetype base64LineLength = 76;

const char* const words[] = {
    "river",  "stone",   "the",    "under", "winter",  "a",       "green",  "kettle",  "walks",
    "and",    "letters", "slowly", "of",    "orchard", "between", "paper",  "morning", "lamp",
    "window", "counts",  "with",   "seven", "ladders", "Grüße",   "naïve",  "to",      "evening",
    "keeps",  "maps",    "in",     "ink",   "café",    "after",   "&amp;",  "harvest", "boats",
    "north",  "its",     "bread",  "quiet", "日本語",  "заметка", "&nbsp;", "bell",
};

QByteArray base64Lines(const QByteArray& data)
{
    const QByteArray encoded = data.toBase64();
    QByteArray out;
    out.reserve(encoded.size() + encoded.size() / base64LineLength + 2);
    for (qsizetype at = 0; at < encoded.size(); at += base64LineLength) {
        out.append(encoded.constData() + at, std::min(base64LineLength, encoded.size() - at));
        out.append('\n');
    }
    return out;
}

QByteArray twoDigits(int number)
{
    return QByteArray::number(number).rightJustified(2, '0');
}

} // namespace

std::optional<NotebookKind> notebookKind(QByteArrayView name)
{
    struct Named {
        QByteArrayView name;
        NotebookKind kind;
    };
    static const Named kinds[] = {
        {"mixed", NotebookKind::Mixed},   {"text", NotebookKind::Text},
        {"images", NotebookKind::Images}, {"small", NotebookKind::Small},
        {"huge", NotebookKind::Huge},     {"clips", NotebookKind::Clips},
    };
    for (const Named& named : kinds)
        if (named.name == name)
            return named.kind;
    return std::nullopt;
}

QByteArray NoteWriter::header()
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE en-export SYSTEM \"http://xml.evernote.com/pub/evernote-export3.dtd\">\n"
           "<en-export export-date=\"20240701T080000Z\" application=\"Vupuge benchmark\" "
           "version=\"1.0\">\n";
}

QByteArray NoteWriter::footer()
{
    return "</en-export>\n";
}

void NoteWriter::appendSentence(QByteArray& out)
{
    const int count = 5 + m_random.below(12);
    for (int i = 0; i < count; ++i) {
        const char* word = words[m_random.next() % std::size(words)];
        if (i > 0)
            out += ' ';
        if (m_random.oneIn(24))
            out += QByteArray("<b>") + word + "</b>";
        else if (m_random.oneIn(40))
            out += QByteArray("<span style=\"color:#c0392b;\">") + word + "</span>";
        else if (m_random.oneIn(60))
            out += QByteArray("<a href=\"https://www.example.org/") + word + "\">" + word + "</a>";
        else
            out += word;
    }
    out += ". ";
}

void NoteWriter::appendParagraphs(QByteArray& out, qsizetype bytes)
{
    const qsizetype end = out.size() + bytes;
    while (out.size() < end) {
        out += "<div>";
        const int sentences = 1 + m_random.below(4);
        for (int i = 0; i < sentences; ++i)
            appendSentence(out);
        out += "</div>";
        if (m_random.oneIn(5))
            out += "<div><br/></div>";
    }
}

void NoteWriter::appendList(QByteArray& out, const char* element)
{
    out += QByteArray("<") + element + ">";
    const int count = 3 + m_random.below(5);
    for (int i = 0; i < count; ++i) {
        out += "<li>";
        appendSentence(out);
        if (m_random.oneIn(4))
            out += "<ul><li>within</li><li>the list</li></ul>";
        out += "</li>";
    }
    out += QByteArray("</") + element + ">";
}

void NoteWriter::appendChecklist(QByteArray& out)
{
    const int count = 3 + m_random.below(5);
    for (int i = 0; i < count; ++i) {
        out += m_random.oneIn(2) ? "<div><en-todo checked=\"true\"/>" : "<div><en-todo/>";
        appendSentence(out);
        out += "</div>";
    }
}

void NoteWriter::appendTable(QByteArray& out)
{
    out += "<table style=\"border-collapse:collapse;\"><tbody>";
    for (int row = 0; row < 4; ++row) {
        out += "<tr>";
        for (int column = 0; column < 3; ++column) {
            out += "<td style=\"border:1px solid #b0b0b0;padding:4px;\">";
            out += words[m_random.next() % std::size(words)];
            out += "</td>";
        }
        out += "</tr>";
    }
    out += "</tbody></table>";
}

void NoteWriter::appendBody(QByteArray& out)
{
    appendParagraphs(out, 1024 + m_random.below(3072));
    switch (m_random.below(6)) {
    case 0:
        appendList(out, "ul");
        break;
    case 1:
        appendList(out, "ol");
        break;
    case 2:
        appendChecklist(out);
        break;
    case 3:
        appendTable(out);
        break;
    default:
        break;
    }
}

void NoteWriter::appendClip(QByteArray& out)
{
    out += "<div style=\"font-family:Georgia,serif;font-size:16px;line-height:1.5;color:#222222;"
           "background-color:#ffffff;margin:0 auto;max-width:640px;\"><h1 "
           "style=\"font-weight:bold;\">";
    appendSentence(out);
    out += "</h1>";
    for (int section = 0; section < 6; ++section) {
        out += "<div style=\"margin:12px 0;padding:4px 8px;border-left:2px solid #dddddd;\">";
        appendParagraphs(out, 1500);
        out += "</div>";
    }
    attachPicture(out, 200, 150);
    out += "</div>";
}

void NoteWriter::attach(QByteArray& body, const QByteArray& data, const char* mime,
                        const QByteArray& name)
{
    const QByteArray hash = QCryptographicHash::hash(data, QCryptographicHash::Md5).toHex();
    body += QByteArray("<div><en-media type=\"") + mime + "\" hash=\"" + hash + "\"/></div>";
    m_resources += "<resource><data encoding=\"base64\">\n";
    m_resources += base64Lines(data);
    m_resources += QByteArray("</data><mime>") + mime + "</mime><resource-attributes><file-name>" +
                   name + "</file-name></resource-attributes></resource>";
}

void NoteWriter::attachPicture(QByteArray& body, int width, int height)
{
    attach(body, picture(m_random, width, height), "image/png",
           "picture " + QByteArray::number(m_random.below(100000)) + ".png");
}

QByteArray NoteWriter::note(qint64 index)
{
    m_resources.clear();
    QByteArray body;
    QByteArray attributes = "<author>A. Reader</author>";
    switch (m_kind) {
    case NotebookKind::Mixed:
        appendBody(body);
        if (index % 8 == 3)
            attachPicture(body, 400, 256);
        else if (index % 8 == 7)
            attach(body, document(m_random, 100 * 1024), "application/pdf", "document.pdf");
        break;
    case NotebookKind::Text:
        appendBody(body);
        break;
    case NotebookKind::Images:
        appendParagraphs(body, 300);
        for (int i = m_random.below(3); i >= 0; --i)
            attachPicture(body, 400, 256);
        break;
    case NotebookKind::Small:
        body += "<div>";
        appendSentence(body);
        body += "</div>";
        break;
    case NotebookKind::Huge:
        appendParagraphs(body, 1 << 20);
        attach(body, document(m_random, 20 << 20), "application/pdf", "document.pdf");
        break;
    case NotebookKind::Clips:
        appendClip(body);
        attributes += "<source>web.clip</source><source-url>https://www.example.org/page/" +
                      QByteArray::number(index) + "</source-url>";
        break;
    }

    const QByteArray date = "20" + twoDigits(10 + m_random.below(15)) +
                            twoDigits(1 + m_random.below(12)) + twoDigits(1 + m_random.below(28)) +
                            'T' + twoDigits(m_random.below(24)) + "3015Z";
    QByteArray out;
    out.reserve(body.size() + m_resources.size() + 1024);
    out += "<note><title>Note " + QByteArray::number(index + 1) +
           "</title><content><![CDATA["
           "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>"
           "<!DOCTYPE en-note SYSTEM \"http://xml.evernote.com/pub/enml2.dtd\"><en-note>";
    out += body;
    out += "</en-note>]]></content><created>" + date + "</created><updated>" + date + "</updated>";
    if (index % 3 == 0)
        out += "<tag>benchmark</tag><tag>third note</tag>";
    out += "<note-attributes>" + attributes + "</note-attributes>";
    out += m_resources;
    out += "</note>\n";
    return out;
}

QByteArray NoteWriter::body(const QByteArray& note)
{
    static const QByteArray opening = "<![CDATA[";
    const qsizetype start = note.indexOf(opening) + opening.size();
    return note.mid(start, note.indexOf("]]>") - start);
}

} // namespace bench
