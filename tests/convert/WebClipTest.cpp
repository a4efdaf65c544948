// SPDX-License-Identifier: MIT
#include "convert/WebClip.h"
#include "convert/ConversionErrors.h"
#include "convert/ConversionFixture.h"
#include "platform/operations/OperationQueue.h"
#include "platform/propertylist/PropertyList.h"
#include "platform/webview/LoadErrors.h"

#include "platform/webview/HttpTestServer.h"

#include <QEventLoop>

#include <thread>

namespace {

namespace manifest = platform::manifest;
using manifest::Record;
using platform::Error;

// Clips wait for the main thread, so they are converted on a queue while the test runs the event
// loop.
class WebClipTest : public ConversionTest {
protected:
    void SetUp() override
    {
        ConversionTest::SetUp();
        makeClip();
    }

    void makeClip(const char* title = "Title", const char* sourceUrl = "http://example.org/clipped")
    {
        newItem(title);
        m_item->noteAttributes().setSource(text("web.clip"));
        m_item->noteAttributes().setSourceURL(text(sourceUrl));
        setBody("<en-note><p>clipped</p></en-note>");
    }
    void reloadFromWeb(const char* path)
    {
        platform::UserDefaults::standard().setOverride(text("ReloadFromWeb"), true);
        m_item->noteAttributes().setSourceURL(m_server.address(text(path)));
    }

    static void onQueue(const std::function<void()>& work)
    {
        platform::OperationQueue queue;
        queue.addOperationWithBlock(work);
        QEventLoop loop;
        std::thread waiter([&] {
            queue.waitUntilAllOperationsAreFinished();
            QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
        });
        loop.exec();
        waiter.join();
    }
    Record convertClip()
    {
        Record record;
        onQueue([&] { record = convert(); });
        EXPECT_FALSE(QFileInfo::exists(m_folder.filePath(m_item->identifier())));
        return record;
    }
    // The operation alone, with a scratch folder of its own.
    std::optional<QUrl> createWebArchive(const QByteArray& body, bool refreshing = false)
    {
        m_item->setGroupDict(m_group);
        const QString scratch = m_folder.filePath(m_item->identifier());
        QDir(m_folder.path()).mkdir(m_item->identifier());
        m_item->setIntermediateHTMLDirectoryURL(QUrl::fromLocalFile(scratch));
        std::optional<QUrl> file;
        onQueue([&] {
            file = m_item->createWebArchiveForElement(elementFromBody(body), refreshing, &m_error);
        });
        return file;
    }

    static QString path(const Record& record)
    {
        return record->value(manifest::absoluteFilenameKey).toString();
    }
    static QString filename(const Record& record)
    {
        return record->value(manifest::filenameKey).toString();
    }
    static int itemType(const Record& record)
    {
        return record->value(manifest::itemTypeKey).toInt();
    }
    static QVariantMap archiveAt(const QString& path)
    {
        return platform::readPropertyList(path).value_or(QVariant()).toMap();
    }
    static QString page(const QVariantMap& archive)
    {
        return QString::fromUtf8(archive.value(text("WebMainResource"))
                                     .toMap()
                                     .value(text("WebResourceData"))
                                     .toByteArray());
    }
    static QByteArrayList images(const QVariantMap& archive)
    {
        QByteArrayList result;
        for (const QVariant& resource : archive.value(text("WebSubresources")).toList())
            result += resource.toMap().value(text("WebResourceData")).toByteArray();
        return result;
    }
    static QString originalAddress(const QVariantMap& archive)
    {
        return archive.value(text("QuilleryResource"))
            .toMap()
            .value(text("QLOriginalWebURL"))
            .toString();
    }
    QStringList systemLogWith(const char* part) const { return m_systemLog.filter(text(part)); }

    test::HttpTestServer m_server;
};

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

TEST_F(WebClipTest, ThePageReachesNoOtherFileOfTheUsers)
{
    m_folder.write(text("secret.png"), "secret");
    const QByteArray address = QUrl::fromLocalFile(m_folder.filePath("secret.png")).toEncoded();
    setBody("<en-note><img src=\"../secret.png\"/><img src=\"" + address + "\"/></en-note>");
    const Record record = convertClip();
    ASSERT_TRUE(record);
    EXPECT_TRUE(images(archiveAt(path(record))).isEmpty());
}

TEST_F(WebClipTest, WithoutTheSettingThePageIsNotAskedFor)
{
    m_item->noteAttributes().setSourceURL(m_server.address(text("/page")));
    EXPECT_TRUE(convertClip());
    EXPECT_TRUE(m_server.requests().isEmpty());
}

TEST_F(WebClipTest, WithTheSettingThePageIsLoadedAgain)
{
    m_server.serve(text("/page"), "<p>of today<img src=a.png>");
    m_server.serve(text("/a.png"), "image of today", "image/png");
    reloadFromWeb("/page");
    const Record record = convertClip();
    ASSERT_TRUE(record);
    EXPECT_EQ(itemType(record), 7);
    const QVariantMap archive = archiveAt(path(record));
    EXPECT_EQ(page(archive), text("<p>of today<img src=a.png>"));
    EXPECT_EQ(images(archive), QByteArrayList({"image of today"}));
    EXPECT_EQ(originalAddress(archive), m_server.address(text("/page")));
    EXPECT_TRUE(m_systemLog.isEmpty());
}

TEST_F(WebClipTest, AReloadedClipsDocumentIsNotLookedAtButReported)
{
    m_server.serve(text("/page"), "<p>of today");
    setBody("<en-note><p>a</p>" + media(addResource("%PDF", "application/pdf", "a.pdf")) +
            "</en-note>");
    reloadFromWeb("/page");
    const Record record = convertClip();
    ASSERT_TRUE(record);
    EXPECT_EQ(itemType(record), 7);
    EXPECT_EQ(page(archiveAt(path(record))), text("<p>of today"));
    EXPECT_EQ(m_item->warnings(),
              QStringList(QString::fromUtf8("The page was loaded again; its attachment "
                                            "“a.pdf” was left out.")));
}

TEST_F(WebClipTest, AReloadThatFailsIsRetriedOnceWithWhatWasClipped)
{
    reloadFromWeb("/gone");
    const Record record = convertClip();
    ASSERT_TRUE(record);
    EXPECT_EQ(itemType(record), 7);
    EXPECT_TRUE(page(archiveAt(path(record))).contains(text("clipped")));
    EXPECT_EQ(originalAddress(archiveAt(path(record))), m_server.address(text("/gone")));
    EXPECT_EQ(m_server.paths(), QStringList(text("/gone")));
    EXPECT_EQ(m_systemLog,
              QStringList(text(
                  "Refreshing web clipping from web failed, retrying with original data. Failure: "
                  "Error Domain=EvernoteWebConversionErrorDomain Code=10002 \"not found\"")));
}

TEST_F(WebClipTest, AReloadThatFailsForAClipWithADocumentEndsAsANote)
{
    setBody("<en-note><p>a</p>" + media(addResource("%PDF", "application/pdf", "a.pdf")) +
            "</en-note>");
    reloadFromWeb("/gone");
    const Record record = convertClip();
    ASSERT_TRUE(record);
    EXPECT_EQ(itemType(record), 1);
    ASSERT_EQ(m_systemLog.size(), 2);
    EXPECT_TRUE(m_systemLog[0].startsWith(text("Refreshing web clipping from web failed")));
    EXPECT_EQ(m_systemLog[1], text("Web archive conversion failed, reverting to note."));
}

TEST_F(WebClipTest, OnlyAnAddressOfTheWebIsLoadedAgain)
{
    const QString secret = m_folder.write(text("secret.html"), "<p>secret");
    for (const QString& source :
         {QUrl::fromLocalFile(secret).toString(), text("about:blank"),
          text("data:text/html,secret"), text("javascript:1"), text("no address at all")}) {
        makeClip();
        reloadFromWeb("/page");
        m_item->noteAttributes().setSourceURL(source);
        m_systemLog.clear();
        const Record record = convertClip();
        ASSERT_TRUE(record) << qPrintable(source);
        EXPECT_TRUE(page(archiveAt(path(record))).contains(text("clipped"))) << qPrintable(source);
        EXPECT_EQ(systemLogWith("Code=-1002").size(), 1) << qPrintable(source);
    }
}

TEST_F(WebClipTest, AnAddressWithCharactersThatAUrlMayNotHoldIsEscaped)
{
    m_server.serve(text("/a%20b%7Cc"), "<p>of today");
    reloadFromWeb("/a b%7Cc\n");
    const Record record = convertClip();
    ASSERT_TRUE(record);
    EXPECT_EQ(page(archiveAt(path(record))), text("<p>of today"));
    EXPECT_EQ(originalAddress(archiveAt(path(record))), m_server.address(text("/a%20b%7Cc")));
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
