// SPDX-License-Identifier: MIT
#include "platform/files/FileManager.h"

#include "support/ScratchFolder.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using platform::Error;
using platform::WriteOption;

// While it lives, no file can grow beyond a length: writing more fails with EFBIG.
class FileLengthLimit {
public:
    explicit FileLengthLimit(rlim_t length)
        : m_oldHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_oldLimit);
        const rlimit limit = {length, m_oldLimit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileLengthLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_oldLimit);
        std::signal(SIGXFSZ, m_oldHandler);
    }

private:
    rlimit m_oldLimit = {};
    void (*m_oldHandler)(int);
};

class FileContentsTest : public ::testing::Test {
protected:
    test::ScratchFolder m_scratch;
    Error m_error;
};

TEST_F(FileContentsTest, WritesAndReadsBackInBothWays)
{
    const QByteArray bytes = QByteArray(300000, 'x') + '\0' + "end";
    for (const WriteOption option : {WriteOption::Plain, WriteOption::Atomic}) {
        const QString path = m_scratch.filePath("file");
        EXPECT_TRUE(platform::writeFile(path, "a longer one from before", option));
        EXPECT_TRUE(platform::writeFile(path, bytes, option));
        EXPECT_EQ(platform::readFile(path), bytes);
        EXPECT_TRUE(platform::writeFile(path, QByteArrayView(), option));
        EXPECT_EQ(platform::readFile(path), QByteArray());
    }
    EXPECT_EQ(m_scratch.tree(), QStringList{QStringLiteral("file")});
}

TEST_F(FileContentsTest, AFileThatCannotBeWrittenWholeIsRemovedAgain)
{
    const FileLengthLimit limit(1000);
    EXPECT_FALSE(
        platform::writeFile(m_scratch.filePath("file"), QByteArray(2000, 'x'), WriteOption::Plain, &m_error));
    EXPECT_EQ(m_error.domain(), platform::cocoaErrorDomain);
    EXPECT_TRUE(m_error.localizedDescription().contains(m_scratch.filePath("file")));
    EXPECT_TRUE(m_scratch.tree().isEmpty());
}

TEST_F(FileContentsTest, AnAtomicWriteThatFailsLeavesTheOldFile)
{
    const QString path = m_scratch.write(QStringLiteral("file"), "old");
    const FileLengthLimit limit(1000);
    EXPECT_FALSE(platform::writeFile(path, QByteArray(2000, 'x'), WriteOption::Atomic, &m_error));
    EXPECT_TRUE(m_error.localizedDescription().contains(path));
    EXPECT_EQ(m_scratch.read(QStringLiteral("file")), "old");
    EXPECT_EQ(m_scratch.tree(), QStringList{QStringLiteral("file")});
}

TEST_F(FileContentsTest, AnAtomicWriteKeepsTheModeAndDoesNotReplaceAFolder)
{
    const QString path = m_scratch.write(QStringLiteral("file"), "old");
    ASSERT_EQ(chmod(qPrintable(path), 0600), 0);
    EXPECT_TRUE(platform::writeFile(path, "new", WriteOption::Atomic));
    struct stat status = {};
    ASSERT_EQ(stat(qPrintable(path), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
    m_scratch.write(QStringLiteral("folder/file"), "");
    EXPECT_FALSE(platform::writeFile(m_scratch.filePath("folder"), "new", WriteOption::Atomic));
    EXPECT_EQ(m_scratch.tree().size(), 3);
}

TEST_F(FileContentsTest, WhatIsNoFileIsNotReadAndAPipeIsNotWaitedFor)
{
    EXPECT_FALSE(platform::readFile(m_scratch.filePath("none"), &m_error));
    EXPECT_EQ(m_error.code(), platform::FileReadNoSuchFileError);
    EXPECT_FALSE(platform::readFile(m_scratch.path()));
    ASSERT_EQ(mkfifo(qPrintable(m_scratch.filePath("pipe")), 0600), 0);
    EXPECT_FALSE(platform::readFile(m_scratch.filePath("pipe")));
    EXPECT_FALSE(platform::readFile(QString()));
}

TEST_F(FileContentsTest, ReadsFilesWhoseLengthTheSystemDoesNotTell)
{
    const auto bytes = platform::readFile(QStringLiteral("/proc/self/status"));
    ASSERT_TRUE(bytes);
    EXPECT_TRUE(bytes->startsWith("Name:"));
}

TEST_F(FileContentsTest, TextMustBeUtf8)
{
    const QString text = QString::fromUtf8("\u00e9\U0001f600");
    EXPECT_EQ(platform::readTextFile(m_scratch.write(QStringLiteral("text"), text.toUtf8())), text);
    EXPECT_EQ(platform::readTextFile(m_scratch.write(QStringLiteral("empty"), "")), QString());
    const QString latin = m_scratch.write(QStringLiteral("latin"), "caf\xe9");
    EXPECT_FALSE(platform::readTextFile(latin, &m_error));
    EXPECT_EQ(m_error.code(), platform::FileReadInapplicableStringEncodingError);
    EXPECT_TRUE(m_error.localizedDescription().contains(latin));
}

TEST_F(FileContentsTest, ANameThatTheFileSystemDoesNotTakeIsAnInvalidName)
{
    const QString longName(platform::maximumFileNameBytes + 1, QLatin1Char('x'));
    for (const WriteOption option : {WriteOption::Plain, WriteOption::Atomic}) {
        EXPECT_FALSE(platform::writeFile(m_scratch.filePath(longName), "x", option, &m_error));
        EXPECT_EQ(m_error.code(), platform::FileWriteInvalidFileNameError);
    }
    EXPECT_TRUE(platform::writeFile(m_scratch.filePath(longName.chopped(1)), "x", WriteOption::Atomic));
    EXPECT_EQ(m_scratch.tree().size(), 1);
}

} // namespace
