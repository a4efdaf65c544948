// SPDX-License-Identifier: MIT
// Pages that are too large, too deep or too slow.
#include "platform/webview/HttpTestServer.h"
#include "platform/webview/LoadErrors.h"
#include "platform/webview/ViewRecorder.h"
#include "support/ScratchFolder.h"

#include <QCoreApplication>

namespace {

using platform::LoadLimits;
using test::HttpAnswer;
using test::HttpRequest;
using test::HttpTestServer;
using test::ScratchFolder;
using test::ViewRecorder;

const QByteArray png = QByteArray::fromHex("89504e470d0a1a0a0000000d49484452");

QStringList list(std::initializer_list<const char*> texts)
{
    QStringList result;
    for (const char* text : texts)
        result += QString::fromUtf8(text);
    return result;
}

TEST(WebViewLimitsTest, TheLimitsAreTheDocumentedOnes)
{
    const LoadLimits limits;
    EXPECT_EQ(limits.resourceBytes, 64 * 1024 * 1024);
    EXPECT_EQ(limits.pageBytes, 256 * 1024 * 1024);
    EXPECT_EQ(limits.resources, 4000);
    EXPECT_EQ(limits.redirects, 20);
    EXPECT_EQ(limits.idle, std::chrono::seconds(60));
}

TEST(WebViewLimitsTest, AServerThatNeverAnswersIsCutOffAndThePageGoesOn)
{
    HttpTestServer server;
    HttpAnswer silence;
    silence.delivery = HttpAnswer::Delivery::Never;
    HttpAnswer header{200, "image/png", png};
    header.delivery = HttpAnswer::Delivery::HeaderOnly;
    server.serve(QStringLiteral("/silent.png"), silence);
    server.serve(QStringLiteral("/header.png"), header);
    server.serve(QStringLiteral("/good.png"), png, "image/png");
    server.serve(QStringLiteral("/"), "<img src=silent.png><img src=header.png><img src=good.png>");
    ViewRecorder recorder;
    LoadLimits limits;
    limits.idle = std::chrono::seconds(1);
    recorder.view.setLimits(limits);
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/"))));
    EXPECT_EQ(recorder.names(), list({"good.png"}));
    QStringList failures = recorder.eventsNamed("failed ");
    failures.sort();
    EXPECT_EQ(failures, list({"failed header.png -1001", "failed silent.png -1001"}));
}

TEST(WebViewLimitsTest, AResourceThatWaitsForItsTurnOnABusyServerIsNotIdle)
{
    HttpTestServer server;
    QByteArray page;
    for (int index = 0; index < 40; ++index)
        page += "<img src=" + QByteArray::number(index) + ".png>";
    server.serve(QStringLiteral("/"), page);
    server.setDelay(std::chrono::milliseconds(300));
    ViewRecorder recorder;
    LoadLimits limits;
    // The last of them waits for six turns of 300 ms before its own.
    limits.idle = std::chrono::milliseconds(1500);
    recorder.view.setLimits(limits);
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/"))));
    EXPECT_EQ(recorder.eventsNamed("failed ").size(), 0);
    EXPECT_EQ(server.requests().size(), 41);
}

TEST(WebViewLimitsTest, AMainDocumentThatNeverComesIsAnError)
{
    HttpTestServer server;
    HttpAnswer silence;
    silence.delivery = HttpAnswer::Delivery::Never;
    server.serve(QStringLiteral("/"), silence);
    ViewRecorder recorder;
    LoadLimits limits;
    limits.idle = std::chrono::milliseconds(100);
    recorder.view.setLimits(limits);
    EXPECT_FALSE(recorder.load(server.url(QStringLiteral("/"))));
    EXPECT_EQ(recorder.error.domain(), QStringLiteral("NSURLErrorDomain"));
    EXPECT_EQ(recorder.error.code(), platform::UrlErrorTimedOut);
}

TEST(WebViewLimitsTest, AResourceThatIsTooLargeIsLeftOutAndADocumentThatIsFails)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("large.png"), QByteArray(2001, 'x'));
    folder.write(QStringLiteral("small.png"), QByteArray(2000, 'x'));
    const QString page = folder.write(QStringLiteral("page.html"), "<img src=large.png><img src=small.png>");
    const QString large = folder.write(QStringLiteral("large.html"), QByteArray(2001, 'x'));
    ViewRecorder recorder;
    LoadLimits limits;
    limits.resourceBytes = 2000;
    recorder.view.setLimits(limits);
    ASSERT_TRUE(recorder.load(page));
    EXPECT_EQ(recorder.names(), list({"small.png"}));
    EXPECT_FALSE(recorder.load(large));
    EXPECT_EQ(recorder.error.code(), platform::UrlErrorDataLengthExceedsMaximum);
}

TEST(WebViewLimitsTest, TheLimitCountsWhatCompressionHid)
{
    HttpTestServer server;
    const QByteArray packed = qCompress(QByteArray(80 << 20, '\0')).mid(4);
    ASSERT_LT(packed.size(), 200000);
    server.serve(QStringLiteral("/bomb.css"),
                 HttpAnswer{200, "text/css", packed, {"Content-Encoding: deflate"}});
    server.serve(QStringLiteral("/"), "<link rel=stylesheet href=bomb.css>");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/"))));
    EXPECT_TRUE(recorder.names().isEmpty());
    EXPECT_EQ(recorder.eventsNamed("failed "), list({"failed bomb.css -1103"}));
}

TEST(WebViewLimitsTest, AnAnnouncedLengthIsEnoughToRefuse)
{
    HttpTestServer server;
    server.serve(QStringLiteral("/huge.png"), [&](const HttpRequest&) {
        HttpAnswer answer{200, "image/png", QByteArray(65 << 20, 'x')};
        answer.delivery = HttpAnswer::Delivery::HeaderOnly;
        return answer;
    });
    server.serve(QStringLiteral("/"), "<img src=huge.png>");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/"))));
    EXPECT_EQ(recorder.eventsNamed("failed "), list({"failed huge.png -1103"}));
}

TEST(WebViewLimitsTest, ThePageHasALimitOfItsOwn)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("a.png"), QByteArray(1000, 'x'));
    folder.write(QStringLiteral("b.png"), QByteArray(1000, 'x'));
    folder.write(QStringLiteral("c.png"), QByteArray(10, 'x'));
    const QString page =
        folder.write(QStringLiteral("page.html"), "<img src=a.png><img src=b.png><img src=c.png>");
    ViewRecorder recorder;
    LoadLimits limits;
    limits.pageBytes = 1500;
    recorder.view.setLimits(limits);
    ASSERT_TRUE(recorder.load(page));
    EXPECT_EQ(recorder.names(), list({"a.png", "c.png"}));
}

TEST(WebViewLimitsTest, AResourceCountsAgainForEachFrameThatShowsIt)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("a.png"), QByteArray(1000, 'x'));
    folder.write(QStringLiteral("inner.html"), "<img src=a.png>");
    const QString page =
        folder.write(QStringLiteral("page.html"), "<img src=a.png><iframe src=inner.html></iframe>");
    ViewRecorder recorder;
    LoadLimits limits;
    limits.pageBytes = 1500;
    recorder.view.setLimits(limits);
    ASSERT_TRUE(recorder.load(page));
    EXPECT_EQ(recorder.names(), list({"a.png"}));
    EXPECT_TRUE(ViewRecorder::names(*recorder.view.mainFrame().childFrames()[0]->dataSource()).isEmpty());
}

TEST(WebViewLimitsTest, TheNumberOfResourcesIsLimited)
{
    const ScratchFolder folder;
    QByteArray page;
    for (int index = 0; index < 5000; ++index)
        page += "<img src=" + QByteArray::number(index) + ".png>";
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(folder.write(QStringLiteral("page.html"), page)));
    // The page itself is one of the 4,000.
    EXPECT_EQ(recorder.eventsNamed("identifier ").size(), 4000);
}

TEST(WebViewLimitsTest, FramesNestAndNumberOnlySoFar)
{
    HttpTestServer server;
    int count = 0;
    // Each document is a new one that holds two more.
    server.serve(QStringLiteral("/p"), [&](const HttpRequest&) {
        const QByteArray first = QByteArray::number(++count);
        const QByteArray second = QByteArray::number(++count);
        return HttpAnswer{200, "text/html",
                          "<iframe src=p?" + first + "></iframe><iframe src=p?" + second + "></iframe>"};
    });
    ViewRecorder recorder;
    LoadLimits limits;
    limits.frameDepth = 3;
    recorder.view.setLimits(limits);
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/p"))));
    EXPECT_EQ(server.requests().size(), 1 + 2 + 4 + 8);

    limits.frameDepth = 16;
    limits.frames = 50;
    recorder.view.setLimits(limits);
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/p"))));
    EXPECT_EQ(server.requests().size(), 15 + 51);
}

TEST(WebViewLimitsTest, EndlessImportsEnd)
{
    HttpTestServer server;
    int count = 0;
    server.serve(QStringLiteral("/a.css"), [&](const HttpRequest&) {
        return HttpAnswer{200, "text/css", "@import 'a.css?" + QByteArray::number(++count) + "';"};
    });
    server.serve(QStringLiteral("/"), "<link rel=stylesheet href=a.css>");
    ViewRecorder recorder;
    LoadLimits limits;
    limits.resources = 300;
    recorder.view.setLimits(limits);
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/"))));
    EXPECT_EQ(recorder.names().size(), 299);
}

TEST(WebViewLimitsTest, DepthCostsNothing)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("a.png"), png);
    QByteArray page;
    for (int index = 0; index < 300000; ++index)
        page += "<div><b>";
    page += "<img src=a.png>";
    // End tags that match nothing make readers with a stack search all of it.
    for (int index = 0; index < 300000; ++index)
        page += "</i>";
    const QString html = folder.write(QStringLiteral("page.html"), page);
    const QString xhtml = folder.write(QStringLiteral("page.xhtml"), page);
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(html));
    EXPECT_EQ(recorder.names(), list({"a.png"}));
    ASSERT_TRUE(recorder.load(xhtml));
}

TEST(WebViewLimitsTest, AStyleSheetOfFiftyMegabytesIsReadInSteps)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("a.png"), png);
    QByteArray sheet;
    sheet.reserve(51 << 20);
    while (sheet.size() < 25 << 20)
        sheet += "@media print{.rule{background:url(b.png) /* comment */;color:\"red\"}}p{}";
    while (sheet.size() < 50 << 20)
        sheet += "@media{{{{{{{{{{{((((((((((((url(";
    folder.write(QStringLiteral("a.css"), "p{background:url(a.png)}" + sheet);
    const QString page = folder.write(QStringLiteral("page.html"), "<link rel=stylesheet href=a.css>");
    ViewRecorder recorder;
    recorder.view.mainFrame().loadRequest(platform::URLRequest(QUrl::fromLocalFile(page)));
    int turns = 0;
    while (recorder.view.isLoading()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        ++turns;
    }
    EXPECT_TRUE(recorder.finished);
    EXPECT_EQ(recorder.names(), list({"a.css", "a.png"}));
    // Others get their turn meanwhile.
    EXPECT_GT(turns, 100);
}

} // namespace
