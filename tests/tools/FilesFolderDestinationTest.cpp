// SPDX-License-Identifier: MIT
#include "support/SmallVolume.h"
#include "tools/CommandFixture.h"

namespace {

using test::CommandResult;
using test::text;

class FilesFolderDestinationTest : public test::CommandTest {};

TEST_F(FilesFolderDestinationTest, SeveralFilesShareOneFilesFolder)
{
    const QString one = file("A.enex", note("One"));
    const QString two = file("sub/A.enex", note("Two"));
    const QString three = file("B.enex", note("Three"));
    const CommandResult result = runIntoOut({one, two, three});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_EQ(result.lastLine(), text("3 notes: 3 became items, none were skipped."));
    EXPECT_EQ(entities(path("out"), "Folder").size(), 3);
    const QVariantMap items = entities(path("out"), "Item");
    ASSERT_EQ(items.size(), 3);
    for (const QVariant& item : items) {
        const QString itemPath = item.toMap().value(text("absoluteFilename")).toString();
        EXPECT_TRUE(itemPath.startsWith(path("out/Evernote/")));
        EXPECT_TRUE(QFileInfo::exists(itemPath)) << qPrintable(itemPath);
    }
    EXPECT_EQ(QDir(path("out")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              (QStringList{text("Evernote"), text("Evernote Export.log")}));
    const QByteArray log = m_folder.read(text("out/Evernote Export.log"));
    for (const char* title : {"One", "Two", "Three"})
        EXPECT_TRUE(log.contains(title));
}

TEST_F(FilesFolderDestinationTest, WhatLiesAtTheNameOfAFolderAsideIsLeftAlone)
{
    m_folder.write(text("elsewhere/Evernote/precious"), "x");
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(text("out")));
    ASSERT_TRUE(QFile::link(path("elsewhere"), path("out/.vupuge-import")));
    EXPECT_EQ(runIntoOut({file("A.enex", note("One")), file("B.enex", note("Two"))}).status, 0);
    EXPECT_TRUE(QFileInfo(path("out/.vupuge-import")).isSymLink());
    EXPECT_EQ(m_folder.read(text("elsewhere/Evernote/precious")), "x");
    EXPECT_EQ(QDir(path("elsewhere/Evernote")).count(), 3u);
}

TEST_F(FilesFolderDestinationTest, AFolderThatNoImportMadeIsNotReplaced)
{
    m_folder.write(text("docs/Evernote/Notebook.enex"), "precious");
    EXPECT_EQ(run({text("--files-folder"), text("docs"), file("A.enex", note("One"))}).status, 2);
    EXPECT_EQ(m_folder.read(text("docs/Evernote/Notebook.enex")), "precious");
}

TEST_F(FilesFolderDestinationTest, ALogAloneIsNoProofThatAnImportMadeTheFolder)
{
    m_folder.write(text("docs/Evernote Export.log"), "");
    m_folder.write(text("docs/Evernote/Notebook.enex"), "precious");
    m_folder.write(text("docs/Evernote/folder/page"), "precious");
    EXPECT_EQ(run({text("--files-folder"), text("docs"), file("A.enex", note("One"))}).status, 2);
    EXPECT_EQ(m_folder.read(text("docs/Evernote/Notebook.enex")), "precious");
    EXPECT_EQ(m_folder.read(text("docs/Evernote/folder/page")), "precious");
}

TEST_F(FilesFolderDestinationTest, AFileOrLinkUnderTheFoldersNameIsNotReplaced)
{
    m_folder.write(text("file/Evernote"), "precious");
    EXPECT_EQ(run({text("--files-folder"), text("file"), file("A.enex", note("One"))}).status, 2);
    EXPECT_EQ(m_folder.read(text("file/Evernote")), "precious");
    ASSERT_EQ(runIntoOut({path("A.enex")}).status, 0);
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(text("link")));
    ASSERT_TRUE(QFile::link(path("out/Evernote"), path("link/Evernote")));
    EXPECT_EQ(run({text("--files-folder"), text("link"), path("A.enex")}).status, 2);
    EXPECT_TRUE(QFileInfo(path("link/Evernote")).isSymLink());
}

TEST_F(FilesFolderDestinationTest, WhatAFailedRunLeftIsReplaced)
{
    m_folder.write(text("out/Evernote Export.log"), "");
    m_folder.write(text("out/Evernote/A/half.qlnote/TXT.rtf"), "");
    EXPECT_EQ(runIntoOut({file("B.enex", note("Two"))}).status, 0);
    EXPECT_FALSE(exists("out/Evernote/A"));
    EXPECT_TRUE(exists("out/Evernote/B"));
}

TEST_F(FilesFolderDestinationTest, AFileWithinTheFolderToBeReplacedIsNotRead)
{
    ASSERT_EQ(runIntoOut({file("A.enex", note("One"))}).status, 0);
    const QString inside = file("out/Evernote/B.enex", note("Two"));
    EXPECT_EQ(runIntoOut({inside}).status, 2);
    EXPECT_TRUE(QFileInfo::exists(inside));
}

TEST_F(FilesFolderDestinationTest, AnEarlierImportsFolderIsReplaced)
{
    ASSERT_EQ(runIntoOut({file("A.enex", note("One"))}).status, 0);
    ASSERT_EQ(runIntoOut({file("B.enex", note("Two"))}).status, 0);
    EXPECT_FALSE(exists("out/Evernote/A"));
    EXPECT_TRUE(exists("out/Evernote/B"));
}

TEST_F(FilesFolderDestinationTest, AFullDiskUnderTheManifestIsAFailureAndNothingCountsAsImported)
{
    // Notes take a few pages each, the manifest's records of all of them come at the end.
    const test::SmallVolume volume(512 * 1024);
    if (!volume.isMounted())
        GTEST_SKIP() << "no volume can be mounted here";
    const QString path = file("A.enex", note("One").repeated(400));
    const CommandResult result
        = run({text("--files-folder"), volume.path(), text("--report"), text("report.json"), path});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.contains(text("Evernote.qllibxml"))) << qPrintable(result.errors);
    EXPECT_TRUE(result.errors.contains(text("was not written whole")));
    EXPECT_FALSE(result.output.contains(text("  In ")));
    EXPECT_TRUE(result.lastLine().startsWith(text("400 notes: 0 became items, ")))
        << qPrintable(result.lastLine());
    EXPECT_EQ(report().value(text("items")).toInt(), 0);
    EXPECT_EQ(runs()[0].toObject().value(text("outcome")).toString(), text("failed"));
    EXPECT_EQ(runs()[0].toObject().value(text("error")).toObject().value(text("domain")).toString(),
              text("QuilleryLibraryErrorDomain"));
}

} // namespace
