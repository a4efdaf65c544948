// SPDX-License-Identifier: MIT
// Pages from a web server: redirects, statuses, encodings, compression, sharing of connections.
#include "platform/webview/HttpTestServer.h"
#include "platform/webview/LoadErrors.h"
#include "platform/webview/ViewRecorder.h"

#include <QCoreApplication>

namespace {

using test::HttpAnswer;
using test::HttpRequest;
using test::HttpTestServer;
using test::ViewRecorder;
using ::testing::Each;
using ::testing::IsEmpty;

const QByteArray png = QByteArray::fromHex("89504e470d0a1a0a0000000d49484452");

QStringList list(std::initializer_list<const char*> texts)
{
    QStringList result;
    for (const char* text : texts)
        result += QString::fromUtf8(text);
    return result;
}

TEST(WebViewHttpTest, LoadsAPageWithItsResources)
{
    HttpTestServer server;
    server.serve(QStringLiteral("/dir/page"), "<link rel=stylesheet href=/a.css><img src=b.png>",
                 "text/html; charset=utf-8");
    server.serve(QStringLiteral("/a.css"),
                 "@font-face{font-family:f;src:url(f.eot);src:url(f.eot?#x) "
                 "format('embedded-opentype'),url(f.woff2) format('woff2')}",
                 "text/css;charset=utf-8");
    server.serve(QStringLiteral("/f.woff2"), "wOF2", "font/woff2");
    server.serve(QStringLiteral("/dir/b.png"), png, "image/png");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/dir/page"))));
    EXPECT_EQ(recorder.names(), list({"a.css", "f.woff2", "b.png"}));
    EXPECT_EQ(recorder.responses[0].statusCode(), 200);
    EXPECT_EQ(recorder.responses[0].textEncodingName(), QStringLiteral("utf-8"));
    EXPECT_EQ(recorder.source().subresources()[0].textEncodingName(), QStringLiteral("utf-8"));
    EXPECT_EQ(recorder.source().subresources()[0].mimeType(), QStringLiteral("text/css"));
    EXPECT_EQ(recorder.source().subresources()[0].absoluteString(), server.address(QStringLiteral("/a.css")));
}

TEST(WebViewHttpTest, TheFinalAddressAfterRedirectsIsThePagesAndTheBaseOfItsReferences)
{
    HttpTestServer server;
    server.redirect(QStringLiteral("/old"), "/moved/");
    server.redirect(QStringLiteral("/moved/"), server.address(QStringLiteral("/new/page")).toLatin1(), 301);
    server.serve(QStringLiteral("/new/page"), "<img src=a.png>");
    server.serve(QStringLiteral("/new/a.png"), png, "image/png");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/old"))));
    EXPECT_EQ(recorder.names(), list({"a.png"}));
    EXPECT_EQ(recorder.source().mainResource().absoluteString(), server.address(QStringLiteral("/new/page")));
    EXPECT_EQ(recorder.source().initialRequest().url(), server.url(QStringLiteral("/old")));
    EXPECT_EQ(recorder.source().request().url(), server.url(QStringLiteral("/new/page")));
    EXPECT_EQ(recorder.events.mid(0, 9),
              list({"start main", "identifier old", "send old", "resend old", "redirect main", "resend old",
                    "redirect main", "response old", "commit main"}));
}

TEST(WebViewHttpTest, ARedirectedResourceKeepsTheAddressThatThePageUses)
{
    HttpTestServer server;
    server.serve(QStringLiteral("/"), "<link rel=stylesheet href=a.css>");
    server.redirect(QStringLiteral("/a.css"), "/elsewhere/b.css", 308);
    server.serve(QStringLiteral("/elsewhere/b.css"), "p{background:url(c.png)}", "text/css");
    server.serve(QStringLiteral("/elsewhere/c.png"), png, "image/png");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/"))));
    EXPECT_EQ(recorder.names(), list({"a.css", "c.png"}));
    EXPECT_EQ(recorder.source().subresources()[1].absoluteString(),
              server.address(QStringLiteral("/elsewhere/c.png")));
}

TEST(WebViewHttpTest, TwentyRedirectsAreFollowedAndNotOneMore)
{
    HttpTestServer server;
    for (int index = 0; index < 30; ++index)
        server.redirect(QStringLiteral("/%1").arg(index), "/" + QByteArray::number(index + 1));
    server.serve(QStringLiteral("/20"), "<p>arrived");
    ViewRecorder recorder;
    EXPECT_TRUE(recorder.load(server.url(QStringLiteral("/0"))));
    server.redirect(QStringLiteral("/20"), "/21");
    EXPECT_FALSE(recorder.load(server.url(QStringLiteral("/0"))));
    EXPECT_EQ(recorder.error.code(), platform::UrlErrorTooManyRedirects);
    EXPECT_EQ(server.requests().size(), 21 + 21);
}

TEST(WebViewHttpTest, AnErrorPageIsReportedWithItsStatusAndShown)
{
    HttpTestServer server;
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/missing"))));
    EXPECT_EQ(recorder.responses[0].statusCode(), 404);
    EXPECT_EQ(recorder.source().data(), QByteArray("<p>Nothing here"));
}

TEST(WebViewHttpTest, AStopInAnErrorsResponseEndsTheLoad)
{
    HttpTestServer server;
    ViewRecorder recorder;
    recorder.onResponse = [&](const platform::URLResponse&) {
        recorder.view.stopLoading();
    };
    EXPECT_FALSE(recorder.load(server.url(QStringLiteral("/missing"))));
    EXPECT_EQ(recorder.error.code(), platform::UrlErrorCancelled);
}

TEST(WebViewHttpTest, StoppingEndsTransfersThatAreUnderWay)
{
    std::function<void()> stop;
    HttpTestServer server;
    HttpAnswer silence;
    silence.delivery = HttpAnswer::Delivery::Never;
    server.serve(QStringLiteral("/silent.png"), [&](const HttpRequest&) {
        QTimer::singleShot(0, QCoreApplication::instance(), [&] { stop(); });
        return silence;
    });
    server.serve(QStringLiteral("/"), "<img src=silent.png>");
    ViewRecorder recorder;
    stop = [&] {
        recorder.view.stopLoading();
    };
    EXPECT_FALSE(recorder.load(server.url(QStringLiteral("/"))));
    EXPECT_EQ(recorder.error.code(), platform::UrlErrorCancelled);
    EXPECT_EQ(recorder.events.last(), QStringLiteral("fail main"));
    // What came before stays.
    EXPECT_EQ(recorder.source().data(), QByteArray("<img src=silent.png>"));
}

TEST(WebViewHttpTest, AMissingResourceIsReportedAndLeftOutOfThePage)
{
    HttpTestServer server;
    server.serve(QStringLiteral("/"),
                 "<img src=none.png><img src=drawn-error.png><link rel=stylesheet href=none.css>");
    server.serve(QStringLiteral("/drawn-error.png"), HttpAnswer{404, "image/png", png});
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/"))));
    EXPECT_EQ(recorder.names(), list({"drawn-error.png"}));
    EXPECT_EQ(recorder.eventsNamed("response ").size(), 4);
}

TEST(WebViewHttpTest, AnEmptyAnswerAndAnUnshowableOneAreErrors)
{
    HttpTestServer server;
    server.serve(QStringLiteral("/204"), HttpAnswer{204, "", ""});
    server.serve(QStringLiteral("/zip"), "PK", "application/zip");
    ViewRecorder recorder;
    EXPECT_FALSE(recorder.load(server.url(QStringLiteral("/204"))));
    EXPECT_EQ(recorder.error.code(), platform::UrlErrorZeroByteResource);
    EXPECT_FALSE(recorder.load(server.url(QStringLiteral("/zip"))));
    EXPECT_EQ(recorder.error.code(), platform::WebViewErrorCannotShowMimeType);
}

TEST(WebViewHttpTest, AnUnreachableServerIsAnError)
{
    QUrl gone;
    {
        const HttpTestServer server;
        gone = server.url(QStringLiteral("/"));
    }
    ViewRecorder recorder;
    EXPECT_FALSE(recorder.load(gone));
    EXPECT_EQ(recorder.error.domain(), QStringLiteral("NSURLErrorDomain"));
    EXPECT_EQ(recorder.error.code(), platform::UrlErrorCannotConnectToHost);
    EXPECT_EQ(recorder.events.last(), QStringLiteral("failProvisional main"));
}

TEST(WebViewHttpTest, ADocumentThatBreaksOffFailsAndAResourceThatDoesIsLeftOut)
{
    HttpTestServer server;
    HttpAnswer cut{200, "text/html", QByteArray(4000, 'x')};
    cut.delivery = HttpAnswer::Delivery::CutShort;
    server.serve(QStringLiteral("/cut"), cut);
    server.serve(QStringLiteral("/"), "<img src=cut><img src=good.png>");
    server.serve(QStringLiteral("/good.png"), png, "image/png");
    ViewRecorder recorder;
    EXPECT_FALSE(recorder.load(server.url(QStringLiteral("/cut"))));
    EXPECT_EQ(recorder.error.code(), platform::UrlErrorNetworkConnectionLost);
    EXPECT_EQ(recorder.events.last(), QStringLiteral("fail main"));
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/"))));
    EXPECT_EQ(recorder.names(), list({"good.png"}));
}

TEST(WebViewHttpTest, CompressedBodiesAreUnpacked)
{
    HttpTestServer server;
    const QByteArray page = "<title>packed</title>" + QByteArray(5000, ' ');
    // A zlib stream, which is what "deflate" means; qCompress puts four bytes before it.
    server.serve(QStringLiteral("/"),
                 HttpAnswer{200, "text/html", qCompress(page).mid(4), {"Content-Encoding: deflate"}});
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/"))));
    EXPECT_TRUE(server.requests()[0].header("accept-encoding").contains(QLatin1String("gzip")));
    EXPECT_EQ(recorder.source().data(), page);
    EXPECT_EQ(recorder.source().pageTitle(), QStringLiteral("packed"));
}

TEST(WebViewHttpTest, TheHeadersCharsetBeatsTheDocumentsAndAMarkBeatsBoth)
{
    HttpTestServer server;
    const QByteArray meta = "<meta charset=utf-8><title>\xCF\xF0\xE8</title>";
    server.serve(QStringLiteral("/header"), meta, "text/html; charset=windows-1251");
    server.serve(QStringLiteral("/mark"), "\xEF\xBB\xBF<title>\xD0\x9F</title>",
                 "text/html; charset=windows-1251");
    server.serve(QStringLiteral("/none"), "<title>\xCF</title>");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/header"))));
    EXPECT_EQ(recorder.source().pageTitle(), QStringLiteral("\u041F\u0440\u0438"));
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/mark"))));
    EXPECT_EQ(recorder.source().pageTitle(), QStringLiteral("\u041F"));
    EXPECT_EQ(recorder.source().mainResource().data(), QByteArray("<title>\xD0\x9F</title>"));
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/none"))));
    EXPECT_EQ(recorder.source().pageTitle(), QStringLiteral("\u00CF"));
}

TEST(WebViewHttpTest, ATypeThatTheServerDoesNotNameIsSeenInTheBytes)
{
    HttpTestServer server;
    server.serve(QStringLiteral("/"), "<!DOCTYPE html><img src=a>", "");
    server.serve(QStringLiteral("/a"), png, "");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/"))));
    EXPECT_EQ(recorder.source().response().mimeType(), QStringLiteral("text/html"));
    EXPECT_EQ(recorder.source().subresources().at(0).mimeType(), QStringLiteral("image/png"));
}

TEST(WebViewHttpTest, TwentyResourcesLoadSideBySideOverFewConnections)
{
    HttpTestServer server;
    QByteArray page;
    for (int index = 0; index < 20; ++index) {
        page += "<img src=" + QByteArray::number(index) + ".png>";
        server.serve(QStringLiteral("/%1.png").arg(index), png, "image/png");
    }
    server.serve(QStringLiteral("/"), [&](const HttpRequest&) {
        // From here on the server answers only once six requests wait at the same time.
        server.holdUntil(6);
        return HttpAnswer{200, "text/html", page};
    });
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/"))));
    EXPECT_EQ(recorder.names().size(), 20);
    EXPECT_EQ(server.mostWaiting(), 6);
    EXPECT_LE(server.connections(), 6);
}

TEST(WebViewHttpTest, AResourceIsTransferredOnceThoughFramesShareIt)
{
    HttpTestServer server;
    server.serve(QStringLiteral("/"), "<img src=a.png><img src=a.png#x><iframe src=inner></iframe>");
    server.serve(QStringLiteral("/inner"), "<img src=a.png>");
    server.serve(QStringLiteral("/a.png"), png, "image/png");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/"))));
    EXPECT_EQ(recorder.names(), list({"a.png"}));
    EXPECT_EQ(ViewRecorder::names(*recorder.view.mainFrame().childFrames()[0]->dataSource()),
              list({"a.png"}));
    EXPECT_EQ(server.paths().count(QStringLiteral("/a.png")), 1);
}

TEST(WebViewHttpTest, MetaRefreshAndScriptsAreNotFollowed)
{
    HttpTestServer server;
    server.serve(QStringLiteral("/"),
                 "<meta http-equiv=refresh content='0;url=/other'><script src=a.js></script>"
                 "<script>document.write('<img src=b.png>')</script><noscript><img src=c.png></noscript>");
    server.serve(QStringLiteral("/c.png"), png, "image/png");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/"))));
    EXPECT_EQ(server.paths(), list({"/", "/c.png"}));
}

TEST(WebViewHttpTest, AddressesAreWrittenAsABrowserWritesThem)
{
    HttpTestServer server;
    server.serve(QStringLiteral("/"), "<link rel=stylesheet href='css?family=Open+Sans|Roboto&amp;x=1'>");
    server.serve(QStringLiteral("/css"), "p{}", "text/css");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/"))));
    EXPECT_EQ(recorder.source().subresources().at(0).absoluteString(),
              server.address(QStringLiteral("/css?family=Open+Sans|Roboto&x=1")));
}

TEST(WebViewHttpTest, ADirectoryOfFramesLoadsEachFrame)
{
    HttpTestServer server;
    server.serve(QStringLiteral("/"), "<frameset><frame name=a src=a><frame name=b src=b></frameset>");
    server.serve(QStringLiteral("/a"), "<title>A</title>");
    server.serve(QStringLiteral("/b"), HttpAnswer{500, "text/html", "<title>B</title>"});
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/"))));
    const auto frames = recorder.view.mainFrame().childFrames();
    EXPECT_EQ(frames.at(0)->dataSource()->pageTitle(), QStringLiteral("A"));
    // What a server says instead of a frame's document is what the frame shows.
    EXPECT_EQ(frames.at(1)->dataSource()->pageTitle(), QStringLiteral("B"));
}

} // namespace
