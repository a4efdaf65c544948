// SPDX-License-Identifier: MIT
#include "platform/scripting/QuilleryLibraryFolder.h"

#include "platform/files/FileManager.h"
#include "platform/files/ResourceValues.h"
#include "platform/scripting/ImportManifest.h"
#include "platform/scripting/LaidOutFiles.h"
#include "platform/scripting/LibraryCatalogue.h"
#include "platform/scripting/QuilleryLibraryError.h"

#include "support/SmallVolume.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace manifest = platform::manifest;
using platform::Error;
using platform::LibraryCatalogue;
using platform::QuilleryApplication;
using platform::QuilleryLibraryFolder;
using Code = platform::QuilleryLibraryErrorCode;
using test::LaidOutFiles;

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

bool import(QuilleryLibraryFolder& library, const QStringList& paths, Error* error)
{
    return library.importFiles(paths, QuilleryApplication::ImportMode::Copy, {}, 0, {}, 0, {}, error);
}

QStringList entries(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                  QDir::Name);
}

class QuilleryLibraryFolderTest : public ::testing::Test {
protected:
    [[nodiscard]] bool importFiles(const LaidOutFiles& files)
    {
        files.writeManifest();
        return import(m_library, {files.manifestPath()}, &m_error);
    }

    [[nodiscard]] LaidOutFiles twoNotebooks() const
    {
        LaidOutFiles files(m_scratch.filePath("Evernote"));
        files.addFolder(text("Notebook"));
        files.addFolder(text("Other"));
        files.addItem(text("Notebook"), text("Note.rtfd"));
        files.addItem(text("Notebook"), text("Page.webarchive"));
        files.addItem(text("Other"), text("Note.rtfd"));
        return files;
    }

    [[nodiscard]] QString inLibrary(const char* path) const
    {
        return m_library.directory() + text("/") + text(path);
    }

    test::ScratchFolder m_scratch;
    QuilleryLibraryFolder m_library{m_scratch.filePath("deep/Library")};
    Error m_error;
};

TEST_F(QuilleryLibraryFolderTest, EveryFolderRecordBecomesAFolderOfItsItemsAndTheFilesFolderGoes)
{
    const LaidOutFiles files = twoNotebooks();
    ASSERT_TRUE(importFiles(files)) << qPrintable(m_error.description());
    EXPECT_EQ(entries(m_library.directory()), (QStringList{text("Notebook"), text("Other")}));
    EXPECT_EQ(entries(inLibrary("Notebook")),
              (QStringList{LibraryCatalogue::fileName, text("Note.rtfd"), text("Page.webarchive")}));
    EXPECT_TRUE(LaidOutFiles::isWhole(inLibrary("Notebook/Note.rtfd"), text("Note.rtfd")));
    EXPECT_TRUE(LaidOutFiles::isWhole(inLibrary("Notebook/Page.webarchive"), text("Page.webarchive")));
    EXPECT_TRUE(LaidOutFiles::isWhole(inLibrary("Other/Note.rtfd"), text("Note.rtfd")));
    EXPECT_EQ(m_library.lastImportedFolders(), (QStringList{inLibrary("Notebook"), inLibrary("Other")}));
    EXPECT_TRUE(m_library.lastFailedItems().empty());
    EXPECT_FALSE(platform::fileExistsAtPath(files.path()));
}

TEST_F(QuilleryLibraryFolderTest, AnEmptyNotebookBecomesAnEmptyFolder)
{
    LaidOutFiles files(m_scratch.filePath("Evernote"));
    files.addFolder(text("Empty"));
    ASSERT_TRUE(importFiles(files)) << qPrintable(m_error.description());
    EXPECT_EQ(entries(inLibrary("Empty")), QStringList{LibraryCatalogue::fileName});
    EXPECT_FALSE(platform::fileExistsAtPath(files.path()));
}

TEST_F(QuilleryLibraryFolderTest, DatesTagsOriginAndHiddenExtensionAreKeptWithTheFile)
{
    const QDateTime created(QDate(2001, 2, 3), QTime(4, 5, 6), Qt::UTC);
    const QDateTime modified(QDate(2013, 4, 12), QTime(9, 30, 15), Qt::UTC);
    LaidOutFiles files(m_scratch.filePath("Evernote"));
    files.addFolder(text("Notebook"));
    files.addItem(text("Notebook"), text("Note.rtfd"),
                  {{manifest::dateCreatedKey, created},
                   {manifest::dateModifiedKey, modified},
                   {manifest::tagsStringKey, text("one,,two words")},
                   {manifest::commentsKey, text("https://example.org/page")},
                   {manifest::extensionHiddenKey, true}});
    ASSERT_TRUE(importFiles(files)) << qPrintable(m_error.description());
    const auto values = platform::resourceValues(inLibrary("Notebook/Note.rtfd"));
    ASSERT_TRUE(values);
    EXPECT_EQ(values->contentModificationDate, modified);
    if (!values->tagNames)
        GTEST_SKIP() << "the file system keeps no attributes";
    EXPECT_EQ(values->creationDate, created);
    EXPECT_EQ(values->tagNames, (QStringList{text("one"), text("two words")}));
    EXPECT_EQ(values->originUrl, text("https://example.org/page"));
    EXPECT_FALSE(values->comment);
    EXPECT_EQ(values->hasHiddenExtension, true);
    EXPECT_EQ(platform::resourceValues(inLibrary("Notebook"))->comment, text("Imported from Evernote"));
}

TEST_F(QuilleryLibraryFolderTest, TheCatalogueKeepsEverythingThatTheManifestSaid)
{
    LaidOutFiles files = twoNotebooks();
    files.top()[text("Unknown")] = QVariantList{1, text("two")};
    QVariantMap folder = files.folders().value(text("folder-Other")).toMap();
    folder[text("Unknown")] = QVariantMap{{text("key"), QByteArray("data")}};
    files.folders()[text("folder-Other")] = folder;
    files.setItemValue(text("item-Other/Note.rtfd"), text("Unknown"), 1.5);
    QVariantMap item = files.items().value(text("item-Other/Note.rtfd")).toMap();
    files.top()[manifest::entitiesKey] = QVariantMap{{manifest::folderEntity, files.folders()},
                                                     {manifest::itemEntity, files.items()},
                                                     {text("Label"), QVariantMap{{text("a"), text("b")}}}};
    ASSERT_TRUE(importFiles(files)) << qPrintable(m_error.description());
    const auto catalogue = LibraryCatalogue::read(inLibrary("Other"));
    ASSERT_TRUE(catalogue);
    EXPECT_EQ(catalogue->folderRecord, folder);
    EXPECT_EQ(catalogue->importRecord.value(text("Unknown")), files.top().value(text("Unknown")));
    EXPECT_EQ(catalogue->importRecord.value(manifest::exporterVersionKey).toInt(), 353);
    EXPECT_EQ(catalogue->importRecord.value(manifest::entitiesKey).toMap(),
              (QVariantMap{{text("Label"), QVariantMap{{text("a"), text("b")}}}}));
    ASSERT_EQ(catalogue->items.size(), 1u);
    EXPECT_EQ(catalogue->items[0].fileName, text("Note.rtfd"));
    EXPECT_EQ(catalogue->items[0].sourceFile, text("Other/Note.rtfd"));
    EXPECT_EQ(catalogue->items[0].record, item);
}

TEST_F(QuilleryLibraryFolderTest, ItemsGetTheirDisplayNamesMadeSafeWithTheFilesExtension)
{
    LaidOutFiles files(m_scratch.filePath("Evernote"));
    files.addFolder(text("Notebook"));
    files.addItem(text("Notebook"), text("a.pdf"), {{manifest::nameKey, text("Invoice 3/4")}});
    files.addItem(text("Notebook"), text("b.pdf"), {{manifest::nameKey, text("../../../escape")}});
    files.addItem(text("Notebook"), text("c.pdf"), {{manifest::nameKey, text(".hidden")}});
    files.addItem(text("Notebook"), text("d.pdf"), {{manifest::nameKey, text("Report.pdf")}});
    files.addItem(text("Notebook"), text("e.pdf"), {{manifest::nameKey, text("report")}});
    files.addItem(text("Notebook"), text("f.pdf"), {{manifest::nameKey, 7}});
    files.addItem(text("Notebook"), text("g.pdf"), {{manifest::nameKey, LibraryCatalogue::fileName}});
    ASSERT_TRUE(importFiles(files)) << qPrintable(m_error.description());
    EXPECT_EQ(QDir(inLibrary("Notebook")).entryList(QDir::Files, QDir::Name),
              (QStringList{text("Invoice 3-4.pdf"), text("Report.pdf"), text("_.-..-..-escape.pdf"),
                           text("_hidden.pdf"), text("_quillery-folder.plist.pdf"), text("f.pdf"),
                           text("report 1.pdf")}));
    EXPECT_EQ(entries(m_library.directory()), QStringList{text("Notebook")});
}

TEST_F(QuilleryLibraryFolderTest, AFoldersNameIsMadeSafe)
{
    LaidOutFiles files(m_scratch.filePath("Evernote"));
    files.addFolder(text("Notebook"));
    QVariantMap record = files.folders().value(text("folder-Notebook")).toMap();
    record[manifest::nameKey] = text("../outside");
    files.folders()[text("folder-Notebook")] = record;
    ASSERT_TRUE(importFiles(files)) << qPrintable(m_error.description());
    EXPECT_EQ(entries(m_library.directory()), QStringList{text("_.-outside")});
}

TEST_F(QuilleryLibraryFolderTest, ASecondImportAddsAndNeverOverwrites)
{
    for (int count = 0; count < 3; ++count)
        ASSERT_TRUE(importFiles(twoNotebooks())) << qPrintable(m_error.description());
    EXPECT_EQ(entries(m_library.directory()),
              (QStringList{text("Notebook"), text("Notebook 1"), text("Notebook 2"), text("Other"),
                           text("Other 1"), text("Other 2")}));
    EXPECT_TRUE(LaidOutFiles::isWhole(inLibrary("Notebook/Note.rtfd"), text("Note.rtfd")));
    EXPECT_TRUE(LaidOutFiles::isWhole(inLibrary("Notebook 2/Note.rtfd"), text("Note.rtfd")));
}

TEST_F(QuilleryLibraryFolderTest, AMissingItemIsReportedTheOthersAreTakenAndTheFilesFolderStays)
{
    const LaidOutFiles files = twoNotebooks();
    ASSERT_TRUE(platform::removeItem(files.path() + text("/Notebook/Note.rtfd")));
    ASSERT_TRUE(platform::removeItem(files.path() + text("/Other/Note.rtfd")));
    EXPECT_FALSE(importFiles(files));
    EXPECT_EQ(m_error.domain(), text(platform::quilleryLibraryErrorDomain));
    EXPECT_EQ(m_error.code(), static_cast<qint64>(Code::ItemsNotTaken));
    EXPECT_TRUE(m_error.localizedDescription().startsWith(text("2 items")))
        << qPrintable(m_error.description());
    EXPECT_TRUE(m_error.localizedDescription().contains(text("Note")));
    ASSERT_EQ(m_library.lastFailedItems().size(), 2u);
    EXPECT_EQ(m_library.lastFailedItems()[0].path, files.path() + text("/Notebook/Note.rtfd"));
    // A folder of which nothing could be taken is not made.
    EXPECT_EQ(entries(m_library.directory()), QStringList{text("Notebook")});
    EXPECT_EQ(LibraryCatalogue::read(inLibrary("Notebook"))->items.size(), 1u);
    EXPECT_EQ(entries(files.path()),
              (QStringList{text("Evernote.qllibxml"), text("Notebook"), text("Other")}));
}

TEST_F(QuilleryLibraryFolderTest, AFilesFolderThatServesSomethingElseAsWellStays)
{
    const LaidOutFiles files = twoNotebooks();
    m_scratch.write(text("Evernote/precious.txt"), "x");
    m_scratch.write(text("Evernote/Notebook/intermediate.enex"), "x");
    EXPECT_TRUE(importFiles(files)) << qPrintable(m_error.description());
    EXPECT_EQ(m_scratch.read(text("Evernote/precious.txt")), "x");
    EXPECT_EQ(entries(m_library.directory()), (QStringList{text("Notebook"), text("Other")}));
    EXPECT_EQ(entries(files.path()), (QStringList{text("Evernote.qllibxml"), text("Notebook"), text("Other"),
                                                  text("precious.txt")}));
}

TEST_F(QuilleryLibraryFolderTest, WhatARunLeavesInItsNotebookFoldersGoesWithTheFilesFolder)
{
    const LaidOutFiles files = twoNotebooks();
    m_scratch.write(text("Evernote/Notebook/HTML/left.html"), "x");
    EXPECT_TRUE(importFiles(files)) << qPrintable(m_error.description());
    EXPECT_FALSE(platform::fileExistsAtPath(files.path()));
}

TEST_F(QuilleryLibraryFolderTest, WithoutARequestTheFilesFolderStays)
{
    LaidOutFiles files = twoNotebooks();
    files.top().remove(manifest::removeFileOnCompletionKey);
    EXPECT_TRUE(importFiles(files)) << qPrintable(m_error.description());
    EXPECT_EQ(entries(files.path()),
              (QStringList{text("Evernote.qllibxml"), text("Notebook"), text("Other")}));
}

TEST_F(QuilleryLibraryFolderTest, ARefusedManifestTouchesNothing)
{
    LaidOutFiles files = twoNotebooks();
    files.setItemValue(text("item-Other/Note.rtfd"), manifest::absoluteFilenameKey, text("/etc/passwd"));
    EXPECT_FALSE(importFiles(files));
    EXPECT_EQ(m_error.code(), static_cast<qint64>(Code::UnsafeManifest));
    EXPECT_TRUE(entries(m_library.directory()).isEmpty());
    EXPECT_EQ(entries(files.path()),
              (QStringList{text("Evernote.qllibxml"), text("Notebook"), text("Other")}));
    EXPECT_TRUE(LaidOutFiles::isWhole(files.path() + text("/Notebook/Note.rtfd"), text("Note.rtfd")));
}

TEST_F(QuilleryLibraryFolderTest, OneBadManifestAmongSeveralRefusesAll)
{
    const LaidOutFiles files = twoNotebooks();
    files.writeManifest();
    EXPECT_FALSE(import(m_library, {files.manifestPath(), m_scratch.filePath("none")}, &m_error));
    EXPECT_EQ(m_error.code(), static_cast<qint64>(Code::NotAManifest));
    EXPECT_TRUE(entries(m_library.directory()).isEmpty());
}

TEST_F(QuilleryLibraryFolderTest, OptionsThatAFolderCannotKeepAreRefused)
{
    const LaidOutFiles files = twoNotebooks();
    files.writeManifest();
    EXPECT_FALSE(m_library.importFiles({files.manifestPath()}, QuilleryApplication::ImportMode::Copy, {}, 5,
                                       {}, 0, {}, &m_error));
    EXPECT_EQ(m_error.code(), static_cast<qint64>(Code::UnsupportedOption));
}

TEST_F(QuilleryLibraryFolderTest, ALibraryInsideTheFilesFolderIsRefused)
{
    const LaidOutFiles files = twoNotebooks();
    files.writeManifest();
    for (const char* directory : {"Evernote/Library", "Evernote"}) {
        QuilleryLibraryFolder library(m_scratch.filePath(directory));
        EXPECT_FALSE(import(library, {files.manifestPath()}, &m_error));
        EXPECT_EQ(m_error.code(), static_cast<qint64>(Code::UnsafeManifest));
    }
    EXPECT_TRUE(platform::fileExistsAtPath(files.path()));
}

TEST_F(QuilleryLibraryFolderTest, ALibraryThatCannotBeMadeIsReported)
{
    m_scratch.write(text("deep"), "a file in the way");
    const LaidOutFiles files = twoNotebooks();
    EXPECT_FALSE(importFiles(files));
    EXPECT_EQ(m_error.code(), static_cast<qint64>(Code::LibraryNotWritable));
    EXPECT_TRUE(LaidOutFiles::isWhole(files.path() + text("/Other/Note.rtfd"), text("Note.rtfd")));
}

TEST_F(QuilleryLibraryFolderTest, AReadOnlyLibraryIsReportedAndNothingIsTouched)
{
    test::SmallVolume volume(1024 * 1024);
    if (!volume.isMounted() || !volume.makeReadOnly())
        GTEST_SKIP() << "no volume can be mounted here";
    const LaidOutFiles files = twoNotebooks();
    files.writeManifest();
    QuilleryLibraryFolder library(volume.path());
    EXPECT_FALSE(import(library, {files.manifestPath()}, &m_error));
    EXPECT_EQ(m_error.code(), static_cast<qint64>(Code::LibraryNotWritable));
    EXPECT_TRUE(m_error.localizedDescription().contains(text("Read-only file system")))
        << qPrintable(m_error.description());
    EXPECT_EQ(entries(files.path()),
              (QStringList{text("Evernote.qllibxml"), text("Notebook"), text("Other")}));
}

TEST_F(QuilleryLibraryFolderTest, ALibraryOnAnotherFileSystemTakesCopies)
{
    const test::SmallVolume volume(1024 * 1024);
    if (!volume.isMounted())
        GTEST_SKIP() << "no volume can be mounted here";
    const LaidOutFiles files = twoNotebooks();
    files.writeManifest();
    QuilleryLibraryFolder library(volume.path());
    ASSERT_TRUE(import(library, {files.manifestPath()}, &m_error)) << qPrintable(m_error.description());
    EXPECT_TRUE(LaidOutFiles::isWhole(volume.filePath(text("Notebook/Note.rtfd")), text("Note.rtfd")));
    EXPECT_EQ(entries(volume.path()), (QStringList{text("Notebook"), text("Other")}));
    EXPECT_FALSE(platform::fileExistsAtPath(files.path()));
}

TEST_F(QuilleryLibraryFolderTest, OnAFullDiskWhatWasTakenIsWholeAndTheRestStays)
{
    const test::SmallVolume volume(200 * 1024);
    if (!volume.isMounted())
        GTEST_SKIP() << "no volume can be mounted here";
    LaidOutFiles files(m_scratch.filePath("Evernote"));
    files.addFolder(text("Notebook"));
    for (int number = 10; number < 40; ++number)
        files.addItem(text("Notebook"), QStringLiteral("Note %1.rtfd").arg(number));
    files.writeManifest();
    QuilleryLibraryFolder library(volume.path());
    EXPECT_FALSE(import(library, {files.manifestPath()}, &m_error));
    EXPECT_TRUE(m_error.localizedDescription().contains(text("No space left on device")))
        << qPrintable(m_error.description());
    ASSERT_EQ(m_error.code(), static_cast<qint64>(Code::ItemsNotTaken)) << qPrintable(m_error.description());

    const auto catalogue = LibraryCatalogue::read(volume.filePath(text("Notebook")));
    ASSERT_TRUE(catalogue);
    EXPECT_GT(catalogue->items.size(), 0u);
    EXPECT_EQ(catalogue->items.size() + library.lastFailedItems().size(), 30u);
    for (const LibraryCatalogue::Item& item : catalogue->items)
        EXPECT_TRUE(LaidOutFiles::isWhole(volume.filePath(text("Notebook/") + item.fileName), item.fileName));
    EXPECT_EQ(entries(volume.filePath(text("Notebook"))).size(),
              static_cast<qsizetype>(catalogue->items.size()) + 1);
    for (const platform::FailedImportItem& item : library.lastFailedItems())
        EXPECT_TRUE(LaidOutFiles::isWhole(item.path, QFileInfo(item.path).fileName()));
}

TEST_F(QuilleryLibraryFolderTest, OnADiskTooFullForTheJournalNothingIsTouched)
{
    const test::SmallVolume volume(16 * 1024);
    if (!volume.isMounted())
        GTEST_SKIP() << "no volume can be mounted here";
    LaidOutFiles files(m_scratch.filePath("Evernote"));
    files.addFolder(text("Notebook"));
    for (int number = 10; number < 99; ++number)
        files.addItem(text("Notebook"), QStringLiteral("Note %1.rtfd").arg(number));
    files.writeManifest();
    QuilleryLibraryFolder library(volume.path());
    EXPECT_FALSE(import(library, {files.manifestPath()}, &m_error));
    EXPECT_EQ(m_error.code(), static_cast<qint64>(Code::LibraryNotWritable));
    EXPECT_TRUE(m_error.localizedDescription().contains(text("No space left on device")))
        << qPrintable(m_error.description());
    EXPECT_TRUE(entries(volume.path()).isEmpty());
    EXPECT_EQ(entries(files.path()), (QStringList{text("Evernote.qllibxml"), text("Notebook")}));
    EXPECT_EQ(entries(files.path() + text("/Notebook")).size(), 89);
}

} // namespace
