// SPDX-License-Identifier: MIT
#include "platform/core/StandardDirectories.h"

#include "support/ScratchFolder.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

using platform::StandardDirectories;

class StandardDirectoriesTest : public ::testing::Test {
protected:
    void TearDown() override { qunsetenv("TMPDIR"); }

    static void makeFolder(const QString& path, mode_t mode)
    {
        ASSERT_EQ(mkdir(qPrintable(path), mode), 0);
        ASSERT_EQ(chmod(qPrintable(path), mode), 0);
    }

    static mode_t modeOf(const QString& path)
    {
        struct stat status = {};
        EXPECT_EQ(lstat(qPrintable(path), &status), 0);
        return status.st_mode & 07777;
    }

    test::ScratchFolder m_scratch;
};

TEST_F(StandardDirectoriesTest, UsesTheUsersOwnTemporaryDirectory)
{
    const QString own = m_scratch.filePath("own");
    makeFolder(own, 0700);
    qputenv("TMPDIR", own.toUtf8() + "/");
    EXPECT_EQ(StandardDirectories::temporary(), own);
}

TEST_F(StandardDirectoriesTest, DoesNotTrustATemporaryDirectoryThatOthersCanWrite)
{
    const QString open = m_scratch.filePath("open");
    makeFolder(open, 0777);
    qputenv("TMPDIR", open.toUtf8());
    const QString chosen = StandardDirectories::temporary();
    EXPECT_NE(chosen, open);
    EXPECT_TRUE(chosen.startsWith(StandardDirectories::caches()));
    EXPECT_EQ(modeOf(chosen), 0700u);
}

TEST_F(StandardDirectoriesTest, DoesNotFollowALinkInPlaceOfTheTemporaryDirectory)
{
    const QString own = m_scratch.filePath("own");
    makeFolder(own, 0700);
    const QString link = m_scratch.filePath("link");
    ASSERT_EQ(symlink(qPrintable(own), qPrintable(link)), 0);
    qputenv("TMPDIR", link.toUtf8());
    EXPECT_NE(StandardDirectories::temporary(), link);
}

TEST_F(StandardDirectoriesTest, MakesAPrivateFolderWhenNoneIsNamed)
{
    const QString chosen = StandardDirectories::temporary();
    ASSERT_FALSE(chosen.isEmpty());
    EXPECT_EQ(modeOf(chosen), 0700u);
    EXPECT_EQ(StandardDirectories::temporary(), chosen);
}

TEST_F(StandardDirectoriesTest, LibraryIsAFolderOfTheHome)
{
    EXPECT_EQ(StandardDirectories::library(), QDir::homePath() + QStringLiteral("/Library"));
}

} // namespace
