// SPDX-License-Identifier: MIT
#include "exports/NotebookSummary.h"

#include "exports/EnexDocuments.h"
#include "support/ScratchFolder.h"

#include <QStringEncoder>

#include <sys/stat.h>

namespace {

class NotebookSummaryTest : public testing::Test {
protected:
    NotebookSummary summaryOf(const QByteArray& data)
    {
        return NotebookSummary::ofFile(m_folder.write("a.enex", data));
    }

    test::ScratchFolder m_folder;
};

TEST_F(NotebookSummaryTest, NotesAreCountedAndTheHeaderIsRead)
{
    const NotebookSummary summary = summaryOf(test::document(test::note("a") + test::note("b")));
    EXPECT_EQ(summary.notes, 2u);
    EXPECT_EQ(summary.application, "Evernote");
    EXPECT_EQ(summary.version, "10.104.3");
    EXPECT_FALSE(summary.problem);
}

TEST_F(NotebookSummaryTest, WhatOnlyTheParserKnowsIsCountedByIt)
{
    const QByteArray notes = test::note("a") + test::note("b");
    EXPECT_EQ(summaryOf(test::document("<?pi?>" + notes)).notes, 2u);
    EXPECT_EQ(summaryOf(test::document("<note>" + notes + "</note>")).notes, 3u);
    EXPECT_EQ(summaryOf(test::document("<x>" + notes + "</x>")).notes, 2u);
    EXPECT_EQ(summaryOf(test::document(test::note("&nbsp;"))).notes, 1u);
    EXPECT_EQ(summaryOf("<!DOCTYPE a [<!ENTITY x '<note/>'>]><a><note>&x;</note></a>").notes, 1u);
    const NotebookSummary latin =
        summaryOf("<?xml version='1.0' encoding='iso-8859-1'?><en-export version='1'><note>"
                  "<title>\xE4</title></note></en-export>");
    EXPECT_EQ(latin.notes, 1u);
    EXPECT_EQ(latin.version, "1");
    QStringEncoder utf16(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
    const QByteArray wide = utf16(QString("<en-export version='7'><note/><note/></en-export>"));
    EXPECT_EQ(summaryOf(wide).notes, 2u);
    EXPECT_EQ(summaryOf(wide).version, "7");
    EXPECT_FALSE(summaryOf(wide).problem);
}

TEST_F(NotebookSummaryTest, AFileThatIsNoXmlHasTheParsersReason)
{
    for (const char* const data : {"", "text", "<en-export>", "\x89PNG\r\n\x1A\n\0\0"}) {
        const NotebookSummary summary = summaryOf(data);
        ASSERT_TRUE(summary.problem) << data;
        EXPECT_EQ(summary.problem->domain(), "NSXMLParserErrorDomain");
        EXPECT_FALSE(summary.problem->localizedDescription().isEmpty());
    }
}

TEST_F(NotebookSummaryTest, OfAFileThatIsCutShortTheNotesBeforeThatAreCounted)
{
    const QByteArray whole = test::document(test::note("a") + test::note("b") + test::note("c"));
    const NotebookSummary summary = summaryOf(whole.first(whole.indexOf("<title>c")));
    EXPECT_EQ(summary.notes, 2u);
    EXPECT_TRUE(summary.problem);
    EXPECT_EQ(summary.version, "10.104.3");
}

TEST_F(NotebookSummaryTest, WhatIsNotThereOrNoFileHasTheSystemsReason)
{
    EXPECT_EQ(NotebookSummary::ofFile(m_folder.filePath("none")).problem->code(), 260);
    EXPECT_TRUE(NotebookSummary::ofFile(m_folder.path()).problem);
    ASSERT_EQ(mkfifo(qPrintable(m_folder.filePath("pipe")), 0600), 0);
    EXPECT_TRUE(NotebookSummary::ofFile(m_folder.filePath("pipe")).problem);
}

TEST_F(NotebookSummaryTest, AFileWithoutPermissionHasTheSystemsReason)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "nothing is closed to the superuser";
    const QString path = m_folder.write("a.enex", test::document(""));
    QFile::setPermissions(path, {});
    EXPECT_TRUE(NotebookSummary::ofFile(path).problem);
}

TEST_F(NotebookSummaryTest, TheHeaderAloneIsReadWithoutTheNotes)
{
    const QString path = m_folder.write("a.enex", test::document(test::note("a")) + "garbage <");
    const NotebookSummary summary = NotebookSummary::ofHeader(path);
    EXPECT_EQ(summary.version, "10.104.3");
    EXPECT_EQ(summary.notes, 0u);
    EXPECT_TRUE(NotebookSummary::ofHeader(m_folder.filePath("none")).version.isEmpty());
}

} // namespace
