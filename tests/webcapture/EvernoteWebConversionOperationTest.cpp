// SPDX-License-Identifier: MIT
#include "platform/defaults/UserDefaults.h"
#include "platform/webview/LoadErrors.h"
#include "webcapture/CaptureFixture.h"
#include "webcapture/WebConversionErrors.h"

#include <QCoreApplication>
#include <QThread>

#include <thread>

namespace {

using test::HttpAnswer;
using Delivery = HttpAnswer::Delivery;

class EvernoteWebConversionOperationTest : public CaptureTest {
protected:
    static void expectError(const Operation& operation, const QString& domain, int code,
                            const char* description = nullptr)
    {
        EXPECT_TRUE(operation->isFinished());
        EXPECT_FALSE(operation->webArchiveData());
        ASSERT_TRUE(operation->operationError());
        EXPECT_EQ(operation->operationError()->domain(), domain);
        EXPECT_EQ(operation->operationError()->code(), code);
        if (description) {
            EXPECT_EQ(operation->operationError()->localizedDescription(), text(description));
        }
    }
    static void expectStatusError(const Operation& operation, const char* description)
    {
        expectError(operation, evernoteWebConversionErrorDomain, 10002, description);
    }
    static void expectNeither(const Operation& operation)
    {
        EXPECT_TRUE(operation->isFinished());
        EXPECT_FALSE(operation->isExecuting());
        EXPECT_FALSE(operation->webArchiveData());
        EXPECT_FALSE(operation->operationError());
    }
    void serveStatus(const char* path, int status, const QByteArrayList& headers = {})
    {
        m_server.serve(text(path), HttpAnswer{status, "text/html", "<p>no", headers});
    }
};

TEST_F(EvernoteWebConversionOperationTest, APageBecomesAnArchiveThatNamesWhereItWasClipped)
{
    m_server.serve(text("/page"), "<title>T</title><p>text");
    const Operation operation = convert(m_server.url(text("/page")));
    const QVariantMap archive = archiveOf(operation);
    EXPECT_FALSE(operation->operationError());
    EXPECT_TRUE(operation->webArchiveData()->startsWith("bplist00"));
    EXPECT_EQ(archive.keys(), QStringList({text("QuilleryResource"), text("WebMainResource"),
                                           text("WebSubframeArchives"), text("WebSubresources")}));
    const QVariantMap expected = {
        {text("QLOriginalWebURL"), text("http://example.org/clipped?a=1#top")}};
    EXPECT_EQ(archive.value(text("QuilleryResource")).toMap(), expected);
    EXPECT_EQ(mainResource(archive).value(text("WebResourceURL")).toString(),
              m_server.address(text("/page")));
    EXPECT_EQ(bytes(mainResource(archive)), QByteArray("<title>T</title><p>text"));
    EXPECT_TRUE(m_systemLog.isEmpty());
}

TEST_F(EvernoteWebConversionOperationTest, TheStartReturnsBeforeThePageIsLoaded)
{
    m_server.serve(text("/page"), "<p>text");
    const Operation operation = operationFor(m_server.url(text("/page")));
    EXPECT_TRUE(operation->isAsynchronous());
    EXPECT_FALSE(operation->isExecuting());
    std::thread([&] { operation->start(); }).join();
    EXPECT_TRUE(operation->isExecuting());
    EXPECT_FALSE(operation->isFinished());
    EXPECT_FALSE(operation->offscreenWebView());
    waitUntil([&] { return operation->isFinished(); });
    EXPECT_FALSE(operation->isExecuting());
    EXPECT_TRUE(operation->webArchiveData());
}

TEST_F(EvernoteWebConversionOperationTest, TheViewRunsNothingWhateverTheSettingsSay)
{
    platform::UserDefaults::standard().setOverride(text("EvernoteDownloadWebKitJavaScriptEnabled"),
                                                   true);
    platform::UserDefaults::standard().setOverride(text("EvernoteDownloadWebKitJavaEnabled"), true);
    platform::UserDefaults::standard().setOverride(text("EvernoteDownloadWebKitPluginsEnabled"),
                                                   true);
    platform::UserDefaults::standard().setOverride(text("EvernoteDownloadWebKitDefaultFontSize"),
                                                   21);
    const Operation operation = operationFor(m_server.url(text("/page")));
    bool asked = false;
    m_server.serve(text("/page"), [&](const test::HttpRequest&) {
        asked = true;
        const platform::WebPreferences& preferences = operation->offscreenWebView()->preferences();
        EXPECT_FALSE(preferences.isJavaScriptEnabled());
        EXPECT_FALSE(preferences.isJavaEnabled());
        EXPECT_FALSE(preferences.arePlugInsEnabled());
        EXPECT_TRUE(preferences.shouldPrintBackgrounds());
        EXPECT_EQ(preferences.cacheModel(), platform::WebCacheModel::DocumentViewer);
        EXPECT_EQ(preferences.identifier(), text("EvernoteDownload"));
        EXPECT_EQ(preferences.defaultFontSize(), 21);
        EXPECT_EQ(operation->offscreenWebView()->mediaStyle(), text("screen"));
        return HttpAnswer{200, "text/html", "<p>text"};
    });
    run(operation);
    EXPECT_TRUE(asked);
}

TEST_F(EvernoteWebConversionOperationTest, EveryResponseIsKeptUnderItsAddress)
{
    m_server.serve(text("/page"), "<img src=a.png><img src=gone.png>");
    m_server.serve(text("/a.png"), "png", "image/png");
    const Operation operation = convert(m_server.url(text("/page")));
    QStringList addresses = operation->cachedResponses().keys();
    addresses.sort();
    EXPECT_EQ(addresses,
              QStringList({m_server.address(text("/a.png")), m_server.address(text("/gone.png")),
                           m_server.address(text("/page"))}));
    for (const QByteArray& archived : operation->cachedResponses())
        EXPECT_TRUE(archived.startsWith("bplist00"));
}

TEST_F(EvernoteWebConversionOperationTest, APageThatIsNotFoundFailsWithThePlatformsText)
{
    serveStatus("/page", 404);
    expectStatusError(convert(m_server.url(text("/page"))), "not found");
}

TEST_F(EvernoteWebConversionOperationTest, EveryStatusFrom400To599Fails)
{
    for (const int status : {400, 403, 451, 500, 503, 599}) {
        serveStatus("/page", status);
        const Operation operation = convert(m_server.url(text("/page")));
        expectError(operation, evernoteWebConversionErrorDomain, 10002);
        EXPECT_FALSE(operation->operationError()->localizedDescription().isEmpty());
    }
}

TEST_F(EvernoteWebConversionOperationTest, StatusesJustOutsideDoNotFail)
{
    for (const int status : {203, 399, 600}) {
        serveStatus("/page", status);
        EXPECT_TRUE(convert(m_server.url(text("/page")))->webArchiveData()) << status;
    }
}

TEST_F(EvernoteWebConversionOperationTest, AStatusWithoutATextIsNamedByItsCode)
{
    EXPECT_EQ(webConversionErrorForStatus(599, QString()).localizedDescription(),
              text("Code: 599"));
    EXPECT_EQ(webConversionErrorForStatus(404, text("not found")).localizedDescription(),
              text("not found"));
}

TEST_F(EvernoteWebConversionOperationTest, ARedirectToAPageThatIsNotFoundFails)
{
    m_server.redirect(text("/page"), "/gone");
    expectStatusError(convert(m_server.url(text("/page"))), "not found");
}

TEST_F(EvernoteWebConversionOperationTest, ARedirectedPageIsArchivedUnderItsLastAddress)
{
    m_server.redirect(text("/page"), "/folder/other");
    m_server.serve(text("/folder/other"), "<img src=a.png>");
    m_server.serve(text("/folder/a.png"), "png", "image/png");
    const QVariantMap archive = archiveOf(convert(m_server.url(text("/page"))));
    EXPECT_EQ(mainResource(archive).value(text("WebResourceURL")).toString(),
              m_server.address(text("/folder/other")));
    EXPECT_EQ(paths(archive), QStringList({text("/folder/a.png")}));
}

TEST_F(EvernoteWebConversionOperationTest, ImagesFramesAndStylesThatFailDoNotFailThePage)
{
    m_server.serve(text("/page"),
                   "<link rel=stylesheet href=gone.css><img src=gone.png><img src=a.png>"
                   "<iframe src=gone.html></iframe><iframe src=forbidden.html></iframe>"
                   "<iframe src=cut.html></iframe>");
    m_server.serve(text("/a.png"), "png", "image/png");
    serveStatus("/forbidden.html", 403);
    HttpAnswer cut{200, "text/html", "<p>half of this"};
    cut.delivery = Delivery::CutShort;
    m_server.serve(text("/cut.html"), cut);
    const Operation operation = convert(m_server.url(text("/page")));
    EXPECT_FALSE(operation->operationError());
    EXPECT_EQ(paths(archiveOf(operation)), QStringList({text("/a.png")}));
}

TEST_F(EvernoteWebConversionOperationTest, ThePagesOwnAddressFailsItWhereverItIsAskedForAgain)
{
    int count = 0;
    m_server.serve(text("/page"), [&](const test::HttpRequest&) {
        return ++count == 1 ? HttpAnswer{200, "text/html", "<iframe src=page></iframe>"}
                            : HttpAnswer{500, "text/html", "<p>no"};
    });
    expectStatusError(convert(m_server.url(text("/page"))), "internal server error");
}

TEST_F(EvernoteWebConversionOperationTest, APageThatAsksForAPasswordIsGivenNone)
{
    serveStatus("/page", 401, {"WWW-Authenticate: Basic realm=\"r\""});
    QUrl url = m_server.url(text("/page"));
    url.setUserName(text("user"));
    url.setPassword(text("secret"));
    for (const QUrl& asked : {url, m_server.url(text("/page"))})
        expectStatusError(convert(asked), "unauthorized");
    ASSERT_FALSE(m_server.requests().isEmpty());
    for (const test::HttpRequest& request : m_server.requests())
        EXPECT_FALSE(request.hasHeader("authorization"));
}

TEST_F(EvernoteWebConversionOperationTest, AnImageThatAsksForAPasswordIsLeftOut)
{
    m_server.serve(text("/page"), "<img src=a.png><p>text");
    serveStatus("/a.png", 401, {"WWW-Authenticate: Basic realm=\"r\""});
    const Operation operation = convert(m_server.url(text("/page")));
    EXPECT_TRUE(paths(archiveOf(operation)).isEmpty());
    EXPECT_FALSE(m_server.request(text("/a.png")).hasHeader("authorization"));
}

TEST_F(EvernoteWebConversionOperationTest, AServerThatIsNotThereGivesTheLoadsOwnError)
{
    QUrl url;
    {
        const test::HttpTestServer gone;
        url = gone.url(text("/page"));
    }
    expectError(convert(url), platform::urlErrorDomain, platform::UrlErrorCannotConnectToHost);
}

TEST_F(EvernoteWebConversionOperationTest, APageThatBreaksOffGivesTheLoadsOwnError)
{
    HttpAnswer cut{200, "text/html", "<p>half of this"};
    cut.delivery = Delivery::CutShort;
    m_server.serve(text("/page"), cut);
    expectError(convert(m_server.url(text("/page"))), platform::urlErrorDomain,
                platform::UrlErrorNetworkConnectionLost);
}

TEST_F(EvernoteWebConversionOperationTest, WhatIsNoPageOrIsNotThereFails)
{
    expectError(convert(QUrl::fromLocalFile(m_folder.filePath("none.html"))),
                platform::urlErrorDomain, platform::UrlErrorFileDoesNotExist);
    expectError(convert(QUrl()), platform::urlErrorDomain, platform::UrlErrorBadUrl);
    m_server.serve(text("/program"),
                   "\x7f"
                   "ELF",
                   "application/octet-stream");
    expectError(convert(m_server.url(text("/program"))), platform::webViewErrorDomain,
                platform::WebViewErrorCannotShowMimeType);
}

TEST_F(EvernoteWebConversionOperationTest, TheArchiveIsMadeWhenTheSlowestFrameHasEnded)
{
    m_server.serve(text("/page"), "<iframe name=outer src=outer.html></iframe><p>text");
    m_server.serve(text("/outer.html"), "<iframe name=inner src=inner.html></iframe>");
    m_server.serve(text("/inner.html"), "<img src=slow.png>");
    m_server.serve(text("/slow.png"), "slow", "image/png");
    m_server.setDelay(std::chrono::milliseconds(40));
    const QVariantMap archive = archiveOf(convert(m_server.url(text("/page"))));
    ASSERT_EQ(subframes(archive).size(), 1);
    const QVariantMap outer = subframes(archive).first();
    ASSERT_EQ(subframes(outer).size(), 1);
    EXPECT_EQ(paths(subframes(outer).first()), QStringList({text("/slow.png")}));
}

TEST_F(EvernoteWebConversionOperationTest, AnAddressThatIsNoUrlIsNamedByAnEmptyText)
{
    m_server.serve(text("/page"), "<p>text");
    const Operation operation = operationFor(m_server.url(text("/page")));
    operation->setOriginalWebURL(QUrl());
    run(operation);
    const QVariantMap expected = {{text("QLOriginalWebURL"), QString()}};
    EXPECT_EQ(archiveOf(operation).value(text("QuilleryResource")).toMap(), expected);
}

class EvernoteWebConversionCancelTest : public EvernoteWebConversionOperationTest {
protected:
    // A page that never ends, because of its image.
    [[nodiscard]] Operation endlessOperation()
    {
        m_server.serve(text("/page"), "<img src=never.png>");
        HttpAnswer never;
        never.delivery = Delivery::Never;
        m_server.serve(text("/never.png"), never);
        return operationFor(m_server.url(text("/page")));
    }
};

TEST_F(EvernoteWebConversionCancelTest, BeforeTheStartNothingIsLoaded)
{
    m_server.serve(text("/page"), "<p>text");
    const Operation operation = operationFor(m_server.url(text("/page")));
    operation->cancel();
    EXPECT_TRUE(operation->isFinished());
    operation->start();
    operation->waitUntilFinished();
    QCoreApplication::processEvents();
    expectNeither(operation);
    EXPECT_TRUE(m_server.requests().isEmpty());
}

TEST_F(EvernoteWebConversionCancelTest, BeforeTheMainThreadHasTurnedToItNothingIsLoaded)
{
    m_server.serve(text("/page"), "<p>text");
    const Operation operation = operationFor(m_server.url(text("/page")));
    std::thread([&] { operation->start(); }).join();
    operation->cancel();
    operation->waitUntilFinished();
    QCoreApplication::processEvents();
    expectNeither(operation);
    EXPECT_FALSE(operation->offscreenWebView());
    EXPECT_TRUE(m_server.requests().isEmpty());
}

TEST_F(EvernoteWebConversionCancelTest, WhileThePageLoadsTheWaiterIsFreedAtOnce)
{
    const Operation operation = endlessOperation();
    std::thread waiter([&] {
        operation->start();
        operation->waitUntilFinished();
    });
    waitUntil([&] { return m_server.paths().contains(text("/never.png")); });
    ASSERT_TRUE(operation->offscreenWebView());
    operation->cancel();
    waiter.join();
    expectNeither(operation);
    EXPECT_TRUE(operation->isCancelled());
    waitUntil([&] { return !operation->offscreenWebView(); });
    expectNeither(operation);
}

TEST_F(EvernoteWebConversionCancelTest, AnyThreadMayCancelAndLetGo)
{
    Operation operation = endlessOperation();
    const std::weak_ptr<EvernoteWebConversionOperation> watched = operation;
    std::thread waiter([kept = std::move(operation)]() mutable {
        kept->start();
        QThread::msleep(30);
        kept->cancel();
        kept->waitUntilFinished();
        expectNeither(kept);
        kept.reset();
    });
    waitUntil([&] { return watched.expired(); });
    waiter.join();
}

TEST_F(EvernoteWebConversionCancelTest, WithinAReportOfThePageIsAllowed)
{
    const Operation operation = operationFor(m_server.url(text("/page")));
    m_server.serve(text("/page"), [&](const test::HttpRequest&) {
        operation->cancel();
        return HttpAnswer{200, "text/html", "<p>text"};
    });
    run(operation);
    expectNeither(operation);
}

TEST_F(EvernoteWebConversionCancelTest, AfterTheEndTheResultStays)
{
    m_server.serve(text("/page"), "<p>text");
    const Operation operation = convert(m_server.url(text("/page")));
    operation->cancel();
    EXPECT_TRUE(operation->isCancelled());
    EXPECT_TRUE(operation->webArchiveData());
    serveStatus("/page", 404);
    const Operation failed = convert(m_server.url(text("/page")));
    failed->cancel();
    expectStatusError(failed, "not found");
}

TEST_F(EvernoteWebConversionCancelTest, AtAnyMomentEndsWithTheArchiveOrWithNothing)
{
    const QString page =
        m_folder.write(text("page.html"), "<img src=a.png><iframe src=b.html></iframe>");
    m_folder.write(text("a.png"), "png");
    m_folder.write(text("b.html"), "<p>text");
    int archives = 0;
    for (int round = 0; round < 60; ++round) {
        const Operation operation = operationFor(QUrl::fromLocalFile(page));
        std::thread canceller([&] {
            QThread::usleep(static_cast<unsigned long>(round * 40));
            operation->cancel();
        });
        run(operation);
        canceller.join();
        EXPECT_FALSE(operation->operationError());
        archives += operation->webArchiveData() ? 1 : 0;
        if (operation->webArchiveData()) {
            EXPECT_EQ(subframes(archiveOf(operation)).size(), 1);
        }
    }
    RecordProperty("archives", archives);
}

TEST_F(EvernoteWebConversionCancelTest, AnOperationThatIsLetGoOfTakesItsPageAlong)
{
    Operation operation = endlessOperation();
    std::thread([&] { operation->start(); }).join();
    waitUntil([&] { return m_server.paths().contains(text("/never.png")); });
    const std::weak_ptr<EvernoteWebConversionOperation> watched = operation;
    operation.reset();
    EXPECT_TRUE(watched.expired());
    QCoreApplication::processEvents();
}

} // namespace
