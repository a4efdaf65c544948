// SPDX-License-Identifier: MIT
#include "platform/files/FileManager.h"

#include "support/ScratchFolder.h"
#include "support/SmallVolume.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

using platform::Error;
using platform::IntermediateFolders;

class FileManagerTest : public ::testing::Test {
protected:
    void link(const QString& text, const QString& name) const
    {
        ASSERT_EQ(symlink(qPrintable(text), qPrintable(m_scratch.filePath(name))), 0);
    }

    test::ScratchFolder m_scratch;
    Error m_error;
};

TEST_F(FileManagerTest, ErrorsNameThePathTheReasonAndTheSystemsOwnError)
{
    const Error error = platform::fileError(platform::FileAccess::Write, QStringLiteral("/a/b"), ENOSPC);
    EXPECT_EQ(error.domain(), platform::cocoaErrorDomain);
    EXPECT_EQ(error.code(), platform::FileWriteOutOfSpaceError);
    EXPECT_TRUE(error.localizedDescription().contains(QStringLiteral("/a/b")));
    EXPECT_TRUE(error.localizedDescription().contains(QStringLiteral("No space left on device")));
    ASSERT_TRUE(error.underlyingError());
    EXPECT_EQ(error.underlyingError()->domain(), platform::posixErrorDomain);
    EXPECT_EQ(error.underlyingError()->code(), ENOSPC);
}

TEST_F(FileManagerTest, ALinkThatLeadsNowhereExists)
{
    link(QStringLiteral("nowhere"), QStringLiteral("link"));
    EXPECT_TRUE(platform::fileExistsAtPath(m_scratch.filePath("link")));
    EXPECT_FALSE(platform::fileExistsAtPath(m_scratch.filePath("nowhere")));
    EXPECT_FALSE(platform::fileExistsAtPath(QString()));
}

TEST_F(FileManagerTest, MakesIntermediateFoldersOnlyWhenAskedTo)
{
    const QString deep = m_scratch.filePath("a/b/c");
    EXPECT_FALSE(platform::createDirectory(deep, IntermediateFolders::Require, &m_error));
    EXPECT_EQ(m_error.code(), platform::FileNoSuchFileError);
    EXPECT_TRUE(platform::createDirectory(deep, IntermediateFolders::Create));
    EXPECT_TRUE(platform::createDirectory(deep, IntermediateFolders::Create));
    EXPECT_TRUE(QFileInfo(deep).isDir());
    EXPECT_FALSE(platform::createDirectory(deep, IntermediateFolders::Require, &m_error));
    EXPECT_EQ(m_error.code(), platform::FileWriteFileExistsError);
}

TEST_F(FileManagerTest, AFileInTheWayOfAFolderIsAnError)
{
    const QString file = m_scratch.write(QStringLiteral("file"), "");
    EXPECT_FALSE(platform::createDirectory(file, IntermediateFolders::Create, &m_error));
    EXPECT_TRUE(m_error.localizedDescription().contains(file));
    EXPECT_FALSE(platform::createDirectory(file + QStringLiteral("/below"), IntermediateFolders::Create));
}

TEST_F(FileManagerTest, APathWithANulIsRefusedInsteadOfEndingThere)
{
    const QString path = m_scratch.filePath(QStringLiteral("a") + QChar(0) + QStringLiteral("b"));
    EXPECT_FALSE(platform::createDirectory(path, IntermediateFolders::Create, &m_error));
    EXPECT_EQ(m_error.code(), platform::FileWriteInvalidFileNameError);
    EXPECT_FALSE(platform::removeItem(path));
    EXPECT_FALSE(platform::fileExistsAtPath(path));
    EXPECT_TRUE(m_scratch.tree().isEmpty());
}

TEST_F(FileManagerTest, NamesThatWouldLeaveTheFolderHaveNoPathWithinIt)
{
    const QString folder = QStringLiteral("/folder");
    EXPECT_EQ(platform::pathWithin(folder, QStringLiteral("a b")), QStringLiteral("/folder/a b"));
    EXPECT_EQ(platform::pathWithin(QStringLiteral("/"), QStringLiteral("a")), QStringLiteral("/a"));
    for (const QString& name : {QString(), QStringLiteral("."), QStringLiteral(".."), QStringLiteral("a/b"),
                                QStringLiteral("/a"), QString(QChar(0))}) {
        Error error;
        EXPECT_FALSE(platform::pathWithin(folder, name, &error)) << qPrintable(name);
        EXPECT_EQ(error.code(), platform::FileWriteInvalidFileNameError);
    }
}

TEST_F(FileManagerTest, RemovesFilesAndWholeFoldersButNotWhatLinksLeadTo)
{
    const QString kept = m_scratch.write(QStringLiteral("kept/file"), "kept");
    m_scratch.write(QStringLiteral("tree/a/b"), "1");
    m_scratch.write(QStringLiteral("tree/c"), "2");
    ASSERT_TRUE(QDir().mkpath(m_scratch.filePath("tree/empty")));
    link(m_scratch.filePath("kept"), QStringLiteral("tree/link"));
    link(m_scratch.filePath("kept"), QStringLiteral("link"));
    EXPECT_TRUE(platform::removeItem(m_scratch.filePath("tree/")));
    EXPECT_TRUE(platform::removeItem(m_scratch.filePath("link")));
    EXPECT_EQ(m_scratch.tree(), (QStringList{QStringLiteral("kept/"), QStringLiteral("kept/file")}));
    EXPECT_TRUE(platform::removeItem(kept));
}

TEST_F(FileManagerTest, RemovingWhatDoesNotExistIsAnError)
{
    EXPECT_FALSE(platform::removeItem(m_scratch.filePath("none"), &m_error));
    EXPECT_EQ(m_error.code(), platform::FileNoSuchFileError);
}

TEST_F(FileManagerTest, RemovesAFolderDeeperThanAnyPathAndThanTheLimitOfOpenFiles)
{
    const QByteArray name(200, 'd');
    int folder = open(qPrintable(m_scratch.path()), O_RDONLY | O_DIRECTORY);
    for (int depth = 0; depth < 200; ++depth) {
        ASSERT_EQ(mkdirat(folder, name.constData(), 0777), 0);
        const int next = openat(folder, name.constData(), O_RDONLY | O_DIRECTORY);
        ASSERT_GE(next, 0);
        close(folder);
        folder = next;
    }
    close(folder);
    rlimit oldLimit = {};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &oldLimit), 0);
    const rlimit limit = {100, oldLimit.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
    EXPECT_TRUE(platform::removeItem(m_scratch.filePath(QString::fromUtf8(name)), &m_error))
        << qPrintable(m_error.description());
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &oldLimit), 0);
    EXPECT_TRUE(m_scratch.tree().isEmpty());
}

TEST_F(FileManagerTest, MovesWithoutReplacing)
{
    const QString from = m_scratch.write(QStringLiteral("from/file"), "new");
    const QString taken = m_scratch.write(QStringLiteral("taken"), "old");
    EXPECT_FALSE(platform::moveItem(from, taken, &m_error));
    EXPECT_EQ(m_error.code(), platform::FileWriteFileExistsError);
    EXPECT_EQ(m_scratch.read(QStringLiteral("taken")), "old");
    EXPECT_TRUE(platform::moveItem(m_scratch.filePath("from"), m_scratch.filePath("to")));
    EXPECT_EQ(m_scratch.read(QStringLiteral("to/file")), "new");
    EXPECT_FALSE(platform::moveItem(from, m_scratch.filePath("other"), &m_error));
    EXPECT_EQ(m_error.code(), platform::FileNoSuchFileError);
    EXPECT_TRUE(m_error.localizedDescription().contains(from));
}

TEST_F(FileManagerTest, MovesToAnotherFileSystemWithModesDatesAndLinks)
{
    const test::SmallVolume volume(1024 * 1024);
    if (!volume.isMounted())
        GTEST_SKIP() << "no volume can be mounted here";
    const QString file = volume.folder().write(QStringLiteral("item/sub/file"), "text");
    ASSERT_EQ(symlink("sub/file", qPrintable(volume.filePath(QStringLiteral("item/link")))), 0);
    ASSERT_EQ(chmod(qPrintable(file), 0640), 0);
    const std::array<timespec, 2> times = {timespec{1, 0}, timespec{1000000000, 123000000}};
    ASSERT_EQ(utimensat(AT_FDCWD, qPrintable(file), times.data(), 0), 0);
    ASSERT_EQ(utimensat(AT_FDCWD, qPrintable(volume.filePath(QStringLiteral("item"))), times.data(), 0), 0);

    EXPECT_TRUE(
        platform::moveItem(volume.filePath(QStringLiteral("item")), m_scratch.filePath("item"), &m_error))
        << qPrintable(m_error.description());
    EXPECT_TRUE(volume.folder().tree().isEmpty());
    EXPECT_EQ(m_scratch.tree(), (QStringList{QStringLiteral("item/"), QStringLiteral("item/link"),
                                             QStringLiteral("item/sub/"), QStringLiteral("item/sub/file")}));
    EXPECT_EQ(m_scratch.read(QStringLiteral("item/link")), "text");
    struct stat status = {};
    ASSERT_EQ(stat(qPrintable(m_scratch.filePath("item/sub/file")), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u);
    EXPECT_EQ(status.st_mtim.tv_sec, 1000000000);
    EXPECT_EQ(status.st_mtim.tv_nsec, 123000000);
    ASSERT_EQ(stat(qPrintable(m_scratch.filePath("item")), &status), 0);
    EXPECT_EQ(status.st_mtim.tv_sec, 1000000000);
}

TEST_F(FileManagerTest, AMoveToAFullFileSystemLeavesTheItemWhereItWasAndNothingElse)
{
    const test::SmallVolume volume(64 * 1024);
    if (!volume.isMounted())
        GTEST_SKIP() << "no volume can be mounted here";
    m_scratch.write(QStringLiteral("item/small"), "text");
    m_scratch.write(QStringLiteral("item/large"), QByteArray(1024 * 1024, 'x'));
    EXPECT_FALSE(
        platform::moveItem(m_scratch.filePath("item"), volume.filePath(QStringLiteral("item")), &m_error));
    EXPECT_EQ(m_error.code(), platform::FileWriteOutOfSpaceError);
    EXPECT_TRUE(volume.folder().tree().isEmpty());
    EXPECT_EQ(m_scratch.read(QStringLiteral("item/large")).size(), 1024 * 1024);
    EXPECT_EQ(m_scratch.tree().size(), 3);
}

} // namespace
