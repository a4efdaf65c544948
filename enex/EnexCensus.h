// SPDX-License-Identifier: MIT
#pragma once

#include "enex/NoteLinkTargets.h"
#include "platform/xml/XMLParserDelegate.h"

#include <QString>

#include <memory>

// What shows that an ENEX file is of today's Evernote, which writes more than its classic form has
// a place for.
struct ModernFileSigns {
    // Evernote 10 or later names itself in the file's header.
    bool hasModernHeader = false;
    // There is white space between the elements of a note.
    bool hasWhiteSpaceInNotes = false;
    // Some of it stands where it clears a date or adds an empty tag when the file is read as it
    // stands.
    bool hasHarmfulWhiteSpace = false;
    // Read as they stand, their titles and dates run into their notes'.
    quint64 tasks = 0;

    [[nodiscard]] bool isModern() const
    {
        return hasModernHeader || hasWhiteSpaceInNotes || tasks > 0;
    }
    // Something of the file does not come through when it is read as it stands.
    [[nodiscard]] bool losesWhenReadAsWritten() const { return hasHarmfulWhiteSpace || tasks > 0; }
};

// Looks through an ENEX file before it is converted, as an XMLParser's delegate or with its events
// passed on.
class EnexCensus : public platform::XMLParserDelegate {
public:
    enum class Titles {
        Skip,
        // As a file's notes get them when it is read as it stands, where a task's title is part of
        // its note's.
        AsWritten,
        // As they get them behind an EnexModernizer.
        Modern
    };

    explicit EnexCensus(Titles titles = Titles::Skip);
    ~EnexCensus() override;

    [[nodiscard]] const ModernFileSigns& signs() const { return m_signs; }
    // The notes by their titles; null unless they were to be collected.
    [[nodiscard]] const std::shared_ptr<NoteLinkTargets>& linkTargets() const
    {
        return m_linkTargets;
    }

    // A look at a file's header alone, which takes no longer for a long file. False for a file that
    // cannot be read.
    [[nodiscard]] static bool hasModernHeader(const QString& path);

    void parserDidStartElement(platform::XMLParser& parser, const QString& name,
                               const platform::XMLAttributes& attributes) override;
    void parserFoundCharacters(platform::XMLParser& parser, QUtf8StringView text) override;
    void parserFoundCData(platform::XMLParser& parser, QByteArrayView utf8) override;
    void parserDidEndElement(platform::XMLParser& parser, const QString& name) override;

private:
    void appendTitle(const char* utf8, qsizetype length);

    ModernFileSigns m_signs;
    Titles m_titles;
    std::shared_ptr<NoteLinkTargets> m_linkTargets;
    // How many elements are open inside a note, the note included; 0 outside.
    qsizetype m_depthInNote = 0;
    // The element of the note that was read last is a date or a tag.
    bool m_isAfterDateOrTag = false;
    bool m_isTitle = false;
    QByteArray m_title;
};
