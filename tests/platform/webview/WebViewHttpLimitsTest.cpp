// SPDX-License-Identifier: MIT
// What a web server may not do to us: send without end, unpack to more than was sent, lead in
// circles, fall silent.
#include "platform/webview/HttpTestServer.h"
#include "platform/webview/LoadErrors.h"
#include "platform/webview/ViewRecorder.h"
#include "support/ScratchFolder.h"

#include <QCoreApplication>

namespace {

using platform::LoadLimits;
using test::HttpAnswer;
using test::HttpRequest;
using Delivery = HttpAnswer::Delivery;

const QByteArray png = QByteArray::fromHex("89504e470d0a1a0a0000000d49484452");

class WebViewHttpLimitsTest : public ::testing::Test {
protected:
    static QString text(const char* utf8) { return QString::fromUtf8(utf8); }

    void serve(const char* path, Delivery delivery, const QByteArray& body,
               const QByteArray& type = "image/png", const QByteArrayList& headers = {})
    {
        m_server.serve(text(path), HttpAnswer{200, type, body, headers, delivery});
    }
    void servePage(const QByteArray& markup) { m_server.serve(text("/page"), markup); }
    bool load(const char* path = "/page") { return m_recorder.load(m_server.url(text(path))); }
    QStringList names() { return m_recorder.names(); }
    void waitUntilNobodyIsConnected()
    {
        while (m_server.openConnections() > 0)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    test::HttpTestServer m_server;
    test::ViewRecorder m_recorder;
    LoadLimits m_limits;
};

TEST_F(WebViewHttpLimitsTest, WhatAServerAnnouncesAsTooLargeIsNotWaitedFor)
{
    m_limits.resourceBytes = 2000;
    m_recorder.view.setLimits(m_limits);
    serve("/large.png", Delivery::HeaderOnly, QByteArray(2001, 'x'));
    serve("/small.png", Delivery::Whole, QByteArray(2000, 'x'));
    serve("/large.html", Delivery::HeaderOnly, QByteArray(2001, 'x'), "text/html");
    servePage("<img src=large.png><img src=small.png>");
    ASSERT_TRUE(load());
    EXPECT_EQ(names(), QStringList{text("small.png")});
    EXPECT_FALSE(load("/large.html"));
    EXPECT_EQ(m_recorder.error.code(), platform::UrlErrorDataLengthExceedsMaximum);
}

TEST_F(WebViewHttpLimitsTest, WithoutALengthTheBytesAreCounted)
{
    m_limits.resourceBytes = 2000;
    m_recorder.view.setLimits(m_limits);
    serve("/large.png", Delivery::UntilClosed, QByteArray(2001, 'x'));
    serve("/small.png", Delivery::UntilClosed, QByteArray(2000, 'x'));
    servePage("<img src=large.png><img src=small.png>");
    ASSERT_TRUE(load());
    EXPECT_EQ(names(), QStringList{text("small.png")});
}

TEST_F(WebViewHttpLimitsTest, AResourceWithoutAnEndIsLeftOutAndItsConnectionClosed)
{
    serve("/endless.png", Delivery::Endless, QByteArray(1 << 16, 'x'));
    serve("/a.png", Delivery::Whole, png);
    servePage("<img src=endless.png><img src=a.png>");
    ASSERT_TRUE(load());
    EXPECT_EQ(names(), QStringList{text("a.png")});
    EXPECT_EQ(m_recorder.eventsNamed("failed "), QStringList{text("failed endless.png -1103")});
    EXPECT_GE(m_server.streamedBytes(), m_limits.resourceBytes);
    m_recorder.view.mainFrame().loadRequest({});
    waitUntilNobodyIsConnected();
}

TEST_F(WebViewHttpLimitsTest, ADocumentWithoutAnEndIsAnError)
{
    serve("/page", Delivery::Endless, QByteArray(1 << 16, 'x'), "text/html");
    EXPECT_FALSE(load());
    EXPECT_EQ(m_recorder.error.code(), platform::UrlErrorDataLengthExceedsMaximum);
}

// A gzip file of so many millions of zeros: blocks of 13 bits for each 258 of them (RFC 1951, fixed
// codes), padded to whole bytes.
QByteArray packedZeros(int millions)
{
    QByteArray block;
    int filled = 0;
    const auto put = [&](unsigned bits, int count) {
        for (int bit = 0; bit < count; ++bit, ++filled) {
            if (filled % 8 == 0)
                block += '\0';
            block.back() = static_cast<char>(block.back() | ((bits >> bit & 1U) << (filled % 8)));
        }
    };
    put(0b010, 3);
    // A literal zero, then copies of what is one byte back, then the block's end.
    put(0b00001100, 8);
    for (int copy = 0; copy < 4006; ++copy) {
        put(0b10100011, 8);
        put(0, 5);
    }
    put(0, 7);
    return QByteArray("\x1F\x8B\x08\0\0\0\0\0\0\x03", 10) + block.repeated(millions);
}

TEST_F(WebViewHttpLimitsTest, WhatUnpacksToMoreThanTheLimitIsLeftOut)
{
    serve("/bomb.png", Delivery::Whole, packedZeros(300), "image/png", {"Content-Encoding: gzip"});
    serve("/bomb.html", Delivery::Whole, packedZeros(300), "text/html", {"Content-Encoding: gzip"});
    serve("/a.png", Delivery::Whole, png);
    servePage("<img src=bomb.png><img src=a.png>");
    ASSERT_TRUE(load());
    EXPECT_EQ(names(), QStringList{text("a.png")});
    EXPECT_EQ(m_recorder.eventsNamed("failed "), QStringList{text("failed bomb.png -1103")});
    EXPECT_FALSE(load("/bomb.html"));
    EXPECT_EQ(m_recorder.error.code(), platform::UrlErrorDataLengthExceedsMaximum);
}

TEST_F(WebViewHttpLimitsTest, TheResourcesOfAPageShareItsLimit)
{
    m_limits.pageBytes = 1500;
    m_recorder.view.setLimits(m_limits);
    serve("/a.png", Delivery::Whole, QByteArray(1000, 'x'));
    serve("/b.png", Delivery::Whole, QByteArray(1000, 'x'));
    servePage("<img src=a.png><img src=b.png>");
    ASSERT_TRUE(load());
    // Whichever came first.
    EXPECT_EQ(names().size(), 1);
    EXPECT_EQ(m_recorder.eventsNamed("failed ").size(), 1);
}

TEST_F(WebViewHttpLimitsTest, NoMoreThanFourThousandResourcesAreAskedFor)
{
    QByteArray page;
    for (int index = 0; index < 5000; ++index)
        page += "<img src=" + QByteArray::number(index) + ".png>";
    servePage(page);
    ASSERT_TRUE(load());
    EXPECT_EQ(m_server.requests().size(), 4000);
}

TEST_F(WebViewHttpLimitsTest, DepthCostsNothing)
{
    servePage(QByteArray("<div><b>").repeated(300000) + "<img src=a.png>" +
              QByteArray("</i>").repeated(300000));
    serve("/a.png", Delivery::Whole, png);
    ASSERT_TRUE(load());
    EXPECT_EQ(names(), QStringList{text("a.png")});
}

TEST_F(WebViewHttpLimitsTest, SilentStylesAndFramesAreCutOffAndThePageGoesOn)
{
    m_limits.idle = std::chrono::milliseconds(200);
    m_recorder.view.setLimits(m_limits);
    for (const char* path : {"/a.css", "/b.html"})
        serve(path, Delivery::Never, {}, "text/html");
    serve("/c.html", Delivery::HeaderOnly, "<p>text", "text/html");
    serve("/d.png", Delivery::Whole, png);
    servePage("<link rel=stylesheet href=a.css><iframe src=b.html></iframe>"
              "<iframe src=c.html></iframe><img src=d.png>");
    ASSERT_TRUE(load());
    EXPECT_EQ(names(), QStringList{text("d.png")});
    EXPECT_EQ(m_recorder.eventsNamed("failed ").filter(text("-1001")).size(), 3);
}

TEST_F(WebViewHttpLimitsTest, AnImageIsFollowedOverTwentyRedirectsAndNotOneMore)
{
    for (int index = 0; index < 30; ++index)
        m_server.redirect(QStringLiteral("/r%1").arg(index), "/r" + QByteArray::number(index + 1));
    serve("/r20", Delivery::Whole, png);
    m_server.redirect(text("/round"), "/round");
    servePage("<img src=r0>");
    ASSERT_TRUE(load());
    EXPECT_EQ(names(), QStringList{text("r0")});
    m_server.redirect(text("/r20"), "/r21");
    servePage("<img src=r0><img src=round>");
    ASSERT_TRUE(load());
    EXPECT_TRUE(names().isEmpty());
    EXPECT_EQ(m_recorder.eventsNamed("failed ").filter(text("-1007")).size(), 2);
    EXPECT_EQ(m_server.paths().count(text("/round")), 21);
}

TEST_F(WebViewHttpLimitsTest, ARedirectIsFollowedWhateverFollowsItsHeader)
{
    for (const Delivery delivery : {Delivery::Endless, Delivery::Trickle, Delivery::HeaderOnly}) {
        m_server.serve(
            text("/page"),
            HttpAnswer{302, "text/html", QByteArray(1 << 16, 'x'), {"Location: /there"}, delivery});
        m_server.serve(text("/there"), "<p>there");
        ASSERT_TRUE(load()) << static_cast<int>(delivery);
        EXPECT_EQ(m_recorder.source().data(), QByteArray("<p>there"));
        EXPECT_LT(m_server.streamedBytes(), m_limits.resourceBytes);
    }
}

TEST_F(WebViewHttpLimitsTest, NoImageIsRedirectedToALocalFile)
{
    const test::ScratchFolder folder;
    const QString file = folder.write(text("a.png"), png);
    m_server.redirect(text("/a.png"), QUrl::fromLocalFile(file).toEncoded());
    m_server.redirect(text("/b.html"), QUrl::fromLocalFile(file).toEncoded());
    servePage("<img src=a.png><iframe src=b.html></iframe>");
    ASSERT_TRUE(load());
    EXPECT_TRUE(names().isEmpty());
    EXPECT_EQ(m_recorder.view.mainFrame().childFrames().at(0)->dataSource(), nullptr);
}

TEST_F(WebViewHttpLimitsTest, AFrameIsNotRedirectedIntoAnEndlessLine)
{
    // Each frame is led to the page that holds it, by an address that is none of the page's.
    servePage("<iframe src=again></iframe><iframe src=again></iframe>");
    m_server.redirect(text("/again"), "/page");
    ASSERT_TRUE(load());
    EXPECT_EQ(m_server.paths().count(text("/page")), 3);
}

TEST_F(WebViewHttpLimitsTest, AFrameThatBreaksOffIsNoPartOfTheArchive)
{
    serve("/cut.html", Delivery::CutShort, QByteArray(4000, 'x'), "text/html");
    m_server.serve(text("/whole.html"), "<p>whole");
    servePage("<iframe src=cut.html></iframe><iframe name=whole src=whole.html></iframe>");
    ASSERT_TRUE(load());
    const auto archive = m_recorder.view.mainFrame().webArchive();
    ASSERT_TRUE(archive);
    ASSERT_EQ(archive->subframeArchives().size(), 1);
    EXPECT_EQ(archive->subframeArchives().at(0).mainResource().frameName(), text("whole"));
}

TEST_F(WebViewHttpLimitsTest, AnEmptyResourceIsReceivedAllTheSame)
{
    serve("/a.css", Delivery::Whole, {}, "text/css");
    servePage("<link rel=stylesheet href=a.css>");
    ASSERT_TRUE(load());
    ASSERT_EQ(names(), QStringList{text("a.css")});
    EXPECT_FALSE(m_recorder.source().subresources().at(0).data().isNull());
}

} // namespace
