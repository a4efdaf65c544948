// SPDX-License-Identifier: MIT
#include "foundation/FileManagerItemsBMExtensions.h"

#include "platform/files/ItemKind.h"
#include "support/RandomText.h"
#include "support/ScratchFolder.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

using namespace Qt::StringLiterals;

// Finder info of 32 bytes whose flags, big-endian at 8, are the given ones.
bool setFinderFlags(const QString& path, quint16 flags)
{
    QByteArray info(32, '\0');
    info[8] = char(flags >> 8);
    info[9] = char(flags);
    return ::setxattr(QFile::encodeName(path).constData(), "user.com.apple.FinderInfo", info.constData(), 32, 0) == 0;
}

class ItemsTest : public ::testing::Test {
protected:
    QString makeFolder(const QString& name)
    {
        EXPECT_TRUE(QDir().mkpath(m_folder.filePath(name)));
        return m_folder.filePath(name);
    }

    test::ScratchFolder m_folder;
};

using IsDirectoryTest = ItemsTest;
using IsHiddenTest = ItemsTest;
using IsSymbolicLinkTest = ItemsTest;
using IsBusyTest = ItemsTest;

TEST_F(IsDirectoryTest, AFolderIsOneAndAPackageIsNot)
{
    EXPECT_TRUE(isDirectoryAtPath(makeFolder(u"Notes"_s)));
    EXPECT_TRUE(isDirectoryAtPath(makeFolder(u"Notes"_s) + u'/'));
    EXPECT_TRUE(isDirectoryAtPath(makeFolder(u"Notes.backup"_s)));
    for (const char* name : {"a.qlnote", "a.rtfd", "a.APP", "a.bundle", "a.plugin"})
        EXPECT_FALSE(isDirectoryAtPath(makeFolder(QString::fromLatin1(name)))) << name;
    EXPECT_TRUE(isDirectoryAtPath(makeFolder(u".app"_s)));
}

TEST_F(IsDirectoryTest, TheBundleFlagMakesAPackage)
{
    const QString path = makeFolder(u"Library"_s);
    if (!setFinderFlags(path, platform::finderFlagBundle))
        GTEST_SKIP() << "the file system keeps no attributes";
    EXPECT_FALSE(isDirectoryAtPath(path));
}

TEST_F(IsDirectoryTest, FilesLinksAndNothingAreNone)
{
    EXPECT_FALSE(isDirectoryAtPath(m_folder.write(u"file"_s, "x")));
    EXPECT_FALSE(isDirectoryAtPath(m_folder.filePath("nothing")));
    EXPECT_FALSE(isDirectoryAtPath(QString()));
    ASSERT_TRUE(QFile::link(makeFolder(u"Notes"_s), m_folder.filePath("link")));
    EXPECT_FALSE(isDirectoryAtPath(m_folder.filePath("link")));
}

TEST_F(IsHiddenTest, APathTextThatBeginsWithADotIsHiddenWhateverItNames)
{
    EXPECT_TRUE(isHiddenFileAtPath(u".nothing/visible"_s));
    EXPECT_TRUE(isHiddenFileAtPath(u"./visible"_s));
    EXPECT_FALSE(isHiddenFileAtPath(u"visible/.nothing"_s));
}

TEST_F(IsHiddenTest, AnAbsolutePathIsHiddenByWhatTheItemSaysAlone)
{
    EXPECT_FALSE(isHiddenFileAtPath(m_folder.filePath(".nothing")));
    EXPECT_TRUE(isHiddenFileAtPath(m_folder.write(u".there"_s, "x")));
    const QString path = m_folder.write(u"there"_s, "x");
    EXPECT_FALSE(isHiddenFileAtPath(path));
    if (!setFinderFlags(path, platform::finderFlagInvisible))
        GTEST_SKIP() << "the file system keeps no attributes";
    EXPECT_TRUE(isHiddenFileAtPath(path));
}

TEST_F(IsSymbolicLinkTest, ALinkIsOneWhereverItLeads)
{
    const QString file = m_folder.write(u"file"_s, "x");
    ASSERT_TRUE(QFile::link(file, m_folder.filePath("link")));
    ASSERT_TRUE(QFile::link(m_folder.filePath("nothing"), m_folder.filePath("dangling")));
    EXPECT_TRUE(isSymbolicLinkAtPath(m_folder.filePath("link")));
    EXPECT_TRUE(isSymbolicLinkAtPath(m_folder.filePath("dangling")));
    EXPECT_FALSE(isSymbolicLinkAtPath(file));
    EXPECT_FALSE(isSymbolicLinkAtPath(m_folder.filePath("nothing")));
}

TEST_F(IsBusyTest, AFileThatIsOpenForWritingIsBusy)
{
    const QString path = m_folder.write(u"file"_s, "x");
    EXPECT_FALSE(itemIsBusyAtPath(path));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_FALSE(itemIsBusyAtPath(path));
    file.close();
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    EXPECT_TRUE(itemIsBusyAtPath(path));
    file.close();
    EXPECT_FALSE(itemIsBusyAtPath(path));
}

TEST_F(IsBusyTest, ALockedFileIsBusy)
{
    const QString path = m_folder.write(u"file"_s, "x");
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(descriptor, LOCK_EX | LOCK_NB), 0);
    EXPECT_TRUE(itemIsBusyAtPath(path));
    ASSERT_EQ(::flock(descriptor, LOCK_SH | LOCK_NB), 0);
    EXPECT_FALSE(itemIsBusyAtPath(path));
    ::close(descriptor);
}

TEST_F(IsBusyTest, WhatIsNoFileIsNever)
{
    EXPECT_FALSE(itemIsBusyAtPath(m_folder.path()));
    EXPECT_FALSE(itemIsBusyAtPath(m_folder.filePath("nothing")));
    ASSERT_EQ(::mkfifo(QFile::encodeName(m_folder.filePath("pipe")).constData(), 0600), 0);
    EXPECT_FALSE(itemIsBusyAtPath(m_folder.filePath("pipe")));
}

TEST_F(ItemsTest, AnyPathIsAnsweredAndNothingThereIsNothing)
{
    test::RandomText random(27);
    for (int count = 0; count < 2000; ++count) {
        const QString path = m_folder.filePath("nothing-") + random.next(30);
        EXPECT_FALSE(isDirectoryAtPath(path) || isSymbolicLinkAtPath(path) ||
                     itemIsBusyAtPath(path));
        EXPECT_FALSE(isHiddenFileAtPath(path));
        EXPECT_TRUE(isHiddenFileAtPath(u'.' + random.next(30)));
    }
}

} // namespace
