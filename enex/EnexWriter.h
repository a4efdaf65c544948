// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/xml/XMLParserDelegate.h"

#include <QByteArray>
#include <QByteArrayView>

class QIODevice;

// Writes the events that it receives as an XML document in UTF-8: characters escaped, CDATA as
// CDATA. A character that no XML document may hold becomes U+FFFD. The first failure of the output
// ends the parse.
class EnexWriter : public platform::XMLParserDelegate {
public:
    // The output must be open for writing and outlive the object.
    explicit EnexWriter(QIODevice& output);

    // What stands before the first element.
    void begin(platform::XMLParser& parser);

    // Why the output did not take everything; a null error when it did.
    [[nodiscard]] const platform::Error& error() const { return m_error; }

    void parserDidStartElement(platform::XMLParser& parser, const QString& name,
                               const platform::XMLAttributes& attributes) override;
    void parserFoundCharacters(platform::XMLParser& parser, QUtf8StringView text) override;
    void parserFoundCData(platform::XMLParser& parser, QByteArrayView utf8) override;
    void parserDidEndElement(platform::XMLParser& parser, const QString& name) override;
    void parserDidEndDocument(platform::XMLParser& parser) override;

private:
    enum class Escaping { Text, Attribute };

    void appendEscaped(QByteArrayView utf8, Escaping escaping);
    void write(platform::XMLParser& parser, qsizetype atLeast);

    QIODevice& m_output;
    QByteArray m_buffer;
    platform::Error m_error;
};
