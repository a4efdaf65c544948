// SPDX-License-Identifier: MIT
// Bytes as a style sheet, or as the declarations of a style attribute. How the text is cut into
// steps must not show.
#include "platform/webview/StyleScanner.h"
#include "platform/webview/TextEncoding.h"
#include "platform/webview/UrlText.h"

#include <cstdlib>

using platform::StyleReference;
using platform::StyleScanner;

namespace {

const QString base = QStringLiteral("http://example.org/folder/sheet.css");

QList<StyleReference> references(const QByteArray& text, StyleScanner::Form form, qsizetype step)
{
    StyleScanner scanner(text, base, QStringLiteral("screen"), form);
    QList<StyleReference> all;
    bool atEnd = false;
    while (!atEnd) {
        atEnd = scanner.advance(step);
        all += scanner.takeReferences();
    }
    return all;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const StyleScanner::Form form =
        data[0] & 1 ? StyleScanner::Form::Declarations : StyleScanner::Form::Sheet;
    const qsizetype step = 1 + (data[0] >> 1);
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1), qsizetype(size - 1));
    const QByteArray text = platform::decodeStyleSheet(bytes, QString(), QString()).utf8;
    const QList<StyleReference> whole = references(text, form, text.size() + 1);
    const QList<StyleReference> inSteps = references(text, form, step);
    if (whole.size() != inSteps.size())
        std::abort();
    for (qsizetype index = 0; index < whole.size(); ++index) {
        const StyleReference& reference = whole[index];
        if (reference.address != inSteps[index].address || reference.kind != inSteps[index].kind ||
            reference.applies != inSteps[index].applies)
            std::abort();
        if (reference.address.isEmpty() ||
            platform::absoluteAddress(reference.address, QString()) != reference.address)
            std::abort();
    }
    return 0;
}
