// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

namespace platform {

struct RtfToken {
    enum class Kind {
        GroupOpen,
        GroupClose,
        Word,   // \name with an optional number
        Symbol, // a backslash and one other character; a line end for \par
        Byte,   // \'xx
        Text,   // bytes without line ends
        Binary, // the bytes after \bin
        End
    };
    Kind kind = Kind::End;
    QByteArrayView bytes; // a word's name, text, or binary data
    char symbol = 0;      // of a symbol, or the value of a byte
    bool hasNumber = false;
    qint32 number = 0;

    [[nodiscard]] bool isWord(QByteArrayView name) const
    {
        return kind == Kind::Word && bytes == name;
    }
};

// Splits rich text. Any bytes are taken: what is no escape is text, and the end of the bytes ends
// the last token. Numbers beyond 32 bits are brought to the nearest that fits.
class RtfTokenizer {
public:
    explicit RtfTokenizer(QByteArrayView bytes)
        : m_position(bytes.data())
        , m_end(bytes.data() + bytes.size())
    {
    }

    [[nodiscard]] RtfToken next();

private:
    [[nodiscard]] RtfToken escape();
    [[nodiscard]] RtfToken word();

    const char* m_position;
    const char* m_end;
};

// -1 for what is no hex digit.
[[nodiscard]] int rtfHexDigit(char character);

} // namespace platform
