// SPDX-License-Identifier: MIT
#include "foundation/FileManagerSizesBMExtensions.h"

#include "foundation/FolderSize.h"
#include "platform/files/FileManager.h"
#include "support/ScratchFolder.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <malloc.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

using namespace Qt::StringLiterals;

class SizeOfFileTest : public ::testing::Test {
protected:
    [[nodiscard]] std::optional<quint64> size(const QString& name = {}) { return sizeOfFileAtURLOutError(url(name), &m_error); }
    [[nodiscard]] QUrl url(const QString& name = {}) const
    {
        return QUrl::fromLocalFile(name.isEmpty() ? m_folder.path() : m_folder.filePath(name));
    }
    void makeFolder(const QString& name) { ASSERT_TRUE(QDir().mkpath(m_folder.filePath(name))); }

    test::ScratchFolder m_folder;
    platform::Error m_error;
};

TEST_F(SizeOfFileTest, OfAFileIsItsLength)
{
    m_folder.write(u"file"_s, QByteArray(12345, 'x'));
    EXPECT_EQ(size(u"file"_s), 12345U);
    EXPECT_EQ(sizeOfFileAtURL(url(u"file"_s)), 12345U);
    // A sparse file beyond 32 bits.
    QFile file(m_folder.filePath("large"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(qint64(5) << 30));
    EXPECT_EQ(size(u"large"_s), quint64(5) << 30);
}

TEST_F(SizeOfFileTest, OfAnEmptyFolderIsZero)
{
    EXPECT_EQ(size(), 0U);
    EXPECT_EQ(sizeOfFileAtURL(url()), 0U);
}

TEST_F(SizeOfFileTest, OfAFolderOrPackageIsTheSumOfWhatIsVisible)
{
    m_folder.write(u"a.qlnote/TXT.rtf"_s, QByteArray(100, 'x'));
    m_folder.write(u"a.qlnote/deep/er/image.png"_s, QByteArray(20, 'x'));
    m_folder.write(u"a.qlnote/.hidden"_s, QByteArray(1000, 'x'));
    m_folder.write(u"a.qlnote/.folder/file"_s, QByteArray(1000, 'x'));
    m_folder.write(u"file"_s, QByteArray(3, 'x'));
    EXPECT_EQ(size(u"a.qlnote"_s), 120U);
    EXPECT_EQ(size(), 123U);
}

TEST_F(SizeOfFileTest, WhatTheInvisibleFlagHidesIsNotCounted)
{
    const QString path = m_folder.write(u"icon"_s, QByteArray(50, 'x'));
    m_folder.write(u"file"_s, "x");
    QByteArray info(32, '\0');
    info[8] = 0x40;
    if (::setxattr(QFile::encodeName(path).constData(), "user.com.apple.FinderInfo", info.constData(), 32, 0) != 0)
        GTEST_SKIP() << "the file system keeps no attributes";
    EXPECT_EQ(size(), 1U);
    EXPECT_EQ(size(u"icon"_s), 50U);
}

TEST_F(SizeOfFileTest, LinksCountAsThemselves)
{
    m_folder.write(u"elsewhere/large"_s, QByteArray(1000, 'x'));
    makeFolder(u"folder"_s);
    ASSERT_TRUE(QFile::link(u"../elsewhere"_s, m_folder.filePath("folder/link")));
    ASSERT_TRUE(QFile::link(u"."_s, m_folder.filePath("folder/loop")));
    ASSERT_TRUE(QFile::link(u"nowhere"_s, m_folder.filePath("folder/dangling")));
    EXPECT_EQ(size(u"folder"_s), quint64(strlen("../elsewhere") + strlen(".") + strlen("nowhere")));
    EXPECT_EQ(size(u"folder/link"_s), quint64(strlen("../elsewhere")));
}

TEST_F(SizeOfFileTest, OfWhatIsNotThereIsAnError)
{
    EXPECT_EQ(size(u"nothing"_s), std::nullopt);
    EXPECT_EQ(m_error.code(), platform::FileReadNoSuchFileError);
    EXPECT_EQ(sizeOfFileAtURL(url(u"nothing"_s)), 0U);
    EXPECT_EQ(sizeOfFileAtURLOutError(QUrl()), std::nullopt);
}

TEST_F(SizeOfFileTest, DepthHasNoLimit)
{
    // Deeper than any path may be long, and than a process may have files open.
    constexpr int depth = 1200;
    int folder = ::open(QFile::encodeName(m_folder.path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (int level = 0; level < depth; ++level) {
        const int file = ::openat(folder, "file", O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        ASSERT_EQ(::write(file, "ab", 2), 2);
        ::close(file);
        if (level % 100 == 0) {
            ASSERT_EQ(::mkdirat(folder, "sister", 0700), 0);
        }
        ASSERT_EQ(::mkdirat(folder, "folder", 0700), 0);
        const int next = ::openat(folder, "folder", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        ::close(folder);
        folder = next;
    }
    ::close(folder);
    EXPECT_EQ(size(), quint64(depth) * 2);
    ASSERT_TRUE(platform::removeItem(m_folder.path()));
}

class UnprivilegedSizeTest : public SizeOfFileTest {
protected:
    // The superuser reads every folder, so the tests of what cannot be read run as somebody else.
    void SetUp() override
    {
        if (::geteuid() == 0) {
            ASSERT_EQ(::chown(QFile::encodeName(m_folder.path()).constData(), 65534, 65534), 0);
            ASSERT_EQ(::seteuid(65534), 0);
            m_wasSuperuser = true;
        }
    }
    void TearDown() override
    {
        ::chmod(QFile::encodeName(m_folder.filePath("closed")).constData(), 0700);
        ::chmod(QFile::encodeName(m_folder.filePath("listed")).constData(), 0700);
        ASSERT_EQ(m_wasSuperuser ? ::seteuid(0) : 0, 0);
    }
    void setMode(const char* name, mode_t mode)
    {
        ASSERT_EQ(::chmod(QFile::encodeName(m_folder.filePath(name)).constData(), mode), 0);
    }

    bool m_wasSuperuser = false;
};

TEST_F(UnprivilegedSizeTest, AFolderWithinThatCannotBeReadAddsNothing)
{
    m_folder.write(u"file"_s, "abc");
    m_folder.write(u"closed/file"_s, "abc");
    m_folder.write(u"listed/sub/file"_s, "abc");
    m_folder.write(u"listed/file"_s, "abc");
    setMode("closed", 0000);
    setMode("listed", 0400); // its names can be read, its items cannot
    EXPECT_EQ(size(), 3U);
}

TEST_F(UnprivilegedSizeTest, AFolderThatCannotBeReadItselfIsAnError)
{
    m_folder.write(u"closed/file"_s, "abc");
    setMode("closed", 0000);
    EXPECT_EQ(size(u"closed"_s), std::nullopt);
    EXPECT_EQ(m_error.code(), platform::FileReadNoPermissionError);
}

TEST_F(UnprivilegedSizeTest, AnImmediateItemThatCannotBeReadIsAnErrorThatNamesIt)
{
    m_folder.write(u"listed/file"_s, "abc");
    setMode("listed", 0400);
    EXPECT_EQ(size(u"listed"_s), std::nullopt);
    EXPECT_EQ(m_error.code(), platform::FileReadNoPermissionError);
    EXPECT_TRUE(m_error.localizedDescription().contains(m_folder.filePath("listed/file")));
}

TEST_F(SizeOfFileTest, AFolderMountedWithinItselfIsCountedOnce)
{
    m_folder.write(u"folder/file"_s, "abc");
    makeFolder(u"folder/deep/again"_s);
    const QByteArray folder = QFile::encodeName(m_folder.filePath("folder"));
    const QByteArray again = folder + "/deep/again";
    if (::mount(folder.constData(), again.constData(), nullptr, MS_BIND, nullptr) != 0)
        GTEST_SKIP() << "only the superuser mounts";
    EXPECT_EQ(size(u"folder"_s), 3U);
    ASSERT_EQ(::umount2(again.constData(), MNT_DETACH), 0);
}

TEST_F(SizeOfFileTest, ANewerSumDoesNotKnowTheFoldersOfAnEarlierOne)
{
    m_folder.write(u"folder/file"_s, "abc");
    FolderSize folder;
    const QByteArray path = QFile::encodeName(m_folder.filePath("folder"));
    EXPECT_EQ(folder.sizeOf(path), 3U);
    EXPECT_EQ(folder.sizeOf(path), 3U);
    EXPECT_EQ(folder.sizeOf(path + "/nothing"), std::nullopt);
    EXPECT_EQ(folder.failure(), ENOENT);
}

// Runs the work in a process of its own, which begins with what this one has at the moment, and
// gives the kilobytes by which its memory peaked above that; -1 when the work failed.
template <class Work>
long peakGrowth(Work work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::malloc_trim(0);
        struct rusage before = {};
        struct rusage after = {};
        ::getrusage(RUSAGE_SELF, &before);
        const bool worked = work();
        ::getrusage(RUSAGE_SELF, &after);
        const long growth = (after.ru_maxrss - before.ru_maxrss) / 100; // in hundreds, for one byte
        ::_exit(worked ? int(std::min(growth, 254L)) : 255);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) != 255 ? WEXITSTATUS(status) * 100L : -1;
}

TEST_F(SizeOfFileTest, MemoryDoesNotGrowWithTheNumberOfFiles)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "sanitizers keep what was freed";
#endif
    makeFolder(u"many"_s);
    const int folder =
        ::open(QFile::encodeName(m_folder.filePath("many")).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    // Names so long that who keeps them takes 10 MB. Links of one byte are quickly made.
    constexpr int files = 40000;
    const QByteArray padding(240, 'n');
    for (int number = 0; number < files; ++number) {
        ASSERT_EQ(::symlinkat("x", folder, (padding + QByteArray::number(number)).constData()), 0);
    }
    ::close(folder);
    const long ours = peakGrowth([&] { return size() == quint64(files); });
    EXPECT_GE(ours, 0);
    // Pages of code that run for the first time count, too, and take up to 2 MB.
    EXPECT_LT(ours, 4000);
    // The same measure sees the memory of who does keep them.
    EXPECT_GT(peakGrowth([&] {
                  return QDir(m_folder.filePath("many")).entryList(QDir::System).size() == files;
              }),
              9000);
}

} // namespace
