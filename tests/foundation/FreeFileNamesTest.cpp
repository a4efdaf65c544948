// SPDX-License-Identifier: MIT
#include "foundation/FreeFileNames.h"

#include "foundation/StringBMExtensions.h"

#include "support/ScratchFolder.h"

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

TEST(FreeFileNameTest, AFreeNameFitsWithItsNumberToo)
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

TEST(FreeFileNameTest, ANameOfFullLengthThatIsTakenGetsAFreeOneToo)
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

TEST(FreeFileNameTest, ANumberBehindALineBreakIsNotLost)
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

class FreeFileNamesTest : public ::testing::Test {
protected:
    [[nodiscard]] QUrl url() const { return QUrl::fromLocalFile(m_folder.path()); }
    void take(const QString& name) { static_cast<void>(m_folder.write(name, "")); }
    QString freeName(const char* name) { return m_names.freeName(text(name), url()); }

    test::ScratchFolder m_folder;
    FreeFileNames m_names;
};

TEST_F(FreeFileNamesTest, NamesAreThoseThatTheFolderAloneWouldGive)
{
    for (const char* name : {"a.b", "a 1.b", "a 3.b", "a 4.b", ".c"})
        take(text(name));
    for (const char* name :
         {"a.b", "a.b", "d", ".c", "a.b", "d", ".c", "a 1.b", "d", "", "", "*\n  ", "*\n  "}) {
        const QString given = freeName(name);
        EXPECT_EQ(given, freeFileNameInDirectoryAtURL(text(name), url())) << name;
        take(given);
    }
    EXPECT_EQ(m_folder.tree().size(), 18);
}

TEST_F(FreeFileNamesTest, ANameThatWasNotTakenIsGivenAgain)
{
    EXPECT_EQ(freeName("a"), text("a"));
    EXPECT_EQ(freeName("a"), text("a"));
    take(text("a"));
    EXPECT_EQ(freeName("a"), text("a 1"));
    take(text("a 1"));
    EXPECT_EQ(freeName("a"), text("a 2"));
    EXPECT_EQ(freeName("a"), text("a 2"));
    ASSERT_TRUE(QFile::remove(m_folder.filePath("a")));
    EXPECT_EQ(freeName("a"), text("a"));
}

TEST_F(FreeFileNamesTest, WhatOthersPutThereIsSeen)
{
    for (const char* name : {"a", "a 1", "a 2"})
        take(text(name));
    EXPECT_EQ(freeName("a"), text("a 3"));
    take(text("a 3"));
    take(text("a 4"));
    EXPECT_EQ(freeName("a"), text("a 5"));
}

TEST_F(FreeFileNamesTest, EachFolderHasNumbersOfItsOwn)
{
    const test::ScratchFolder other;
    for (const char* name : {"a", "a 1", "a 2"})
        take(text(name));
    EXPECT_EQ(freeName("a"), text("a 3"));
    other.write(text("a"), "");
    EXPECT_EQ(m_names.freeName(text("a"), QUrl::fromLocalFile(other.path())), text("a 1"));
}

// Counted from 1 each time, these would be 400 million look-ups.
TEST_F(FreeFileNamesTest, ThousandsOfFilesMayWantOneName)
{
    constexpr int count = 20000;
    const QString longName = QString(300, u'x') + text(".qlnote");
    const QString base = QString(240, u'x');
    take(text("Untitled"));
    take(m_names.freeName(longName, url()));
    for (int number = 1; number < count; ++number) {
        const QString untitled = freeName("Untitled");
        ASSERT_EQ(untitled, text("Untitled %1").arg(number));
        take(untitled);
        // The numbered names of long ones begin with one that needs no number yet.
        const QString numbered = m_names.freeName(longName, url());
        ASSERT_EQ(numbered,
                  base + (number == 1 ? QString() : text(" %1").arg(number - 1)) + text(".qlnote"));
        take(numbered);
    }
}

} // namespace
