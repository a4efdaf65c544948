// SPDX-License-Identifier: MIT
#include "platform/propertylist/PropertyList.h"
#include "platform/scripting/LibraryCatalogue.h"
#include "support/SmallVolume.h"
#include "tools/BlockedOutput.h"
#include "tools/CommandFixture.h"

#include <QDirIterator>

#include <sys/mount.h>

namespace {

using test::CommandResult;
using test::text;

class LibraryDestinationTest : public test::CommandTest {
protected:
    [[nodiscard]] CommandResult runInto(const QString& library, const QStringList& files) const
    {
        return run(QStringList{text("--library"), library, text("--report"), text("report.json")} + files);
    }

    // The files folders in the private temporary directory.
    static QStringList filesFolders()
    {
        QStringList found;
        QDirIterator folders(qEnvironmentVariable("XDG_CACHE_HOME"), {text("Evernote")}, QDir::Dirs,
                             QDirIterator::Subdirectories);
        while (folders.hasNext())
            found += folders.next();
        found.sort();
        return found;
    }

    // What an import leaves that was interrupted when its items were already in the library.
    QString leaveInterruptedImport(const QStringList& planned, const QStringList& taken) const
    {
        const QString stage = path("lib/.importing-A/0");
        EXPECT_TRUE(QDir().mkpath(stage));
        platform::LibraryCatalogue catalogue;
        catalogue.folderRecord = {{text("name"), text("Old")}};
        for (const QString& name : planned)
            catalogue.items.push_back(
                {name, text("Old/") + name, {{text("name"), QFileInfo(name).baseName()}}});
        EXPECT_TRUE(catalogue.write(stage));
        for (const QString& name : taken)
            m_folder.write(text("lib/.importing-A/0/") + name, "old");
        const QVariantMap journal = {{text("FilesFolder"), path("gone")}, {text("RemovesFilesFolder"), true}};
        EXPECT_TRUE(platform::writePropertyList(path("lib/.importing-A/Import.plist"), journal,
                                                platform::PropertyListFormat::Binary));
        return stage;
    }
};

TEST_F(LibraryDestinationTest, ALibraryThatCannotBeWrittenIsAFailureThatSaysSo)
{
    m_folder.write(text("in the way"), "a file");
    const CommandResult result = runInto(text("in the way"), {file("A.enex", note("One"))});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.contains(text("in the way"))) << qPrintable(result.errors);
    EXPECT_EQ(m_folder.read(text("in the way")), "a file");
}

TEST_F(LibraryDestinationTest, AReadOnlyLibraryIsAFailureThatSaysSo)
{
    test::SmallVolume volume(1024 * 1024);
    if (!volume.isMounted() || !QDir(volume.path()).mkdir(text("lib")) || !volume.makeReadOnly())
        GTEST_SKIP() << "no volume can be mounted here";
    for (const char* name : {"lib", "new"}) {
        const CommandResult result = runInto(volume.filePath(text(name)), {file("A.enex", note("One"))});
        EXPECT_EQ(result.status, 1) << name;
        EXPECT_TRUE(result.errors.contains(text("Read-only file system"))) << qPrintable(result.errors);
        EXPECT_TRUE(result.errors.contains(volume.filePath(text(name))));
        EXPECT_EQ(result.lastLine(), text("1 note: 0 became items, none were skipped, 1 was not imported."));
    }
}

TEST_F(LibraryDestinationTest, WhatAFullLibraryTookCountsAndTheRestIsToldAsSkipped)
{
    const test::SmallVolume volume(1024 * 1024);
    if (!volume.isMounted())
        GTEST_SKIP() << "no volume can be mounted here";
    const QByteArray large = "<en-note>" + QByteArray("word ").repeated(500000) + "</en-note>";
    const QString path = file("A.enex", note("Small") + note("Large", large) + note("Late"));
    const CommandResult result = runInto(volume.path(), {path});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.output.contains(text("Skipped \"Large\": "))) << qPrintable(result.output);
    EXPECT_TRUE(result.output.contains(text("  In ") + volume.filePath(text("A"))));
    EXPECT_EQ(result.lastLine(), text("3 notes: 1 became an item, 2 were skipped."));
    EXPECT_TRUE(QFileInfo::exists(volume.filePath(text("A/Small.qlnote"))));
    EXPECT_EQ(report().value(text("items")).toInt(), 1);
    EXPECT_EQ(report().value(text("skipped")).toArray().size(), 2);
    EXPECT_EQ(runs()[0].toObject().value(text("outcome")).toString(), text("failed"));
}

TEST_F(LibraryDestinationTest, WhatIsFinishedOfAnInterruptedImportIsTold)
{
    leaveInterruptedImport({text("One.rtf"), text("Two.rtf")}, {text("One.rtf"), text("Two.rtf")});
    const CommandResult result = runInto(text("lib"), {file("A.enex", note("New"))});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_TRUE(result.output.contains(text("Finished an import that had been interrupted: 2 items.")));
    EXPECT_TRUE(result.output.contains(text("  In ") + path("lib/Old")));
    EXPECT_EQ(result.lastLine(), text("1 note: 1 became an item, none were skipped."));
    const QJsonObject earlier = report().value(text("earlier")).toObject();
    EXPECT_EQ(earlier.value(text("items")).toInt(), 2);
    EXPECT_EQ(earlier.value(text("places")).toArray(), QJsonArray{path("lib/Old")});
}

TEST_F(LibraryDestinationTest, ItemsOfAnInterruptedImportThatAreGoneAreToldAndTheNewFilesAreImported)
{
    leaveInterruptedImport({text("One.rtf"), text("Two.rtf")}, {text("One.rtf")});
    const CommandResult result = runInto(text("lib"), {file("A.enex", note("New"))});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.output.contains(text("Finished an import that had been interrupted: 1 item.")));
    EXPECT_TRUE(result.output.contains(text("Skipped \"Two\": "))) << qPrintable(result.output);
    EXPECT_TRUE(result.output.contains(text("is gone")));
    EXPECT_TRUE(exists("lib/A/New.qlnote"));
    EXPECT_EQ(result.lastLine(), text("1 note: 1 became an item, none were skipped."));
    EXPECT_EQ(report().value(text("earlier")).toObject().value(text("skipped")).toArray().size(), 1);
    EXPECT_EQ(runInto(text("lib"), {path("A.enex")}).status, 0);
}

TEST_F(LibraryDestinationTest, AnInterruptedImportThatCannotBeFinishedDoesNotKeepNewFilesOut)
{
    const QString stage = leaveInterruptedImport({text("One.rtf"), text("Two.rtf")}, {text("One.rtf")});
    // What is mounted cannot be moved.
    const QByteArray mountPoint = QFile::encodeName(stage);
    if (::mount(mountPoint.constData(), mountPoint.constData(), nullptr, MS_BIND, nullptr) != 0)
        GTEST_SKIP() << "no volume can be mounted here";
    const CommandResult result = runInto(text("lib"), {file("A.enex", note("New"))});
    ::umount2(mountPoint.constData(), MNT_DETACH);
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.contains(text("could not be finished"))) << qPrintable(result.errors);
    EXPECT_TRUE(exists("lib/A/New.qlnote"));
    EXPECT_EQ(runs()[0].toObject().value(text("outcome")).toString(), text("imported"));
    EXPECT_EQ(result.lastLine(), text("1 note: 1 became an item, none were skipped."));
    EXPECT_TRUE(report().value(text("earlier")).toObject().contains(text("error")));

    static_cast<void>(runInto(text("lib"), {path("A.enex")}));
    EXPECT_TRUE(exists("lib/Old/One.rtf"));
}

TEST_F(LibraryDestinationTest, ARunThatNeverCameToItsImportLeavesNoFilesFolder)
{
    m_folder.write(text("broken.enex"), "<en-export><note>");
    const QStringList before = filesFolders();
    EXPECT_EQ(runInto(text("lib"), {path("broken.enex")}).status, 1);
    EXPECT_EQ(filesFolders(), before);
}

TEST_F(LibraryDestinationTest, OneImportAtATimeIntoALibraryAndSeveralIntoDifferentOnes)
{
    const QString path = file("A.enex", note("One"));
    test::BlockedOutput output(0);
    QProcess first;
    output.attach(first);
    start(first, {text("--library"), text("lib"), path});
    const auto isLocked = [] {
        QDirIterator locks(qEnvironmentVariable("XDG_CACHE_HOME"), {text("Evernote.lock")},
                           QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        return locks.hasNext();
    };
    ASSERT_TRUE(test::waitUntil(isLocked));
    ASSERT_TRUE(QFile::link(m_folder.path(), m_folder.filePath("same")));
    for (const char* library : {"lib", "./lib/", "same/lib"}) {
        const CommandResult second = runInto(text(library), {path});
        EXPECT_EQ(second.status, 1) << library;
        EXPECT_TRUE(second.errors.contains(text("Another import into "))) << qPrintable(second.errors);
    }
    EXPECT_EQ(runInto(text("other"), {path}).status, 0);
    static_cast<void>(output.readAll());
    ASSERT_TRUE(first.waitForFinished());
    EXPECT_EQ(first.exitCode(), 0);
    EXPECT_TRUE(exists("lib/A/One.qlnote"));
    EXPECT_TRUE(exists("other/A/One.qlnote"));
}

TEST_F(LibraryDestinationTest, AnImportIntoAnotherLibraryLeavesTheFilesOfAnInterruptedOneAlone)
{
    const QStringList earlier = filesFolders();
    const QString path = file("A.enex", note("One").repeated(1000));
    QProcess first;
    start(first, {text("--library"), text("lib"), path});
    QByteArray output;
    while (!output.contains(" of 1000 notes") && first.waitForReadyRead(60000))
        output += first.readAllStandardOutput();
    first.kill();
    ASSERT_TRUE(first.waitForFinished());
    const QStringList before = filesFolders();
    ASSERT_EQ(before.size(), earlier.size() + 1);
    for (const QString& folder : before) {
        const QFile::Permissions others(0x0077);
        EXPECT_FALSE(QFileInfo(QFileInfo(folder).path()).permissions() & others) << qPrintable(folder);
    }
    EXPECT_EQ(runInto(text("other"), {file("B.enex", note("Two"))}).status, 0);
    EXPECT_EQ(filesFolders(), before);
}

} // namespace
