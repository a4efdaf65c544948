// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QString>

namespace platform {

// Encodings of text, with the numbers that macOS gives them.
enum class StringEncoding : quint32 {
    Ascii = 1,
    JapaneseEuc = 3,
    Utf8 = 4,
    IsoLatin1 = 5,
    ShiftJis = 8,
    IsoLatin2 = 9,
    Utf16 = 10,
    WindowsCyrillic = 11,
    WindowsLatin1 = 12,
    WindowsGreek = 13,
    WindowsTurkish = 14,
    WindowsLatin2 = 15,
    Iso2022Japanese = 21,
    MacRoman = 30,
    Utf16BigEndian = 0x90000100,
    Utf16LittleEndian = 0x94000100,
    Utf32 = 0x8C000100,
    Utf32BigEndian = 0x98000100,
    Utf32LittleEndian = 0x9C000100
};

// What cannot be decoded becomes U+FFFD; so does everything but ASCII in an encoding of another number. A
// byte order mark at the beginning is no part of the text.
[[nodiscard]] QString decodedString(QByteArrayView bytes, StringEncoding encoding);

} // namespace platform
