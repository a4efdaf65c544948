// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QByteArrayView>
#include <QString>
#include <QUtf8StringView>

#include <optional>

namespace platform {

class XMLParser;

// The attributes of a start tag, in document order, under their names as written. Valid during the
// delegate's call only.
class XMLAttributes {
public:
    // pairs: names and values in turn, UTF-8, ended by a null pointer; null when there are none.
    explicit XMLAttributes(const unsigned char* const* pairs);

    [[nodiscard]] qsizetype count() const { return m_count; }
    [[nodiscard]] QString name(qsizetype index) const;
    [[nodiscard]] QString value(qsizetype index) const;

    // The value of the attribute with that name, compared exactly.
    [[nodiscard]] std::optional<QString> value(QUtf8StringView name) const;

private:
    const char* const* m_pairs = nullptr;
    qsizetype m_count = 0;
};

// Receives what an XMLParser reads, on the thread that parses. Each call may abort the parser; none
// follows one that did. An exception that leaves a call ends the parse and leaves
// XMLParser::parse().
class XMLParserDelegate {
public:
    virtual ~XMLParserDelegate() = default;

    // name: the element's qualified name as written; prefixes are part of it.
    virtual void parserDidStartElement(XMLParser& parser, const QString& name,
                                       const XMLAttributes& attributes);

    // Text, white space included, with references resolved. It comes whole up to 64 KB; a longer
    // one comes in several pieces, never parted within a character.
    virtual void parserFoundCharacters(XMLParser& parser, QUtf8StringView text);

    // The content of a CDATA section, as UTF-8. A section above 1 MB comes in several pieces.
    virtual void parserFoundCData(XMLParser& parser, QByteArrayView utf8);

    virtual void parserDidEndElement(XMLParser& parser, const QString& name);

    // The error that ends the parse; not called for an abort.
    virtual void parserParseErrorOccurred(XMLParser& parser, const Error& error);

    // The document was read to its end, and well-formed.
    virtual void parserDidEndDocument(XMLParser& parser);
};

} // namespace platform
