// SPDX-License-Identifier: MIT
#pragma once

#include "platform/xml/XMLParser.h"

#include <QStringList>

namespace test {

// What a parser delivered, one line an event; neighbouring texts and neighbouring CDATA pieces
// joined.
class ParserEvents : public platform::XMLParserDelegate {
public:
    void parserDidStartElement(platform::XMLParser& parser, const QString& name,
                               const platform::XMLAttributes& attributes) override;
    void parserFoundCharacters(platform::XMLParser& parser, QUtf8StringView text) override;
    void parserFoundCData(platform::XMLParser& parser, QByteArrayView utf8) override;
    void parserDidEndElement(platform::XMLParser& parser, const QString& name) override;
    void parserParseErrorOccurred(platform::XMLParser& parser,
                                  const platform::Error& error) override;
    void parserDidEndDocument(platform::XMLParser& parser) override;

    QStringList lines;
    // The pieces in which text came, as they came.
    QStringList pieces;

private:
    void add(const QString& kind, const QString& text);
};

// Lines to compare with.
[[nodiscard]] QStringList lines(std::initializer_list<const char*> texts);

struct Parsed {
    bool succeeded = false;
    platform::Error error;
    QStringList lines;
    QStringList pieces;
};

// Parses in chunks of the usual size and again in chunks of one byte; fails the test when these
// differ.
[[nodiscard]] Parsed parsed(const QByteArray& document);

} // namespace test
