// SPDX-License-Identifier: MIT
//
// Imports of a folder of exports, by both ways.
#include "exports/EvernoteExportsFolder.h"

#include "exports/EnexDocuments.h"
#include "exports/RunItems.h"
#include "import/EvernoteHTMLExportOperation.h"
#include "import/EvernoteXMLExportOperation.h"
#include "import/RunFixture.h"
#include "platform/files/ResourceValues.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class NotebookRunsTest : public ImportRunTest {
protected:
    void write(const char* name, const QByteArray& notes)
    {
        m_folder.write(text("exports/") + text(name), test::document(notes));
    }

    [[nodiscard]] QString exportsPath() const { return m_folder.filePath("exports"); }

    // The items of a run over these notebooks, in the notebooks' order.
    template <typename Run>
    RunItems runOver(const std::vector<EvernoteExportOperation::Notebook>& notebooks)
    {
        m_delegate = {};
        const auto operation = std::make_shared<Run>();
        prepare(*operation);
        operation->setEvernoteApp(m_exports);
        operation->setNotebooks(notebooks);
        run(operation);
        m_report = operation->report();
        return m_delegate.reports.last() == text("end") ? RunItems(filesPath()) : RunItems();
    }

    void SetUp() override
    {
        ImportRunTest::SetUp();
        QDir().mkpath(exportsPath());
        m_exports = std::make_shared<EvernoteExportsFolder>(exportsPath());
    }

    std::shared_ptr<EvernoteExportsFolder> m_exports;
    ImportReport m_report;
};

TEST_F(NotebookRunsTest, AnIndentedExportKeepsItsDatesAndTags)
{
    write(
        "N.enex",
        "  <note>\n    <title>T</title>\n    <created>20240102T030405Z</created>\n"
        "    <updated>20240203T040506Z</updated>\n    <tag>one</tag>\n    <tag>two</tag>\n"
        "    <note-attributes>\n      <source-url>https://example.com/</source-url>\n"
        "    </note-attributes>\n    <content>\n      <![CDATA[<en-note><div>x</div></en-note>]]>\n"
        "    </content>\n  </note>\n");
    const QDateTime created(QDate(2024, 1, 2), QTime(3, 4, 5));
    const QDateTime updated(QDate(2024, 2, 3), QTime(4, 5, 6));
    const RunItems enex = runOver<EvernoteXMLExportOperation>(m_exports->notebooks());
    ASSERT_EQ(enex.itemsOf("N").size(), 1u);
    const QVariantMap item = enex.itemsOf("N")[0];
    EXPECT_EQ(item.value("dateCreated").toDateTime(), created);
    EXPECT_EQ(item.value("dateModified").toDateTime(), updated);
    EXPECT_EQ(item.value("tagsString"), "one,two");
    EXPECT_EQ(item.value("comments"), "https://example.com/");
    EXPECT_EQ(item.value("name"), "T");

    const RunItems html = runOver<EvernoteHTMLExportOperation>(m_exports->notebooks());
    ASSERT_EQ(html.itemsOf("N").size(), 1u);
    const QVariantMap page = html.itemsOf("N")[0];
    EXPECT_EQ(page.value("tagsString"), "one,two");
    EXPECT_EQ(page.value("comments"), "https://example.com/");
    const auto values = platform::resourceValues(page.value("absoluteFilename").toString());
    EXPECT_EQ(values->creationDate, created);
    EXPECT_EQ(values->contentModificationDate, updated);
}

TEST_F(NotebookRunsTest, StacksOfOneNotebookNameBecomeFoldersOfTheirOwn)
{
    write("Work/Ideas.enex", test::note("w"));
    write("Home/Ideas.enex", test::note("h"));
    write("Home-Ideas.enex", test::note("x"));
    const RunItems items = runOver<EvernoteXMLExportOperation>(m_exports->notebooks());
    EXPECT_EQ(items.folders(), QStringList({"Home-Ideas", "Home-Ideas 1", "Work-Ideas"}));
    EXPECT_EQ(m_report.items, 3u);
}

TEST_F(NotebookRunsTest, AFileThatCannotBeReadEndsTheRunWithItsReason)
{
    m_folder.write(text("exports/Broken.enex"), "<en-export><note><title>a");
    write("Good.enex", test::note("b"));
    const auto notebooks = m_exports->notebooks();
    const auto problem = notebooks[0]->problem();
    ASSERT_TRUE(problem);
    runOver<EvernoteXMLExportOperation>(notebooks);
    ASSERT_EQ(m_delegate.errors.size(), 1u);
    EXPECT_EQ(m_delegate.errors[0], problem);
    EXPECT_EQ(m_report.items, 0u);
    runOver<EvernoteHTMLExportOperation>(notebooks);
    ASSERT_EQ(m_delegate.errors.size(), 1u);
    EXPECT_EQ(m_delegate.errors[0], problem);
}

TEST_F(NotebookRunsTest, AttachmentsComeThroughPages)
{
    write("N.enex", test::note("Note",
                               "<div>x " + test::media("1", "application/pdf") + " y " +
                                   test::media("2", "image/png") + "</div>",
                               test::resource("1", "application/pdf", "a &amp; b%20.pdf") +
                                   test::resource("2", "image/png", "p.png")) +
                        test::note("Paper", test::media("3", "application/pdf"),
                                   test::resource("3", "application/pdf", "scan.pdf")) +
                        test::note("Photo", "<div>" + test::media("4", "image/jpeg") + "</div>",
                                   test::resource("4", "image/jpeg", "x.jpg")));
    const RunItems enex = runOver<EvernoteXMLExportOperation>(m_exports->notebooks());
    const std::vector<ItemFiles> enexFiles = enex.filesOf("N");
    const RunItems html = runOver<EvernoteHTMLExportOperation>(m_exports->notebooks());
    EXPECT_THAT(m_report.warnings, IsEmpty());
    const std::vector<ItemFiles> htmlFiles = html.filesOf("N");
    ASSERT_EQ(htmlFiles.size(), 3u);
    EXPECT_EQ(htmlFiles[0].bytes(), (QByteArrayList{"1", "2"}));
    EXPECT_EQ(htmlFiles[0].names(), QStringList({"a & b%20.pdf", "p.png"}));
    EXPECT_EQ(htmlFiles[1].names(), QStringList("Paper.pdf"));
    EXPECT_EQ(html.itemsOf("N")[1].value("itemType").toInt(), 2);
    EXPECT_EQ(html.itemsOf("N")[2].value("itemType").toInt(), 3);
    for (std::size_t number = 0; number < 3; ++number) {
        EXPECT_EQ(htmlFiles[number].bytes(), enexFiles[number].bytes()) << number;
        EXPECT_EQ(htmlFiles[number].names(), enexFiles[number].names()) << number;
    }
}

TEST_F(NotebookRunsTest, WhatThePageRunLeavesOutIsReported)
{
    write("N.enex", test::note("Note", "<en-crypt>x</en-crypt>" + test::media("no", "image/png"),
                               test::resource("1", "application/pdf", "hidden.pdf")));
    runOver<EvernoteHTMLExportOperation>(m_exports->notebooks());
    EXPECT_EQ(m_report.items, 1u);
    EXPECT_EQ(m_report.warnings.size(), 3u);
}

} // namespace
