// SPDX-License-Identifier: MIT
#include "platform/propertylist/PropertyList.h"
#include "support/SmallVolume.h"
#include "tools/BlockedOutput.h"
#include "tools/BusCommandFixture.h"
#include "tools/LibraryComparison.h"

#include <QJsonDocument>

namespace {

using test::CommandResult;
using test::text;
namespace quillery = platform::quillery;

class QuilleryDestinationTest : public test::BusCommandTest {
protected:
    [[nodiscard]] CommandResult import(const QStringList& arguments) const
    {
        return run(QStringList{text("--report"), text("report.json")} + arguments);
    }

    // What the service program wrote down.
    [[nodiscard]] QList<QJsonObject> record() const
    {
        QList<QJsonObject> calls;
        if (exists("record")) {
            for (const QByteArray& line : m_folder.read(text("record")).trimmed().split('\n'))
                calls += QJsonDocument::fromJson(line).object();
        }
        return calls;
    }
    [[nodiscard]] QString importedPath() const
    {
        for (const QJsonObject& call : record()) {
            if (call.value(text("call")).toString() == text("importFiles"))
                return call.value(text("paths")).toArray().at(0).toString();
        }
        return {};
    }
    [[nodiscard]] QStringList recording() const
    {
        return {text("quillery"), text("--record"), path("record")};
    }
    [[nodiscard]] static QString filesFolder()
    {
        return qEnvironmentVariable("XDG_CACHE_HOME") +
               text("/com.brightmoor.Vupuge/Temporary/Evernote");
    }
};

TEST_F(QuilleryDestinationTest, AQuilleryOnTheBusIsHandedTheImport)
{
    startBus();
    startService(recording());
    const CommandResult result = import({file("A.enex", note("One") + note("Two"))});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_TRUE(result.output.contains(text("  Handed to Quillery (com.brightmoor.Quillery3)\n")));
    EXPECT_TRUE(result.output.contains(text("  In /library\n")));
    EXPECT_EQ(result.lastLine(), text("2 notes: 2 became items, none were skipped."));
    EXPECT_EQ(importedPath(), filesFolder() + text("/Evernote.qllibxml"));
    ASSERT_EQ(record().size(), 2);
    EXPECT_EQ(record()[0].value(text("call")).toString(), text("activate"));
    const QJsonObject run = runs()[0].toObject();
    EXPECT_EQ(run.value(text("handedTo")).toString(), text("Quillery (com.brightmoor.Quillery3)"));
    EXPECT_EQ(run.value(text("outcome")).toString(), text("imported"));
    EXPECT_EQ(run.value(text("items")).toInt(), 2);
}

TEST_F(QuilleryDestinationTest, TheStoresEditionGetsTheFilesInItsContainer)
{
    startBus();
    startService(recording() + QStringList{text("--name"), quillery::storeIdentifier});
    const CommandResult result = import({file("A.enex", note("One"))});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_TRUE(result.output.contains(text("Handed to Quillery (com.brightmoor.Quillery3.mac)")));
    EXPECT_TRUE(importedPath().startsWith(
        QDir::homePath() + text("/Library/Containers/com.brightmoor.Quillery3.mac/Data/Library/")));
}

TEST_F(QuilleryDestinationTest, ALibraryOrFilesFolderThatIsNamedIsMeantAndNoOther)
{
    startBus();
    startService(recording());
    const QString path = file("A.enex", note("One"));
    EXPECT_EQ(import({text("--library"), text("lib"), path}).status, 0);
    EXPECT_TRUE(exists("lib/A/One.qlnote"));
    const QString setting = text("QuilleryLibraryFolder=") + this->path("set");
    EXPECT_EQ(import({text("--set"), setting, path}).status, 0);
    EXPECT_TRUE(exists("set/A/One.qlnote"));
    EXPECT_EQ(import({text("--files-folder"), text("out"), path}).status, 0);
    EXPECT_TRUE(exists("out/Evernote/A/One.qlnote"));
    EXPECT_TRUE(record().isEmpty());
}

TEST_F(QuilleryDestinationTest, WithoutQuilleryOnTheBusTheEmbeddedLibraryTakesTheImport)
{
    startBus();
    startService({text("evernote"), m_folder.path()});
    qputenv("HOME", qPrintable(path("home")));
    const CommandResult result = import({file("A.enex", note("One"))});
    qputenv("HOME", qPrintable(QFileInfo(qEnvironmentVariable("XDG_CONFIG_HOME")).path()));
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_FALSE(result.output.contains(text("Handed to")));
    EXPECT_TRUE(exists("home/Documents/Quillery Library/A/One.qlnote"));
}

TEST_F(QuilleryDestinationTest, SeveralFilesAreHandedOverOneAfterAnother)
{
    startBus();
    startService(recording());
    const CommandResult result =
        import({file("A.enex", note("One")), file("B.enex", note("Two") + note("Three"))});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_EQ(result.lastLine(), text("3 notes: 3 became items, none were skipped."));
    EXPECT_EQ(record().size(), 4);
}

TEST_F(QuilleryDestinationTest, ARefusedImportFailsWithQuillerysReasonAndKeepsTheFiles)
{
    startBus();
    startService(recording() + QStringList{text("--fail"), text("Other:1:The library is full.")});
    const CommandResult result = import({file("A.enex", note("One"))});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.contains(text("A.enex: The library is full.")));
    EXPECT_EQ(result.lastLine(),
              text("1 note: 0 became items, none were skipped, 1 was not imported."));
    EXPECT_TRUE(QFileInfo::exists(filesFolder() + text("/A/One.qlnote")));
    EXPECT_EQ(runs()[0].toObject().value(text("outcome")).toString(), text("failed"));
}

TEST_F(QuilleryDestinationTest, AQuilleryThatDiesWhileItImportsEndsTheRunAndTheNextOneWorks)
{
    startBus({{quillery::identifier, QStringList{text(SCRIPTING_SERVICE)} + recording() +
                                         QStringList{text("--die-at"), text("ImportFiles")}}});
    const QString path = file("A.enex", note("One"));
    const CommandResult result = import({path});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.contains(text("Quillery ended before it answered.")));
    EXPECT_TRUE(QFileInfo::exists(filesFolder() + text("/A/One.qlnote")));
    EXPECT_TRUE(QFileInfo::exists(path));
    startBus({{quillery::identifier, QStringList{text(SCRIPTING_SERVICE)} + recording()}});
    EXPECT_EQ(import({path}).status, 0);
}

TEST_F(QuilleryDestinationTest, AQuilleryThatDoesNotSayItsVersionEndsTheRunWithItsReason)
{
    const QString path = file("A.enex", note("One"));
    const QList<QPair<QStringList, const char*>> cases{
        {{text("--die-at"), text("GetAll")}, "Quillery ended before it answered."},
        {{text("--answer"), text("GetAll=a-number")}, "cannot be understood"},
        {{text("--refuse"), text("GetAll=com.example.No")}, "This is refused."}};
    for (const auto& [fault, message] : cases) {
        startBus();
        startService(recording() + fault);
        const CommandResult result = import({path});
        EXPECT_EQ(result.status, 1) << message;
        EXPECT_TRUE(result.errors.contains(text(message))) << qPrintable(result.errors);
        EXPECT_TRUE(importedPath().isEmpty());
    }
}

TEST_F(QuilleryDestinationTest, WhatWasNotTakenIsToldNoteByNote)
{
    const test::SmallVolume volume(1024 * 1024);
    if (!volume.isMounted())
        GTEST_SKIP() << "no volume can be mounted here";
    startBus({{quillery::identifier, {text(VUPUGE_LIBRARY), text("--library"), volume.path()}}});
    const QByteArray large = "<en-note>" + QByteArray("word ").repeated(500000) + "</en-note>";
    const CommandResult result =
        import({file("A.enex", note("Small") + note("Large", large) + note("Late"))});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.output.contains(text("Skipped \"Large\": "))) << qPrintable(result.output);
    EXPECT_TRUE(result.output.contains(filesFolder() + text("/A/Large.qlnote")));
    EXPECT_EQ(result.lastLine(), text("3 notes: 1 became an item, 2 were skipped."));
    EXPECT_TRUE(QFileInfo::exists(volume.filePath(text("A/Small.qlnote"))));
    EXPECT_EQ(report().value(text("items")).toInt(), 1);
    EXPECT_EQ(report().value(text("skipped")).toArray().size(), 2);
    const QJsonObject error = runs()[0].toObject().value(text("error")).toObject();
    EXPECT_EQ(error.value(text("domain")).toString(), text("QuilleryLibraryErrorDomain"));
    EXPECT_EQ(error.value(text("code")).toInt(), 7);
}

TEST_F(QuilleryDestinationTest, OneRunAtATimeIsHandedOver)
{
    startBus();
    startService(recording() + QStringList{text("--hold"), path("gate")});
    const QString enex = file("A.enex", note("One"));
    QProcess first;
    start(first, {enex});
    ASSERT_TRUE(test::waitUntil([this] { return !importedPath().isEmpty(); }));
    const CommandResult second = import({enex});
    EXPECT_EQ(second.status, 1);
    EXPECT_TRUE(second.errors.contains(text("Another import into Quillery is running.")));
    m_folder.write(text("gate"), {});
    ASSERT_TRUE(first.waitForFinished());
    EXPECT_EQ(first.exitCode(), 0);
}

TEST_F(QuilleryDestinationTest, ABrokenFileIsHandedToNobody)
{
    startBus();
    startService(recording());
    m_folder.write(text("broken.enex"), "<en-export><note>");
    const CommandResult result = import({text("broken.enex")});
    EXPECT_EQ(result.status, 1);
    EXPECT_FALSE(result.output.contains(text("Handed to")));
    EXPECT_TRUE(record().isEmpty());
    EXPECT_FALSE(QFileInfo::exists(filesFolder()));
}

TEST_F(QuilleryDestinationTest, TheSampleNotebookIsTheSameOverTheBusAsInTheEmbeddedLibrary)
{
    const QString sample = text(VUPUGE_SOURCE_DIRECTORY "/examples/Sample Notebook.enex");
    ASSERT_EQ(import({text("--library"), text("embedded"), sample}).status, 0);
    startBus({{quillery::identifier, libraryCommand()}});
    const CommandResult result = import({sample});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_TRUE(result.output.contains(text("  In ") + path("lib")));
    EXPECT_GT(test::describedFolder(path("lib/Sample Notebook")).size(), 30);
    test::expectSameFolder(path("embedded"), path("lib"));
    // A comparison that misses nothing.
    const QMap<QString, QString> described = test::describedFolder(path("lib/Sample Notebook"));
    EXPECT_TRUE(
        described.value(text("Welcome.qlnote")).contains(text("user.com.apple.FinderInfo=")));
    m_folder.write(text("lib/Sample Notebook/Welcome.qlnote/TXT.rtf"), "another text");
    EXPECT_NE(test::describedFolder(path("lib/Sample Notebook")), described);
    EXPECT_FALSE(QFileInfo::exists(filesFolder()));
}

} // namespace
