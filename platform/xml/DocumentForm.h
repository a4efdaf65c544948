// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

namespace platform {

// What the characters of a document's markup are written in, by its first bytes.
enum class DocumentForm {
    // The bytes of ASCII.
    Ascii,
    BigUtf16,
    LittleUtf16,
    // Anything else: EBCDIC, UTF-32.
    Other
};

// start: at least four bytes of the document, if it has so many.
[[nodiscard]] DocumentForm documentFormOf(QByteArrayView start);

// In a document of that form and encoding markup can be looked for before anybody decodes it: where
// one of
// "<", ">", quotation marks and the like is meant it stands, and the other way round. Not so where
// bytes change their meaning on the way, as in UTF-7, ISO-2022 and HZ, and in documents of another
// form.
[[nodiscard]] bool showsMarkup(DocumentForm form, QByteArrayView encoding);

} // namespace platform
