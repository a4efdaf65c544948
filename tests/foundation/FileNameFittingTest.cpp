// SPDX-License-Identifier: MIT
#include "foundation/FileNameFitting.h"

namespace {

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

TEST(FileNameFittingTest, LeavesANameThatFits)
{
    EXPECT_EQ(fileNameFittingBytes(text("Tax 2013.pdf"), 255), text("Tax 2013.pdf"));
}

TEST(FileNameFittingTest, ShortensBeforeTheExtensionAtACharacterBoundary)
{
    const QString japanese = QString(100, QChar(0x65E5)) + text(".qlnote"); // 307 bytes
    const QString fitting = fileNameFittingBytes(japanese, 255);
    EXPECT_EQ(fitting, QString(82, QChar(0x65E5)) + text(".qlnote"));
    EXPECT_LE(fitting.toUtf8().size(), 255);
}

TEST(FileNameFittingTest, NeverCutsWithinACharacterAsReadersSeeIt)
{
    const QString family = text("\U0001F468\u200D\U0001F469\u200D\U0001F467"); // 18 bytes, one character
    EXPECT_EQ(fileNameFittingBytes(family + family, 35), family);
    EXPECT_EQ(fileNameFittingBytes(text("e\u0301e\u0301"), 5), text("e\u0301"));
}

TEST(FileNameFittingTest, CutsAnExtensionThatLeavesNoRoom)
{
    const QString name = text("a.") + QString(300, u'e');
    EXPECT_EQ(fileNameFittingBytes(name, 255), name.first(255));
}

TEST(FileNameFittingTest, ATitleWhoseExtensionIsNoneIsCut)
{
    EXPECT_EQ(fileNameFromTitle(text("Report.") + QString(5000, u'x')).size(), 254);
    EXPECT_EQ(fileNameFromTitle(text("a/b.txt")), text("a-b.txt"));
    const QString hidden = QString(300, QChar(0x200B)) + text("Report.") + QString(300, u'x');
    EXPECT_EQ(fileNameFromTitle(hidden), text("Report.") + QString(247, u'x'));
}

} // namespace
