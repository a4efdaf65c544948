// SPDX-License-Identifier: MIT
//
// The whole way over the bus, each program in a process of its own: an Evernote, the runner, the
// library service.
#include "platform/dbus/BusInterface.h"
#include "tools/BusCommandFixture.h"
#include "tools/LibraryComparison.h"

#include <QCryptographicHash>

namespace {

using test::CommandResult;
using test::text;
namespace quillery = platform::quillery;

const QByteArray picture =
    "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+M9QDwADhgGAWjR9"
    "awAAAABJRU5ErkJggg==";

class NotebooksOverBusTest : public test::BusCommandTest {
protected:
    void SetUp() override
    {
        const QByteArray dates = "<created>20130412T093015Z</created>"
                                 "<updated>20140512T093015Z</updated>";
        const QByteArray resource = "<resource><data encoding=\"base64\">" + picture +
                                    "</data><mime>image/png</mime><resource-attributes>"
                                    "<file-name>dot.png</file-name></resource-attributes>"
                                    "</resource>";
        writeNotebook("Garden",
                      dated("Plan", "<div>Beds &amp; <b>paths</b></div>", dates + "<tag>a</tag>") +
                          dated("To do",
                                "<div><en-todo checked=\"true\"/>dig</div>"
                                "<div><en-todo/>sow</div>",
                                dates + "<tag>b</tag><tag>c d</tag>"));
        writeNotebook("Pictures",
                      dated("Dot", "<en-media type=\"image/png\" hash=\"" + pictureHash() + "\"/>",
                            dates + resource) +
                          dated("Dot with words",
                                "<div>See <en-media type=\"image/png\" hash=\"" + pictureHash() +
                                    "\"/></div>",
                                resource));
        writeNotebook("R\xc3\xa9sum\xc3\xa9s \xe4\xb8\xad",
                      dated("Same", "one", dates) + dated("Same", "two", {}) +
                          dated("Page", "<div>text</div>",
                                "<note-attributes><source-url>https://example.org/?a=b&amp;c"
                                "</source-url></note-attributes>"));
    }

    static QByteArray pictureHash()
    {
        return QCryptographicHash::hash(QByteArray::fromBase64(picture), QCryptographicHash::Md5)
            .toHex();
    }
    // As the classic Evernote orders a note's elements.
    static QByteArray dated(const QByteArray& title, const QByteArray& body, const QByteArray& rest)
    {
        return note(title,
                    "<?xml version=\"1.0\" encoding=\"UTF-8\"?><!DOCTYPE en-note SYSTEM "
                    "\"http://xml.evernote.com/pub/enml2.dtd\"><en-note>" +
                        body + "</en-note>",
                    rest);
    }
    void writeNotebook(const QByteArray& name, const QByteArray& notes) const
    {
        m_folder.write(text("notes/") + QString::fromUtf8(name) + text(".enex"),
                       "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<en-export>" + notes +
                           "</en-export>\n");
    }

    [[nodiscard]] QStringList evernoteService(const QStringList& faults = {}) const
    {
        return QStringList{text("evernote"), path("notes")} + faults;
    }
    [[nodiscard]] static QStringList names()
    {
        return {text("Garden"), text("Pictures"), text("R\u00e9sum\u00e9s \u4e2d")};
    }
    [[nodiscard]] QStringList libraryFolders() const
    {
        return QDir(path("lib"))
            .entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    // The library that the same notebooks make without any bus.
    void importEmbedded() const
    {
        const CommandResult embedded = run({text("--notebooks"), text("--evernote"), path("notes"),
                                            text("--library"), path("expected")});
        ASSERT_EQ(embedded.status, 0) << qPrintable(embedded.errors);
        ASSERT_EQ(QDir(path("expected")).entryList(QDir::Dirs | QDir::NoDotAndDotDot), names());
    }
};

TEST_F(NotebooksOverBusTest, NotebooksAreListedFromTheBus)
{
    startBus();
    startService(evernoteService());
    const CommandResult result = run({text("--list-notebooks")});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_EQ(result.output,
              text("Garden: 2 notes\nPictures: 2 notes\nR\u00e9sum\u00e9s \u4e2d: 3 notes\n"));
}

TEST_F(NotebooksOverBusTest, ThreeNotebooksMakeTheSameLibraryAsTheEmbeddedOnes)
{
    importEmbedded();
    startBus({{quillery::identifier, libraryCommand()}});
    startService(evernoteService());
    const CommandResult result = run({text("--notebooks")});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_EQ(result.lastLine(), text("7 notes: 7 became items, none were skipped."));
    EXPECT_EQ(libraryFolders(), names());
    test::expectSameFolder(path("expected"), path("lib"));
}

TEST_F(NotebooksOverBusTest, TheBusStartsBoth)
{
    startBus({{quillery::identifier, libraryCommand()},
              {platform::evernoteBundleIdentifier,
               QStringList{text(SCRIPTING_SERVICE)} + evernoteService()}});
    const CommandResult result = run({text("--notebooks"), text("Garden")});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_EQ(libraryFolders(), QStringList(text("Garden")));
}

TEST_F(NotebooksOverBusTest, AnEvernoteThatIsKilledAtAnyStepEndsTheRunAndTheNextOneWorks)
{
    importEmbedded();
    QStringList steps = {text("Notebooks@1"), text("GetAll@1")};
    for (int number = 1; number <= 3; ++number)
        steps += {text("Notes@%1").arg(number), text("Export@%1").arg(number)};
    for (const char* const kind : {"--die-at", "--die-after"}) {
        for (const QString& step : steps) {
            SCOPED_TRACE(text("%1 %2").arg(text(kind), step).toStdString());
            QDir(path("lib")).removeRecursively();
            startBus({{quillery::identifier, libraryCommand()}});
            startService(evernoteService({text(kind), step}));
            const CommandResult killed = run({text("--notebooks")});
            // After its last answer nothing is asked of it any more.
            const bool isOver = text(kind) == text("--die-after") && step == text("Export@3");
            EXPECT_EQ(killed.status, isOver ? 0 : 1);
            EXPECT_EQ(killed.errors.contains(text("Evernote")), !isOver)
                << qPrintable(killed.errors);
            const QStringList before = libraryFolders();
            for (const QString& folder : before)
                test::expectSameFolder(path("expected/") + folder, path("lib/") + folder);

            startBus({{quillery::identifier, libraryCommand()}});
            startService(evernoteService());
            const CommandResult next = run({text("--notebooks")});
            EXPECT_EQ(next.status, 0) << qPrintable(next.errors);
            for (const QString& name : names()) {
                const QString folder = before.contains(name) ? name + text(" 1") : name;
                test::expectSameFolder(path("expected/") + name, path("lib/") + folder);
            }
            EXPECT_EQ(libraryFolders().size(), before.size() + 3);
        }
    }
}

TEST_F(NotebooksOverBusTest, ALibraryThatIsKilledInTheMiddleLosesNothingAndTheNextRunWorks)
{
    importEmbedded();
    int kills = 0;
    for (int number = 4;; number += 7) {
        SCOPED_TRACE(number);
        QDir(path("lib")).removeRecursively();
        QFile::remove(path("ending"));
        startBus({{quillery::identifier,
                   QStringList{text(KILL_AT_CHANGE), QString::number(number), path("ending")} +
                       libraryCommand()}});
        startService(evernoteService());
        const CommandResult killed = run({text("--notebooks")});
        if (killed.status == 0)
            break;
        if (kills == 0 && !exists("ending"))
            GTEST_SKIP() << "programs cannot be traced here";
        ASSERT_EQ(killed.status, 1);
        ++kills;

        startBus({{quillery::identifier, libraryCommand()}});
        startService(evernoteService());
        const CommandResult next = run({text("--notebooks")});
        EXPECT_EQ(next.status, 0) << qPrintable(next.errors);
        const QStringList folders = libraryFolders();
        for (const QString& name : names())
            EXPECT_TRUE(folders.contains(name));
        for (const QString& folder : folders) {
            const QString name = QString(folder).remove(text(" 1")).remove(text(" 2"));
            test::expectSameFolder(path("expected/") + name, path("lib/") + folder);
        }
    }
    EXPECT_GT(kills, 3);
}

TEST_F(NotebooksOverBusTest, ABusThatDiesDuringAnExportEndsTheRun)
{
    startBus({{quillery::identifier, libraryCommand()}});
    QProcess& evernote = startService(evernoteService({text("--hang"), text("Export")}));
    QProcess runner;
    start(runner, {text("--notebooks")});
    while (!evernote.canReadLine() && evernote.waitForReadyRead(60000)) {
    }
    EXPECT_EQ(evernote.readLine(), "Export\n");
    m_bus->kill();
    ASSERT_TRUE(runner.waitForFinished(60000));
    EXPECT_EQ(runner.exitCode(), 1);
    const QString errors = QString::fromUtf8(runner.readAllStandardError());
    EXPECT_TRUE(errors.contains(text("connection to the session bus"))) << qPrintable(errors);
    EXPECT_EQ(libraryFolders(), QStringList());
}

} // namespace
