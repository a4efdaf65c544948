// SPDX-License-Identifier: MIT
#include "platform/xml/XMLParserDelegate.h"

#include <cstring>

namespace platform {

XMLAttributes::XMLAttributes(const unsigned char* const* pairs)
    : m_pairs(reinterpret_cast<const char* const*>(pairs))
{
    if (!m_pairs)
        return;
    while (m_pairs[2 * m_count])
        ++m_count;
}

QString XMLAttributes::name(qsizetype index) const
{
    Q_ASSERT(index >= 0 && index < m_count);
    return QString::fromUtf8(m_pairs[2 * index]);
}

QString XMLAttributes::value(qsizetype index) const
{
    Q_ASSERT(index >= 0 && index < m_count);
    return QString::fromUtf8(m_pairs[2 * index + 1]);
}

std::optional<QString> XMLAttributes::value(QUtf8StringView name) const
{
    for (qsizetype index = 0; index < m_count; ++index) {
        if (QUtf8StringView(m_pairs[2 * index]) == name)
            return value(index);
    }
    return std::nullopt;
}

void XMLParserDelegate::parserDidStartElement(XMLParser&, const QString&, const XMLAttributes&) {}
void XMLParserDelegate::parserFoundCharacters(XMLParser&, QUtf8StringView) {}
void XMLParserDelegate::parserFoundCData(XMLParser&, QByteArrayView) {}
void XMLParserDelegate::parserDidEndElement(XMLParser&, const QString&) {}
void XMLParserDelegate::parserParseErrorOccurred(XMLParser&, const Error&) {}
void XMLParserDelegate::parserDidEndDocument(XMLParser&) {}

} // namespace platform
