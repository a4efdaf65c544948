// SPDX-License-Identifier: MIT
#include "import/ScriptedRun.h"

#include "foundation/BMXLogManager.h"

#include <QRegularExpression>

#include <cstdio>

#include <sys/stat.h>
#include <unistd.h>

namespace {

using platform::Error;
using platform::manifest::Record;
using ::testing::ElementsAre;

class RunFilesTest : public ScriptedRunTest {};

TEST_F(RunFilesTest, TheStoreEditionsFoldersLieInItsContainer)
{
    m_bridge->installed = {{platform::quillery::storeIdentifier, m_quillery}};
    runNotebooks({text("A")});
    const QString support = m_folder.filePath(
        "Library/Containers/com.brightmoor.Quillery3.mac/Data/Library/Application Support");
    EXPECT_EQ(m_run->filesPath(), support + text("/Quillery 3/LibraryImport/Evernote"));
    EXPECT_TRUE(
        QFileInfo::exists(support + text("/Quillery 3/LibraryImport/Evernote/Evernote.qllibxml")));
    EXPECT_TRUE(QFileInfo::exists(support + text("/Quillery 3/Logs/Evernote Export.log")));
}

TEST_F(RunFilesTest, TheLogBeginsWithTheVersions)
{
    m_run->setEvernoteApp(std::make_shared<ScriptedEvernote>());
    runNotebooks({text("One")});
    const QStringList lines = logLines();
    ASSERT_EQ(lines.size(), 5);
    const QRegularExpression header(text("^Vupuge \\d+\\.\\d+\\.\\d+ OS X .+$"));
    EXPECT_TRUE(header.match(lines[0]).hasMatch()) << qPrintable(lines[0]);
    EXPECT_EQ(lines[1], text("Quillery Version 3.5.3 Evernote Version 6.13"));
    EXPECT_EQ(lines[2], text("*** Export started for notebook: One"));
    EXPECT_EQ(lines[3], text("Exporting notes"));
    EXPECT_EQ(lines[4], text("*** Export ended for notebook: One"));
    EXPECT_FALSE(m_run->logStream()->isOpen());
}

TEST_F(RunFilesTest, TheManifestHasItsKeysAndTypes)
{
    runNotebooks({text("One")});
    const QVariantMap list = manifest();
    EXPECT_EQ(list.keys(), QStringList({text("Entities"), text("ExporterVersion"),
                                        text("RemoveFileOnCompletion")}));
    EXPECT_EQ(list.value(text("ExporterVersion")).toLongLong(), 353);
    EXPECT_EQ(list.value(text("RemoveFileOnCompletion")).toString(), filesPath());
    EXPECT_EQ(list.value(text("Entities")).toMap().keys(),
              QStringList({text("Folder"), text("Item")}));
    const QList<QVariantMap> folders = records(text("Folder"));
    ASSERT_EQ(folders.size(), 1);
    const QVariantMap& folder = folders[0];
    EXPECT_EQ(folder.value(text("com.brightmoor.Quillery.EntityName")).toString(), text("Folder"));
    EXPECT_EQ(folder.value(text("name")).toString(), text("One"));
    EXPECT_EQ(folder.value(text("groupType")).toLongLong(), 70);
    EXPECT_EQ(folder.value(text("parent")).toString(), text("RootFolder"));
    EXPECT_TRUE(
        folder.value(text("comments")).toString().startsWith(text("Imported from Evernote, ")));
    const QRegularExpression uuid(text("^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"));
    EXPECT_TRUE(uuid.match(folder.value(text("identifier")).toString()).hasMatch());
    const QByteArray xml = test::readFile(filesPath() + text("/Evernote.qllibxml"));
    EXPECT_TRUE(xml.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));
    EXPECT_TRUE(xml.contains("<integer>353</integer>"));
    EXPECT_TRUE(xml.contains("<integer>70</integer>"));
}

TEST_F(RunFilesTest, TwoNotebooksAreTwoFoldersAtTheTop)
{
    runNotebooks({text("One"), text("Two")});
    QStringList names;
    for (const QVariantMap& folder : records(text("Folder"))) {
        names += folder.value(text("name")).toString();
        EXPECT_EQ(folder.value(text("parent")).toString(), text("RootFolder"));
    }
    names.sort();
    EXPECT_EQ(names, QStringList({text("One"), text("Two")}));
}

TEST_F(RunFilesTest, TheFolderRecordHandedOutIsTheOneInTheManifest)
{
    m_run->work = [](ScriptedRun&, const auto&, const QString&,
                     const Record& folder) -> std::optional<Error> {
        EXPECT_TRUE(folder->contains(QStringLiteral("comments")));
        folder->insert(QStringLiteral("items"), QStringList());
        return std::nullopt;
    };
    runNotebooks({text("One")});
    EXPECT_TRUE(records(text("Folder"))[0].contains(text("items")));
}

TEST_F(RunFilesTest, AChangedNotebookNameIsUsedForFolderAndRecordButNotForTheReport)
{
    runNotebooks({text(" a/b ")});
    EXPECT_EQ(m_delegate.reports.first(), text("will 2  a/b "));
    EXPECT_EQ(records(text("Folder"))[0].value(text("name")).toString(), text("a-b"));
    EXPECT_TRUE(QFileInfo(filesPath() + text("/a-b")).isDir());
}

TEST_F(RunFilesTest, ANameOfMoreBytesThanTheFileSystemTakesIsShortenedForFolderAndRecord)
{
    const QString name(100, QChar(0x8A9E));
    runNotebooks({name});
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 2 ") + name, text("end")));
    EXPECT_EQ(records(text("Folder"))[0].value(text("name")).toString(), name.first(85));
    EXPECT_TRUE(QFileInfo(filesPath() + QLatin1Char('/') + name.first(85)).isDir());
}

TEST_F(RunFilesTest, ACharacterThatTheManifestCannotHoldIsReplacedForFolderAndRecord)
{
    runNotebooks({text("a\x01z")});
    EXPECT_EQ(m_delegate.reports.first(), text("will 2 a\x01z"));
    EXPECT_EQ(records(text("Folder"))[0].value(text("name")).toString(), text("a\uFFFDz"));
    EXPECT_TRUE(QFileInfo(filesPath() + text("/a\uFFFDz")).isDir());
}

TEST_F(RunFilesTest, TwoNotebooksOfTheSameNameEndTheRunWithTwoReports)
{
    runNotebooks({text("a/b"), text("a:b"), text("c")});
    EXPECT_THAT(m_delegate.reports,
                ElementsAre(text("will 2 a/b"), text("error 10004"), text("error none")));
    EXPECT_EQ(m_delegate.errors[0]->localizedDescription(),
              text("Unable to create the temporary directory to export files."));
    EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/Evernote.qllibxml")));
    EXPECT_TRUE(m_quillery->calls.isEmpty());
    const QStringList lines = logLines();
    ASSERT_GE(lines.size(), 4);
    EXPECT_EQ(lines[lines.size() - 4], text("*** Export started for notebook: a:b"));
    EXPECT_EQ(lines[lines.size() - 3],
              text("Error: Error Domain=EvernoteExport Code=10004 "
                   "\"Unable to create the temporary directory to export files.\""));
    EXPECT_TRUE(lines[lines.size() - 2].startsWith(
        text("Unable to create notebook directory %1/a-b: ").arg(filesPath())));
    EXPECT_EQ(lines.last(), text("Error: (null)"));
}

TEST_F(RunFilesTest, ASecondRunRemovesTheFirstRunsFilesAndLog)
{
    runNotebooks({text("First")});
    m_delegate.reports.clear();
    m_run = std::make_shared<ScriptedRun>();
    prepare(*m_run);
    runNotebooks({text("Second")});
    EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/First")));
    EXPECT_TRUE(QFileInfo::exists(filesPath() + text("/Second")));
    EXPECT_TRUE(logLines().filter(text("First")).isEmpty());
    EXPECT_EQ(records(text("Folder")).size(), 1);
}

TEST_F(RunFilesTest, WithoutATrustedTemporaryDirectoryTheRunEndsBeforeItHasALog)
{
    RunDirectories unusable = directories();
    unusable.temporary.clear();
    m_run->setRunDirectories(unusable);
    runNotebooks({text("A")});
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("error 10004")));
    EXPECT_FALSE(QFileInfo::exists(logPath()));
}

TEST_F(RunFilesTest, AnEarlierFilesFolderThatCannotBeRemovedEndsThePreparation)
{
    QDir(filesPath()).mkpath(text("left over"));
    ASSERT_EQ(chmod(qPrintable(m_folder.path()), 0755), 0);
    ASSERT_EQ(chmod(qPrintable(m_folder.filePath("temporary")), 0555), 0);
    // Root may remove anything, so somebody else tries.
    const bool isRoot = geteuid() == 0;
    if (isRoot) {
        ASSERT_EQ(seteuid(65534), 0);
    }
    const bool prepared =
        m_run->prepareToExportWithAppIdentifier(platform::quillery::identifier, &m_error);
    if (isRoot) {
        ASSERT_EQ(seteuid(0), 0);
    }
    chmod(qPrintable(m_folder.filePath("temporary")), 0755);
    EXPECT_FALSE(prepared);
    EXPECT_EQ(m_error, Error(text("EvernoteExport"), 10004,
                             text("Unable to create the temporary directory to export files.")));
    EXPECT_TRUE(QFileInfo::exists(filesPath()));
    EXPECT_EQ(m_run->libraryPlist(), nullptr);
    EXPECT_EQ(m_run->logStream(), nullptr);
}

TEST_F(RunFilesTest, AFilesFolderThatCannotBeMadeIsFoundOutAtTheFirstNotebook)
{
    RunDirectories directories = this->directories();
    directories.temporary = m_folder.write(text("a file"), "");
    m_run->setRunDirectories(directories);
    ASSERT_TRUE(m_run->getQuilleryApplicationBundleIdentifier());
    EXPECT_TRUE(m_run->prepareToExportWithAppIdentifier(platform::quillery::identifier, &m_error));
    EXPECT_EQ(m_error.code(), 10004);
    BMXLogManager::sharedManager().restoreStandardError();
    runNotebooks({text("A")});
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("error 10004"), text("error none")));
    EXPECT_TRUE(QFileInfo::exists(logPath()));
}

TEST_F(RunFilesTest, StandardErrorStandsInTheLogDuringTheRunAndIsGivenBack)
{
    m_run->work = [](ScriptedRun&, const auto&, const QString&,
                     const Record&) -> std::optional<Error> {
        std::fputs("a library's complaint\n", stderr);
        return std::nullopt;
    };
    runNotebooks({text("One")});
    EXPECT_EQ(logLines().filter(text("a library's complaint")).size(), 1);
    EXPECT_FALSE(BMXLogManager::sharedManager().isRedirected());
}

TEST_F(RunFilesTest, ARunThatIsReleasedLateLeavesStandardErrorToTheNext)
{
    auto late = std::make_shared<ScriptedRun>();
    prepare(*late);
    ASSERT_TRUE(late->getQuilleryApplicationBundleIdentifier());
    ASSERT_TRUE(late->prepareToExportWithAppIdentifier(platform::quillery::identifier));
    m_run->work = [&](ScriptedRun&, const auto&, const QString&,
                      const Record&) -> std::optional<Error> {
        late.reset();
        std::fputs("a library's complaint\n", stderr);
        return std::nullopt;
    };
    runNotebooks({text("One")});
    EXPECT_EQ(logLines().filter(text("a library's complaint")).size(), 1);
}

} // namespace
