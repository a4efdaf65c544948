// SPDX-License-Identifier: MIT
#include "enex/EnexModernizer.h"

#include "enex/EnexWriter.h"
#include "enex/EvernoteXMLErrors.h"
#include "enex/MarkupTags.h"
#include "enex/TaskPlacement.h"
#include "foundation/FileNameFitting.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/xml/XMLParser.h"

#include <algorithm>

using platform::Error;
using platform::XMLAttributes;
using platform::XMLParser;

namespace {

// Bytes that are kept from one note for the next.
constexpr qsizetype keptCapacity = 1024 * 1024;

bool isWhiteSpace(QByteArrayView text)
{
    return std::all_of(text.begin(), text.end(), [](char byte) {
        return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r';
    });
}

// A name with a "/" would lead to another folder, and its note could not be converted.
QByteArray possibleFileName(const QByteArray& name)
{
    const bool isPossible = !name.contains('/') && name != "." && name != "..";
    return isPossible ? name : fileNameFromTitle(QString::fromUtf8(name)).toUtf8();
}

void empty(QByteArray& bytes)
{
    if (bytes.capacity() > keptCapacity)
        bytes = {};
    else
        bytes.resize(0);
}

} // namespace

EnexModernizer::EnexModernizer(platform::XMLParserDelegate& target)
    : m_target(target)
{
}

EnexModernizer::~EnexModernizer() = default;

void EnexModernizer::parserDidStartElement(XMLParser& parser, const QString& name,
                                           const XMLAttributes& attributes)
{
    if (m_place != Place::Outside) {
        startElementInNote(parser, name, attributes);
        return;
    }
    if (name == QLatin1String("note"))
        m_place = Place::Note;
    m_target.parserDidStartElement(parser, name, attributes);
}

void EnexModernizer::startElementInNote(XMLParser& parser, const QString& name,
                                        const XMLAttributes& attributes)
{
    if (name == QLatin1String("note"))
        ++m_innerNotes;
    if (m_text == Text::Content)
        m_contentHasElements = true;
    const Element* const element =
        m_text == Text::None && m_droppedDepth == 0 ? knownElement(name) : nullptr;
    if (!element) {
        ++m_droppedDepth;
        return;
    }
    m_text = element->text;
    m_collected.resize(0);
    if (element->text == Text::Content)
        m_hasContent = true;
    if (element->inside == Place::Task)
        m_tasks.emplace_back();
    else if (element->inside == Place::Reminder)
        m_tasks.back().reminders.emplace_back();
    if (element->inside != Place::Outside)
        m_place = element->inside;
    if (!isOfTask(m_place) && element->text != Text::Content)
        passStart(parser, name, attributes);
}

void EnexModernizer::passStart(XMLParser& parser, const QString& name,
                               const XMLAttributes& attributes)
{
    // Evernote has only ever written one encoding, and some files do not name it.
    const bool lacksEncoding = m_text == Text::Passed && m_place == Place::Resource &&
                               attributes.value("encoding").value_or(QString()).isEmpty();
    static constexpr unsigned char encoding[] = "encoding";
    static constexpr unsigned char base64[] = "base64";
    static constexpr const unsigned char* pairs[] = {encoding, base64, nullptr};
    m_target.parserDidStartElement(parser, name, lacksEncoding ? XMLAttributes(pairs) : attributes);
}

void EnexModernizer::parserFoundCharacters(XMLParser& parser, QUtf8StringView text)
{
    if (m_place == Place::Outside) {
        if (!isWhiteSpace(QByteArrayView(text.data(), text.size())))
            m_target.parserFoundCharacters(parser, text);
        return;
    }
    if (m_droppedDepth > 0)
        return;
    switch (m_text) {
    case Text::Passed:
        m_target.parserFoundCharacters(parser, text);
        break;
    case Text::Trimmed:
    case Text::FileName:
    case Text::OfTask:
        m_collected.append(text.data(), text.size());
        break;
    case Text::Content:
        m_contentCharacters.append(text.data(), text.size());
        break;
    case Text::None:
        break;
    }
}

void EnexModernizer::parserFoundCData(XMLParser& parser, QByteArrayView utf8)
{
    if (m_place == Place::Outside)
        m_target.parserFoundCData(parser, utf8);
    else if (m_text != Text::Content)
        parserFoundCharacters(parser, QUtf8StringView(utf8.data(), utf8.size()));
    else if (m_droppedDepth == 0)
        m_content.append(utf8);
}

void EnexModernizer::parserDidEndElement(XMLParser& parser, const QString& name)
{
    if (m_place == Place::Outside) {
        m_target.parserDidEndElement(parser, name);
    } else if (m_droppedDepth > 0) {
        --m_droppedDepth;
    } else if (m_text != Text::None) {
        endText(parser, name);
        m_text = Text::None;
    } else {
        endPlace(parser, name);
    }
}

void EnexModernizer::endText(XMLParser& parser, const QString& name)
{
    if (m_text == Text::Content)
        return;
    if (m_text == Text::OfTask) {
        endTaskText(name);
        return;
    }
    if (m_text != Text::Passed) {
        const QByteArray text =
            m_text == Text::FileName ? possibleFileName(m_collected) : trimmedText(name);
        if (!text.isEmpty())
            m_target.parserFoundCharacters(parser, QUtf8StringView(text.constData(), text.size()));
    }
    passEnd(parser, name);
}

QByteArray EnexModernizer::trimmedText(const QString& name)
{
    QByteArray text = m_collected.trimmed();
    if (m_place == Place::NoteAttributes && name == QLatin1String("source")) {
        if (text == "web.clip7")
            text = "web.clip";
        m_isWebClip = text == "web.clip";
    }
    return text;
}

void EnexModernizer::endPlace(XMLParser& parser, const QString& name)
{
    const Place ended = m_place;
    switch (ended) {
    case Place::Note:
        m_place = Place::Outside;
        break;
    case Place::ResourceAttributes:
        m_place = Place::Resource;
        break;
    case Place::Reminder:
        m_place = Place::Task;
        break;
    case Place::Outside:
    case Place::NoteAttributes:
    case Place::Resource:
    case Place::Task:
        m_place = Place::Note;
        break;
    }
    if (isOfTask(ended))
        return;
    if (ended != Place::Note) {
        passEnd(parser, name);
        return;
    }
    passContent(parser);
    passEnd(parser, name);
    const qsizetype innerNotes = m_innerNotes;
    forgetNote();
    for (qsizetype index = 0; index < innerNotes && !parser.isAborted(); ++index) {
        m_target.parserDidStartElement(parser, name, XMLAttributes(nullptr));
        passEnd(parser, name);
    }
}

void EnexModernizer::passContent(XMLParser& parser)
{
    m_taskCount = static_cast<qsizetype>(m_tasks.size());
    const bool isCharacters = isWhiteSpace(m_content) && !m_contentHasElements;
    if (isCharacters && !isWhiteSpace(m_contentCharacters))
        m_content.swap(m_contentCharacters);
    if (!m_contentHasElements && MarkupTags::holdNothing(m_content)) {
        m_content += "<en-note></en-note>";
        m_hasContent = true;
    }
    // A body that cannot be read must not be covered up by one that holds tasks alone.
    const bool isUnreadable = m_contentHasElements && isWhiteSpace(m_content);
    if (!m_tasks.empty() && !isUnreadable) {
        m_content =
            bodyWithTasks(m_content, m_tasks, m_isWebClip ? TaskBox::Character : TaskBox::Tag);
        m_hasContent = true;
    }
    if (!m_hasContent || parser.isAborted())
        return;
    const QString name = QStringLiteral("content");
    m_target.parserDidStartElement(parser, name, XMLAttributes(nullptr));
    if (!m_content.isEmpty() && !parser.isAborted())
        m_target.parserFoundCData(parser, m_content);
    // The target has its own copy by now.
    empty(m_content);
    passEnd(parser, name);
}

void EnexModernizer::passEnd(XMLParser& parser, const QString& name)
{
    // What was passed just before may have ended the parse.
    if (!parser.isAborted())
        m_target.parserDidEndElement(parser, name);
}

void EnexModernizer::forgetNote()
{
    m_innerNotes = 0;
    m_isWebClip = false;
    m_hasContent = false;
    m_contentHasElements = false;
    empty(m_content);
    empty(m_contentCharacters);
    m_tasks.clear();
    m_taskCount = 0;
}

void EnexModernizer::parserParseErrorOccurred(XMLParser& parser, const Error& error)
{
    m_target.parserParseErrorOccurred(parser, error);
}

void EnexModernizer::parserDidEndDocument(XMLParser& parser)
{
    m_target.parserDidEndDocument(parser);
}

bool EnexModernizer::writeModernizedCopy(platform::InputStream& input, QIODevice& output,
                                         Error* error)
{
    XMLParser parser(input);
    EnexWriter writer(output);
    EnexModernizer modernizer(writer);
    parser.setDelegate(&modernizer);
    writer.begin(parser);
    if (parser.parse() && writer.error().isNull())
        return true;
    platform::setError(error, writer.error().isNull() ? parser.parserError() : writer.error());
    return false;
}

bool EnexModernizer::writeModernizedCopy(const QString& inputPath, QIODevice& output, Error* error)
{
    const auto input = platform::InputStream::inputStreamWithPath(inputPath);
    if (!input) {
        platform::setError(error, {evernoteXMLParseOperationErrorDomain,
                                   EvernoteXMLParseOperationErrorNoInputStream,
                                   platform::localizedString("Cannot create input stream.")});
        return false;
    }
    return writeModernizedCopy(*input, output, error);
}
