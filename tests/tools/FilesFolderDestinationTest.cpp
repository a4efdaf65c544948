// SPDX-License-Identifier: MIT
#include "platform/propertylist/PropertyList.h"
#include "support/SmallVolume.h"
#include "tools/BlockedOutput.h"
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

TEST_F(FilesFolderDestinationTest, TheManifestNamesTheFolderInItsPlace)
{
    for (const QStringList& files :
         {QStringList{file("A.enex", note("One"))},
          QStringList{file("A.enex", note("One")), file("sub/A.enex", note("Two"))}}) {
        ASSERT_EQ(runIntoOut(files).status, 0);
        const auto list = platform::readPropertyList(path("out/Evernote/Evernote.qllibxml"));
        ASSERT_TRUE(list);
        EXPECT_EQ(list->toMap().keys(), (QStringList{text("Entities"), text("ExporterVersion"),
                                                     text("RemoveFileOnCompletion")}));
        EXPECT_EQ(list->toMap().value(text("RemoveFileOnCompletion")).toString(),
                  path("out/Evernote"));
        const QVariantMap folders = entities(path("out"), "Folder");
        const QVariantMap items = entities(path("out"), "Item");
        ASSERT_EQ(items.size(), files.size());
        for (auto item = items.cbegin(); item != items.cend(); ++item) {
            const QVariantMap record = item->toMap();
            EXPECT_TRUE(QFileInfo(record.value(text("absoluteFilename")).toString()).isDir());
            const QVariantMap folder =
                folders.value(record.value(text("folder")).toString()).toMap();
            EXPECT_EQ(folder.value(text("items")).toStringList(), QStringList(item.key()));
        }
    }
}

TEST_F(FilesFolderDestinationTest, AnEarlierImportStaysWhereNoRunGetsToItsEnd)
{
    ASSERT_EQ(runIntoOut({file("A.enex", note("One"))}).status, 0);
    const QByteArray manifest = m_folder.read(text("out/Evernote/Evernote.qllibxml"));
    const QString noExport = m_folder.write(text("no export.enex"), "%PDF-1.4");
    const QString badEncoding =
        file("bad.enex", note("One") + "<note><resource><data>x</data></resource></note>");
    for (const QStringList& files :
         {QStringList{noExport}, QStringList{badEncoding}, QStringList{noExport, badEncoding}}) {
        const CommandResult result = runIntoOut(files);
        EXPECT_EQ(result.status, 1);
        EXPECT_FALSE(result.output.contains(text("  In ")));
        EXPECT_EQ(m_folder.read(text("out/Evernote/Evernote.qllibxml")), manifest);
        EXPECT_TRUE(exists("out/Evernote/A/One.qlnote/TXT.rtf"));
        EXPECT_EQ(
            QDir(path("out")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
            (QStringList{text("Evernote"), text("Evernote Export.log")}));
    }
    const QByteArray log = m_folder.read(text("out/Evernote Export.log"));
    EXPECT_LT(log.indexOf("Error counting notes: "), log.indexOf("Converting \"One\""));
}

TEST_F(FilesFolderDestinationTest, OneFileOfSeveralThatGetsToItsEndReplacesAnEarlierImport)
{
    ASSERT_EQ(runIntoOut({file("A.enex", note("One"))}).status, 0);
    const QString noExport = m_folder.write(text("no export.enex"), "%PDF-1.4");
    const CommandResult result = runIntoOut({file("B.enex", note("Two")), noExport});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.output.contains(text("  In ") + path("out/Evernote")));
    EXPECT_FALSE(exists("out/Evernote/A"));
    EXPECT_EQ(entities(path("out"), "Item").size(), 1);
}

TEST_F(FilesFolderDestinationTest, WhatAKilledRunLeftAsideIsRemovedByTheNext)
{
    ASSERT_EQ(runIntoOut({file("A.enex", note("One"))}).status, 0);
    const auto aside = [this] {
        return QDir(path("out")).entryList({text(".vupuge-import-*")}, QDir::Dirs | QDir::Hidden);
    };
    QProcess process;
    test::BlockedOutput output(0);
    output.attach(process);
    start(process, {text("--files-folder"), text("out"), file("B.enex", note("Two"))});
    ASSERT_TRUE(
        test::waitUntil([&] { return aside().size() == 1 && exists("out/Evernote Export.log"); }));
    // Another run meanwhile leaves it alone.
    ASSERT_EQ(runIntoOut({path("A.enex")}).status, 0);
    EXPECT_EQ(aside().size(), 1);
    process.kill();
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(aside().size(), 1);
    EXPECT_TRUE(exists("out/Evernote/A/One.qlnote"));
    m_folder.write(text("out/.vupuge-import-own/precious"), "x");
    ASSERT_EQ(runIntoOut({path("B.enex")}).status, 0);
    EXPECT_EQ(aside(), QStringList(text(".vupuge-import-own")));
    EXPECT_TRUE(exists("out/Evernote/B/Two.qlnote"));
}

TEST_F(FilesFolderDestinationTest, WhatSomebodyPutInTheFoldersPlaceMeanwhileIsNotReplaced)
{
    QProcess process;
    test::BlockedOutput output(0);
    output.attach(process);
    start(process, {text("--files-folder"), text("out"), text("--report"), text("report.json"),
                    file("A.enex", note("One")), file("B.enex", note("Two"))});
    ASSERT_TRUE(test::waitUntil([&] { return exists("out/Evernote Export.log"); }));
    m_folder.write(text("out/Evernote/Notebook.enex"), "precious");
    const QString said = QString::fromUtf8(output.readAll());
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_TRUE(process.readAllStandardError().contains("was not made by an earlier import"));
    EXPECT_TRUE(
        said.endsWith(text("2 notes: 0 became items, none were skipped, 2 were not imported.\n")))
        << qPrintable(said);
    EXPECT_EQ(m_folder.read(text("out/Evernote/Notebook.enex")), "precious");
    for (const QJsonValue& entry : runs())
        EXPECT_EQ(entry.toObject().value(text("outcome")).toString(), text("failed"));
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
    const CommandResult result =
        run({text("--files-folder"), volume.path(), text("--report"), text("report.json"), path});
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
