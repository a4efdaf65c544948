// SPDX-License-Identifier: MIT
#include "foundation/FileNameFitting.h"

#include "support/ScratchFolder.h"

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

TEST(FileNameFittingTest, AFreeNameFitsWithItsNumberToo)
{
    const test::ScratchFolder folder;
    const QUrl url = QUrl::fromLocalFile(folder.path());
    const QString name = QString(100, QChar(0x65E5)) + text(".qlnote");
    QStringList names;
    for (int count = 0; count < 12; ++count) {
        names += freeFileNameInDirectoryAtURL(name, url);
        EXPECT_LE(names.back().toUtf8().size(), 255);
        EXPECT_TRUE(names.back().endsWith(text(".qlnote")));
        static_cast<void>(folder.write(names.back(), "x"));
    }
    EXPECT_EQ(names.removeDuplicates(), 0);
    EXPECT_EQ(folder.tree().size(), 12);
}

TEST(FileNameFittingTest, ANameOfFullLengthThatIsTakenGetsAFreeOneToo)
{
    const test::ScratchFolder folder;
    const QUrl url = QUrl::fromLocalFile(folder.path());
    for (const QString& name : {QString(255, u'a'), QString(248, u'b') + text(".qlnote")}) {
        for (int count = 0; count < 12; ++count) {
            const QString free = freeFileNameInDirectoryAtURL(name, url);
            EXPECT_FALSE(QFileInfo::exists(folder.filePath(free)));
            static_cast<void>(folder.write(free, "x"));
        }
    }
    EXPECT_EQ(folder.tree().size(), 24);
}

TEST(FileNameFittingTest, ANumberBehindALineBreakIsNotLost)
{
    const test::ScratchFolder folder;
    const QUrl url = QUrl::fromLocalFile(folder.path());
    for (int count = 0; count < 4; ++count) {
        const QString free = freeFileNameInDirectoryAtURL(text("*\n   "), url);
        EXPECT_FALSE(QFileInfo::exists(folder.filePath(free))) << testing::PrintToString(free);
        static_cast<void>(folder.write(free, "x"));
    }
    EXPECT_EQ(folder.tree().size(), 4);
}

TEST(FileNameFittingTest, ATitleWhoseExtensionIsNoneIsCut)
{
    EXPECT_EQ(fileNameFromTitle(text("Report.") + QString(5000, u'x')).size(), 254);
    EXPECT_EQ(fileNameFromTitle(text("a/b.txt")), text("a-b.txt"));
}

} // namespace
