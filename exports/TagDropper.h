// SPDX-License-Identifier: MIT
#pragma once

#include "platform/xml/XMLParserDelegate.h"

// Passes the events of a classic ENEX file on, but for its tags.
class TagDropper : public platform::XMLParserDelegate {
public:
    // The target must outlive the object.
    explicit TagDropper(platform::XMLParserDelegate& target)
        : m_target(target)
    {
    }

    void parserDidStartElement(platform::XMLParser& parser, const QString& name,
                               const platform::XMLAttributes& attributes) override;
    void parserFoundCharacters(platform::XMLParser& parser, QUtf8StringView text) override;
    void parserFoundCData(platform::XMLParser& parser, QByteArrayView utf8) override;
    void parserDidEndElement(platform::XMLParser& parser, const QString& name) override;
    void parserParseErrorOccurred(platform::XMLParser& parser,
                                  const platform::Error& error) override;
    void parserDidEndDocument(platform::XMLParser& parser) override;

private:
    platform::XMLParserDelegate& m_target;
    bool m_isInTag = false;
};
