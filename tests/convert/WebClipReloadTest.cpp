// SPDX-License-Identifier: MIT
//
// Clips whose pages are loaded again from the web.
#include "convert/WebClipFixture.h"
#include "enex/EvernoteXMLParseOperation.h"

#include <QCoreApplication>

namespace {

using WebClipReloadTest = WebClipTest;
using test::HttpAnswer;
using Delivery = HttpAnswer::Delivery;

TEST_F(WebClipReloadTest, WithoutTheSettingThePageIsNotAskedFor)
{
    m_item->noteAttributes().setSourceURL(m_server.address(text("/page")));
    EXPECT_TRUE(convertClip());
    EXPECT_TRUE(m_server.requests().isEmpty());
}

TEST_F(WebClipReloadTest, WithTheSettingThePageIsLoadedAgain)
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

TEST_F(WebClipReloadTest, AReloadedClipsDocumentIsNotLookedAtButReported)
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

TEST_F(WebClipReloadTest, AReloadThatFailsIsRetriedOnceWithWhatWasClipped)
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

TEST_F(WebClipReloadTest, AReloadThatFailsForAClipWithADocumentEndsAsANote)
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

TEST_F(WebClipReloadTest, OnlyAnAddressOfTheWebIsLoadedAgain)
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

TEST_F(WebClipReloadTest, AnAddressWithCharactersThatAUrlMayNotHoldIsEscaped)
{
    m_server.serve(text("/a%20b%7Cc"), "<p>of today");
    reloadFromWeb("/a b%7Cc\n");
    const Record record = convertClip();
    ASSERT_TRUE(record);
    EXPECT_EQ(page(archiveAt(path(record))), text("<p>of today"));
    EXPECT_EQ(originalAddress(archiveAt(path(record))), m_server.address(text("/a%20b%7Cc")));
}

TEST_F(WebClipReloadTest, WhatTheLoadFailedWithIsTheOperationsError)
{
    reloadFromWeb("/gone");
    EXPECT_FALSE(createWebArchive("<en-note/>", true));
    EXPECT_EQ(m_error.domain(), text("EvernoteWebConversionErrorDomain"));
    EXPECT_EQ(m_error.code(), 10002);
    EXPECT_EQ(m_error.localizedDescription(), text("not found"));
    EXPECT_EQ(m_folder.tree().filter(text(".webarchive")), QStringList());
}

// Clips whose pages come byte by byte and never end.
class CancelledClipTest : public WebClipTest {
protected:
    void SetUp() override
    {
        WebClipTest::SetUp();
        m_server.serve(text("/page"),
                       HttpAnswer{200, "text/html", "<p>text ", {}, Delivery::Trickle});
        m_server.serve(text("/a.png"), HttpAnswer{200, "image/png", "png", {}, Delivery::Trickle});
    }
    // Does it from another thread, once some of the page has come.
    void whenItTrickles(const std::function<void()>& work)
    {
        m_timer.callOnTimeout([this, work] {
            if (m_server.streamedBytes() < 20)
                return;
            m_timer.stop();
            m_canceller = std::thread(work);
        });
        m_timer.start(std::chrono::milliseconds(5));
    }
    void TearDown() override
    {
        ASSERT_TRUE(m_canceller.joinable()) << "nothing came";
        m_canceller.join();
        while (m_server.openConnections() > 0)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        WebClipTest::TearDown();
    }

private:
    QTimer m_timer;
    std::thread m_canceller;
};

TEST_F(CancelledClipTest, APageThatIsLoadedAgainIsWaitedForNoLonger)
{
    reloadFromWeb("/page");
    whenItTrickles([this] { m_item->awaitedOperations()->cancelAllOperations(); });
    EXPECT_FALSE(convertClip());
    EXPECT_TRUE(m_error.isNull());
    EXPECT_FALSE(m_item->withheldError());
    EXPECT_TRUE(m_folder.tree().isEmpty());
    EXPECT_EQ(m_systemLog,
              QStringList(text("Refreshing web clipping from web failed, retrying with "
                               "original data. Failure: (null)")));
}

TEST_F(CancelledClipTest, ARebuiltPageThatShowsAnImageOfTheWebIsWaitedForNoLonger)
{
    setBody("<en-note><p>a</p><img src=\"" + m_server.address(text("/a.png")).toUtf8() +
            "\"/></en-note>");
    whenItTrickles([this] { m_item->awaitedOperations()->cancelAllOperations(); });
    EXPECT_FALSE(convertClip());
    EXPECT_TRUE(m_error.isNull());
    EXPECT_TRUE(m_folder.tree().isEmpty());
    EXPECT_TRUE(m_systemLog.isEmpty());
}

TEST_F(CancelledClipTest, CancellingTheParseEndsTheWaitAndConvertsNothingMore)
{
    const auto note = [this](const char* title) {
        return "<note><title>" + QByteArray(title) +
               "</title><content><![CDATA[<en-note><p>clipped</p></en-note>]]></content>"
               "<note-attributes><source>web.clip</source><source-url>" +
               m_server.address(text("/page")).toUtf8() + "</source-url></note-attributes></note>";
    };
    const test::ScratchFolder source;
    const QString file = source.write(text("Clips.enex"), "<en-export>" + note("First") +
                                                              note("Second") + "</en-export>");
    reloadFromWeb("/page");
    const auto parse = EvernoteXMLParseOperation::evernoteParseOperationForFileAtURL(
        QUrl::fromLocalFile(file), QUrl::fromLocalFile(m_folder.path()), m_group);
    parse->setItemFactory(EvernoteXMLItem::factory());
    QList<bool> converted;
    std::optional<platform::Error> ended;
    parse->setParseOperationDidExportItemBlock(
        [&](const Record& record, const std::optional<platform::Error>&) {
            converted += record != nullptr;
        });
    parse->setParseOperationCompletionBlock(
        [&](const std::optional<platform::Error>& error) { ended = error; });
    whenItTrickles([parse] { parse->cancel(); });
    onQueue([&] { parse->start(); });
    EXPECT_EQ(converted, QList<bool>{false});
    ASSERT_TRUE(ended);
    EXPECT_EQ(ended->code(), 512);
    EXPECT_TRUE(m_folder.tree().isEmpty());
    EXPECT_EQ(m_server.requests().size(), 1);
}

} // namespace
