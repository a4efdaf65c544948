// SPDX-License-Identifier: MIT
//
// The form of exported pages.
#include "exports/EnexDocuments.h"
#include "exports/EvernoteExportsFolder.h"
#include "platform/defaults/UserDefaults.h"
#include "resources/Resources.h"
#include "support/ScratchFolder.h"

using platform::EvernoteApplication;

namespace {

class NotePageTest : public testing::Test {
protected:
    void SetUp() override { registerResources(); }
    void TearDown() override { platform::UserDefaults::standard().clearOverrides(); }

    // Exports one note; its page's body.
    QString bodyOf(const QByteArray& note)
    {
        m_folder.write("in/a.enex", test::document(note));
        EvernoteExportsFolder exports(m_folder.filePath("in"));
        const auto notes = exports.notebooks()[0]->notes();
        platform::Error error;
        EXPECT_TRUE(exports.exportNotes(notes, m_folder.filePath("out"),
                                        EvernoteApplication::ExportTags::No,
                                        EvernoteApplication::ExportFormat::HTML, &error))
            << qPrintable(error.localizedDescription());
        for (const QString& entry : tree()) {
            if (entry.endsWith(".html"))
                m_page = QString::fromUtf8(m_folder.read("out/" + entry));
        }
        const qsizetype start = m_page.indexOf("<body>") + 6;
        return m_page.sliced(start, m_page.lastIndexOf("</body>") - start);
    }

    // What was exported.
    [[nodiscard]] QStringList tree() const
    {
        QStringList entries;
        for (const QString& entry : m_folder.tree()) {
            if (entry.startsWith("out/") && entry != "out/")
                entries += entry.mid(4);
        }
        return entries;
    }

    static QByteArray noteWith(const QByteArray& title, const QByteArray& before,
                               const QByteArray& mime, const QByteArray& fileName)
    {
        return test::note(title, before + test::media("bytes", mime) + "<br/>",
                          test::resource("bytes", mime, fileName));
    }

    test::ScratchFolder m_folder;
    QString m_page;
};

TEST_F(NotePageTest, ANoteWithoutAttachmentsIsAPageAlone)
{
    EXPECT_EQ(bodyOf(test::note("A &lt; B", "<div>text</div>")), "<div>text</div>");
    EXPECT_EQ(tree(), QStringList("A < B.html"));
    EXPECT_TRUE(m_page.contains("<title>A &lt; B</title>"));
}

TEST_F(NotePageTest, AnAttachmentIsALinkWhoseTextIsItsName)
{
    const QString body =
        bodyOf(noteWith("My note", "x", "application/pdf", "my paper &amp; 100%.pdf"));
    EXPECT_TRUE(body.contains("href=\"My%20note.resources/my%20paper%20%26%20100%25.pdf\""))
        << qPrintable(body);
    EXPECT_TRUE(body.contains(">my paper &amp; 100%.pdf</a>"));
    EXPECT_EQ(m_folder.read("out/My note.resources/my paper & 100%.pdf"), "bytes");
}

TEST_F(NotePageTest, AnImageIsAnImage)
{
    const QString body = bodyOf(noteWith("N", "x", "image/png", "a b.png"));
    EXPECT_TRUE(body.contains("<img src=\"N.resources/a%20b.png\"")) << qPrintable(body);
}

TEST_F(NotePageTest, CheckboxesAreBoxTextsAndEncryptedPassagesAsterisks)
{
    const QString body = bodyOf(test::note(
        "N",
        "<div><en-todo checked=\"true\"/>a</div><div><en-todo/>b</div><en-crypt>x</en-crypt>"));
    EXPECT_TRUE(body.contains(QString::fromUtf8("\u2611\uFE0E a"))) << qPrintable(body);
    EXPECT_TRUE(body.contains(QString::fromUtf8("\u2610 b")));
    EXPECT_TRUE(body.contains("********"));
}

TEST_F(NotePageTest, ANoteThatIsOneAttachmentIsABodyOfTheSingleLink)
{
    const QString body = bodyOf(test::note("My paper", test::media("bytes", "application/pdf"),
                                           test::resource("bytes", "application/pdf", "scan.pdf")));
    EXPECT_TRUE(body.startsWith("<a href=\"My%20paper.resources/My%20paper.pdf\""))
        << qPrintable(body);
    EXPECT_TRUE(body.endsWith(">My paper.pdf</a>"));
    EXPECT_EQ(tree(), QStringList({"My paper.html", "My paper.resources/",
                                   "My paper.resources/My paper.pdf"}));
}

TEST_F(NotePageTest, ANoteThatIsOneImageIsABodyOfTheSingleImage)
{
    EXPECT_EQ(bodyOf(test::note("N", "<div>" + test::media("bytes", "image/png") + "<br/></div>",
                                test::resource("bytes", "image/png", "x.png"))),
              "<img src=\"N.resources/N.png\"/>");
}

TEST_F(NotePageTest, HostileFileNamesAreMadeSafe)
{
    for (const char* const name :
         {"../../evil.pdf", "/etc/passwd.pdf", ".hidden.pdf", "a\nb.pdf", "~.pdf", "..", "  "}) {
        m_folder.write("out/x", "");
        QDir(m_folder.filePath("out")).removeRecursively();
        const QString body = bodyOf(noteWith("N", "x", "application/pdf", name));
        ASSERT_EQ(tree().size(), 3) << name << qPrintable(tree().join('|'));
        const QString file = tree()[2];
        EXPECT_TRUE(file.startsWith("N.resources/")) << name;
        EXPECT_FALSE(file.startsWith("N.resources/.")) << name;
        EXPECT_TRUE(body.contains(">" + file.section('/', -1) + "</a>")) << qPrintable(body);
    }
    EXPECT_FALSE(QFileInfo::exists(m_folder.filePath("evil.pdf")));
}

TEST_F(NotePageTest, HostileTitlesAreMadeSafe)
{
    for (const char* const title :
         {"../../evil", "/etc/passwd", ".hidden", "", "a\nb", "http://x"}) {
        m_folder.write("out/x", "");
        QDir(m_folder.filePath("out")).removeRecursively();
        const QString body = bodyOf(noteWith(title, "x", "application/pdf", "a.pdf"));
        ASSERT_EQ(tree().size(), 3) << title << qPrintable(tree().join('|'));
        EXPECT_FALSE(tree()[0].startsWith('.')) << title;
        EXPECT_EQ(tree()[0].chopped(5) + ".resources/", tree()[1]) << title;
        // What begins so would not be looked for beside the page.
        EXPECT_FALSE(body.contains("href=\"http")) << qPrintable(body);
    }
}

TEST_F(NotePageTest, ATitleOfAnyLengthHasAPageAndAFolder)
{
    const QString title = QString(300, QChar(0x65E5));
    bodyOf(noteWith(title.toUtf8(), "x", "application/pdf", "a.pdf"));
    ASSERT_EQ(tree().size(), 3);
    EXPECT_LE(tree()[1].toUtf8().size(), 256);
    EXPECT_EQ(tree()[0].chopped(5) + ".resources/", tree()[1]);
}

TEST_F(NotePageTest, AttachmentsOfOneNameGetNamesOfTheirOwn)
{
    const QByteArray more = test::resource("1", "application/pdf", "a.pdf") +
                            test::resource("2", "application/pdf", "a.pdf");
    const QString body = bodyOf(test::note("N",
                                           test::media("1", "application/pdf") +
                                               test::media("2", "application/pdf") +
                                               test::media("1", "application/pdf"),
                                           more));
    EXPECT_EQ(m_folder.read("out/N.resources/a.pdf"), "1");
    EXPECT_EQ(m_folder.read("out/N.resources/a 1.pdf"), "2");
    EXPECT_EQ(m_folder.read("out/N.resources/a 2.pdf"), "1");
    EXPECT_TRUE(body.contains(">a 2.pdf</a>"));
}

TEST_F(NotePageTest, ANameThatTheTextHoldsAlreadyIsAnother)
{
    bodyOf(noteWith("N", "<div>see a.p<b>df</b></div>", "application/pdf", "a.pdf"));
    EXPECT_EQ(tree().last(), "N.resources/a 1.pdf");
}

TEST_F(NotePageTest, ANameThatAnEarlierOneHoldsIsAnother)
{
    bodyOf(test::note("N",
                      test::media("1", "application/pdf") + test::media("2", "application/pdf"),
                      test::resource("1", "application/pdf", "data.pdf") +
                          test::resource("2", "application/pdf", "a.pdf")));
    EXPECT_EQ(tree().mid(2), QStringList({"N.resources/a 1.pdf", "N.resources/data.pdf"}));
}

TEST_F(NotePageTest, BlanksThatAPageWouldCollapseAreCollapsed)
{
    bodyOf(noteWith("N", "x", "application/pdf", " a   b\tc.pdf "));
    EXPECT_EQ(tree().last(), "N.resources/a b c.pdf");
}

TEST_F(NotePageTest, AFileWithoutAnExtensionGetsThatOfItsType)
{
    bodyOf(noteWith("N", "x", "application/pdf", "scan"));
    EXPECT_EQ(tree().last(), "N.resources/scan.pdf");
}

TEST_F(NotePageTest, AnAttachmentThatTheBodyDoesNotShowLiesInTheFolderAllTheSame)
{
    const QString body =
        bodyOf(test::note("N", "text", test::resource("x", "application/pdf", "a.pdf")));
    EXPECT_EQ(body, "text");
    EXPECT_EQ(m_folder.read("out/N.resources/a.pdf"), "x");
}

TEST_F(NotePageTest, WhereUnshownAttachmentsAreKeptThePageShowsThem)
{
    platform::UserDefaults::standard().setOverride("KeepUnreferencedAttachments", true);
    const QString body =
        bodyOf(test::note("N", "text", test::resource("x", "application/pdf", "a.pdf")));
    EXPECT_TRUE(body.contains(">a.pdf</a>")) << qPrintable(body);
}

TEST_F(NotePageTest, AnAttachmentWithoutDataIsAnEmptyFile)
{
    bodyOf(test::note("N", "text", test::resource("", "application/pdf", "a.pdf")));
    EXPECT_EQ(tree().last(), "N.resources/a.pdf");
    EXPECT_EQ(m_folder.read("out/N.resources/a.pdf"), "");
}

TEST_F(NotePageTest, MalformedBodiesAreRepaired)
{
    EXPECT_TRUE(bodyOf("<note><title>N</title><content><![CDATA[<en-note><b>a<i>b</b></i>&nbsp;"
                       "</en-note>]]></content></note>")
                    .contains("b"));
}

TEST_F(NotePageTest, TasksAreLinesOfThePage)
{
    const QString body = bodyOf(
        "<note><title>N</title><content><![CDATA[<en-note><div>x</div></en-note>]]></content>"
        "<task><title>Call</title><taskStatus>open</taskStatus></task></note>");
    EXPECT_TRUE(body.contains(QString::fromUtf8("\u2610 Call"))) << qPrintable(body);
}

} // namespace
