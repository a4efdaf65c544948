// SPDX-License-Identifier: MIT
#include "platform/files/FileManager.h"
#include "platform/propertylist/PropertyList.h"

#include "support/ScratchFolder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <csignal>

namespace {

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

struct CommandResult {
    int status = -1;
    QString output;
    QString errors;
    [[nodiscard]] QString lastLine() const { return output.trimmed().section(u'\n', -1); }
};

class ImportCommandTest : public ::testing::Test {
protected:
    CommandResult run(const QStringList& arguments)
    {
        QProcess process;
        process.setWorkingDirectory(m_folder.path());
        process.start(text(VUPUGE_IMPORT), arguments);
        EXPECT_TRUE(process.waitForFinished(60000));
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()), QString::fromUtf8(process.readAllStandardError())};
    }

    QString file(const char* name, const QByteArray& notes)
    {
        return m_folder.write(text(name), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<en-export>" + notes + "</en-export>");
    }
    static QByteArray note(const QByteArray& title, const QByteArray& body = "<en-note>text</en-note>")
    {
        return "<note><title>" + title + "</title><content><![CDATA[" + body + "]]></content></note>";
    }
    [[nodiscard]] QJsonObject report(const char* name = "report.json") const
    {
        return QJsonDocument::fromJson(m_folder.read(text(name))).object();
    }
    [[nodiscard]] QVariantMap entities(const QString& filesFolder, const char* entity) const
    {
        const auto list = platform::readPropertyList(filesFolder + text("/Evernote/Evernote.qllibxml"));
        EXPECT_TRUE(list);
        return list.value_or(QVariant()).toMap().value(text("Entities")).toMap().value(text(entity)).toMap();
    }

    test::ScratchFolder m_folder;
};

TEST_F(ImportCommandTest, LaysFilesManifestAndLogOutInAFolder)
{
    const CommandResult result = run({text("--files-folder"), text("out"), file("My Notes.enex", note("One") + note("Two"))});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_EQ(result.lastLine(), text("2 notes: 2 became items, 0 skipped."));
    EXPECT_TRUE(QFileInfo::exists(m_folder.filePath("out/Evernote Export.log")));
    EXPECT_TRUE(QFileInfo::exists(m_folder.filePath("out/Evernote/My Notes/One.qlnote/TXT.rtf")));
    EXPECT_EQ(entities(m_folder.filePath("out"), "Item").size(), 2);
    EXPECT_TRUE(result.errors.isEmpty());
}

TEST_F(ImportCommandTest, ImportsIntoALibraryAndLeavesNoFilesFolder)
{
    const CommandResult result = run({text("--library"), text("lib"), file("My Notes.enex", note("One"))});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_TRUE(QFileInfo::exists(m_folder.filePath("lib/My Notes/One.qlnote/TXT.rtf")));
    EXPECT_TRUE(result.output.contains(m_folder.filePath("lib/My Notes")));
    const CommandResult again = run({text("--library"), text("lib"), m_folder.filePath("My Notes.enex")});
    EXPECT_EQ(again.status, 0);
    EXPECT_TRUE(QFileInfo::exists(m_folder.filePath("lib/My Notes 1/One.qlnote/TXT.rtf")));
}

TEST_F(ImportCommandTest, TheLibraryIsTheSettingsWhereNoneIsNamed)
{
    const CommandResult result = run({text("--set"), text("QuilleryLibraryFolder=") + m_folder.filePath("set"), file("A.enex", note("One"))});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_TRUE(QFileInfo::exists(m_folder.filePath("set/A/One.qlnote")));
}

TEST_F(ImportCommandTest, SeveralFilesShareOneFilesFolder)
{
    const QString one = file("A.enex", note("One"));
    const QString two = file("sub/A.enex", note("Two"));
    const QString three = file("B.enex", note("Three"));
    const CommandResult result = run({text("--files-folder"), text("out"), one, two, three});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_EQ(result.lastLine(), text("3 notes: 3 became items, 0 skipped."));
    EXPECT_EQ(entities(m_folder.filePath("out"), "Folder").size(), 3);
    const QVariantMap items = entities(m_folder.filePath("out"), "Item");
    ASSERT_EQ(items.size(), 3);
    for (const QVariant& item : items) {
        const QString path = item.toMap().value(text("absoluteFilename")).toString();
        EXPECT_TRUE(path.startsWith(m_folder.filePath("out/Evernote/")));
        EXPECT_TRUE(QFileInfo::exists(path)) << qPrintable(path);
    }
    EXPECT_FALSE(QFileInfo::exists(m_folder.filePath("out/.vupuge-import")));
    const QByteArray log = m_folder.read(text("out/Evernote Export.log"));
    for (const char* title : {"One", "Two", "Three"})
        EXPECT_TRUE(log.contains(title));
}

TEST_F(ImportCommandTest, ASkippedNoteIsToldWithItsReasonAndReported)
{
    const CommandResult result = run({text("--files-folder"), text("out"), text("--report"), text("report.json"),
                                      file("A.enex", note("Good") + note("Bad", ""))});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.output.contains(text("Skipped \"Bad\": "))) << qPrintable(result.output);
    EXPECT_EQ(result.lastLine(), text("2 notes: 1 became items, 1 skipped."));
    const QJsonObject json = report();
    EXPECT_EQ(json.value(text("notes")).toInt(), 2);
    EXPECT_EQ(json.value(text("items")).toInt(), 1);
    EXPECT_TRUE(json.value(text("seconds")).isDouble());
    EXPECT_TRUE(json.value(text("warnings")).isArray());
    const QJsonArray skipped = json.value(text("skipped")).toArray();
    ASSERT_EQ(skipped.size(), 1);
    EXPECT_EQ(skipped[0].toObject().value(text("title")).toString(), text("Bad"));
    EXPECT_EQ(skipped[0].toObject().value(text("domain")).toString(), text("NSXMLParserErrorDomain"));
    EXPECT_TRUE(skipped[0].toObject().value(text("code")).isDouble());
    EXPECT_FALSE(skipped[0].toObject().value(text("text")).toString().isEmpty());
}

TEST_F(ImportCommandTest, StrictTurnsSkippedNotesIntoAnExitStatus)
{
    const QString path = file("A.enex", note("Good") + note("Bad", ""));
    EXPECT_EQ(run({text("--files-folder"), text("out"), text("--strict"), path}).status, 3);
    EXPECT_EQ(run({text("--files-folder"), text("out"), text("--strict"), file("B.enex", note("Good"))}).status, 0);
}

TEST_F(ImportCommandTest, WarningsAreToldAndReported)
{
    const QByteArray body = "<en-note>text<en-media type=\"image/png\" hash=\"00\"/></en-note>";
    const CommandResult result = run({text("--files-folder"), text("out"), text("--report"), text("report.json"), file("A.enex", note("N", body))});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.output.contains(text("Note \"N\": ")));
    EXPECT_EQ(report().value(text("warnings")).toArray().size(), 1);
}

TEST_F(ImportCommandTest, BrokenFilesFailWithAMessageThatNamesThem)
{
    static_cast<void>(m_folder.write(text("empty.enex"), ""));
    static_cast<void>(m_folder.write(text("not xml.enex"), "plain text"));
    static_cast<void>(m_folder.write(text("truncated.enex"), "<en-export><note><title>A"));
    static_cast<void>(m_folder.write(text("tail.enex"), "<en-export></en-export>tail"));
    QDir(m_folder.path()).mkdir(text("folder.enex"));
    for (const char* name : {"missing.enex", "empty.enex", "not xml.enex", "truncated.enex", "tail.enex", "folder.enex"}) {
        const CommandResult result = run({text("--files-folder"), text("out"), text("--report"), text("report.json"), text(name)});
        EXPECT_EQ(result.status, 1) << name;
        EXPECT_TRUE(result.errors.contains(text(name))) << qPrintable(result.errors);
        EXPECT_EQ(report().value(text("runs")).toArray()[0].toObject().value(text("outcome")).toString(), text("failed")) << name;
        EXPECT_FALSE(QFileInfo::exists(m_folder.filePath("out/Evernote/Evernote.qllibxml"))) << name;
        EXPECT_TRUE(m_folder.read(text("out/Evernote Export.log")).contains("Error counting notes: ")) << name;
    }
}

TEST_F(ImportCommandTest, AFailedFileDoesNotKeepTheOthersFromBeingImported)
{
    const CommandResult result = run({text("--files-folder"), text("out"), text("missing.enex"), file("A.enex", note("One"))});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(entities(m_folder.filePath("out"), "Item").size(), 1);
}

TEST_F(ImportCommandTest, WrongUsageSaysWhatIsWrong)
{
    const QString path = file("A.enex", note("One"));
    const QList<QPair<QStringList, const char*>> cases{
        {{}, "No file to import."},
        {{text("--no-such-option"), path}, "no-such-option"},
        {{text("--set"), text("novalue"), path}, "KEY=VALUE"},
        {{text("--set"), text("=x"), path}, "KEY=VALUE"},
        {{text("--files-folder"), text("a"), text("--library"), text("b"), path}, "exclude"},
        {{text("--files-folder"), text(""), path}, "needs a path"},
        {{path, text("--report")}, "report"}};
    for (const auto& [arguments, message] : cases) {
        const CommandResult result = run(arguments);
        EXPECT_EQ(result.status, 2) << message;
        EXPECT_TRUE(result.errors.contains(text(message))) << qPrintable(result.errors);
        EXPECT_TRUE(result.errors.contains(text("--help")));
    }
}

TEST_F(ImportCommandTest, HelpAndVersionSucceed)
{
    EXPECT_EQ(run({text("--help")}).status, 0);
    EXPECT_TRUE(run({text("--help")}).output.contains(text("--files-folder")));
    EXPECT_EQ(run({text("--version")}).output, text("vupuge-import 3.5.3\n"));
}

TEST_F(ImportCommandTest, AFolderThatNoImportMadeIsNotReplaced)
{
    static_cast<void>(m_folder.write(text("docs/Evernote/Notebook.enex"), "precious"));
    const CommandResult result = run({text("--files-folder"), text("docs"), file("A.enex", note("One"))});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(m_folder.read(text("docs/Evernote/Notebook.enex")), "precious");
}

TEST_F(ImportCommandTest, AFileWithinTheFolderToBeReplacedIsNotRead)
{
    ASSERT_EQ(run({text("--files-folder"), text("out"), file("A.enex", note("One"))}).status, 0);
    const QString inside = file("out/Evernote/B.enex", note("Two"));
    EXPECT_EQ(run({text("--files-folder"), text("out"), inside}).status, 2);
    EXPECT_TRUE(QFileInfo::exists(inside));
}

TEST_F(ImportCommandTest, AnEarlierImportsFolderIsReplaced)
{
    ASSERT_EQ(run({text("--files-folder"), text("out"), file("A.enex", note("One"))}).status, 0);
    ASSERT_EQ(run({text("--files-folder"), text("out"), file("B.enex", note("Two"))}).status, 0);
    EXPECT_FALSE(QFileInfo::exists(m_folder.filePath("out/Evernote/A")));
    EXPECT_TRUE(QFileInfo::exists(m_folder.filePath("out/Evernote/B")));
}

TEST_F(ImportCommandTest, SettingsHoldForTheRunOnly)
{
    ASSERT_EQ(run({text("--files-folder"), text("out"), text("--set"), text("ExportDebug=YES"), file("A.enex", note("One"))}).status, 0);
    EXPECT_TRUE(m_folder.read(text("out/Evernote Export.log")).contains("parser:didStartElement: note"));
    ASSERT_EQ(run({text("--files-folder"), text("out"), text("--set"), text("ExportDebug=NO"), m_folder.filePath("A.enex")}).status, 0);
    EXPECT_FALSE(m_folder.read(text("out/Evernote Export.log")).contains("parser:"));
}

TEST_F(ImportCommandTest, AReportThatCannotBeWrittenIsAFailure)
{
    const CommandResult result = run({text("--files-folder"), text("out"), text("--report"), text("/nowhere/at/all.json"), file("A.enex", note("One"))});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.contains(text("/nowhere/at/all.json")));
}

TEST_F(ImportCommandTest, ALibraryThatCannotBeWrittenIsAFailureThatSaysSo)
{
    static_cast<void>(m_folder.write(text("in the way"), "a file"));
    const CommandResult result = run({text("--library"), text("in the way"), file("A.enex", note("One"))});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.contains(text("in the way"))) << qPrintable(result.errors);
    EXPECT_EQ(m_folder.read(text("in the way")), "a file");
}

TEST_F(ImportCommandTest, AnInterruptCancelsAndImportsNothing)
{
    const QString path = file("A.enex", note("One").repeated(20000));
    QProcess process;
    process.setWorkingDirectory(m_folder.path());
    process.start(text(VUPUGE_IMPORT), {text("--files-folder"), text("out"), path});
    // The first progress line says that the conversion is under way.
    QByteArray output;
    while (!output.contains(" of 20000 notes") && process.waitForReadyRead(60000))
        output += process.readAllStandardOutput();
    ASSERT_EQ(kill(static_cast<pid_t>(process.processId()), SIGINT), 0);
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_TRUE(process.readAllStandardError().contains("cancelled"));
    EXPECT_FALSE(QFileInfo::exists(m_folder.filePath("out/Evernote/Evernote.qllibxml")));
}

TEST_F(ImportCommandTest, WithoutATerminalProgressIsPlainLines)
{
    const CommandResult result = run({text("--files-folder"), text("out"), file("A.enex", note("One").repeated(20))});
    EXPECT_TRUE(result.output.contains(text("Importing ")));
    EXPECT_TRUE(result.output.contains(text("10 of 20 notes")));
    EXPECT_FALSE(result.output.contains(u'\r'));
}

} // namespace
