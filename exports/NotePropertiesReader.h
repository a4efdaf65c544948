// SPDX-License-Identifier: MIT
#pragma once

#include "exports/NotebookIndex.h"
#include "platform/core/DateFormatter.h"
#include "platform/xml/XMLParserDelegate.h"

#include <vector>

// Collects the properties of notes from the events of a classic ENEX file, as an EnexModernizer
// passes them on; their content goes by.
class NotePropertiesReader : public platform::XMLParserDelegate {
public:
    NotePropertiesReader();

    [[nodiscard]] std::vector<NotebookIndex::Note>& notes() { return m_notes; }

    void parserDidStartElement(platform::XMLParser& parser, const QString& name,
                               const platform::XMLAttributes& attributes) override;
    void parserFoundCharacters(platform::XMLParser& parser, QUtf8StringView text) override;
    void parserDidEndElement(platform::XMLParser& parser, const QString& name) override;

private:
    enum class Field { None, Title, Created, Updated, Tag, SourceURL };

    void endField();
    [[nodiscard]] QDateTime dateOf(const QString& timeStamp) const;

    std::vector<NotebookIndex::Note> m_notes;
    // How many elements are open from the note on.
    int m_depth = 0;
    bool m_isInNoteAttributes = false;
    Field m_field = Field::None;
    QString m_text;
    platform::DateFormatter m_wallClock;
    bool m_readsUtc;
};
