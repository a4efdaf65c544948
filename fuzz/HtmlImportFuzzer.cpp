// SPDX-License-Identifier: MIT
// Bytes as a note's page. Whatever the page is, the text that it gives is sound, and the rich text
// that is written of it reads back to the same text and is written again with the same bytes.
#include "platform/htmlimport/HtmlImport.h"
#include "platform/rtfd/RtfReader.h"
#include "platform/rtfd/RtfWriter.h"

#include <cstdlib>

using platform::AttributedString;

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

// Every run has a font and a paragraph style, and a paragraph has one style from its start to its end.
void checkSoundness(const AttributedString& text)
{
    require(text.isEmpty() || text.string().endsWith(u'\n'));
    const platform::ParagraphStyle* style = nullptr;
    for (const AttributedString::Run& run : text.runs()) {
        const QStringView piece =
            QStringView(text.string()).sliced(run.range.location, run.range.length);
        require(run.attributes->font && run.attributes->paragraphStyle);
        require((run.attributes->attachment != nullptr) == piece.contains(QChar(0xFFFC)));
        require(!style || *style == *run.attributes->paragraphStyle);
        style = piece.endsWith(u'\n') ? nullptr : run.attributes->paragraphStyle.get();
    }
}

QByteArray written(const AttributedString& text)
{
    return platform::rtfWithAttachments(text, {}, [](const platform::TextAttachment&) {
        return QStringLiteral("file");
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    platform::HtmlImportOptions options;
    options.preservedSpanDelimiters = platform::PreservedSpanDelimiters{
        QStringLiteral("***BEGIN "), QStringLiteral(" END***")};
    const auto text = platform::attributedStringFromHtml(
        QByteArrayView(reinterpret_cast<const char*>(data), qsizetype(size)), options);
    if (!text)
        return 0;
    checkSoundness(*text);
    const QByteArray rtf = written(*text);
    const auto read = platform::attributedStringFromRtf(rtf);
    require(read && read->string() == text->string());
    require(written(*read) == rtf);
    return 0;
}
