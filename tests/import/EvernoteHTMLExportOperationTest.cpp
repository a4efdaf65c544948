// SPDX-License-Identifier: MIT
#include "import/HTMLExportFixture.h"

#include "platform/dbus/ScriptingError.h"
#include "platform/defaults/UserDefaults.h"
#include "platform/files/ResourceValues.h"

#include <QRegularExpression>

#include <set>

using platform::Error;

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const QDateTime created(QDate(2011, 3, 4), QTime(5, 6, 7), Qt::UTC);
const QDateTime modified(QDate(2012, 4, 5), QTime(6, 7, 8), Qt::UTC);

class EvernoteHTMLExportOperationTest : public HTMLExportTest {};

TEST_F(EvernoteHTMLExportOperationTest, EachNoteIsExportedByItselfAndBecomesANoteFile)
{
    addNote("a", "first");
    addNote("b", "<b>second</b>");
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("Other")), text("c"));
    runAll();
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 2 N"), text("record"), text("record"),
                                                text("will 1 Other"), text("record"), text("end")));
    ASSERT_EQ(m_evernote->exports.size(), 3u);
    EXPECT_EQ(m_evernote->exports[0].titles, QStringList(text("a")));
    EXPECT_EQ(m_evernote->exports[0].to, filesPath() + text("/N/HTML/a.html"));
    EXPECT_EQ(static_cast<quint32>(m_evernote->exports[0].format), 0x65786874u);
    EXPECT_EQ(m_evernote->exports[0].tags, platform::EvernoteApplication::ExportTags::No);
    // Named after the page, as Evernote named it.
    EXPECT_EQ(noteText("Page.qlnote").string().trimmed(), text("first"));
    EXPECT_EQ(noteText("Page 1.qlnote").string().trimmed(), text("second"));
    EXPECT_EQ(m_run->report().notes, 3u);
    EXPECT_EQ(m_run->report().items, 3u);
    EXPECT_THAT(m_quillery->calls, ElementsAre(text("activate"), text("import")));
    // What Evernote exported stays.
    EXPECT_TRUE(QFileInfo::exists(filesPath() + text("/N/HTML/a.html/Page.html")));
}

TEST_F(EvernoteHTMLExportOperationTest, ANoteFileIsPlainRichTextWithDatesAndAHiddenExtension)
{
    const auto note = addNote("a");
    note->created = created;
    note->modified = modified;
    runAll();
    const QString path = filesPath() + text("/N/Page.qlnote");
    EXPECT_EQ(QDir(path).entryList(QDir::Files | QDir::Hidden), QStringList(text("TXT.rtf")));
    const auto values = platform::resourceValues(path);
    ASSERT_TRUE(values);
    EXPECT_EQ(values->creationDate, created);
    EXPECT_EQ(values->contentModificationDate, modified);
    EXPECT_EQ(values->hasHiddenExtension, true);
}

TEST_F(EvernoteHTMLExportOperationTest, DatesThatEvernoteDoesNotGiveAreLeft)
{
    addNote("a");
    runAll();
    const auto values = platform::resourceValues(filesPath() + text("/N/Page.qlnote"));
    ASSERT_TRUE(values);
    EXPECT_GT(values->contentModificationDate->date().year(), 2020);
}

TEST_F(EvernoteHTMLExportOperationTest, TheRecordOfANoteHasItsKeys)
{
    const auto note = addNote("a");
    note->tagNames = {text("one"), QString(), text("two, three")};
    note->link = text("evernote:///view/1/s1/5ab8e2f0-aaaa/5ab8e2f0-aaaa/");
    note->source = text("https://example.com/");
    runAll();
    const QVariantMap item = itemNamed("Page");
    const QVariantMap folder = records(text("Folder"))[0];
    EXPECT_EQ(item.value(text("com.brightmoor.Quillery.EntityName")), text("Item"));
    EXPECT_EQ(item.value(text("itemType")).toInt(), 1);
    EXPECT_EQ(item.value(text("identifier")), text("5ab8e2f0-aaaa"));
    EXPECT_EQ(item.value(text("absoluteFilename")), filesPath() + text("/N/Page.qlnote"));
    EXPECT_EQ(item.value(text("filename")), text("Page.qlnote"));
    EXPECT_EQ(item.value(text("extensionHidden")).toBool(), true);
    EXPECT_EQ(item.value(text("folder")), folder.value(text("identifier")));
    EXPECT_EQ(item.value(text("comments")), text("https://example.com/"));
    EXPECT_EQ(item.value(text("tagsString")), text("one,two, three"));
    EXPECT_EQ(folder.value(text("items")).toStringList(), QStringList(text("5ab8e2f0-aaaa")));
    EXPECT_FALSE(item.contains(text("dateCreated")));
    EXPECT_FALSE(item.contains(text("dateModified")));
}

TEST_F(EvernoteHTMLExportOperationTest, WhatANoteDoesNotHaveItsRecordDoesNotHave)
{
    addNote("a")->tagNames = {QString(), QString()};
    runAll();
    const QVariantMap item = itemNamed("Page");
    EXPECT_FALSE(item.contains(text("tagsString")));
    EXPECT_FALSE(item.contains(text("comments")));
    const QRegularExpression uuid(text("^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"));
    EXPECT_TRUE(uuid.match(item.value(text("identifier")).toString()).hasMatch());
}

TEST_F(EvernoteHTMLExportOperationTest, AnEmptySourceIsAnAnswer)
{
    addNote("a")->source = text("");
    runAll();
    const QVariantMap item = itemNamed("Page");
    ASSERT_TRUE(item.contains(text("comments")));
    EXPECT_EQ(item.value(text("comments")).toString(), QString());
}

TEST_F(EvernoteHTMLExportOperationTest,
       OfTwoNotesWhoseLinksEndAlikeTheLaterWinsAndTheOtherIsReported)
{
    addNote("a", "first")->link = text("evernote:///view/1/same");
    addNote("b", "second")->link = text("evernote:///view/2/same/");
    runAll();
    const QList<QVariantMap> items = records(text("Item"));
    ASSERT_EQ(items.size(), 1);
    EXPECT_EQ(items[0].value(text("name")), text("Page 1"));
    EXPECT_EQ(records(text("Folder"))[0].value(text("items")).toStringList(),
              QStringList(text("same")));
    const ImportReport& report = m_run->report();
    EXPECT_EQ(report.notes, 2u);
    EXPECT_EQ(report.items, 1u);
    ASSERT_EQ(report.skipped.size(), 1u);
    EXPECT_EQ(report.skipped[0].title, text("a"));
}

TEST_F(EvernoteHTMLExportOperationTest, NotesOfOneTitleHaveExportPathsAndNoteFilesOfTheirOwn)
{
    for (int count = 0; count < 3; ++count)
        addNote("same/title")->pages = {{text("same-title.html"), ExportingEvernote::page("x")}};
    runAll();
    EXPECT_EQ(m_evernote->exports[0].to, filesPath() + text("/N/HTML/same-title.html"));
    EXPECT_EQ(m_evernote->exports[1].to, filesPath() + text("/N/HTML/same-title 1.html"));
    EXPECT_EQ(m_evernote->exports[2].to, filesPath() + text("/N/HTML/same-title 2.html"));
    QStringList names;
    for (const QVariantMap& item : records(text("Item")))
        names += item.value(text("filename")).toString();
    EXPECT_THAT(names, ::testing::UnorderedElementsAre(text("same-title.qlnote"),
                                                       text("same-title 1.qlnote"),
                                                       text("same-title 2.qlnote")));
}

TEST_F(EvernoteHTMLExportOperationTest, ANoteWithoutATitleHasANameThatShows)
{
    addNote("");
    runAll();
    EXPECT_EQ(m_evernote->exports[0].to, filesPath() + text("/N/HTML/Untitled.html"));
    EXPECT_EQ(m_run->report().items, 1u);
}

TEST_F(EvernoteHTMLExportOperationTest, ANotebookWithoutNotesIsAnEmptyFolder)
{
    notebook();
    addNote("unused");
    m_notebook->allNotes.clear();
    runAll();
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 0 N"), text("end")));
    ASSERT_TRUE(records(text("Folder"))[0].contains(text("items")));
    EXPECT_TRUE(records(text("Folder"))[0].value(text("items")).toList().isEmpty());
}

TEST_F(EvernoteHTMLExportOperationTest, ManyNotebooksNeedNoDeeperStackThanTwo)
{
    std::set<std::uintptr_t> depths;
    for (int number = 0; number < 10; ++number) {
        m_evernote->addNotebook(QString::number(number))->onCount = [&depths] {
            const char here = 0;
            depths.insert(reinterpret_cast<std::uintptr_t>(&here));
        };
    }
    runAll();
    EXPECT_EQ(m_delegate.reports.last(), text("end"));
    EXPECT_EQ(records(text("Folder")).size(), 10);
    EXPECT_EQ(depths.size(), 1u);
}

TEST_F(EvernoteHTMLExportOperationTest, TheHtmlFolderThatCannotBeMadeEndsTheRun)
{
    addNote("a");
    m_notebook->onCount = [this] {
        m_folder.write(text("temporary/Evernote/N/HTML"), "a file in the way");
    };
    runAll();
    ASSERT_EQ(m_delegate.errors.size(), 1u);
    EXPECT_EQ(m_delegate.errors[0]->domain(), text("NSCocoaErrorDomain"));
    EXPECT_TRUE(m_evernote->exports.empty());
    EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/Evernote.qllibxml")));
}

TEST_F(EvernoteHTMLExportOperationTest, ANoteWhosePageIsMissingIsSkippedAndReportedButNotCounted)
{
    addNote("no folder")->pages.clear();
    addNote("no page")->pages = {{text("Page.htm"), "x"}, {text("Page.HTML"), "x"}};
    addNote("good");
    runAll();
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 3 N"), text("record"), text("end")));
    const QString line = text("Cannot convert note because exported file not found: ");
    EXPECT_TRUE(logLines().contains(line + text("no folder")));
    EXPECT_TRUE(logLines().contains(line + text("no page")));
    const ImportReport& report = m_run->report();
    EXPECT_EQ(report.notes, 3u);
    EXPECT_EQ(report.items, 1u);
    ASSERT_EQ(report.skipped.size(), 2u);
    EXPECT_EQ(report.skipped[0].title, text("no folder"));
    EXPECT_EQ(report.skipped[0].error->localizedDescription(),
              text("Evernote did not export this note."));
}

TEST_F(EvernoteHTMLExportOperationTest, WhyAPageIsMissingStandsInTheReport)
{
    addNote("a");
    m_evernote->writes = false;
    m_evernote->failure = Error(text("Own"), 3, text("The note is locked."));
    runAll();
    ASSERT_EQ(m_run->report().skipped.size(), 1u);
    EXPECT_EQ(m_run->report().skipped[0].error->localizedDescription(),
              text("The note is locked."));
    EXPECT_EQ(m_delegate.reports.last(), text("end"));
}

TEST_F(EvernoteHTMLExportOperationTest, AnApplicationThatIsGoneEndsTheRunAndNotEachNote)
{
    addNote("a");
    addNote("b");
    m_evernote->onExport = [this](const QString& to) {
        if (!to.endsWith(text("b.html")))
            return;
        m_evernote->writes = false;
        m_evernote->failure =
            platform::scriptingError(platform::ScriptingErrorCode::Gone, text("It is gone."));
    };
    addNote("c");
    runAll();
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 3 N"), text("record"), text("error 5")));
    EXPECT_EQ(m_evernote->exports.size(), 2u);
    EXPECT_THAT(m_run->report().skipped, IsEmpty());
    EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/Evernote.qllibxml")));
}

TEST_F(EvernoteHTMLExportOperationTest, AnApplicationThatRefusesOneNoteIsAskedForTheNext)
{
    addNote("a");
    addNote("b");
    m_evernote->writes = false;
    m_evernote->failure =
        platform::scriptingError(platform::ScriptingErrorCode::Refused, text("Not this one."));
    runAll();
    EXPECT_EQ(m_evernote->exports.size(), 2u);
    EXPECT_EQ(m_run->report().skipped.size(), 2u);
}

TEST_F(EvernoteHTMLExportOperationTest, AnApplicationThatDoesNotGiveItsNotesEndsTheRun)
{
    notebook();
    m_evernote->silence = Error(text("Own"), 9, text("gone"));
    runAll();
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 0 N"), text("error 9")));
}

TEST_F(EvernoteHTMLExportOperationTest, ACancelIsSeenBeforeTheNextNote)
{
    for (int number = 0; number < 5; ++number)
        addNote("a");
    m_delegate.onRecord = [this] {
        m_run->cancel();
    };
    runAll();
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 5 N"), text("record"), text("cancel")));
    EXPECT_EQ(m_evernote->exports.size(), 1u);
    EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/Evernote.qllibxml")));
    EXPECT_EQ(m_run->report().notes, 5u);
    EXPECT_EQ(m_run->report().items, 1u);
}

TEST_F(EvernoteHTMLExportOperationTest, APageThatCannotBeReadIsSkippedAndCounted)
{
    // A folder in the place of the page.
    addNote("a")->pages = {{text("Page.html/inside"), "x"}};
    addNote("b");
    runAll();
    const QStringList lines = logLines();
    EXPECT_EQ(
        lines.filter(text("Couldn't check for attachment in exported file Page.html: ")).size(), 1);
    EXPECT_EQ(lines.filter(text("Unable to read file at path ")).size(), 1);
    EXPECT_EQ(lines.filter(text("Skipping item Page.html: Error Domain=")).size(), 1);
    EXPECT_EQ(m_delegate.reports.count(text("record")), 2);
    ASSERT_EQ(m_run->report().skipped.size(), 1u);
    EXPECT_EQ(m_run->report().skipped[0].title, text("a"));
    EXPECT_EQ(m_run->report().items, 1u);
}

TEST_F(EvernoteHTMLExportOperationTest, ATextThatMakesNoPackageIsSkippedWithItsOwnError)
{
    class WithoutPackages : public EvernoteHTMLExportOperation {
        platform::FileWrapper::Pointer packageOf(const platform::AttributedString&) override
        {
            return nullptr;
        }
    };
    useRun(std::make_shared<WithoutPackages>());
    addNote("a");
    runAll();
    const QString reason = text("Unable to create file wrapper for file at path: ") + filesPath() +
                           text("/N/HTML/a.html/Page.html");
    EXPECT_TRUE(logLines().contains(reason));
    ASSERT_EQ(m_run->report().skipped.size(), 1u);
    EXPECT_EQ(m_run->report().skipped[0].error, Error(text("EvernoteExport"), 10001, reason));
    EXPECT_EQ(m_delegate.reports.count(text("record")), 1);
}

TEST_F(EvernoteHTMLExportOperationTest, ANoteThatCannotBeSavedIsSkippedAndCounted)
{
    class IntoNowhere : public EvernoteHTMLExportOperation {
        platform::FileWrapper::Pointer packageOf(const platform::AttributedString&) override
        {
            const auto package = platform::FileWrapper::directory();
            package->addFileWrapper(platform::FileWrapper::regularFile("x", QString(300, u'x')));
            return package;
        }
    };
    useRun(std::make_shared<IntoNowhere>());
    addNote("a");
    runAll();
    EXPECT_EQ(logLines().filter(text("Unable to save file Page.qlnote: Error Domain=")).size(), 1);
    EXPECT_EQ(logLines().filter(text("Skipping item Page.html: Error Domain=")).size(), 1);
    EXPECT_EQ(m_run->report().skipped.size(), 1u);
    EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/N/Page.qlnote")));
}

TEST_F(EvernoteHTMLExportOperationTest, WhatTheApplicationSaysOfANoteIsReported)
{
    addNote("a");
    m_evernote->warnings = {text("Something is encrypted.")};
    runAll();
    ASSERT_EQ(m_run->report().warnings.size(), 1u);
    EXPECT_EQ(m_run->report().warnings[0].title, text("a"));
    EXPECT_EQ(m_run->report().warnings[0].text, text("Something is encrypted."));
}

TEST_F(EvernoteHTMLExportOperationTest, TheLogTellsTheRun)
{
    addNote("a")->link = text("evernote:///view/42");
    runAll();
    const QStringList lines = logLines();
    ASSERT_EQ(lines.size(), 8);
    EXPECT_EQ(lines[2], text("*** Export started for notebook: N"));
    EXPECT_EQ(lines[3], text("Exporting notes"));
    EXPECT_EQ(lines[4], text("Exporting note with title: a"));
    EXPECT_EQ(lines[5], text("Converting file to note: a.html"));
    EXPECT_EQ(lines[6], text("Assigning identifier 42 to note a"));
    EXPECT_EQ(lines[7], text("*** Export ended for notebook: N"));
}

TEST_F(EvernoteHTMLExportOperationTest, DebugModeLogsEachStepOfANote)
{
    platform::UserDefaults::standard().setOverride(text("ExportDebug"), true);
    useRun(std::make_shared<EvernoteHTMLExportOperation>());
    addNote("a");
    runAll();
    const QStringList lines = logLines();
    const qsizetype first = lines.indexOf(text("Opening file: Page.html"));
    ASSERT_GT(first, 0);
    EXPECT_EQ(
        lines.mid(first + 1, 5),
        QStringList({text("Opened file: Page.html"), text("About to save file: Page.qlnote"),
                     text("Saved file: Page.qlnote"), text("Updating dates on file: Page.qlnote"),
                     text("Creating note record")}));
    EXPECT_EQ(lines.filter(text("Created note record:")).size(), 1);
    EXPECT_EQ(lines.filter(text("filename = \"Page.qlnote\"")).size(), 1);
}

TEST_F(EvernoteHTMLExportOperationTest, TheFontOfTheSettingsIsThatOfTheNotes)
{
    platform::UserDefaults::standard().setOverride(text("DefaultNoteFontSize"), 17);
    platform::UserDefaults::standard().setOverride(text("DefaultNoteFontName"), text("Courier"));
    useRun(std::make_shared<EvernoteHTMLExportOperation>());
    addNote("a");
    runAll();
    const platform::AttributedString note = noteText("Page.qlnote");
    ASSERT_FALSE(note.isEmpty());
    ASSERT_TRUE(note.attributesAt(0).font);
    EXPECT_EQ(note.attributesAt(0).font->size, m_run->textImportOptions().defaultFontSize);
}

} // namespace
