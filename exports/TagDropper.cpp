// SPDX-License-Identifier: MIT
#include "exports/TagDropper.h"

using platform::XMLParser;

namespace {

// Nothing else is so called in a classic file, and nothing stands in one.
const QLatin1StringView tagName("tag");

} // namespace

void TagDropper::parserDidStartElement(XMLParser& parser, const QString& name,
                                       const platform::XMLAttributes& attributes)
{
    m_isInTag = name == tagName;
    if (!m_isInTag)
        m_target.parserDidStartElement(parser, name, attributes);
}

void TagDropper::parserFoundCharacters(XMLParser& parser, QUtf8StringView text)
{
    if (!m_isInTag)
        m_target.parserFoundCharacters(parser, text);
}

void TagDropper::parserFoundCData(XMLParser& parser, QByteArrayView utf8)
{
    if (!m_isInTag)
        m_target.parserFoundCData(parser, utf8);
}

void TagDropper::parserDidEndElement(XMLParser& parser, const QString& name)
{
    if (!m_isInTag)
        m_target.parserDidEndElement(parser, name);
    m_isInTag = false;
}

void TagDropper::parserParseErrorOccurred(XMLParser& parser, const platform::Error& error)
{
    m_target.parserParseErrorOccurred(parser, error);
}

void TagDropper::parserDidEndDocument(XMLParser& parser)
{
    m_target.parserDidEndDocument(parser);
}
