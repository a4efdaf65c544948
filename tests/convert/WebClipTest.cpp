// SPDX-License-Identifier: MIT
#include "convert/WebClip.h"
#include "convert/ConversionErrors.h"
#include "convert/WebClipFixture.h"
#include "platform/core/Bundle.h"

namespace {

namespace manifest = platform::manifest;
using manifest::Record;
using platform::Error;

TEST_F(WebClipTest, AClipBecomesAWebArchive)
{
    const Record record = convertClip();
    ASSERT_TRUE(record);
    EXPECT_TRUE(m_error.isNull());
    EXPECT_EQ(itemType(record), 7);
    EXPECT_EQ(filename(record), text("Title.webarchive"));
    EXPECT_EQ(path(record), m_folder.filePath("Title.webarchive"));
    EXPECT_EQ(record->value(manifest::nameKey).toString(), text("Title"));
    EXPECT_EQ(record->value(manifest::extensionHiddenKey), QVariant(true));
    const QVariantMap archive = archiveAt(path(record));
    EXPECT_EQ(archive.keys(), QStringList({text("QuilleryResource"), text("WebMainResource"),
                                           text("WebSubframeArchives"), text("WebSubresources")}));
    EXPECT_EQ(originalAddress(archive), text("http://example.org/clipped"));
    EXPECT_TRUE(page(archive).contains(text("<title>Title</title>")));
    EXPECT_TRUE(page(archive).contains(text("<p>clipped</p>")));
    EXPECT_TRUE(m_systemLog.isEmpty());
    EXPECT_TRUE(m_item->warnings().isEmpty());
}

TEST_F(WebClipTest, TheArchiveHoldsTheClipsImages)
{
    const QByteArray one = addResource("first image", "image/png", "one.png");
    const QByteArray two = addResource("second image", "image/gif", "two.gif");
    const QByteArray three = addResource("third image", "image/jpeg");
    setBody("<en-note><p>a</p>" + media(one) + media(two) + media(three) + "</en-note>");
    const Record record = convertClip();
    ASSERT_TRUE(record);
    const QVariantMap archive = archiveAt(path(record));
    EXPECT_EQ(images(archive), QByteArrayList({"first image", "second image", "third image"}));
    const QVariantMap first = archive.value(text("WebSubresources")).toList().first().toMap();
    EXPECT_EQ(first.keys(), QStringList({text("WebResourceData"), text("WebResourceMIMEType"),
                                         text("WebResourceURL")}));
    EXPECT_EQ(first.value(text("WebResourceMIMEType")).toString(), text("image/png"));
    EXPECT_TRUE(first.value(text("WebResourceURL")).toString().endsWith(text("/one.png")));
}

TEST_F(WebClipTest, ImagesOfAnyNameAreFound)
{
    const QList<const char*> names = {
        "50%.png",        "a%20b.png",       "#1.png",        "what?.png",
        "a&b.png",        "a b.png",         " ends ",        "Re: it.png",
        "http:x.png",     "back\\slash.png", "caf\u00E9.png", "\u65E5\u672C.png",
        "\"quoted\".png", "<tag>.png",       "a;b=c,d+e.png", "%",
        "..png",          "line\nend.png",   "data:image",    "[x].png",
        "%2e%2e.png",     "\U0001F600.png"};
    for (const char* name : names) {
        makeClip();
        const QByteArray image = QByteArray("bytes of ") + name;
        setBody("<en-note><p>a</p>" + media(addResource(image, "image/png", name)) + "</en-note>");
        const Record record = convertClip();
        ASSERT_TRUE(record) << name;
        EXPECT_EQ(images(archiveAt(path(record))), QByteArrayList({image})) << name;
    }
}

TEST_F(WebClipTest, OnlyNamesThatWouldMeanAnotherPlaceAreEscapedInThePage)
{
    const QByteArray plain = addResource("1", "image/png", "caf\u00E9 & b.png");
    const QByteArray escaped = addResource("2", "image/png", "50% #1.png");
    setBody("<en-note><p>a</p>" + media(plain) + media(escaped) + "</en-note>");
    const Record record = convertClip();
    ASSERT_TRUE(record);
    EXPECT_TRUE(page(archiveAt(path(record))).contains(text("src=\"caf\u00E9 &amp; b.png\"")));
    EXPECT_TRUE(page(archiveAt(path(record))).contains(text("src=\"50%25 %231.png\"")));
}

TEST_F(WebClipTest, ImagesOfOneNameKeepTheirBytes)
{
    for (const char* name : {"a.png", "*\n        "}) {
        makeClip();
        QByteArray body = "<en-note><p>a</p>";
        QByteArrayList expected;
        for (int index = 0; index < 4; ++index) {
            expected += "image " + QByteArray::number(index);
            body += media(addResource(expected.last(), "image/png", name));
        }
        setBody(body + "</en-note>");
        const Record record = convertClip();
        ASSERT_TRUE(record) << name;
        EXPECT_EQ(images(archiveAt(path(record))), expected) << name;
    }
}

TEST_F(WebClipTest, AnImportFolderOfAnyNameServes)
{
    const QString folder = m_folder.filePath("100% #1? a&b");
    ASSERT_TRUE(QDir().mkdir(folder));
    m_item = std::make_unique<EvernoteXMLItem>(QUrl::fromLocalFile(folder));
    m_item->setTitle(text("Title"));
    m_item->noteAttributes().setSource(text("web.clip"));
    m_item->noteAttributes().setSourceURL(text("http://example.org/"));
    setBody("<en-note><p>a</p>" + media(addResource("image", "image/png", "50%.png")) +
            "</en-note>");
    const Record record = convertClip();
    ASSERT_TRUE(record);
    EXPECT_EQ(path(record), folder + text("/Title.webarchive"));
    EXPECT_EQ(images(archiveAt(path(record))), QByteArrayList({"image"}));
}

TEST_F(WebClipTest, CheckboxesAndEncryptedPassagesStayInThePage)
{
    setBody(
        "<en-note><en-todo checked=\"true\"/>do<en-crypt hint=\"h\">secret</en-crypt></en-note>");
    const Record record = convertClip();
    ASSERT_TRUE(record);
    const QString found = page(archiveAt(path(record)));
    EXPECT_TRUE(found.contains(text("<en-todo checked=\"true\">")));
    EXPECT_TRUE(found.contains(text("<en-crypt hint=\"h\">secret</en-crypt>")));
}

TEST_F(WebClipTest, AMissingImageIsNamedInThePageAndInTheReport)
{
    setBody("<en-note><p>a</p>" + media("0123456789abcdef0123456789abcdef") + "</en-note>");
    const Record record = convertClip();
    ASSERT_TRUE(record);
    EXPECT_TRUE(page(archiveAt(path(record))).contains(text("[Missing Attachment]")));
    EXPECT_EQ(m_item->warnings().size(), 1);
}

TEST_F(WebClipTest, AClipWithAnAttachmentThatIsNoImageFailsSoThatItBecomesANote)
{
    const QByteArray body =
        "<en-note><p>a</p>" + media(addResource("%PDF", "application/pdf", "a.pdf")) + "</en-note>";
    EXPECT_FALSE(createWebArchive(body));
    EXPECT_EQ(m_error.domain(), text("EvernoteXMLItemErrorDomain"));
    EXPECT_EQ(m_error.code(), 1002);
    EXPECT_FALSE(m_error.hasLocalizedDescription());
    EXPECT_EQ(m_folder.tree().filter(text(".html")), QStringList());
}

TEST_F(WebClipTest, AClipWithADocumentFallsBackToANoteThatHoldsIt)
{
    setBody("<en-note><p>a</p>" + media(addResource("%PDF", "application/pdf", "a.pdf")) +
            "</en-note>");
    const Record record = convertClip();
    ASSERT_TRUE(record);
    EXPECT_EQ(itemType(record), 1);
    EXPECT_EQ(filename(record), text("Title.qlnote"));
    EXPECT_EQ(m_systemLog, QStringList(text("Web archive conversion failed, reverting to note.")));
    EXPECT_FALSE(m_folder.tree().filter(text(".pdf")).isEmpty());
}

TEST_F(WebClipTest, AClipThatFallsBackWritesItsAttachmentsAgainUnderFreeNames)
{
    // The first try has left its files in the note's folder, where the second one finds them.
    setBody("<en-note><p>a</p>" + media(addResource("%PDF", "application/pdf", "a.pdf")) +
            media(addResource("%PDF 2", "application/pdf", "b.pdf")) + "</en-note>");
    const Record record = convertClip();
    ASSERT_TRUE(record);
    const QStringList files = m_folder.tree().filter(text(".pdf"));
    EXPECT_EQ(files, QStringList({text("Title.qlnote/a 1.pdf"), text("Title.qlnote/b 1.pdf")}));
    EXPECT_EQ(m_folder.read(files[0]), QByteArray("%PDF"));
    EXPECT_EQ(m_folder.read(files[1]), QByteArray("%PDF 2"));
}

TEST_F(WebClipTest, TheMarkersOwnTextFailsTooWhereverItStands)
{
    const QByteArray marker = "***QUILLERYATTACHMENT ";
    EXPECT_FALSE(createWebArchive("<en-note><p>" + marker + "</p></en-note>"));
    EXPECT_EQ(m_error.code(), 1002);
    makeClip("Title ***QUILLERYATTACHMENT ");
    EXPECT_FALSE(createWebArchive("<en-note><p>a</p></en-note>"));
    EXPECT_EQ(m_error.code(), 1002);
    // Nothing was written to be loaded.
    EXPECT_EQ(m_folder.tree().filter(text(".html")), QStringList());
    makeClip("Title ***quilleryattachment ");
    EXPECT_TRUE(createWebArchive("<en-note><p>***QUILLERYATTACHMENT</p></en-note>"));
}

TEST_F(WebClipTest, ATemplateThatCannotBeReadIsAnError)
{
    const test::ScratchFolder templates;
    static_cast<void>(templates.write(text("Template.html"), "\xFF\xFE bytes that are no text"));
    platform::Bundle::main().setResourceDirectory(templates.path());
    EXPECT_FALSE(createWebArchive("<en-note><p>a</p></en-note>"));
    platform::Bundle::main().setResourceDirectory(QString());
    EXPECT_EQ(m_error.domain(), text("NSCocoaErrorDomain"));
    EXPECT_EQ(m_folder.tree().filter(text(".html")), QStringList());
}

TEST_F(WebClipTest, AMalformedMediaTagIsTheRewritingsError)
{
    // Comments go into the page as they are.
    EXPECT_FALSE(createWebArchive("<en-note><!-- <en-media hash=1 --><p>a</p></en-note>"));
    EXPECT_EQ(m_error, Error(evernoteXMLItemErrorDomain, EvernoteXMLItemErrorMalformedTag,
                             text("Invalid media tag.")));
}

TEST_F(WebClipTest, AnyOtherFailureGivesNeitherFileNorErrorAndNoFallBack)
{
    const QByteArrayList bodies = {
        "<en-note><!-- <en-media hash=1 --><p>a</p></en-note>",
        "<en-note><p>a</p>" + media(addResource("image", "image/png", "a/b.png")) + "</en-note>"};
    for (const QByteArray& body : bodies) {
        setBody(body);
        EXPECT_FALSE(convertClip());
        EXPECT_TRUE(m_error.isNull());
        ASSERT_TRUE(m_item->withheldError());
        EXPECT_FALSE(m_item->withheldError()->isNull());
        EXPECT_TRUE(m_systemLog.isEmpty());
        EXPECT_TRUE(m_folder.tree().isEmpty());
    }
}

TEST_F(WebClipTest, APageThatCannotBeWrittenIsAnError)
{
    m_item->setGroupDict(m_group);
    m_item->setIntermediateHTMLDirectoryURL(QUrl::fromLocalFile(m_folder.filePath("nowhere")));
    std::optional<QUrl> file;
    onQueue([&] {
        file = m_item->createWebArchiveForElement(elementFromBody("<en-note>a</en-note>"), false,
                                                  &m_error);
    });
    EXPECT_FALSE(file);
    EXPECT_EQ(m_error.domain(), text("NSCocoaErrorDomain"));
}

TEST_F(WebClipTest, AnArchiveThatCannotBeWrittenIsAnError)
{
    // The folder of web pages is not there.
    m_group->insert(manifest::groupTypeKey, 1);
    EXPECT_FALSE(createWebArchive("<en-note>a</en-note>"));
    EXPECT_EQ(m_error.domain(), text("NSCocoaErrorDomain"));
}

TEST_F(WebClipTest, ClipsOfOneTitleGetNamesOfTheirOwn)
{
    EXPECT_EQ(filename(convertClip()), text("Title.webarchive"));
    makeClip();
    EXPECT_EQ(filename(convertClip()), text("Title 1.webarchive"));
    makeClip("a/b: c~");
    EXPECT_EQ(filename(convertClip()), text("a-b- c-.webarchive"));
    makeClip("");
    EXPECT_EQ(filename(convertClip()), text("Untitled.webarchive"));
}

TEST_F(WebClipTest, InTheLibrarysFolderALaterClipReplacesAnEarlierOneOfItsTitle)
{
    m_group->insert(manifest::groupTypeKey, 1);
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(text("Web Pages")));
    EXPECT_EQ(path(convertClip()), m_folder.filePath("Web Pages/Title.webarchive"));
    makeClip();
    setBody("<en-note><p>later</p></en-note>");
    EXPECT_EQ(path(convertClip()), m_folder.filePath("Web Pages/Title.webarchive"));
    EXPECT_EQ(m_folder.tree(),
              QStringList({text("Web Pages/"), text("Web Pages/Title.webarchive")}));
    EXPECT_TRUE(
        page(archiveAt(m_folder.filePath("Web Pages/Title.webarchive"))).contains(text("later")));
}

TEST_F(WebClipTest, AClipOfNothingButOneImageIsThatImage)
{
    setBody("<en-note>" + media(addResource("image", "image/png", "a.png")) + "</en-note>");
    EXPECT_EQ(filename(convertClip()), text("Title.png"));
}

TEST_F(WebClipTest, AnImageThatCannotBeWrittenAsAFileOfItsOwnStaysAClip)
{
    makeClip("AC/DC");
    setBody("<en-note>" + media(addResource("image", "image/png", "a.png")) + "</en-note>");
    const Record record = convertClip();
    ASSERT_TRUE(record);
    EXPECT_EQ(itemType(record), 7);
    EXPECT_EQ(filename(record), text("AC-DC.webarchive"));
    EXPECT_EQ(images(archiveAt(path(record))), QByteArrayList({"image"}));
}

TEST_F(WebClipTest, ThePageReachesNoOtherFileOfTheUsers)
{
    m_folder.write(text("secret.png"), "secret");
    const QByteArray address = QUrl::fromLocalFile(m_folder.filePath("secret.png")).toEncoded();
    setBody("<en-note><img src=\"../secret.png\"/><img src=\"" + address + "\"/></en-note>");
    const Record record = convertClip();
    ASSERT_TRUE(record);
    EXPECT_TRUE(images(archiveAt(path(record))).isEmpty());
}

TEST_F(WebClipTest, ClipsOfSeveralRunsAreConvertedSideBySide)
{
    constexpr int count = 24;
    std::vector<std::unique_ptr<EvernoteXMLItem>> items;
    for (int index = 0; index < count; ++index) {
        makeClip(qPrintable(QString::number(index)));
        setBody("<en-note><p>a</p>" +
                media(addResource("image " + QByteArray::number(index), "image/png", "a.png")) +
                "</en-note>");
        items.push_back(std::move(m_item));
    }
    onQueue([&] {
        std::vector<std::thread> threads;
        for (const auto& item : items)
            threads.emplace_back([&] { EXPECT_TRUE(item->itemDictInGroup(m_group)); });
        for (std::thread& thread : threads)
            thread.join();
    });
    for (int index = 0; index < count; ++index) {
        const QString file = m_folder.filePath(QString::number(index) + text(".webarchive"));
        EXPECT_EQ(images(archiveAt(file)), QByteArrayList({"image " + QByteArray::number(index)}));
    }
}

} // namespace
