// SPDX-License-Identifier: MIT
// The bodies of real notes, as pages, through rich text and back: nothing of what the import gives may
// get lost on the way, and what was written once is written again with the same bytes.
#include "platform/htmlimport/HtmlImport.h"
#include "platform/rtfd/RtfReader.h"
#include "platform/rtfd/RtfWriter.h"
#include "support/ScratchFolder.h"

#include <QDirIterator>
#include <QRegularExpression>

namespace {

using namespace platform;

QStringList corpusBodies()
{
    static const QRegularExpression content(
        QStringLiteral("<content>\\s*<!\\[CDATA\\[(.*?)\\]\\]>\\s*</content>"),
        QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression prologue(QStringLiteral("<\\?xml[^>]*>|<!DOCTYPE[^>]*>"));
    QStringList bodies;
    QDirIterator files(QStringLiteral(VUPUGE_SHARED_DIRECTORY "/corpus"), {QStringLiteral("*.enex")},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString text = QString::fromUtf8(test::readFile(files.next()));
        for (auto matches = content.globalMatch(text); matches.hasNext();)
            bodies.append(matches.next().captured(1).remove(prologue));
    }
    return bodies;
}

QByteArray written(const AttributedString& text)
{
    return rtfWithAttachments(text, {},
                              [](const TextAttachment&) { return QStringLiteral("file"); });
}

// What a run looks like, without what only one text has: the identity of attachments and lists.
void expectSameRuns(const AttributedString& left, const AttributedString& right)
{
    const auto runs = left.runs();
    for (const AttributedString::Run& run : runs) {
        for (qsizetype at = run.range.location; at < run.range.end(); ++at) {
            const TextAttributes& wanted = *run.attributes;
            const TextAttributes& given = right.attributesAt(at);
            ASSERT_EQ(given.font->family, wanted.font->family) << at;
            ASSERT_EQ(given.font->bold, wanted.font->bold) << at;
            ASSERT_EQ(given.font->italic, wanted.font->italic) << at;
            ASSERT_NEAR(given.font->size, wanted.font->size, 0.001) << at;
            ASSERT_EQ(given.foregroundColor.has_value(), wanted.foregroundColor.has_value()) << at;
            ASSERT_EQ(given.backgroundColor.has_value(), wanted.backgroundColor.has_value()) << at;
            ASSERT_EQ(given.underline, wanted.underline) << at;
            ASSERT_EQ(given.strikethrough, wanted.strikethrough) << at;
            ASSERT_EQ(given.superscript, wanted.superscript) << at;
            ASSERT_EQ(given.link.isEmpty(), wanted.link.isEmpty()) << at;
            ASSERT_EQ(given.attachment != nullptr, wanted.attachment != nullptr) << at;
            static const ParagraphStyle standard;
            const auto& style = given.paragraphStyle ? *given.paragraphStyle : standard;
            ASSERT_EQ(style.alignment, wanted.paragraphStyle->alignment) << at;
            ASSERT_NEAR(style.headIndent, wanted.paragraphStyle->headIndent, 0.026) << at;
            ASSERT_EQ(style.headerLevel, wanted.paragraphStyle->headerLevel) << at;
            ASSERT_EQ(style.textLists.size(), wanted.paragraphStyle->textLists.size()) << at;
            ASSERT_EQ(style.textBlocks.size(), wanted.paragraphStyle->textBlocks.size()) << at;
        }
    }
}

TEST(RichTextCorpusTest, RealNotesComeBackFromRichTextAndAreWrittenAgainWithTheSameBytes)
{
    const QStringList bodies = corpusBodies();
    if (bodies.isEmpty())
        GTEST_SKIP() << "there are no real exports";
    ASSERT_GT(bodies.size(), 50);
    for (const QString& body : bodies) {
        SCOPED_TRACE(body.left(200).toStdString());
        const auto text = attributedStringFromHtml(
            (QStringLiteral("<html><body>") + body + QStringLiteral("</body></html>")).toUtf8(), {});
        ASSERT_TRUE(text);
        const QByteArray rtf = written(*text);
        const auto read = attributedStringFromRtf(rtf);
        ASSERT_TRUE(read);
        ASSERT_EQ(read->string(), text->string());
        expectSameRuns(*text, *read);
        ASSERT_EQ(written(*read), rtf);
    }
    RecordProperty("bodies", static_cast<int>(bodies.size()));
}

} // namespace
