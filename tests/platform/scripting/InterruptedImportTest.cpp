// SPDX-License-Identifier: MIT
#include "platform/files/FileManager.h"
#include "platform/propertylist/PropertyList.h"
#include "platform/scripting/LaidOutFiles.h"
#include "platform/scripting/LibraryCatalogue.h"
#include "platform/scripting/QuilleryLibraryFolder.h"

#include "support/SmallVolume.h"

#include <QDirIterator>

#include <csignal>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using platform::Error;
using platform::LibraryCatalogue;
using platform::QuilleryApplication;
using platform::QuilleryLibraryFolder;
using test::LaidOutFiles;

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

bool import(QuilleryLibraryFolder& library, const QString& path, Error* error = nullptr)
{
    return library.importFiles({path}, QuilleryApplication::ImportMode::Copy, {}, 0, {}, 0, {}, error);
}

enum class Outcome { Killed, Ended, Untraceable };

// Carries the import out in a child process, which is killed when it has met the system a number of times:
// each call is met twice, before and after it, and nothing changes between one call and the next.
Outcome importAndKill(const QString& library, const QString& manifestPath, int meetings)
{
    const pid_t child = fork();
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            _exit(77);
        raise(SIGSTOP);
        QuilleryLibraryFolder folder(library);
        _exit(import(folder, manifestPath) ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    for (int meeting = 0; WIFSTOPPED(status); ++meeting) {
        if (meeting == meetings) {
            kill(child, SIGKILL);
            waitpid(child, &status, 0);
            return Outcome::Killed;
        }
        const int signal = WSTOPSIG(status) == SIGTRAP || WSTOPSIG(status) == SIGSTOP ? 0 : WSTOPSIG(status);
        ptrace(PTRACE_SYSCALL, child, nullptr, signal);
        waitpid(child, &status, 0);
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) == 77)
        return Outcome::Untraceable;
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    return Outcome::Ended;
}

class InterruptedImportTest : public ::testing::Test {
protected:
    const QStringList m_fileNames = {text("First.rtfd"), text("Second.webarchive"), text("Third.rtfd")};

    [[nodiscard]] LaidOutFiles layOut() const
    {
        LaidOutFiles files(m_filesPath);
        files.addFolder(text("One"));
        files.addFolder(text("Two"));
        files.addItem(text("One"), m_fileNames[0]);
        files.addItem(text("One"), m_fileNames[1]);
        files.addItem(text("Two"), m_fileNames[2]);
        files.writeManifest();
        return files;
    }

    // Every path below a folder under which an item of this name stands.
    static QStringList copiesBelow(const QString& folder, const QString& fileName)
    {
        QStringList copies;
        QDirIterator iterator(folder, {fileName}, QDir::AllEntries | QDir::Hidden,
                              QDirIterator::Subdirectories);
        while (iterator.hasNext())
            copies += iterator.next();
        return copies;
    }

    enum class Copies { One, OneOrTwo };
    void expectEveryItemWhole(const QString& library, Copies copies, int meetings) const
    {
        for (const QString& fileName : m_fileNames) {
            const QStringList paths = copiesBelow(m_filesPath, fileName) + copiesBelow(library, fileName);
            EXPECT_GE(paths.size(), 1) << meetings << qPrintable(fileName);
            EXPECT_LE(paths.size(), copies == Copies::One ? 1 : 2) << meetings << qPrintable(fileName);
            for (const QString& path : paths)
                EXPECT_TRUE(LaidOutFiles::isWhole(path, fileName)) << meetings << qPrintable(path);
        }
    }

    // The library holds each item once, is in order, and the files folder is gone.
    void expectFinished(const QString& library, int meetings) const
    {
        const QStringList folders
            = QDir(library).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
        EXPECT_EQ(folders, (QStringList{text("One"), text("Two")})) << meetings;
        for (const QString& folder : folders) {
            const QString path = library + text("/") + folder;
            const auto catalogue = LibraryCatalogue::read(path);
            ASSERT_TRUE(catalogue) << meetings;
            const QStringList entries
                = QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
            EXPECT_EQ(entries.size(), static_cast<qsizetype>(catalogue->items.size()) + 1) << meetings;
            for (const LibraryCatalogue::Item& item : catalogue->items)
                EXPECT_TRUE(LaidOutFiles::isWhole(path + text("/") + item.fileName, item.fileName))
                    << meetings;
        }
        expectEveryItemWhole(library, Copies::One, meetings);
        EXPECT_FALSE(platform::fileExistsAtPath(m_filesPath)) << meetings;
    }

    // The files of the items that the last import could not take, as it tells them, sorted.
    static QStringList failedNames(const QuilleryLibraryFolder& folder)
    {
        QStringList names;
        for (const platform::FailedImportItem& item : folder.lastFailedItems()) {
            EXPECT_TRUE(item.error.localizedDescription().contains(text(" is gone: ")))
                << qPrintable(item.path);
            names += QFileInfo(item.path).fileName();
        }
        names.sort();
        return names;
    }

    static void empty(const QString& folder)
    {
        const QStringList names
            = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        for (const QString& name : names)
            EXPECT_TRUE(platform::removeItem(folder + text("/") + name));
    }

    void removeFilesFolder() const
    {
        if (platform::fileExistsAtPath(m_filesPath)) {
            EXPECT_TRUE(platform::removeItem(m_filesPath));
        }
    }

    // Kills an import between any two system calls that it makes, and finishes it afterwards.
    void killEverywhere(const QString& library, Copies copies)
    {
        int meetings = 1;
        for (Outcome outcome = Outcome::Killed; outcome != Outcome::Ended; meetings += 2) {
            const LaidOutFiles files = layOut();
            outcome = importAndKill(library, files.manifestPath(), meetings);
            if (outcome == Outcome::Untraceable)
                GTEST_SKIP() << "processes cannot be traced here";
            expectEveryItemWhole(library, copies, meetings);

            QuilleryLibraryFolder folder(library);
            Error error;
            EXPECT_TRUE(folder.finishInterruptedImports(&error))
                << meetings << qPrintable(error.description());
            if (platform::fileExistsAtPath(files.manifestPath())) {
                EXPECT_TRUE(import(folder, files.manifestPath(), &error))
                    << meetings << qPrintable(error.description());
            }
            // What is left when everything but the folder itself was removed.
            QDir().rmdir(m_filesPath);
            expectFinished(library, meetings);
            if (HasFailure())
                return;
            empty(library);
        }
        EXPECT_GT(meetings, 100);
    }

    test::ScratchFolder m_scratch;
    QString m_filesPath = m_scratch.filePath("Evernote");
    QString m_library = m_scratch.filePath("Library");
};

TEST_F(InterruptedImportTest, KilledAtAnySystemCallEveryItemIsWholeAndTheNextImportFinishes)
{
    ASSERT_TRUE(QDir().mkpath(m_library));
    killEverywhere(m_library, Copies::One);
}

TEST_F(InterruptedImportTest, KilledWhileCopyingToAnotherFileSystemEveryItemIsWholeAndTheNextImportFinishes)
{
    const test::SmallVolume volume(4 * 1024 * 1024);
    if (!volume.isMounted())
        GTEST_SKIP() << "no volume can be mounted here";
    killEverywhere(volume.path(), Copies::OneOrTwo);
}

TEST_F(InterruptedImportTest, AnImportThatNeverBeganLeavesNothing)
{
    ASSERT_TRUE(QDir().mkpath(m_library + text("/.importing-A/0")));
    m_scratch.write(text("Library/.importing-A/0/.quillery-folder.plist"), "half a cata");
    ASSERT_TRUE(QDir().mkpath(m_library + text("/.importing-B")));
    QuilleryLibraryFolder folder(m_library);
    EXPECT_TRUE(folder.finishInterruptedImports());
    EXPECT_TRUE(folder.lastImportedFolders().isEmpty());
    EXPECT_EQ(m_scratch.tree(), QStringList{text("Library/")});
}

TEST_F(InterruptedImportTest, WithADamagedCatalogueTheItemsAreFoundAllTheSame)
{
    m_scratch.write(text("Library/.importing-A/0/.quillery-folder.plist"), "damaged");
    m_scratch.write(text("Library/.importing-A/0/Note.rtfd/TXT.rtf"), "text");
    QuilleryLibraryFolder folder(m_library);
    Error error;
    EXPECT_FALSE(folder.finishInterruptedImports(&error));
    EXPECT_FALSE(error.localizedDescription().isEmpty());
    EXPECT_EQ(folder.lastImportedFolders(), QStringList{m_library + text("/Recovered Items")});
    EXPECT_EQ(m_scratch.read(text("Library/Recovered Items/Note.rtfd/TXT.rtf")), "text");
    EXPECT_TRUE(folder.finishInterruptedImports());
}

TEST_F(InterruptedImportTest, AJournalThatWasTamperedWithTakesNothingFromOutside)
{
    const QString outside = m_scratch.write(text("outside"), "x");
    const QString inside = m_scratch.write(text("Evernote/inside"), "x");
    const QString stage = m_library + text("/.importing-A/0");
    ASSERT_TRUE(QDir().mkpath(stage));
    m_scratch.write(text("Evernote/.importing-A"), "");
    LibraryCatalogue catalogue;
    catalogue.folderRecord = {{text("name"), text("Folder")}};
    catalogue.items
        = {{text("taken"), text("../outside"), {}}, {text("../../../escaped"), text("inside"), {}}};
    ASSERT_TRUE(catalogue.write(stage));
    const QVariantMap journal = {{text("FilesFolder"), m_filesPath}, {text("RemovesFilesFolder"), true}};
    ASSERT_TRUE(platform::writePropertyList(m_library + text("/.importing-A/Import.plist"), journal,
                                            platform::PropertyListFormat::Binary));
    QuilleryLibraryFolder folder(m_library);
    EXPECT_FALSE(folder.finishInterruptedImports());
    EXPECT_EQ(folder.lastFailedItems().size(), 2u);
    EXPECT_EQ(m_scratch.tree(),
              (QStringList{text("Evernote/"), text("Evernote/inside"), text("Library/"), text("outside")}));
}

TEST_F(InterruptedImportTest, TheSameImportAskedForAgainIsFinishedAndNotRepeated)
{
    ASSERT_TRUE(QDir().mkpath(m_library));
    int finishedAgain = 0;
    for (int meetings = 20;; meetings += 7) {
        const LaidOutFiles files = layOut();
        const Outcome outcome = importAndKill(m_library, files.manifestPath(), meetings);
        if (outcome == Outcome::Untraceable)
            GTEST_SKIP() << "processes cannot be traced here";
        if (outcome == Outcome::Ended)
            break;
        const bool isUnderWay = !copiesBelow(m_library, text("Import.plist")).isEmpty();
        QuilleryLibraryFolder folder(m_library);
        Error error;
        if (isUnderWay) {
            EXPECT_TRUE(import(folder, files.manifestPath(), &error))
                << meetings << qPrintable(error.description());
            QDir().rmdir(m_filesPath);
            expectFinished(m_library, meetings);
            ++finishedAgain;
        }
        empty(m_library);
        removeFilesFolder();
        if (HasFailure())
            return;
    }
    EXPECT_GT(finishedAgain, 5);
}

TEST_F(InterruptedImportTest, TheFilesOfALaterRunAreNotTakenForThoseOfTheInterruptedOneWhichAreToldAsGone)
{
    ASSERT_TRUE(QDir().mkpath(m_library));
    int interruptedInside = 0;
    for (int meetings = 100;; meetings += 4) {
        const QString manifestPath = layOut().manifestPath();
        const Outcome outcome = importAndKill(m_library, manifestPath, meetings);
        if (outcome == Outcome::Untraceable)
            GTEST_SKIP() << "processes cannot be traced here";
        if (outcome == Outcome::Ended)
            break;
        const bool hadBegun = !copiesBelow(m_library, text("Import.plist")).isEmpty();
        QStringList takenBefore;
        for (const QString& fileName : m_fileNames)
            takenBefore += copiesBelow(m_library, fileName).isEmpty() ? QStringList() : QStringList{fileName};
        interruptedInside += takenBefore.size() == 1 || takenBefore.size() == 2 ? 1 : 0;
        QStringList gone;
        for (const QString& fileName : m_fileNames) {
            const bool isLost = hadBegun && !takenBefore.contains(fileName);
            gone += isLost ? QStringList{fileName} : QStringList();
        }

        // The next run begins by removing the files folder, as every run does.
        removeFilesFolder();
        static_cast<void>(layOut());
        QuilleryLibraryFolder folder(m_library);
        Error error;
        EXPECT_EQ(import(folder, manifestPath, &error), gone.isEmpty())
            << meetings << qPrintable(error.description());
        EXPECT_EQ(failedNames(folder), gone) << meetings;
        for (const QString& fileName : m_fileNames) {
            const QStringList copies = copiesBelow(m_library, fileName);
            EXPECT_EQ(copies.size(), takenBefore.contains(fileName) ? 2 : 1)
                << meetings << qPrintable(fileName);
            for (const QString& path : copies)
                EXPECT_TRUE(LaidOutFiles::isWhole(path, fileName)) << meetings;
        }
        EXPECT_FALSE(platform::fileExistsAtPath(m_filesPath));
        empty(m_library);
        if (HasFailure())
            return;
    }
    EXPECT_GE(interruptedInside, 4);
}

} // namespace
