// SPDX-License-Identifier: MIT
#include "platform/files/FileWrapper.h"

#include "platform/files/FileManager.h"

#include "support/ScratchFolder.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using platform::Error;
using platform::FileWrapper;
using Mode = platform::FileWrapper::WriteMode;

class FileWrapperTest : public ::testing::Test {
protected:
    static FileWrapper::Pointer package()
    {
        const auto package = FileWrapper::directory(QStringLiteral("note.rtfd"));
        package->addFileWrapper(FileWrapper::regularFile("text", QStringLiteral("TXT.rtf")));
        const auto folder = FileWrapper::directory(QStringLiteral("folder"));
        folder->addFileWrapper(FileWrapper::regularFile("inner", QStringLiteral("inner")));
        package->addFileWrapper(folder);
        return package;
    }

    test::ScratchFolder m_scratch;
    QString m_target = m_scratch.filePath("note.rtfd");
    Error m_error;
};

TEST_F(FileWrapperTest, WritesATreeAndReadsItBack)
{
    const QStringList expected
        = {QStringLiteral("note.rtfd/"), QStringLiteral("note.rtfd/TXT.rtf"),
           QStringLiteral("note.rtfd/folder/"), QStringLiteral("note.rtfd/folder/inner")};
    for (const Mode mode : {Mode::Direct, Mode::Atomic}) {
        ASSERT_TRUE(package()->writeTo(m_target, mode, &m_error)) << qPrintable(m_error.description());
        EXPECT_EQ(m_scratch.tree(), expected);
        const auto read = FileWrapper::read(m_target, &m_error);
        ASSERT_TRUE(read) << qPrintable(m_error.description());
        EXPECT_EQ(read->preferredFilename(), QStringLiteral("note.rtfd"));
        ASSERT_EQ(read->children().size(), 2u);
        EXPECT_EQ(read->childForKey(QStringLiteral("TXT.rtf"))->contents(), "text");
        EXPECT_EQ(
            read->childForKey(QStringLiteral("folder"))->childForKey(QStringLiteral("inner"))->contents(),
            "inner");
        EXPECT_FALSE(read->childForKey(QStringLiteral("none")));
        ASSERT_TRUE(platform::removeItem(m_target));
    }
}

TEST_F(FileWrapperTest, ChildrenOfOneNameGetNumberedKeys)
{
    const auto folder = FileWrapper::directory();
    const auto add = [&](const char* name) {
        return folder->addFileWrapper(FileWrapper::regularFile({}, QString::fromUtf8(name)));
    };
    EXPECT_EQ(add("a"), QStringLiteral("a"));
    EXPECT_EQ(add("a"), QStringLiteral("1__#$!@%!#__a"));
    EXPECT_EQ(add("a"), QStringLiteral("2__#$!@%!#__a"));
    folder->removeFileWrapper(QStringLiteral("1__#$!@%!#__a"));
    EXPECT_EQ(add("a"), QStringLiteral("1__#$!@%!#__a"));
    folder->removeFileWrapper(QStringLiteral("a"));
    EXPECT_EQ(add("a"), QStringLiteral("a"));
    EXPECT_EQ(folder->children().size(), 3u);
}

TEST_F(FileWrapperTest, NamesThatAreOneFileOnAMacCountAsOne)
{
    const auto folder = FileWrapper::directory();
    const auto add = [&](const char* name) {
        return folder->addFileWrapper(FileWrapper::regularFile({}, QString::fromUtf8(name)));
    };
    EXPECT_EQ(add("Caf\u00e9"), QString::fromUtf8("Caf\u00e9"));
    EXPECT_EQ(add("CAFE\u0301"), QString::fromUtf8("1__#$!@%!#__CAFE\u0301"));
}

TEST_F(FileWrapperTest, ThousandsOfChildrenOfOneNameTakeNoLongerThanOthers)
{
    const auto folder = FileWrapper::directory();
    for (int count = 0; count < 50000; ++count)
        folder->addFileWrapper(FileWrapper::regularFile({}, QStringLiteral("same")));
    EXPECT_EQ(folder->children().back().key, QStringLiteral("49999__#$!@%!#__same"));
}

TEST_F(FileWrapperTest, AKeyThatWouldLeaveTheFolderFailsTheWriteAndLeavesNothing)
{
    for (const QString& name :
         {QStringLiteral(".."), QStringLiteral("."), QString(), QStringLiteral("../outside"),
          QStringLiteral("a/b"), QString(QChar(0)), QString(256, QLatin1Char('x'))}) {
        for (const Mode mode : {Mode::Direct, Mode::Atomic}) {
            const auto wrapper = package();
            wrapper->addFileWrapper(FileWrapper::regularFile("bad", name));
            EXPECT_FALSE(wrapper->writeTo(m_target, mode, &m_error)) << qPrintable(name);
            EXPECT_EQ(m_error.code(), platform::FileWriteInvalidFileNameError);
            EXPECT_TRUE(m_error.localizedDescription().contains(m_target))
                << qPrintable(m_error.description());
            EXPECT_TRUE(m_scratch.tree().isEmpty());
        }
    }
}

TEST_F(FileWrapperTest, AnAtomicWriteReplacesAFolderWhole)
{
    m_scratch.write(QStringLiteral("note.rtfd/old"), "old");
    ASSERT_TRUE(package()->writeTo(m_target, Mode::Atomic, &m_error)) << qPrintable(m_error.description());
    EXPECT_EQ(m_scratch.tree().size(), 4);
    EXPECT_FALSE(m_scratch.tree().contains(QStringLiteral("note.rtfd/old")));
}

TEST_F(FileWrapperTest, AnAtomicWriteThatFailsLeavesTheOldFolder)
{
    m_scratch.write(QStringLiteral("note.rtfd/old"), "old");
    const auto wrapper = package();
    wrapper->addFileWrapper(FileWrapper::regularFile("bad", QStringLiteral("..")));
    EXPECT_FALSE(wrapper->writeTo(m_target, Mode::Atomic));
    EXPECT_EQ(m_scratch.tree(), (QStringList{QStringLiteral("note.rtfd/"), QStringLiteral("note.rtfd/old")}));
}

TEST_F(FileWrapperTest, FilesAndFoldersReplaceEachOtherAtomically)
{
    m_scratch.write(QStringLiteral("note.rtfd"), "a file");
    ASSERT_TRUE(package()->writeTo(m_target, Mode::Atomic));
    EXPECT_EQ(m_scratch.tree().size(), 4);
    ASSERT_TRUE(FileWrapper::regularFile("again")->writeTo(m_target, Mode::Atomic));
    EXPECT_EQ(m_scratch.tree(), QStringList{QStringLiteral("note.rtfd")});
    EXPECT_EQ(m_scratch.read(QStringLiteral("note.rtfd")), "again");
}

TEST_F(FileWrapperTest, ADirectWriteOfAFolderNeverTouchesWhatIsThere)
{
    m_scratch.write(QStringLiteral("note.rtfd/old"), "old");
    EXPECT_FALSE(package()->writeTo(m_target, Mode::Direct, &m_error));
    EXPECT_EQ(m_error.code(), platform::FileWriteFileExistsError);
    EXPECT_EQ(m_scratch.read(QStringLiteral("note.rtfd/old")), "old");
}

TEST_F(FileWrapperTest, AFileOnDiskIsCopiedOnlyWhenItIsWritten)
{
    const QString source = m_scratch.write(QStringLiteral("source.bin"), QByteArray(100000, 'x'));
    const auto wrapper = FileWrapper::fileOnDisk(source, &m_error);
    ASSERT_TRUE(wrapper);
    EXPECT_EQ(wrapper->preferredFilename(), QStringLiteral("source.bin"));
    EXPECT_EQ(wrapper->contents().size(), 100000);
    const auto folder = FileWrapper::directory();
    folder->addFileWrapper(wrapper);
    ASSERT_TRUE(folder->writeTo(m_target, Mode::Atomic));
    EXPECT_EQ(m_scratch.read(QStringLiteral("note.rtfd/source.bin")), QByteArray(100000, 'x'));

    ASSERT_TRUE(platform::removeItem(source));
    EXPECT_TRUE(wrapper->contents(&m_error).isEmpty());
    EXPECT_EQ(m_error.code(), platform::FileReadNoSuchFileError);
    EXPECT_FALSE(folder->writeTo(m_scratch.filePath("other"), Mode::Atomic, &m_error));
    EXPECT_TRUE(m_error.localizedDescription().contains(source));
    EXPECT_FALSE(platform::fileExistsAtPath(m_scratch.filePath("other")));
}

TEST_F(FileWrapperTest, OnlyARegularFileIsAFileOnDisk)
{
    EXPECT_FALSE(FileWrapper::fileOnDisk(m_scratch.path(), &m_error));
    EXPECT_FALSE(FileWrapper::fileOnDisk(m_scratch.filePath("none"), &m_error));
    EXPECT_EQ(m_error.code(), platform::FileReadNoSuchFileError);
    ASSERT_EQ(symlink("/etc/passwd", qPrintable(m_scratch.filePath("link"))), 0);
    EXPECT_FALSE(FileWrapper::fileOnDisk(m_scratch.filePath("link")));
}

TEST_F(FileWrapperTest, LinksAreReadAsTheirTextAndPipesAreNotRead)
{
    ASSERT_TRUE(QDir().mkpath(m_target));
    ASSERT_EQ(symlink("/etc/passwd", qPrintable(m_scratch.filePath("note.rtfd/link"))), 0);
    const auto read = FileWrapper::read(m_target);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->childForKey(QStringLiteral("link"))->contents(), "/etc/passwd");
    ASSERT_EQ(mkfifo(qPrintable(m_scratch.filePath("note.rtfd/pipe")), 0600), 0);
    EXPECT_FALSE(FileWrapper::read(m_target, &m_error));
    EXPECT_TRUE(m_error.localizedDescription().contains(QStringLiteral("pipe")));
    EXPECT_FALSE(FileWrapper::read(m_scratch.filePath("none"), &m_error));
    EXPECT_EQ(m_error.code(), platform::FileReadNoSuchFileError);
}

TEST_F(FileWrapperTest, ATreeDeeperThanTheStackLivesAndDies)
{
    const QString name(200, QLatin1Char('x')); // paths are too long after a few levels
    auto root = FileWrapper::directory(name);
    for (int depth = 0; depth < 100000; ++depth) {
        const auto parent = FileWrapper::directory(name);
        parent->addFileWrapper(root);
        root = parent;
    }
    EXPECT_FALSE(root->writeTo(m_target, Mode::Atomic, &m_error));
    EXPECT_EQ(m_error.underlyingError()->code(), ENAMETOOLONG);
    EXPECT_TRUE(m_scratch.tree().isEmpty());
}

} // namespace
