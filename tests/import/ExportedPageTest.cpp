// SPDX-License-Identifier: MIT
//
// What a page becomes: an attachment alone, or a note with its attachments.
#include "import/HTMLExportFixture.h"

#include "platform/defaults/UserDefaults.h"
#include "platform/files/ResourceValues.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ExportedPageTest : public HTMLExportTest {
protected:
    // Whether the body makes its page a single attachment; a file "a.pdf" lies in the folder
    // "Page.resources", and one "b.pdf" beside the page.
    std::optional<QString> singleAttachmentOf(const QByteArray& body)
    {
        m_folder.write(text("page/Page.resources/a.pdf"), "x");
        m_folder.write(text("page/Page.resources/a b%.pdf"), "x");
        m_folder.write(text("page/b.pdf"), "x");
        m_folder.write(text("outside.pdf"), "x");
        const QString path = m_folder.write(text("page/Page.html"), ExportingEvernote::page(body));
        bool isSingle = true;
        QUrl url;
        EXPECT_TRUE(m_run->exportedNoteAtPath(path, &isSingle, &url));
        EXPECT_EQ(isSingle, !url.isEmpty());
        if (!isSingle)
            return std::nullopt;
        EXPECT_TRUE(url.toLocalFile().startsWith(m_folder.path()));
        return url.fileName();
    }
};

TEST_F(ExportedPageTest, ALinkAloneIsASingleAttachment)
{
    EXPECT_EQ(singleAttachmentOf("<a href='Page.resources/a.pdf'>a.pdf</a>"), text("a.pdf"));
    EXPECT_EQ(singleAttachmentOf("<div><a href='Page.resources/a.pdf'>a.pdf</a></div>"),
              text("a.pdf"));
    EXPECT_EQ(singleAttachmentOf("<div><a href='b.pdf'>a</a>and more</div>"), text("b.pdf"));
    EXPECT_EQ(singleAttachmentOf("<img src='Page.resources/a.pdf'/>"), text("a.pdf"));
    EXPECT_EQ(singleAttachmentOf("<a href='Page.resources/a%20b%25.pdf'>x</a>"), text("a b%.pdf"));
}

TEST_F(ExportedPageTest, WhiteSpaceRoundTheLinkIsThePagesLayout)
{
    EXPECT_EQ(singleAttachmentOf("\n  <div>\n    <a href='b.pdf'>b</a>\n  </div>\n"),
              text("b.pdf"));
}

TEST_F(ExportedPageTest, MalformedMarkupIsReadAsBrowsersDo)
{
    EXPECT_EQ(singleAttachmentOf("<A HREF=b.pdf>b"), text("b.pdf"));
}

TEST_F(ExportedPageTest, AnythingBesideTheLinkMakesItANote)
{
    EXPECT_EQ(singleAttachmentOf("<a href='b.pdf'>b</a>text"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf("<a href='b.pdf'>b</a><br/>"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf("text<a href='b.pdf'>b</a>"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf("<div><b><a href='b.pdf'>b</a></b></div>"), std::nullopt);
    // Only a link is looked for within an element.
    EXPECT_EQ(singleAttachmentOf("<div><img src='b.pdf'/></div>"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf("text"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf(""), std::nullopt);
}

TEST_F(ExportedPageTest, ALinkToTheWebOrToNoFileIsNoAttachment)
{
    EXPECT_EQ(singleAttachmentOf("<a href='http://example.com/a.pdf'>x</a>"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf("<a href='https://example.com/a.pdf'>x</a>"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf("<a href='httpfile'>x</a>"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf("<a href='ftp://example.com/b.pdf'>x</a>"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf("<a href='evernote:///view/1'>x</a>"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf("<a href='missing.pdf'>x</a>"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf("<a href='#place'>x</a>"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf("<a href=''>x</a>"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf("<a href='Page.resources'>x</a>"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf("<a name='x'>x</a>"), std::nullopt);
}

TEST_F(ExportedPageTest, AFileThatIsNotThePagesOwnIsNoAttachment)
{
    m_folder.write(text("page/x"), "x");
    QFile::link(m_folder.filePath("outside.pdf"), m_folder.filePath("page/link.pdf"));
    EXPECT_EQ(singleAttachmentOf("<a href='../outside.pdf'>x</a>"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf("<a href='Page.resources/../../outside.pdf'>x</a>"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf("<a href='/etc/passwd'>x</a>"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf("<a href='file:///etc/passwd'>x</a>"), std::nullopt);
    EXPECT_EQ(singleAttachmentOf("<a href='link.pdf'>x</a>"), std::nullopt);
    const QByteArray inside = m_folder.filePath("page/b.pdf").toUtf8();
    EXPECT_EQ(singleAttachmentOf("<a href='file://" + inside + "'>x</a>"), text("b.pdf"));
}

TEST_F(ExportedPageTest, APageWithoutABodyCannotBeExamined)
{
    const QString path = m_folder.write(text("Page.html"), "<x><body/></x>");
    bool isSingle = true;
    QUrl url;
    platform::Error error;
    EXPECT_FALSE(m_run->exportedNoteAtPath(path, &isSingle, &url, &error));
    EXPECT_FALSE(isSingle);
    EXPECT_TRUE(error.isNull());
    EXPECT_FALSE(m_run->exportedNoteAtPath(m_folder.filePath("none"), &isSingle, &url, &error));
    EXPECT_EQ(error.domain(), text("NSCocoaErrorDomain"));
}

TEST_F(ExportedPageTest, OfSeveralBodiesTheLastCounts)
{
    const QString path = m_folder.write(
        text("Page.html"), "<html><body>x</body><body><a href='b.pdf'>b</a></body></html>");
    m_folder.write(text("b.pdf"), "x");
    bool isSingle = false;
    QUrl url;
    EXPECT_TRUE(m_run->exportedNoteAtPath(path, &isSingle, &url));
    EXPECT_TRUE(isSingle);
}

TEST_F(ExportedPageTest, ANoteThatIsOneDocumentIsThatDocumentWhereItLies)
{
    const auto note =
        addNoteWithFile("Title", "<a href='Page.resources/My%20paper.pdf'>x</a>", "My paper.pdf");
    note->created = QDateTime(QDate(2011, 3, 4), QTime(5, 6, 7), Qt::UTC);
    note->modified = QDateTime(QDate(2012, 3, 4), QTime(5, 6, 7), Qt::UTC);
    note->link = text("evernote:///view/42");
    note->tagNames = {text("t")};
    note->source = text("s");
    runAll();
    const QVariantMap item = itemNamed("My paper");
    const QString path = filesPath() + text("/N/HTML/Title.html/Page.resources/My paper.pdf");
    EXPECT_EQ(item.value(text("itemType")).toInt(), 2);
    EXPECT_EQ(item.value(text("absoluteFilename")), path);
    EXPECT_EQ(item.value(text("filename")), text("My paper.pdf"));
    EXPECT_EQ(item.value(text("extensionHidden")).toBool(), true);
    EXPECT_EQ(item.value(text("tagsString")), text("t"));
    EXPECT_EQ(item.value(text("comments")), text("s"));
    // Never the note's.
    EXPECT_NE(item.value(text("identifier")), text("42"));
    EXPECT_EQ(QDir(filesPath() + text("/N")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList(text("HTML")));
    const auto values = platform::resourceValues(path);
    EXPECT_EQ(values->creationDate, note->created);
    EXPECT_EQ(values->contentModificationDate, note->modified);
    EXPECT_NE(values->hasHiddenExtension, true);
    EXPECT_EQ(m_run->report().items, 1u);
    EXPECT_TRUE(logLines().contains(text("Assigning identifier %1 to file My paper.pdf")
                                        .arg(item.value(text("identifier")).toString())));
    EXPECT_EQ(logLines().filter(text("Defaulting to document type: com.adobe.pdf")).size(), 1);
}

TEST_F(ExportedPageTest, AnAttachmentsKindComesFromItsExtension)
{
    const QList<QPair<const char*, int>> kinds{
        {"a.png", 3},    {"b.mov", 5},  {"c.mp3", 4},       {"d.webarchive", 7}, {"e.html", 7},
        {"f.webloc", 6}, {"g.docx", 2}, {"noextension", 2}, {"h.unheardof", 2}};
    for (const auto& [name, kind] : kinds)
        addNoteWithFile(name, QByteArray("<a href='Page.resources/") + name + "'>x</a>", name);
    runAll();
    for (const auto& [name, kind] : kinds) {
        const QByteArray base = QByteArray(name).split('.').first();
        EXPECT_EQ(itemNamed(base.constData()).value(text("itemType")).toInt(), kind) << name;
    }
    EXPECT_EQ(logLines().filter(text("Defaulting to document type: public.data")).size(), 1);
}

TEST_F(ExportedPageTest, DebugModeCallsEveryAttachmentAPdf)
{
    platform::UserDefaults::standard().setOverride(text("ExportDebug"), true);
    useRun(std::make_shared<EvernoteHTMLExportOperation>());
    addNoteWithFile("Title", "<a href='Page.resources/a.png'>x</a>", "a.png");
    runAll();
    const QStringList lines = logLines();
    const qsizetype first = lines.indexOf(text("Updating dates on file: a.png"));
    ASSERT_GT(first, 0);
    EXPECT_EQ(lines[first + 1], text("Creating attachment record"));
    EXPECT_EQ(lines.filter(text("Created PDF record:")).size(), 1);
}

TEST_F(ExportedPageTest, ALinkToTheWebAloneIsANoteFile)
{
    addNote("Title", "<a href='http://example.com/'>there</a>");
    runAll();
    EXPECT_EQ(itemNamed("Page").value(text("itemType")).toInt(), 1);
    EXPECT_EQ(noteText("Page.qlnote").attributesAt(0).link, text("http://example.com/"));
}

TEST_F(ExportedPageTest, AttachmentsAreEmbeddedWhereTheirLinksStand)
{
    addNoteWithFile("Title",
                    "<div>Before <a href='Page.resources/a%20b.pdf'><i>a b</i>.pdf</a> after</div>",
                    "a b.pdf");
    runAll();
    const platform::AttributedString note = noteText("Page.qlnote");
    EXPECT_EQ(note.string().trimmed(), text("Before \uFFFC after"));
    EXPECT_EQ(attachmentsOf(note), QStringList(text("a b.pdf")));
    EXPECT_EQ(test::readFile(filesPath() + text("/N/Page.qlnote/a b.pdf")), "the file's bytes");
    EXPECT_THAT(m_run->report().warnings, IsEmpty());
}

TEST_F(ExportedPageTest, ImagesAreEmbeddedAsImages)
{
    addNoteWithFile("Title", "<div>See <img src='Page.resources/a.png'/></div>", "a.png");
    runAll();
    EXPECT_EQ(attachmentsOf(noteText("Page.qlnote")), QStringList(text("a.png")));
    EXPECT_THAT(m_run->report().warnings, IsEmpty());
}

TEST_F(ExportedPageTest, TheFirstPlaceOfTheNameDecidesAndWhatItCostsIsReported)
{
    addNoteWithFile("Title", "<div>About a.pdf: <a href='Page.resources/a.pdf'>a.pdf</a></div>",
                    "a.pdf");
    runAll();
    EXPECT_THAT(attachmentsOf(noteText("Page.qlnote")), IsEmpty());
    ASSERT_EQ(m_run->report().warnings.size(), 1u);
    EXPECT_EQ(m_run->report().warnings[0].title, text("Title"));
    EXPECT_TRUE(m_run->report().warnings[0].text.contains(text("a.pdf")));
}

TEST_F(ExportedPageTest, ALinkThatLeadsElsewhereKeepsItsText)
{
    addNoteWithFile("Title", "<div>x <a href='http://example.com/b.pdf'>a.pdf</a></div>", "a.pdf");
    runAll();
    EXPECT_EQ(noteText("Page.qlnote").string().trimmed(), text("x a.pdf"));
    EXPECT_EQ(m_run->report().warnings.size(), 1u);
}

TEST_F(ExportedPageTest, AFileThatThePageDoesNotNameIsReported)
{
    addNoteWithFile("Title", "text", "a.pdf");
    runAll();
    EXPECT_EQ(m_run->report().items, 1u);
    ASSERT_EQ(m_run->report().warnings.size(), 1u);
}

TEST_F(ExportedPageTest, HiddenFilesAndLinksInTheResourcesAreLetBe)
{
    const auto note = addNoteWithFile("Title", "text", ".DS_Store");
    m_evernote->onExport = [](const QString& to) {
        QDir().mkpath(to + QStringLiteral("/Page.resources"));
        QFile::link(QStringLiteral("/etc/passwd"), to + QStringLiteral("/Page.resources/passwd"));
    };
    note->pages.insert(text("Page.html"),
                       ExportingEvernote::page("x <a href='Page.resources/passwd'>passwd</a>"));
    runAll();
    EXPECT_THAT(attachmentsOf(noteText("Page.qlnote")), IsEmpty());
    EXPECT_THAT(m_run->report().warnings, IsEmpty());
}

TEST_F(ExportedPageTest, APageCannotShowImagesFromElsewhere)
{
    m_folder.write(text("temporary/secret.png"), "secret");
    addNote("Title", "x <img src='../../../../secret.png' alt='none'/>");
    runAll();
    EXPECT_THAT(attachmentsOf(noteText("Page.qlnote")), IsEmpty());
}

} // namespace
