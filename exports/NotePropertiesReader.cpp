// SPDX-License-Identifier: MIT
#include "exports/NotePropertiesReader.h"

#include "enex/TimeStamp.h"
#include "platform/core/CharacterSet.h"
#include "platform/defaults/UserDefaults.h"

namespace {

// As the conversion of ENEX files reads time stamps.
const QString timeStampPattern = QStringLiteral("YYYYMMdd'T'HHmmss'Z'");

} // namespace

NotePropertiesReader::NotePropertiesReader()
    : m_wallClock(timeStampPattern)
    , m_readsUtc(platform::UserDefaults::standard().boolForKey(QStringLiteral("TimestampsInUTC")))
{
}

void NotePropertiesReader::parserDidStartElement(platform::XMLParser&, const QString& name,
                                                 const platform::XMLAttributes&)
{
    const bool isNote = m_depth == 0 && name == QLatin1String("note");
    if (m_depth == 0 && !isNote)
        return;
    ++m_depth;
    m_field = Field::None;
    m_text.clear();
    if (isNote) {
        m_notes.emplace_back();
        m_isInNoteAttributes = false;
    } else if (m_depth == 2) {
        m_isInNoteAttributes = name == QLatin1String("note-attributes");
        if (name == QLatin1String("title"))
            m_field = Field::Title;
        else if (name == QLatin1String("created"))
            m_field = Field::Created;
        else if (name == QLatin1String("updated"))
            m_field = Field::Updated;
        else if (name == QLatin1String("tag"))
            m_field = Field::Tag;
    } else if (m_depth == 3 && m_isInNoteAttributes && name == QLatin1String("source-url")) {
        m_field = Field::SourceURL;
    }
}

void NotePropertiesReader::parserFoundCharacters(platform::XMLParser&, QUtf8StringView text)
{
    if (m_field != Field::None)
        m_text += text.toString();
}

void NotePropertiesReader::parserDidEndElement(platform::XMLParser&, const QString&)
{
    if (m_depth == 0)
        return;
    --m_depth;
    endField();
    m_field = Field::None;
    m_text.clear();
}

void NotePropertiesReader::endField()
{
    NotebookIndex::Note& note = m_notes.back();
    switch (m_field) {
    case Field::Title:
        note.title += m_text;
        note.title.squeeze();
        break;
    case Field::Created:
        note.created = dateOf(m_text);
        break;
    case Field::Updated:
        note.updated = dateOf(m_text);
        break;
    case Field::Tag:
        if (!m_text.isEmpty())
            note.tags += platform::trimmedOfWhitespaceAndNewlines(m_text).toString();
        break;
    case Field::SourceURL:
        if (!m_text.isEmpty())
            note.sourceURL += m_text;
        break;
    case Field::None:
        break;
    }
}

QDateTime NotePropertiesReader::dateOf(const QString& timeStamp) const
{
    const std::optional<QDateTime> date =
        m_readsUtc ? utcDateFromTimeStamp(timeStamp) : m_wallClock.dateFromString(timeStamp);
    return date.value_or(QDateTime());
}
