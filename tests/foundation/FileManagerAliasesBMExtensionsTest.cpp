// SPDX-License-Identifier: MIT
#include "foundation/FileManagerAliasesBMExtensions.h"

#include "platform/files/AliasFile.h"
#include "platform/files/FileManager.h"
#include "support/ScratchFolder.h"

#include <QDir>
#include <QFile>
#include <QtEndian>

#include <random>

namespace {

using namespace Qt::StringLiterals;

QByteArray number(quint32 value)
{
    QByteArray bytes(4, '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}

// Bookmark data as an alias file holds it, by the public layout: the values, then a table with one key.
QByteArray aliasFile(const QString& path)
{
    QByteArray body(4, '\0'); // the table's offset, filled in at the end
    const auto append = [&](quint32 type, const QByteArray& bytes) {
        const auto offset = quint32(body.size());
        body += number(quint32(bytes.size())) + number(type) + bytes;
        body.append((4 - body.size() % 4) % 4, '\0');
        return offset;
    };
    QByteArray offsets;
    for (const QString& component : path.split(u'/', Qt::SkipEmptyParts))
        offsets += number(append(0x0101, component.toUtf8()));
    const quint32 array = append(0x0601, offsets);
    const quint32 name = append(0x0101, "Macintosh HD");
    const auto table = quint32(body.size());
    body += number(20 + 24 - 8) + number(0xFFFFFFFE) + number(1) + number(0) + number(2);
    body += number(0x1004) + number(array) + number(0) + number(0x2010) + number(name) + number(0);
    body.replace(0, 4, number(table));
    QByteArray header = QByteArray("book\0\0\0\0mark\0\0\0\0", 16) + number(0x38) + number(0x38);
    header.append(0x38 - header.size(), '\0');
    return header + body;
}

class AliasesTest : public ::testing::Test {
protected:
    [[nodiscard]] QUrl url(const QString& name) const { return QUrl::fromLocalFile(m_folder.filePath(name)); }

    test::ScratchFolder m_folder;
    platform::Error m_error;
};

using IsAliasTest = AliasesTest;
using OriginalUrlTest = AliasesTest;

TEST_F(IsAliasTest, LinksAndAliasFilesAreAliases)
{
    m_folder.write(u"file"_s, "book");
    m_folder.write(u"alias"_s, aliasFile(u"/nowhere"_s));
    ASSERT_TRUE(QFile::link(m_folder.filePath("nothing"), m_folder.filePath("link")));
    EXPECT_TRUE(isAliasAtURL(url(u"alias"_s)));
    EXPECT_TRUE(isAliasAtURL(url(u"link"_s)));
    EXPECT_FALSE(isAliasAtURL(url(u"file"_s)));
    EXPECT_FALSE(isAliasAtURL(QUrl::fromLocalFile(m_folder.path())));
}

TEST_F(IsAliasTest, SaysWhetherTheFlagCouldBeRead)
{
    bool flag = true;
    m_folder.write(u"file"_s, "");
    EXPECT_TRUE(isAlias(&flag, url(u"file"_s), &m_error));
    EXPECT_FALSE(flag);
    EXPECT_TRUE(m_error.isNull());
    flag = true;
    EXPECT_FALSE(isAlias(&flag, url(u"nothing"_s), &m_error));
    EXPECT_TRUE(flag);
    EXPECT_EQ(m_error.code(), platform::FileReadNoSuchFileError);
    EXPECT_TRUE(isAlias(nullptr, url(u"file"_s)));
    EXPECT_FALSE(isAlias(nullptr, QUrl()));
    EXPECT_FALSE(isAliasAtURL(url(u"nothing"_s)));
}

TEST_F(OriginalUrlTest, AnAliasFileLeadsToThePathInItsBookmark)
{
    const QString original = m_folder.write(u"Caf\u00e9 notes.txt"_s, "x");
    m_folder.write(u"alias"_s, aliasFile(original));
    EXPECT_EQ(originalURLForAliasAtURL(url(u"alias"_s), &m_error), QUrl::fromLocalFile(original));
    EXPECT_TRUE(m_error.isNull());
}

TEST_F(OriginalUrlTest, AnOlderBookmarkHasItsHeaderSizeFurtherUp)
{
    QByteArray data = aliasFile(m_folder.path());
    data.replace(4, 12, number(quint32(data.size())) + number(0x10040000) + number(0x38));
    EXPECT_EQ(platform::pathInBookmarkData(data), m_folder.path());
}

TEST_F(OriginalUrlTest, ALinkLeadsToItsEnd)
{
    const QString original = QFileInfo(m_folder.write(u"file"_s, "x")).canonicalFilePath();
    ASSERT_TRUE(QFile::link(u"file"_s, m_folder.filePath("link")));
    ASSERT_TRUE(QFile::link(u"link"_s, m_folder.filePath("second")));
    EXPECT_EQ(originalURLForAliasAtURL(url(u"second"_s)), QUrl::fromLocalFile(original));
}

TEST_F(OriginalUrlTest, AnOriginalThatIsNotThereIsAnError)
{
    m_folder.write(u"alias"_s, aliasFile(m_folder.filePath("gone")));
    EXPECT_EQ(originalURLForAliasAtURL(url(u"alias"_s), &m_error), std::nullopt);
    EXPECT_EQ(m_error.code(), platform::FileNoSuchFileError);
    m_error = {};
    ASSERT_TRUE(QFile::link(m_folder.filePath("gone"), m_folder.filePath("link")));
    EXPECT_EQ(originalURLForAliasAtURL(url(u"link"_s), &m_error), std::nullopt);
    EXPECT_EQ(m_error.code(), platform::FileNoSuchFileError);
}

TEST_F(OriginalUrlTest, LinksInACircleAreAnError)
{
    ASSERT_TRUE(QFile::link(u"second"_s, m_folder.filePath("first")));
    ASSERT_TRUE(QFile::link(u"first"_s, m_folder.filePath("second")));
    EXPECT_EQ(originalURLForAliasAtURL(url(u"first"_s), &m_error), std::nullopt);
    EXPECT_EQ(m_error.code(), platform::FileReadUnknownError);
}

TEST_F(OriginalUrlTest, WhatIsNoAliasIsAnError)
{
    m_folder.write(u"file"_s, "text");
    EXPECT_EQ(originalURLForAliasAtURL(url(u"file"_s), &m_error), std::nullopt);
    EXPECT_EQ(m_error.code(), platform::FileReadCorruptFileError);
    EXPECT_EQ(originalURLForAliasAtURL(QUrl::fromLocalFile(m_folder.path()), &m_error), std::nullopt);
    EXPECT_EQ(m_error.code(), platform::FileReadCorruptFileError);
    EXPECT_EQ(originalURLForAliasAtURL(url(u"nothing"_s), &m_error), std::nullopt);
    EXPECT_EQ(m_error.code(), platform::FileReadNoSuchFileError);
}

TEST(BookmarkDataTest, AComponentThatWouldLeaveItsFolderMakesNoPath)
{
    QByteArray data = aliasFile(u"/a/bb/c"_s);
    EXPECT_EQ(platform::pathInBookmarkData(data), u"/a/bb/c"_s);
    data.replace("bb", "..");
    EXPECT_EQ(platform::pathInBookmarkData(data), std::nullopt);
}

TEST(BookmarkDataTest, DamagedDataNeverDoesHarm)
{
    const QByteArray whole = aliasFile(u"/Users/someone/Documents/Notes.qlnote"_s);
    for (qsizetype size = 0; size < whole.size(); ++size)
        static_cast<void>(platform::pathInBookmarkData(QByteArray(whole.constData(), size)));
    std::mt19937 random(9);
    for (int count = 0; count < 20000; ++count) {
        QByteArray damaged = whole;
        for (int change = 0; change < 3; ++change)
            damaged[qsizetype(random() % size_t(damaged.size()))] = char(random());
        static_cast<void>(platform::pathInBookmarkData(damaged));
    }
}

} // namespace
