// SPDX-License-Identifier: MIT
#include "platform/dbus/DBusEvernoteApplication.h"

#include "BusFixture.h"

#include <thread>

namespace {

using platform::CallLimits;
using platform::DBusEvernoteApplication;
using platform::Error;
using platform::EvernoteApplication;
using test::codeOf;
using test::text;
using testing::ElementsAre;
using Tags = EvernoteApplication::ExportTags;
using Format = EvernoteApplication::ExportFormat;

class DBusEvernoteApplicationTest : public test::BusTest {
protected:
    static QByteArray note(const QByteArray& title, const QByteArray& rest = {})
    {
        return "<note><title>" + title + "</title><content><![CDATA[<en-note><div>Text of " +
               title + "</div></en-note>]]></content>" + rest + "</note>";
    }
    void addNotebook(const char* name, const QByteArray& notes) const
    {
        m_folder.write(text("notes/%1.enex").arg(text(name)),
                       "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<en-export>" + notes +
                           "</en-export>\n");
    }

    QProcess& startEvernote(const QStringList& options = {})
    {
        return startService(QStringList{text("evernote"), m_folder.filePath("notes")} + options);
    }
    [[nodiscard]] std::unique_ptr<DBusEvernoteApplication> evernote()
    {
        return std::make_unique<DBusEvernoteApplication>(connect());
    }

    [[nodiscard]] static QStringList titles(EvernoteApplication& application, size_t notebook)
    {
        QStringList titles;
        for (const auto& listed : application.notebooks().at(notebook)->notes())
            titles += listed->title();
        return titles;
    }
};

TEST_F(DBusEvernoteApplicationTest, ItsVersionComesFromTheService)
{
    startEvernote();
    const auto application = evernote();
    EXPECT_EQ(application->version(), "10.2");
    EXPECT_EQ(codeOf(application->lastError()), "none");
}

TEST_F(DBusEvernoteApplicationTest, NotebooksComeInItsOrderWithNamesAndNumbersOfNotes)
{
    addNotebook("B \u4e2d", note("One") + note("Two"));
    addNotebook("A", {});
    startEvernote();
    const auto application = evernote();
    const auto notebooks = application->notebooks();
    ASSERT_EQ(notebooks.size(), 2u);
    EXPECT_EQ(notebooks[0]->name(), "A");
    EXPECT_EQ(notebooks[0]->numberOfNotes(), 0u);
    EXPECT_TRUE(notebooks[0]->notes().empty());
    EXPECT_EQ(codeOf(application->lastError()), "none");
    EXPECT_EQ(notebooks[1]->name(), "B \u4e2d");
    EXPECT_EQ(notebooks[1]->numberOfNotes(), 2u);
    EXPECT_EQ(titles(*application, 1), (QStringList{text("One"), text("Two")}));
}

TEST_F(DBusEvernoteApplicationTest, ANoteBringsAllItsProperties)
{
    addNotebook("A", note("R&amp;D \xe4\xb8\xad\xf0\x9f\x98\x80",
                          "<created>20130412T093015Z</created><updated>19691231T235959Z</updated>"
                          "<tag>one</tag><tag></tag><tag>two, three</tag><note-attributes>"
                          "<source-url>https://example.org/?a=b&amp;c</source-url>"
                          "</note-attributes>"));
    startEvernote();
    const auto note = evernote()->notebooks().at(0)->notes().at(0);
    EXPECT_EQ(note->title(), text("R&D \xe4\xb8\xad\xf0\x9f\x98\x80"));
    EXPECT_EQ(note->tags(), (QStringList{text("one"), text(""), text("two, three")}));
    EXPECT_EQ(note->creationDate(), QDateTime(QDate(2013, 4, 12), QTime(9, 30, 15), Qt::UTC));
    EXPECT_EQ(note->modificationDate(), QDateTime(QDate(1969, 12, 31), QTime(23, 59, 59), Qt::UTC));
    EXPECT_EQ(note->noteLink(), "evernote:///view/1/s1/A-1");
    EXPECT_EQ(note->sourceURL(), "https://example.org/?a=b&c");
}

TEST_F(DBusEvernoteApplicationTest, WhatANoteDoesNotHaveIsTold)
{
    addNotebook("A", note("One") + note("Two", "<source-url></source-url>"));
    startEvernote();
    const auto notes = evernote()->notebooks().at(0)->notes();
    EXPECT_TRUE(notes.at(0)->tags().isEmpty());
    EXPECT_FALSE(notes[0]->creationDate().isValid());
    EXPECT_FALSE(notes[0]->modificationDate().isValid());
    EXPECT_TRUE(notes[0]->sourceURL().isNull());
    EXPECT_FALSE(notes.at(1)->sourceURL().isNull());
    EXPECT_TRUE(notes[1]->sourceURL().isEmpty());
}

TEST_F(DBusEvernoteApplicationTest, AnExportWritesTheNotesThatWereMeantInTheirOrder)
{
    addNotebook("A", note("One", "<tag>t</tag>") + note("Two") + note("Three"));
    startEvernote();
    const auto application = evernote();
    const auto notes = application->notebooks().at(0)->notes();
    // Listed again, they are the same notes.
    const auto again = application->notebooks().at(0)->notes();
    const QString path = m_folder.filePath("out \u4e2d.enex");
    Error error;
    ASSERT_TRUE(
        application->exportNotes({notes[2], again[0]}, path, Tags::Yes, Format::ENEX, &error))
        << qPrintable(error.description());
    const QByteArray both = test::readFile(path);
    EXPECT_EQ(both, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<en-export>" + note("Three") +
                        note("One", "<tag>t</tag>") + "</en-export>\n");
    ASSERT_TRUE(application->exportNotes({notes[0]}, path, Tags::No, Format::ENEX));
    EXPECT_FALSE(test::readFile(path).contains("<tag>"));
    ASSERT_TRUE(application->exportNotes({}, path, Tags::Yes, Format::ENEX));
    EXPECT_FALSE(test::readFile(path).contains("<note>"));
}

TEST_F(DBusEvernoteApplicationTest, ProblemsOfNotebooksAndWarningsOfExportsAreTold)
{
    addNotebook("A", note("Open") + note("Secret <en-crypt>x</en-crypt>"));
    m_folder.write(text("notes/B.enex"), "<en-export><note>");
    startEvernote();
    const auto application = evernote();
    const auto notebooks = application->notebooks();
    EXPECT_FALSE(notebooks.at(0)->problem());
    ASSERT_TRUE(notebooks.at(1)->problem());
    EXPECT_EQ(codeOf(notebooks[1]->problem()), "Refused");
    EXPECT_EQ(notebooks[1]->problem()->localizedDescription(), "B is damaged.");
    const auto notes = notebooks[0]->notes();
    const QString path = m_folder.filePath("out.enex");
    ASSERT_TRUE(application->exportNotes(notes, path, Tags::Yes, Format::ENEX));
    ASSERT_EQ(application->lastExportWarnings().size(), 1);
    EXPECT_TRUE(application->lastExportWarnings()[0].startsWith(text("Secret ")));
    ASSERT_TRUE(application->exportNotes({notes[0]}, path, Tags::Yes, Format::ENEX));
    EXPECT_TRUE(application->lastExportWarnings().isEmpty());
}

TEST_F(DBusEvernoteApplicationTest, AnExportAsPagesMakesAFolder)
{
    addNotebook("A", note("One"));
    startEvernote();
    const auto application = evernote();
    const auto notes = application->notebooks().at(0)->notes();
    ASSERT_TRUE(
        application->exportNotes(notes, m_folder.filePath("One.html"), Tags::No, Format::HTML));
    EXPECT_EQ(m_folder.read(text("One.html/One.html")), "<div>Text of One</div>");
}

TEST_F(DBusEvernoteApplicationTest, AnExportThatFailsSaysWhy)
{
    addNotebook("A", note("One"));
    startEvernote();
    const auto application = evernote();
    const auto notes = application->notebooks().at(0)->notes();
    Error error;
    EXPECT_FALSE(application->exportNotes(notes, m_folder.filePath("no/such/folder/out.enex"),
                                          Tags::Yes, Format::ENEX, &error));
    EXPECT_EQ(codeOf(error), "Refused");
    EXPECT_TRUE(error.localizedDescription().contains(text("no/such/folder")));
    EXPECT_EQ(application->lastError(), error);
}

TEST_F(DBusEvernoteApplicationTest, NotesOfAnotherMakeOrAnotherInstanceAreNotExported)
{
    class OtherNote : public platform::EvernoteNote {
        QString title() override { return {}; }
        QStringList tags() override { return {}; }
        QDateTime creationDate() override { return {}; }
        QDateTime modificationDate() override { return {}; }
        QString noteLink() override { return {}; }
        QString sourceURL() override { return {}; }
    };
    addNotebook("A", note("One"));
    QProcess& first = startEvernote();
    const auto application = evernote();
    const auto notes = application->notebooks().at(0)->notes();
    const QString path = m_folder.filePath("out.enex");
    Error error;
    EXPECT_FALSE(application->exportNotes({std::make_shared<OtherNote>()}, path, Tags::Yes,
                                          Format::ENEX, &error));
    EXPECT_EQ(codeOf(error), "Gone");
    EXPECT_FALSE(application->exportNotes({nullptr}, path, Tags::Yes, Format::ENEX));

    killService(first, platform::evernoteBundleIdentifier);
    addNotebook("A", note("Another"));
    startEvernote();
    EXPECT_FALSE(application->exportNotes(notes, path, Tags::Yes, Format::ENEX, &error));
    EXPECT_EQ(codeOf(error), "Gone");
    const auto current = application->notebooks().at(0)->notes();
    EXPECT_FALSE(application->exportNotes({current[0], notes[0]}, path, Tags::Yes, Format::ENEX));
    EXPECT_EQ(codeOf(application->lastError()), "Gone");
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(application->exportNotes(current, path, Tags::Yes, Format::ENEX));
    EXPECT_TRUE(test::readFile(path).contains("Another"));
}

TEST_F(DBusEvernoteApplicationTest, AListedNotebookBelongsToTheInstanceThatListedIt)
{
    addNotebook("A", note("One"));
    QProcess& first = startEvernote();
    const auto application = evernote();
    const auto notebook = application->notebooks().at(0);
    killService(first, platform::evernoteBundleIdentifier);
    startEvernote();
    EXPECT_TRUE(notebook->notes().empty());
    EXPECT_EQ(codeOf(application->lastError()), "Gone");
    EXPECT_EQ(notebook->name(), "A");
    EXPECT_EQ(application->notebooks().at(0)->notes().size(), 1u);
}

TEST_F(DBusEvernoteApplicationTest, ALargeNotebookComesInOneCall)
{
    QByteArray notes;
    for (int number = 1; number <= 20000; ++number)
        notes += note(QByteArray::number(number), "<tag>a</tag><tag>b</tag>");
    addNotebook("A", notes);
    startEvernote({text("--hang"), text("Notes@2")});
    const auto listed = evernote()->notebooks().at(0)->notes();
    ASSERT_EQ(listed.size(), 20000u);
    for (size_t index = 0; index < listed.size(); ++index)
        ASSERT_EQ(listed[index]->title(), QString::number(index + 1));
    EXPECT_EQ(listed.back()->tags(), (QStringList{text("a"), text("b")}));
}

TEST_F(DBusEvernoteApplicationTest, AListOfManyMegabytesArrivesAndOneThatIsTooLongIsRefused)
{
    const QByteArray title(1024 * 1024, 'x');
    addNotebook("Long", note(title).repeated(60));
    addNotebook("Too long", note(title).repeated(65));
    startEvernote();
    const auto application = evernote();
    const auto notebooks = application->notebooks();
    ASSERT_EQ(notebooks.size(), 2u);
    EXPECT_EQ(notebooks[0]->notes().size(), 60u);
    EXPECT_TRUE(notebooks[1]->notes().empty());
    EXPECT_EQ(codeOf(application->lastError()), "Refused");
    EXPECT_TRUE(application->lastError()->localizedDescription().contains(text("Too long")));
    EXPECT_EQ(application->version(), "10.2");
}

TEST_F(DBusEvernoteApplicationTest, AnswersThatCannotBeTrueAreErrors)
{
    addNotebook("A", note("One"));
    const QStringList answers = {text("Notebooks=two-of-one-notebook"),
                                 text("Notebooks=too-many-notes"), text("Notes=two-of-one-note"),
                                 text("Notes=two-dates"), text("Notes=two-sources")};
    for (const QString& answer : answers) {
        QProcess& service = startEvernote({text("--answer"), answer});
        const auto application = evernote();
        auto notebooks = application->notebooks();
        if (answer.startsWith(text("Notes"))) {
            ASSERT_EQ(notebooks.size(), 1u);
            EXPECT_TRUE(notebooks[0]->notes().empty()) << qPrintable(answer);
        } else {
            EXPECT_TRUE(notebooks.empty()) << qPrintable(answer);
        }
        EXPECT_EQ(codeOf(application->lastError()), "InvalidAnswer") << qPrintable(answer);
        EXPECT_EQ(titles(*application, 0), QStringList(text("One")));
        killService(service, platform::evernoteBundleIdentifier);
    }
}

TEST_F(DBusEvernoteApplicationTest, ListsAreMadeDuringAnExportAndExportsWaitForEachOther)
{
    addNotebook("A", note("One"));
    startEvernote({text("--hold"), m_folder.filePath("gate")});
    const auto application = evernote();
    const auto notes = application->notebooks().at(0)->notes();
    const QString first = m_folder.filePath("first.enex");
    const QString second = m_folder.filePath("second.enex");
    std::array<bool, 2> written = {};
    std::thread firstExport(
        [&] { written[0] = application->exportNotes(notes, first, Tags::Yes, Format::ENEX); });
    std::thread secondExport(
        [&] { written[1] = application->exportNotes(notes, second, Tags::Yes, Format::ENEX); });
    for (int count = 0; count < 20; ++count) {
        EXPECT_EQ(titles(*evernote(), 0), QStringList(text("One")));
        EXPECT_EQ(evernote()->version(), "10.2");
    }
    m_folder.write(text("gate"), {});
    firstExport.join();
    secondExport.join();
    EXPECT_TRUE(written[0]);
    EXPECT_TRUE(written[1]);
    EXPECT_TRUE(QFile::exists(first));
    EXPECT_TRUE(QFile::exists(second));
}

TEST_F(DBusEvernoteApplicationTest, ManyThreadsMayAskOneApplicationAtOnce)
{
    addNotebook("A", note("One") + note("Two"));
    startEvernote();
    const auto application = evernote();
    std::vector<std::thread> threads;
    for (int number = 0; number < 8; ++number) {
        threads.emplace_back([&, number] {
            const QString path = m_folder.filePath(QString::number(number));
            for (int count = 0; count < 10; ++count) {
                EXPECT_EQ(application->version(), "10.2");
                const auto notes = application->notebooks().at(0)->notes();
                EXPECT_EQ(notes.size(), 2u);
                EXPECT_TRUE(application->exportNotes(notes, path, Tags::Yes, Format::ENEX));
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace
