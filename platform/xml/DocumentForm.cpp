// SPDX-License-Identifier: MIT
#include "platform/xml/DocumentForm.h"

#include <QByteArray>

#include <algorithm>
#include <array>

namespace platform {

namespace {

// Of names in capitals; what follows may be a number, a variant, or nothing.
constexpr std::array<QByteArrayView, 17> beginnings = {
    "UTF-8",     "UTF8",  "US-ASCII",    "ASCII", "ISO-8859-", "ISO8859-",
    "ISO_8859-", "LATIN", "WINDOWS-125", "CP125", "KOI8-",     "MACINTOSH",
    "GB2312",    "GBK",   "GB18030",     "BIG5",  "EUC-"};

} // namespace

DocumentForm documentFormOf(QByteArrayView start)
{
    constexpr qsizetype signatureLength = 4;
    if (start.startsWith("\xFF\xFE") || start.startsWith(QByteArrayView("<\0", 2)))
        return DocumentForm::LittleUtf16;
    if (start.startsWith("\xFE\xFF") || start.startsWith(QByteArrayView("\0<", 2)))
        return DocumentForm::BigUtf16;
    const bool isEbcdic = start.startsWith("\x4C\x6F\xA7\x94");
    const QByteArrayView signature = start.first(std::min(start.size(), signatureLength));
    return signature.contains('\0') || isEbcdic ? DocumentForm::Other : DocumentForm::Ascii;
}

bool showsMarkup(DocumentForm form, QByteArrayView encoding)
{
    const QByteArray name = encoding.toByteArray().toUpper();
    if (form == DocumentForm::BigUtf16 || form == DocumentForm::LittleUtf16)
        return name.startsWith("UTF-16");
    return form == DocumentForm::Ascii &&
           (name == "SHIFT_JIS" || name == "SHIFT-JIS" || name == "SJIS" ||
            std::any_of(beginnings.begin(), beginnings.end(),
                        [&name](QByteArrayView beginning) { return name.startsWith(beginning); }));
}

} // namespace platform
