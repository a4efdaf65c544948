// SPDX-License-Identifier: MIT
#include "enex/EnexCensus.h"

#include "platform/core/NumericText.h"
#include "platform/xml/InputStream.h"
#include "platform/xml/XMLParser.h"

#include <algorithm>

using platform::XMLAttributes;
using platform::XMLParser;

namespace {

constexpr int firstModernVersion = 10;
// Bytes of a title that can be a link's text; three for each UTF-16 code unit.
constexpr qsizetype titleCapacity = 3 * NoteLinkTargets::longestTitle + 3;

// Today's Evernote writes its version as "10.59.5"; what came before it wrote another name, or more
// before the number: "Evernote/Windows" "6.x", "Evernote" "Evernote Mac 7.5 (457109)".
bool isModernHeader(const XMLAttributes& attributes)
{
    return attributes.value("application") == QLatin1String("Evernote") &&
           platform::integerValue(attributes.value("version").value_or(QString())) >=
               firstModernVersion;
}

// Reads no further than the header.
class HeaderReader : public platform::XMLParserDelegate {
public:
    void parserDidStartElement(XMLParser& parser, const QString& name,
                               const XMLAttributes& attributes) override
    {
        isModern = name == QLatin1String("en-export") && isModernHeader(attributes);
        parser.abortParsing();
    }

    bool isModern = false;
};

bool isWhiteSpace(QUtf8StringView text)
{
    return std::all_of(text.begin(), text.end(), [](auto unit) {
        return unit == ' ' || unit == '\t' || unit == '\n' || unit == '\r';
    });
}

} // namespace

EnexCensus::EnexCensus(Titles titles)
    : m_titles(titles)
{
    if (titles != Titles::Skip)
        m_linkTargets = std::make_shared<NoteLinkTargets>();
}

EnexCensus::~EnexCensus() = default;

bool EnexCensus::hasModernHeader(const QString& path)
{
    const auto stream = platform::InputStream::inputStreamWithPath(path);
    if (!stream)
        return false;
    XMLParser parser(*stream);
    HeaderReader reader;
    parser.setDelegate(&reader);
    // It never reads to the end.
    static_cast<void>(parser.parse());
    return reader.isModern;
}

void EnexCensus::parserDidStartElement(XMLParser&, const QString& name,
                                       const XMLAttributes& attributes)
{
    if (m_depthInNote > 0) {
        ++m_depthInNote;
        m_signs.tasks += m_depthInNote == 2 && name == QLatin1String("task") ? 1 : 0;
        if (m_titles == Titles::AsWritten || m_depthInNote == 2)
            m_isTitle = m_linkTargets && name == QLatin1String("title");
    } else if (name == QLatin1String("note")) {
        m_depthInNote = 1;
        m_isAfterDateOrTag = false;
    } else if (name == QLatin1String("en-export")) {
        m_signs.hasModernHeader = m_signs.hasModernHeader || isModernHeader(attributes);
    }
}

void EnexCensus::parserFoundCharacters(XMLParser&, QUtf8StringView text)
{
    const bool mayShowMore =
        !m_signs.hasWhiteSpaceInNotes || (m_isAfterDateOrTag && !m_signs.hasHarmfulWhiteSpace);
    if (m_depthInNote == 1 && mayShowMore && isWhiteSpace(text)) {
        m_signs.hasWhiteSpaceInNotes = true;
        m_signs.hasHarmfulWhiteSpace = m_signs.hasHarmfulWhiteSpace || m_isAfterDateOrTag;
    }
    if (m_isTitle)
        appendTitle(text.data(), text.size());
}

void EnexCensus::parserFoundCData(XMLParser&, QByteArrayView utf8)
{
    if (m_isTitle && m_titles == Titles::Modern)
        appendTitle(utf8.data(), utf8.size());
}

void EnexCensus::appendTitle(const char* utf8, qsizetype length)
{
    m_title.append(utf8, std::min(length, titleCapacity - m_title.size()));
}

void EnexCensus::parserDidEndElement(XMLParser&, const QString& name)
{
    if (m_depthInNote == 0)
        return;
    --m_depthInNote;
    if (m_depthInNote == 1) {
        m_isAfterDateOrTag = name == QLatin1String("created") || name == QLatin1String("updated") ||
                             name == QLatin1String("tag");
    }
    // Read as it stands, an element's end does not end its field.
    if (m_titles == Titles::Modern && m_depthInNote <= 1)
        m_isTitle = false;
    if (m_depthInNote > 0)
        return;
    m_isTitle = false;
    // A title that may have been cut off is nobody's.
    if (m_linkTargets && m_title.size() < titleCapacity)
        m_linkTargets->addNote(QString::fromUtf8(m_title));
    m_title.clear();
}
