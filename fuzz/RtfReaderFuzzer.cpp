// SPDX-License-Identifier: MIT
// Bytes as rich text of any writer. What is written of the text that was read gives that text again,
// and from then on the bytes stay the same.
#include "platform/rtfd/RtfReader.h"
#include "platform/rtfd/RtfWriter.h"

#include <cstdlib>

namespace {

struct Document {
    platform::AttributedString text;
    platform::DocumentAttributes attributes;
};

std::optional<Document> read(QByteArrayView rtf)
{
    Document document;
    auto text = platform::attributedStringFromRtf(rtf, &document.attributes);
    if (!text)
        return std::nullopt;
    document.text = std::move(*text);
    return document;
}

QByteArray written(const Document& document)
{
    return platform::rtfWithAttachments(
        document.text, document.attributes,
        [](const platform::TextAttachment&) { return QStringLiteral("file"); });
}

// A cell always ends: a text that is cut off within one cannot be written as it is.
bool isCutOffInCell(const platform::AttributedString& text)
{
    if (text.isEmpty() || text.string().endsWith(u'\n'))
        return false;
    const auto& style = text.attributesAt(text.length() - 1).paragraphStyle;
    return style && !style->textBlocks.empty();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    auto document = read(QByteArrayView(reinterpret_cast<const char*>(data), qsizetype(size)));
    if (document && isCutOffInCell(document->text))
        document = read(written(*document));
    if (!document)
        return 0;
    const QByteArray first = written(*document);
    const auto again = read(first);
    if (!again || again->text.string() != document->text.string() || written(*again) != first)
        std::abort();
    return 0;
}
