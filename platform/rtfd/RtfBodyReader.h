// SPDX-License-Identifier: MIT
#pragma once

#include "platform/rtfd/RtfCharsets.h"
#include "platform/rtfd/RtfReadFormats.h"
#include "platform/rtfd/RtfReadTables.h"
#include "platform/rtfd/RtfReader.h"
#include "platform/rtfd/RtfTableReader.h"
#include "platform/rtfd/RtfTextBuilder.h"
#include "platform/rtfd/RtfTokenizer.h"

namespace platform {

// Reads a whole document, a token at a time. Groups of the header are read by functions of their
// own; what is in force within the others is kept on a stack.
class RtfBodyReader {
public:
    RtfBodyReader(QByteArrayView rtf, const RtfAttachmentMaker& attachmentFor);

    [[nodiscard]] AttributedString read();
    [[nodiscard]] const DocumentAttributes& attributes() const { return m_attributes; }

private:
    struct State {
        RtfReadCharacters characters;
        std::shared_ptr<RtfReadParagraph> paragraph; // shared by states until one changes it
        QString link;
        int substitutes = 1; // \uc
        bool definesInnerRow = false;
        bool isMarker = false; // a list's marker, in a group of its own
        qsizetype markerStart = 0;
    };

    [[nodiscard]] State& state() { return m_states.back(); }
    [[nodiscard]] RtfReadParagraph& changedParagraph();

    void openGroup();
    void closeGroup();
    void readToken(const RtfToken& token);
    void readText(QByteArrayView bytes);
    void readSymbol(char symbol);
    void readStarredGroup();
    void readWord(const RtfToken& token);
    bool readGroupWord(RtfWord word);
    bool readCharacterWord(RtfWord word);
    bool readDocumentWord(const RtfReadWord& word);
    bool readStructureWord(RtfWord word);

    void appendText(QStringView text);
    void appendByte(char byte);
    void flushBytes();
    void appendUnit(qint32 number);
    bool skipsSubstitute();

    void endParagraph();
    void endCell(int depth);
    [[nodiscard]] std::shared_ptr<const ParagraphStyle> currentStyle(int depth);

    void readField();
    void readAttachment();
    void readPicture();
    void readOlderList();
    // The group that was opened last has been read to its end.
    void leaveReadGroup();

    RtfTokenizer m_tokens;
    const RtfAttachmentMaker& m_attachmentFor;
    RtfDecoders m_decoders;
    RtfDocumentFacts m_facts;
    DocumentAttributes m_attributes;
    RtfReadFonts m_fonts;
    RtfReadColors m_colors;
    RtfReadLists m_lists;
    RtfTextBuilder m_builder;
    RtfTableReader m_tables;

    std::vector<State> m_states;
    qint64 m_flattenedGroups = 0; // open beyond the depth that is kept
    bool m_isOver = false;

    // Holding the format keeps it from being changed in place: while it is in force, so is the
    // style.
    std::shared_ptr<RtfReadParagraph> m_styledParagraph;
    std::shared_ptr<const ParagraphStyle> m_style;

    QString m_decoded;  // kept for its capacity
    QByteArray m_bytes; // text that waits to be decoded
    int m_codePage = rtfWindowsCodePage;
    int m_codePageFont = -1; // the font whose code page that is
    qsizetype m_toSkip = 0;  // substitutes of the last \u
    int m_defaultFont = -1;
    bool m_isBare = false; // nothing but table words since \pard
    std::size_t m_placeholderDepth =
        0; // the group in which an attachment's placeholder is due, or 0
    std::shared_ptr<const TextList> m_olderList;
};

} // namespace platform
