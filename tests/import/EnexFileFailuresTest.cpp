// SPDX-License-Identifier: MIT
#include "import/RunFixture.h"

namespace {

using ::testing::ElementsAre;

// What an ENEX file can have wrong with it, or the places that its notes go to.
class EnexFileFailuresTest : public ImportRunTest {};

TEST_F(EnexFileFailuresTest, MalformedXmlIsFoundByTheCountAndNothingIsConverted)
{
    QByteArray notes;
    for (int number = 0; number < 500; ++number)
        notes += note("Note " + QByteArray::number(number));
    const auto operation =
        importFile(text("a.enex"), enex(notes + "\n\n<note><title>Broken</note>"));
    ASSERT_EQ(m_delegate.reports.size(), 1);
    EXPECT_EQ(m_delegate.errors[0]->domain(), text("NSXMLParserErrorDomain"));
    EXPECT_TRUE(m_delegate.errors[0]->localizedDescription().contains(text("line 4")))
        << qPrintable(m_delegate.errors[0]->localizedDescription());
    EXPECT_TRUE(m_delegate.errors[0]->localizedDescription().contains(text("column")));
    const QString error = m_delegate.errors[0]->description();
    EXPECT_EQ(logLines().mid(2),
              QStringList({text("Error counting notes: ") + error, text("Error: ") + error}));
    EXPECT_TRUE(QDir(filesPath()).isEmpty());
    EXPECT_TRUE(m_quillery->calls.isEmpty());
}

TEST_F(EnexFileFailuresTest, FilesThatCannotBeReadEndWithOneErrorThatNamesThem)
{
    for (const QString& path :
         {text("/nowhere/Notes.enex"), m_folder.path(), m_folder.write(text("empty.enex"), "")}) {
        m_delegate.reports.clear();
        m_delegate.errors.clear();
        const auto operation = std::make_shared<EvernoteXMLFileExportOperation>();
        prepare(*operation);
        operation->setExportFileURL(QUrl::fromLocalFile(path));
        run(operation);
        ASSERT_EQ(m_delegate.reports.size(), 1) << qPrintable(path);
        EXPECT_EQ(m_delegate.errors[0]->domain(), text("NSXMLParserErrorDomain"))
            << qPrintable(path);
        EXPECT_EQ(logLines().filter(text("Error counting notes: ")).size(), 1);
        EXPECT_TRUE(QDir(filesPath()).isEmpty());
    }
}

TEST_F(EnexFileFailuresTest, BrokenFilesOfEveryKindEndWithAnError)
{
    for (const QByteArray& broken : QByteArrayList{
             "", "plain text", "\x89PNG\r\n", "<en-export><note>", "<en-export/>tail", "<a/><b/>",
             "<en-export>\xFF\xFE</en-export>", "<en-export>&undeclared;</en-export>"}) {
        m_delegate.reports.clear();
        importFile(text("a.enex"), broken);
        ASSERT_EQ(m_delegate.reports.size(), 1) << broken.constData();
        EXPECT_TRUE(m_delegate.reports[0].startsWith(text("error "))) << broken.constData();
        EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/Evernote.qllibxml")));
    }
}

TEST_F(EnexFileFailuresTest, AUrlThatIsNoFileEndsWithAnError)
{
    const auto operation = std::make_shared<EvernoteXMLFileExportOperation>();
    prepare(*operation);
    operation->setExportFileURL(QUrl(text("http://example.org/a.enex")));
    run(operation);
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("error 1001")));
}

TEST_F(EnexFileFailuresTest, AFolderThatCannotBeMadeForTheFileEndsTheRun)
{
    const auto operation = std::make_shared<EvernoteXMLFileExportOperation>();
    prepare(*operation);
    const QString path = m_folder.write(text("Evernote.enex"), enex(note("One")));
    operation->setExportFileURL(QUrl::fromLocalFile(path));
    RunDirectories unusable = directories();
    unusable.temporary = m_folder.write(text("a file"), "");
    operation->setRunDirectories(unusable);
    run(operation);
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("error 10004")));
    const QStringList lines = logLines();
    ASSERT_EQ(lines.size(), 5);
    EXPECT_EQ(lines[2], text("Exporting notes from ") + path);
    EXPECT_TRUE(lines[3].startsWith(text("Unable to create notebook directory %1: ")
                                        .arg(operation->filesPath() + text("/Evernote"))));
    EXPECT_EQ(lines[4], text("Error: Error Domain=EvernoteExport Code=10004 "
                             "\"Unable to create the temporary directory to export files.\""));
    EXPECT_TRUE(m_quillery->calls.isEmpty());
}

TEST_F(EnexFileFailuresTest, AnUnknownEncodingEndsTheConversionWithTwoReports)
{
    importFile(
        text("a.enex"),
        enex(note("One") + "<note><resource><data encoding=\"hex\">00</data></resource></note>"));
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 2 a.enex"), text("record"),
                                                text("error 1003"), text("error 512")));
    EXPECT_EQ(m_delegate.errors[0]->localizedDescription(), text("Cannot parse \"hex\" data."));
    EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/Evernote.qllibxml")));
}

TEST_F(EnexFileFailuresTest, AnExceptionInOneNoteSkipsThatNoteOnly)
{
    const auto operation =
        importFile(text("a.enex"),
                   enex(note("Bad", "<en-note>***QUILLERYATTACHMENT x</en-note>") + note("Good")));
    EXPECT_EQ(m_delegate.reports.last(), text("end"));
    ASSERT_EQ(operation->report().skipped.size(), 1u);
    EXPECT_EQ(operation->report().skipped[0].error->code(), 1004);
    EXPECT_EQ(operation->report().items, 1u);
}

TEST_F(EnexFileFailuresTest, TheFilesFolderRemovedDuringTheRunIsNeverSilent)
{
    const auto operation = std::make_shared<EvernoteXMLFileExportOperation>();
    prepare(*operation);
    operation->setExportFileURL(QUrl::fromLocalFile(
        m_folder.write(text("a.enex"), enex(note("One") + note("Two") + note("Three")))));
    m_delegate.onRecord = [&] {
        QDir(filesPath() + text("/a")).removeRecursively();
    };
    run(operation);
    EXPECT_EQ(operation->report().skipped.size(), 2u);
    EXPECT_TRUE(operation->report().skipped[0].error);
}

TEST_F(EnexFileFailuresTest, AFileThatIsGoneAfterTheCountIsReportedTwice)
{
    class Remover : public RecordingDelegate {
        void exportOperationWillExportRecordsFromFileAtURL(EvernoteExportOperation&, quint64,
                                                           const QUrl& url) override
        {
            EXPECT_TRUE(QFile::remove(url.toLocalFile()));
        }
    };
    Remover delegate;
    const auto operation = std::make_shared<EvernoteXMLFileExportOperation>();
    prepare(*operation);
    operation->setDelegate(&delegate);
    operation->setExportFileURL(
        QUrl::fromLocalFile(m_folder.write(text("a.enex"), enex(note("One")))));
    run(operation);
    EXPECT_THAT(delegate.reports, ElementsAre(text("error 1549"), text("error 1549")));
    EXPECT_TRUE(delegate.errors[0]->localizedDescription().contains(text("a.enex")));
    EXPECT_TRUE(m_quillery->calls.isEmpty());
}

// As real exports have it.
TEST_F(EnexFileFailuresTest, ADamagedDateIsLeftOutAndNamedAndCostsNothingElse)
{
    const auto operation = importFile(
        text("a.enex"),
        enex(note("Old", "<en-note>x</en-note>",
                  "<created>10101T000000Z</created><updated>20130412T093015Z</updated>") +
             note("Good", "<en-note>x</en-note>", "<created>20130412T093015Z</created>")));
    EXPECT_EQ(m_delegate.reports.last(), text("end"));
    const QDateTime date(QDate(2013, 4, 12), QTime(9, 30, 15), Qt::UTC);
    for (const QVariantMap& item : records(text("Item"))) {
        const bool isGood = item.value(text("name")).toString() == text("Good");
        EXPECT_EQ(item.value(text("dateCreated")), isGood ? QVariant(date) : QVariant());
        EXPECT_EQ(item.value(text("dateModified")), isGood ? QVariant() : QVariant(date));
    }
    EXPECT_EQ(records(text("Item")).size(), 2);
    ASSERT_FALSE(operation->report().warnings.empty());
    EXPECT_EQ(operation->report().warnings.back().title, text("Old"));
    EXPECT_EQ(operation->report().warnings.back().text,
              text("A date of the note is damaged and was left out."));
}

} // namespace
