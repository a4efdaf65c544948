// SPDX-License-Identifier: MIT
#include "platform/core/StringEncoding.h"

#include <unicode/ucnv.h>

#include <memory>

namespace platform {

namespace {

const char* converterName(StringEncoding encoding)
{
    switch (encoding) {
    case StringEncoding::Ascii:
        return "US-ASCII";
    case StringEncoding::JapaneseEuc:
        return "EUC-JP";
    case StringEncoding::Utf8:
        return "UTF-8";
    case StringEncoding::IsoLatin1:
        return "ISO-8859-1";
    case StringEncoding::ShiftJis:
        return "Shift_JIS";
    case StringEncoding::IsoLatin2:
        return "ISO-8859-2";
    case StringEncoding::Utf16:
        return "UTF-16";
    case StringEncoding::WindowsCyrillic:
        return "windows-1251";
    case StringEncoding::WindowsLatin1:
        return "windows-1252";
    case StringEncoding::WindowsGreek:
        return "windows-1253";
    case StringEncoding::WindowsTurkish:
        return "windows-1254";
    case StringEncoding::WindowsLatin2:
        return "windows-1250";
    case StringEncoding::Iso2022Japanese:
        return "ISO-2022-JP";
    case StringEncoding::MacRoman:
        return "macintosh";
    case StringEncoding::Utf16BigEndian:
        return "UTF-16BE";
    case StringEncoding::Utf16LittleEndian:
        return "UTF-16LE";
    case StringEncoding::Utf32:
        return "UTF-32";
    case StringEncoding::Utf32BigEndian:
        return "UTF-32BE";
    case StringEncoding::Utf32LittleEndian:
        return "UTF-32LE";
    }
    return "US-ASCII";
}

} // namespace

QString decodedString(QByteArrayView bytes, StringEncoding encoding)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UConverter, decltype(&ucnv_close)> converter(ucnv_open(converterName(encoding), &status),
                                                                       &ucnv_close);
    Q_ASSERT(U_SUCCESS(status));
    // No encoding makes more than two code units of a byte, be it a replacement or a pair of surrogates.
    QString text(bytes.size() * 2 + 2, Qt::Uninitialized);
    const int32_t size = ucnv_toUChars(converter.get(), reinterpret_cast<char16_t*>(text.data()),
                                       int32_t(text.size()), bytes.data(), int32_t(bytes.size()), &status);
    text.truncate(U_SUCCESS(status) ? size : 0);
    if (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    return text;
}

} // namespace platform
