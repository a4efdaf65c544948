// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <optional>
#include <string_view>

namespace platform {

// Stands between a document's bytes and the XML library, which collects each CDATA section whole
// and compares each attribute of a tag with every other. Long CDATA sections are cut into several,
// which means the same; a tag with too many attributes is found before the library sees its end.
//
// Follows just enough of the grammar of a well-formed document, in any encoding that leaves markup
// alone (see DocumentForm); what comes after a document's first error the library must not be
// given.
class InputGuard {
public:
    static constexpr qsizetype maximumAttributes = 1000;
    static constexpr qsizetype defaultCDataLength = 1024 * 1024;

    enum class LongCData { LeaveWhole, Split };

    explicit InputGuard(qsizetype cDataLength = defaultCDataLength)
        : m_maximumCData(cDataLength)
    {
    }

    struct Passed {
        qsizetype read;
        qsizetype written;
    };

    // Copies what fits. LongCData::Split is for UTF-8 alone.
    Passed pass(const char* input, qsizetype inputLength, char* output, qsizetype outputLength,
                LongCData longCData);

    enum class ByteOrder { BigEndian, LittleEndian };
    // Looks at a text in UTF-16, which may end within a character; nothing of it can be cut.
    void watchUtf16(const char* input, qsizetype inputLength, ByteOrder order);

    [[nodiscard]] bool foundTooManyAttributes() const { return m_attributes > maximumAttributes; }

private:
    enum class State { Text, Markup, Declaration, Tag, CData, Comment, Instruction };

    struct Cursor;
    void passText(Cursor& cursor);
    void passMarkup(Cursor& cursor);
    void passDeclaration(Cursor& cursor);
    void passTag(Cursor& cursor);
    void passCData(Cursor& cursor, LongCData longCData);
    void passUntil(Cursor& cursor, char repeated, std::size_t times);

    qsizetype m_maximumCData;
    State m_state = State::Text;
    // The part of a split that is still to be written.
    std::string_view m_insertion;
    // What may follow the "<" that was seen, and how much of it did; elsewhere, how many closing
    // characters were seen in a row.
    std::string_view m_opening;
    std::size_t m_matched = 0;
    char m_quote = 0;
    char m_last = 0;
    qsizetype m_attributes = 0;
    qsizetype m_cDataLength = 0;
    // The first byte of a UTF-16 unit of which the second is still to come.
    std::optional<char> m_halfUnit;
};

} // namespace platform
