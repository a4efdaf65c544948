// SPDX-License-Identifier: MIT
//
// The two ways of importing notebooks, compared note by note over real exports. Prints the figures,
// and each difference with its reason; one without a reason fails.
#include "exports/EvernoteExportsFolder.h"

#include "exports/RunItems.h"
#include "import/EvernoteHTMLExportOperation.h"
#include "import/EvernoteXMLExportOperation.h"
#include "import/RunFixture.h"
#include "platform/core/PathUtilities.h"

#include <QRegularExpression>

#include <iostream>

namespace {

using ::testing::IsEmpty;
using Notebooks = std::vector<EvernoteExportOperation::Notebook>;

struct Outcome {
    RunItems items;
    ImportReport report;
    bool isImported = false;
};

class RunsAgreementTest : public ImportRunTest {
protected:
    // Real exports, each project's in a stack.
    void SetUp() override
    {
        ImportRunTest::SetUp();
        const QString corpus = qEnvironmentVariable("VUPUGE_SHARED_DIRECTORY") + text("/corpus");
        if (!qEnvironmentVariableIsSet("VUPUGE_SHARED_DIRECTORY") || !QDir(corpus).exists())
            GTEST_SKIP() << "VUPUGE_SHARED_DIRECTORY names no folder with real exports";
        m_exports = std::make_shared<EvernoteExportsFolder>(corpus);
        m_all = m_exports->notebooks();
    }

    template <typename Run>
    Outcome runOver(const Notebooks& notebooks)
    {
        m_delegate = {};
        const auto operation = std::make_shared<Run>();
        prepare(*operation);
        operation->setEvernoteApp(m_exports);
        operation->setNotebooks(notebooks);
        run(operation);
        Outcome outcome;
        outcome.report = operation->report();
        outcome.isImported = m_delegate.reports.last() == text("end");
        if (outcome.isImported)
            outcome.items = RunItems(filesPath());
        return outcome;
    }

    // Every note is an item or stands in the report.
    static void expectWhole(const Outcome& outcome, quint64 notes)
    {
        EXPECT_TRUE(outcome.isImported);
        EXPECT_EQ(outcome.report.notes, notes);
        EXPECT_EQ(outcome.report.items + outcome.report.skipped.size(), notes);
        for (const auto& skipped : outcome.report.skipped)
            EXPECT_TRUE(skipped.error) << qPrintable(skipped.title);
    }

    void explain(const QString& note, const QString& what, const QString& reason)
    {
        m_lines += QStringLiteral("  %1: %2: %3").arg(note, what, reason);
    }

    void compare(const QString& notebook, const QString& title, const QVariantMap& enex,
                 const QVariantMap& html, const ItemFiles& enexFiles, const ItemFiles& htmlFiles);
    void compareFiles(const QString& note, const QVariantMap& enex, const QVariantMap& html,
                      const ItemFiles& enexFiles, const ItemFiles& htmlFiles);

    void explainName(const QString& note, const QString& name, const QStringList& enexNames);

    std::shared_ptr<EvernoteExportsFolder> m_exports;
    Notebooks m_all;
    QStringList m_lines;
    int m_compared = 0;
    int m_attachments = 0;
};

QSet<QByteArray> distinct(const QByteArrayList& files)
{
    return {files.begin(), files.end()};
}

QString value(const QVariantMap& item, const char* key)
{
    return item.value(QLatin1String(key)).toString();
}

void RunsAgreementTest::compare(const QString& notebook, const QString& title,
                                const QVariantMap& enex, const QVariantMap& html,
                                const ItemFiles& enexFiles, const ItemFiles& htmlFiles)
{
    ++m_compared;
    const QString note = notebook + text("/") + title;
    EXPECT_EQ(value(html, "tagsString"), value(enex, "tagsString")) << qPrintable(note);
    EXPECT_EQ(value(html, "comments"), value(enex, "comments")) << qPrintable(note);
    EXPECT_EQ(value(html, "name"), value(enex, "name")) << qPrintable(note);
    if (value(html, "itemType") != value(enex, "itemType")) {
        EXPECT_EQ(value(enex, "itemType"), text("7")) << qPrintable(note);
        EXPECT_EQ(value(html, "itemType"), text("1")) << qPrintable(note);
        explain(note, text("kind"), text("a clipped page is an archive as ENEX, a note as a page"));
    }
    compareFiles(note, enex, html, enexFiles, htmlFiles);
}

void RunsAgreementTest::compareFiles(const QString& note, const QVariantMap& enex,
                                     const QVariantMap& html, const ItemFiles& enexFiles,
                                     const ItemFiles& htmlFiles)
{
    m_attachments += static_cast<int>(htmlFiles.bytes().size());
    const QSet<QByteArray> inPage = distinct(htmlFiles.bytes());
    const QSet<QByteArray> inEnex = distinct(enexFiles.bytes());
    const bool isClip =
        value(enex, "itemType") == text("7") && value(html, "itemType") == text("1");
    EXPECT_THAT(QSet<QByteArray>(inEnex).subtract(inPage), IsEmpty()) << qPrintable(note);
    const QSet<QByteArray> onlyInPage = QSet<QByteArray>(inPage).subtract(inEnex);
    for (const QByteArray& bytes : onlyInPage) {
        for (const QString& name : htmlFiles.namesOf(bytes)) {
            EXPECT_TRUE(isClip && name.contains(text("image"))) << qPrintable(note + name);
            explain(note, name, text("stands in the markup itself, where an archive leaves it"));
        }
    }
    if (!isClip) {
        EXPECT_EQ(htmlFiles.bytes(), enexFiles.bytes()) << qPrintable(note);
    }
    for (const QByteArray& bytes : std::as_const(inEnex)) {
        const QStringList enexNames = enexFiles.namesOf(bytes);
        for (const QString& name : htmlFiles.namesOf(bytes)) {
            if (!enexNames.contains(name))
                explainName(note, name, enexNames);
        }
    }
}

void RunsAgreementTest::explainName(const QString& note, const QString& name,
                                    const QStringList& enexNames)
{
    static const QRegularExpression unnamed(
        text("^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}( \\d+)?(\\.\\w+)?$"));
    const QString base = platform::stringByDeletingPathExtension(name);
    if (unnamed.match(name).hasMatch() && unnamed.match(enexNames.value(0)).hasMatch())
        explain(note, name, text("has no name in the file"));
    else if (enexNames.contains(base))
        explain(note, name, text("has no extension in the file; a page needs one"));
    else
        ADD_FAILURE() << qPrintable(note) << ": " << qPrintable(name) << " for "
                      << qPrintable(enexNames.join(text(", ")));
}

TEST_F(RunsAgreementTest, BothWaysBringEveryNoteAndAgreeOnWhatTheyBring)
{
    Notebooks readable;
    Notebooks unreadable;
    quint64 notes = 0;
    for (const auto& notebook : m_all) {
        (notebook->problem() ? unreadable : readable).push_back(notebook);
        if (!notebook->problem())
            notes += notebook->numberOfNotes();
    }
    ASSERT_GT(readable.size(), 70u);
    ASSERT_GT(unreadable.size(), 0u);
    const Outcome enex = runOver<EvernoteXMLExportOperation>(readable);
    const Outcome html = runOver<EvernoteHTMLExportOperation>(readable);
    expectWhole(enex, notes);
    expectWhole(html, notes);

    // What neither way skipped is in both, in the notes' order.
    ASSERT_EQ(enex.report.skipped.size(), html.report.skipped.size());
    QStringList skippedTitles;
    for (std::size_t number = 0; number < enex.report.skipped.size(); ++number) {
        skippedTitles += enex.report.skipped[number].title;
        EXPECT_EQ(enex.report.skipped[number].title, html.report.skipped[number].title);
    }
    ASSERT_EQ(enex.items.folders(), html.items.folders());
    for (const QString& folder : enex.items.folders()) {
        const auto enexItems = enex.items.itemsOf(folder);
        const auto htmlItems = html.items.itemsOf(folder);
        const auto enexFiles = enex.items.filesOf(folder);
        const auto htmlFiles = html.items.filesOf(folder);
        ASSERT_EQ(enexItems.size(), htmlItems.size()) << qPrintable(folder);
        for (std::size_t number = 0; number < enexItems.size(); ++number)
            compare(folder, value(enexItems[number], "name"), enexItems[number], htmlItems[number],
                    enexFiles[number], htmlFiles[number]);
    }
    EXPECT_EQ(quint64(m_compared), enex.report.items);

    std::cout << "notebooks: " << readable.size() << " read, " << unreadable.size()
              << " unreadable\nnotes: " << notes << ", skipped by both: " << skippedTitles.size()
              << "\nitems compared: " << m_compared << ", attachments: " << m_attachments
              << "\nwarnings: " << enex.report.warnings.size() << " as ENEX, "
              << html.report.warnings.size() << " as pages\n";
    for (const auto& skipped : enex.report.skipped)
        std::cout << "  skipped: " << qPrintable(skipped.title) << ": "
                  << qPrintable(skipped.error->localizedDescription()) << '\n';
    for (const QString& line : std::as_const(m_lines))
        std::cout << qPrintable(line) << '\n';

    for (const auto& notebook : unreadable) {
        const Outcome outcome = runOver<EvernoteXMLExportOperation>({notebook});
        EXPECT_FALSE(outcome.isImported);
        ASSERT_EQ(m_delegate.errors.size(), 1u) << qPrintable(notebook->name());
        EXPECT_EQ(m_delegate.errors[0], notebook->problem());
        std::cout << "  unreadable: " << qPrintable(notebook->name()) << ": "
                  << qPrintable(notebook->problem()->localizedDescription()) << '\n';
    }
}

} // namespace
