// SPDX-License-Identifier: MIT
#include "platform/scripting/LibraryNames.h"

#include "platform/files/FileManager.h"

namespace {

using platform::LibraryNames;
using platform::safeFileName;

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

TEST(SafeFileNameTest, NothingThatLeavesTheFolderOrHidesTheFileIsLeft)
{
    EXPECT_EQ(safeFileName(text("a/b")), text("a-b"));
    EXPECT_EQ(safeFileName(text("../../etc")), text("_.-..-etc"));
    EXPECT_EQ(safeFileName(text(".")), text("_"));
    EXPECT_EQ(safeFileName(text("..")), text("_."));
    EXPECT_EQ(safeFileName(text(".hidden")), text("_hidden"));
    EXPECT_EQ(safeFileName(text("a") + QChar(0) + text("b\nc")), text("a b c"));
    EXPECT_EQ(safeFileName(QString()), text("Untitled"));
    EXPECT_EQ(safeFileName(text("  ")), text("Untitled"));
    EXPECT_EQ(safeFileName(text("Caf\u00e9: 50 % \U0001f600")), text("Caf\u00e9: 50 % \U0001f600"));
}

TEST(SafeFileNameTest, HalfASurrogatePairBecomesAWholeCharacter)
{
    const QString name = safeFileName(text("a") + QChar(0xd83d));
    EXPECT_EQ(QString::fromUtf8(name.toUtf8()), name);
    EXPECT_FALSE(name.contains(QChar(0xd83d)));
}

TEST(LibraryNamesTest, ATakenNameGetsTheFirstFreeNumberBeforeItsExtension)
{
    LibraryNames names;
    names.insert(text("Note 2.rtfd"));
    EXPECT_EQ(names.takeFreeName(text("Note"), text("rtfd")), text("Note.rtfd"));
    EXPECT_EQ(names.takeFreeName(text("Note"), text("rtfd")), text("Note 1.rtfd"));
    EXPECT_EQ(names.takeFreeName(text("Note"), text("rtfd")), text("Note 3.rtfd"));
    EXPECT_EQ(names.takeFreeName(text("Note"), text("pdf")), text("Note.pdf"));
    EXPECT_EQ(names.takeFreeName(text("Note")), text("Note"));
    EXPECT_EQ(names.takeFreeName(text("Note")), text("Note 1"));
}

TEST(LibraryNamesTest, NamesThatAreOneFileOnAMacAreOneName)
{
    LibraryNames names;
    names.insert(text("CAF\u00c9"));
    EXPECT_EQ(names.takeFreeName(text("cafe\u0301")), text("cafe\u0301 1"));
}

TEST(LibraryNamesTest, AnExtensionIsNotDoubled)
{
    LibraryNames names;
    EXPECT_EQ(names.takeFreeName(text("Report.PDF"), text("pdf")), text("Report.pdf"));
    EXPECT_EQ(names.takeFreeName(text("Report.pdf"), text("pdf")), text("Report 1.pdf"));
    EXPECT_EQ(names.takeFreeName(text(".pdf"), text("pdf")), text("_pdf.pdf"));
}

TEST(LibraryNamesTest, LongNamesAreCutBetweenCharactersBeforeTheExtension)
{
    LibraryNames names;
    const QString smile = text("\U0001f600");
    const QString stem = smile.repeated(100);
    const QString first = names.takeFreeName(stem, text("rtfd"));
    EXPECT_EQ(first, smile.repeated(62) + text(".rtfd")); // 62 x 4 + 5 = 253 bytes
    const QString second = names.takeFreeName(stem, text("rtfd"));
    EXPECT_TRUE(second.endsWith(text(" 1.rtfd")));
    EXPECT_LE(second.toUtf8().size(), platform::maximumFileNameBytes);
    EXPECT_EQ(names.takeFreeName(QString(300, QLatin1Char('x'))), QString(255, QLatin1Char('x')));
    EXPECT_LE(names.takeFreeName(text("a"), QString(250, QLatin1Char('e'))).toUtf8().size(), 255);
}

TEST(LibraryNamesTest, AHundredThousandEqualNamesTakeNoLongerThanOthers)
{
    LibraryNames names;
    const QString stem(300, QLatin1Char('x'));
    QSet<QString> taken;
    for (int count = 0; count < 50000; ++count) {
        taken.insert(names.takeFreeName(text("Untitled"), text("rtfd")));
        taken.insert(names.takeFreeName(stem + QString::number(count % 100), text("rtfd")));
    }
    EXPECT_EQ(taken.size(), 100000);
}

} // namespace
