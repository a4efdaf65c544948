// SPDX-License-Identifier: MIT
// The attributes of text that is yet to be typed, in a note's record: the platform's own archived
// objects, as our reader and one that shares no code with it find them.
#include "formats/QLNoteAttributes.h"
#include "platform/attributedtext/ArchivedAttributes.h"
#include "support/ScratchFolder.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

namespace {

using namespace platform;

QString s(const char* text)
{
    return QString::fromUtf8(text);
}

TextAttributes typingAttributes()
{
    TextAttributes attributes;
    attributes.font = Font{s("Helvetica"), 13.5, true, false};
    attributes.foregroundColor = Color::fromRgb8(255, 51, 0);
    attributes.backgroundColor = Color::fromRgb8(255, 255, 204);
    attributes.underline = LineStyle::Single;
    attributes.kern = 1.5;
    attributes.link = s("https://example.org/");
    ParagraphStyle style;
    style.direction = WritingDirection::LeftToRight;
    style.headIndent = 36;
    style.firstLineHeadIndent = 18;
    style.tabStops = {{TextAlignment::Left, 11}, {TextAlignment::Left, 36}};
    style.textLists = {std::make_shared<const TextList>(TextList{s("{decimal}."), 3})};
    attributes.paragraphStyle = std::make_shared<const ParagraphStyle>(style);
    return attributes;
}

QJsonObject printedBy(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60000)) << qPrintable(process.errorString());
    return QJsonDocument::fromJson(process.readAllStandardOutput()).object();
}

QByteArray recordWith(const TextAttributes& attributes)
{
    const auto record = std::make_shared<QLNoteAttributes>();
    record->setTypingAttributes(archivedTextAttributes(attributes));
    return QLNoteAttributes::archivedData(record).value_or(QByteArray());
}

TEST(TypingAttributesTest, ComeBackFromARecord)
{
    const auto record = QLNoteAttributes::unarchivedFromData(recordWith(typingAttributes()));
    ASSERT_TRUE(record);
    auto read = textAttributesFromArchivedObject(record->typingAttributes());
    ASSERT_TRUE(read && read->paragraphStyle);
    ParagraphStyle style = *read->paragraphStyle;
    ASSERT_EQ(style.textLists.size(), 1U);
    EXPECT_EQ(style.textLists.front()->markerFormat, s("{decimal}."));
    EXPECT_EQ(style.textLists.front()->startingItemNumber, 3);
    // A list is the list that it is only within one text.
    const TextAttributes wanted = typingAttributes();
    style.textLists = wanted.paragraphStyle->textLists;
    read->paragraphStyle = std::make_shared<const ParagraphStyle>(style);
    EXPECT_EQ(*read, wanted);
}

TEST(TypingAttributesTest, AnIndependentUnarchiverKnowsThem)
{
    const QString reader = QCoreApplication::applicationDirPath() + s("/rtfd-reader");
    if (!QFileInfo::exists(reader))
        GTEST_SKIP() << "the independent reader is not built (gobjc and GNUstep)";
    const test::ScratchFolder scratch;
    scratch.write(s("a.qlnote/TXT.rtf"), "{\\rtf1\\ansi a}");
    scratch.write(s("a.qlnote/NoteAttributes"), recordWith(typingAttributes()));
    const QJsonObject read = printedBy(reader, {scratch.filePath("a.qlnote")})
                                 .value(s("noteAttributes"))
                                 .toObject()
                                 .value(s("typingAttributes"))
                                 .toObject();
    EXPECT_EQ(read.value(s("NSFont")).toString(), s("Helvetica-Bold 13.5"));
    EXPECT_EQ(read.value(s("NSColor")).toString(), s("#ff3300"));
    EXPECT_EQ(read.value(s("NSBackgroundColor")).toString(), s("#ffffcc"));
    EXPECT_EQ(read.value(s("NSUnderline")).toInt(), 1);
    EXPECT_EQ(read.value(s("NSKern")).toDouble(), 1.5);
    EXPECT_EQ(read.value(s("NSLink")).toString(), s("https://example.org/"));
    const QJsonObject style = read.value(s("NSParagraphStyle")).toObject();
    EXPECT_EQ(style.value(s("headIndent")).toDouble(), 36);
    EXPECT_EQ(style.value(s("firstLineHeadIndent")).toDouble(), 18);
    EXPECT_EQ(style.value(s("tabStops")).toArray(), QJsonArray({11, 36}));
    EXPECT_EQ(style.value(s("textLists")).toArray(), QJsonArray({s("{decimal}.")}));
}

#ifdef PLIST_READER
TEST(TypingAttributesTest, PythonFindsEveryFieldOfTheObjects)
{
    const test::ScratchFolder scratch;
    scratch.write(s("record"), recordWith(typingAttributes()));
    const QJsonObject read = printedBy(s(PLIST_READER), {s(PLIST_READER_SCRIPT), scratch.filePath("record")})
                                 .value(s("typingAttributes"))
                                 .toObject();
    const QJsonObject font{{s("$class"), s("NSFont")},
                           {s("NSName"), s("Helvetica-Bold")},
                           {s("NSSize"), 13.5},
                           {s("NSfFlags"), 16}};
    EXPECT_EQ(read.value(s("NSFont")).toObject(), font);
    EXPECT_EQ(read.value(s("NSColor")).toObject().value(s("NSRGB")).toObject(),
              (QJsonObject{{s("$data"), QString::fromLatin1(QByteArray("1 0.2 0\0", 8).toBase64())}}));
    const QJsonArray tabs{QJsonObject{{s("$class"), s("NSTextTab")}, {s("NSLocation"), 11.0}},
                          QJsonObject{{s("$class"), s("NSTextTab")}, {s("NSLocation"), 36.0}}};
    const QJsonArray lists{QJsonObject{{s("$class"), s("NSTextList")},
                                       {s("NSMarkerFormat"), s("{decimal}.")},
                                       {s("NSStart"), 3}}};
    const QJsonObject style{{s("$class"), s("NSParagraphStyle")},
                            {s("NSAlignment"), 4},
                            {s("NSWritingDirection"), 1},
                            {s("NSHeadIndent"), 36.0},
                            {s("NSFirstLineHeadIndent"), 18.0},
                            {s("NSTabStops"), tabs},
                            {s("NSTextLists"), lists}};
    EXPECT_EQ(read.value(s("NSParagraphStyle")).toObject(), style);
}
#endif

} // namespace
