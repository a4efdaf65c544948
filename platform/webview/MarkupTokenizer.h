// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/TextEncoding.h"

#include <QByteArrayView>
#include <QList>

namespace platform {

// Cuts UTF-8 markup into tags and text, by the rules by which browsers cut HTML, or XML.
//
// There is no tree and no stack of open elements, so depth costs nothing and every page takes time
// in proportion to its length. A tree parser was measured against it: libxml2's takes 1 s for a
// page of 260 KB that opens 20,000 elements and closes 40,000 others, and four times that for each
// doubling.
//
// The markup must outlive the tokenizer; names, values and text are views of it.
class MarkupTokenizer {
public:
    enum class Token { StartTag, EndTag, Text, Instruction, End };

    MarkupTokenizer(QByteArrayView markup, MarkupKind kind);

    Token next();

    [[nodiscard]] Token token() const { return m_token; }
    // Of a tag; lower case in HTML, with any prefix in XML.
    [[nodiscard]] const QByteArray& name() const { return m_name; }
    [[nodiscard]] bool isSelfClosing() const { return m_selfClosing; }
    // Of a start tag, with references resolved; a null text where there is none. The first of
    // several counts.
    [[nodiscard]] QString attribute(const char* name) const;
    [[nodiscard]] bool hasAttribute(const char* name) const { return find(name) != nullptr; }
    // As written.
    [[nodiscard]] QByteArrayView rawAttribute(const char* name) const;
    // Of a text, as written; of an instruction, what stands between <? and ?>.
    [[nodiscard]] QByteArrayView text() const { return m_text; }
    // The text holds no references: a style element's in HTML, a CDATA section's.
    [[nodiscard]] bool isLiteralText() const { return m_literal; }

    [[nodiscard]] qsizetype position() const { return m_position; }

private:
    struct Attribute {
        QByteArrayView name;
        QByteArrayView value;
    };

    Token readText();
    Token readRawText();
    bool readMarkup();
    bool readDeclaration();
    bool readTag();
    void readAttributes();
    void skipSpace();
    void skipComment();
    void skipPast(QByteArrayView end);
    [[nodiscard]] const Attribute* find(const char* name) const;
    [[nodiscard]] char at(qsizetype position) const
    {
        return position < m_markup.size() ? m_markup[position] : '\0';
    }

    QByteArrayView m_markup;
    MarkupKind m_kind;
    qsizetype m_position = 0;
    Token m_token = Token::End;
    QByteArray m_name;
    QList<Attribute> m_attributes;
    bool m_selfClosing = false;
    QByteArrayView m_text;
    bool m_literal = false;
    // The element whose content is text up to its end tag; empty outside one.
    QByteArray m_rawElement;
};

} // namespace platform
