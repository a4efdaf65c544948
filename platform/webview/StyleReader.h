// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

namespace platform {

// A place in UTF-8 style text, and the tokens that can be read from it. Each read moves past what it read;
// at the end of the text everything is empty. Escapes are resolved.
class StyleReader {
public:
    explicit StyleReader(QByteArrayView text)
        : m_text(text)
    {
    }

    [[nodiscard]] bool atEnd() const { return m_position >= m_text.size(); }
    [[nodiscard]] qsizetype position() const { return m_position; }
    [[nodiscard]] qsizetype size() const { return m_text.size(); }
    // The byte at the place, or so many after it; a NUL behind the end.
    [[nodiscard]] char peek(qsizetype ahead = 0) const
    {
        return m_position + ahead < m_text.size() ? m_text[m_position + ahead] : '\0';
    }
    void skip() { ++m_position; }
    void skipAll() { m_position = m_text.size(); }
    void skipSpace();
    void skipSpaceAndComments();

    [[nodiscard]] bool atComment() const { return peek() == '/' && peek(1) == '*'; }
    [[nodiscard]] bool atName() const;

    QByteArray readName();
    // From its opening quote. A line break ends a string that was not closed.
    QByteArray readString();
    // What stands between the parentheses of url() and the like, from the opening one.
    QByteArray readArgument();
    // An at-rule's text up to its block, or past its semicolon; without comments.
    QByteArray readPrelude();

private:
    void readEscape(QByteArray& result);

    QByteArrayView m_text;
    qsizetype m_position = 0;
};

} // namespace platform
