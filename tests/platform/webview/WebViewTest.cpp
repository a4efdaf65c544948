// SPDX-License-Identifier: MIT
// Local pages: what is found, in which order it is reported, and what becomes of frames.
#include "platform/webview/LoadErrors.h"
#include "platform/webview/ViewRecorder.h"
#include "support/ScratchFolder.h"

#include <QCoreApplication>

#include <sys/stat.h>

namespace {

using platform::WebFrame;
using test::ScratchFolder;
using test::ViewRecorder;
using ::testing::IsEmpty;

const QByteArray png = QByteArray::fromHex("89504e470d0a1a0a0000000d49484452");

QStringList list(std::initializer_list<const char*> texts)
{
    QStringList result;
    for (const char* text : texts)
        result += QString::fromUtf8(text);
    return result;
}

TEST(WebViewTest, LoadsALocalPageWithItsImages)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("a b.png"), png);
    folder.write(QStringLiteral("c.jpeg"), "\xFF\xD8\xFF"
                                           "data");
    const QString page =
        folder.write(QStringLiteral("page.html"),
                     "<html><head><title>A\n clip</title></head><body><img src='a b.png'>"
                     "<p>text<img src=c.jpeg><img src='a b.png'><img src=missing.png></body></html>");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(page));
    EXPECT_EQ(recorder.names(), list({"a%20b.png", "c.jpeg"}));
    EXPECT_EQ(recorder.source().pageTitle(), QStringLiteral("A clip"));
    const auto& resources = recorder.source().subresources();
    EXPECT_EQ(resources[0].data(), png);
    EXPECT_EQ(resources[0].mimeType(), QStringLiteral("image/png"));
    EXPECT_EQ(resources[0].url().toLocalFile(), folder.filePath("a b.png"));
    EXPECT_EQ(resources[1].mimeType(), QStringLiteral("image/jpeg"));
}

TEST(WebViewTest, ReportsInTheOrderOfThePlatform)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("a.png"), png);
    const QString page = folder.write(QStringLiteral("page.html"), "<title>T</title><img src=a.png>");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(page));
    EXPECT_EQ(recorder.events,
              list({"start main", "identifier page.html", "send page.html", "response page.html",
                    "commit main", "done page.html", "identifier a.png", "send a.png", "title T",
                    "response a.png", "done a.png", "finish main"}));
    EXPECT_FALSE(recorder.loadingAtFinish);
    EXPECT_EQ(recorder.responses[0].url(), QUrl::fromLocalFile(page));
    EXPECT_FALSE(recorder.responses[0].statusCode().has_value());
}

TEST(WebViewTest, IsLoadingFromTheRequestToTheEndAndReportsNothingFromWithinTheRequest)
{
    const ScratchFolder folder;
    const QString page = folder.write(QStringLiteral("page.html"), "<p>text");
    ViewRecorder recorder;
    EXPECT_FALSE(recorder.view.isLoading());
    recorder.view.mainFrame().loadRequest(platform::URLRequest(QUrl::fromLocalFile(page)));
    EXPECT_TRUE(recorder.view.isLoading());
    EXPECT_EQ(recorder.events, list({"start main", "identifier page.html", "send page.html"}));
    EXPECT_NE(recorder.view.mainFrame().provisionalDataSource(), nullptr);
    EXPECT_EQ(recorder.view.mainFrame().dataSource(), nullptr);
}

TEST(WebViewTest, AMissingPageFailsProvisionally)
{
    const ScratchFolder folder;
    ViewRecorder recorder;
    EXPECT_FALSE(recorder.load(folder.filePath("none.html")));
    EXPECT_EQ(recorder.error.domain(), QStringLiteral("NSURLErrorDomain"));
    EXPECT_EQ(recorder.error.code(), platform::UrlErrorFileDoesNotExist);
    EXPECT_EQ(recorder.events.last(), QStringLiteral("failProvisional main"));
    EXPECT_FALSE(recorder.view.mainFrame().webArchive().has_value());
    EXPECT_FALSE(recorder.view.isLoading());
}

TEST(WebViewTest, FoldersPipesAndOddAddressesAreErrors)
{
    const ScratchFolder folder;
    ViewRecorder recorder;
    EXPECT_FALSE(recorder.load(folder.path()));
    EXPECT_EQ(recorder.error.code(), platform::UrlErrorFileIsDirectory);
    ASSERT_EQ(mkfifo(qPrintable(folder.filePath("pipe.html")), 0600), 0);
    EXPECT_FALSE(recorder.load(folder.filePath("pipe.html")));
    EXPECT_EQ(recorder.error.code(), platform::UrlErrorNoPermissionsToReadFile);
    EXPECT_FALSE(recorder.load(QUrl(QStringLiteral("gopher://host/"))));
    EXPECT_EQ(recorder.error.code(), platform::UrlErrorUnsupportedUrl);
    EXPECT_FALSE(recorder.load(QUrl()));
    EXPECT_EQ(recorder.error.code(), platform::UrlErrorBadUrl);
}

TEST(WebViewTest, WhatNoViewCanShowIsAnError)
{
    const ScratchFolder folder;
    const QString page = folder.write(QStringLiteral("archive"), QByteArray("PK\3\4\0\0", 6));
    ViewRecorder recorder;
    EXPECT_FALSE(recorder.load(page));
    EXPECT_EQ(recorder.error.domain(), QStringLiteral("WebKitErrorDomain"));
    EXPECT_EQ(recorder.error.code(), platform::WebViewErrorCannotShowMimeType);
}

TEST(WebViewTest, FollowsStyleSheetsAndOrdersWhatTheyShowAfterThem)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("css/main.css"), "@import 'more.css'; body { background: url(../bg.png) }");
    folder.write(QStringLiteral("css/more.css"), "@import url(main.css); p { background: url('more.png') }");
    folder.write(QStringLiteral("css/more.png"), png);
    folder.write(QStringLiteral("bg.png"), png);
    folder.write(QStringLiteral("inline.png"), png);
    folder.write(QStringLiteral("attribute.png"), png);
    folder.write(QStringLiteral("late.png"), png);
    const QString page = folder.write(QStringLiteral("page.html"),
                                      "<link rel=stylesheet href=css/main.css>"
                                      "<style>p { background: url(inline.png) }</style>"
                                      "<p style=\"background:url('attribute.png')\"><img src=late.png>");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(page));
    EXPECT_EQ(recorder.names(), list({"main.css", "more.css", "more.png", "bg.png", "inline.png",
                                      "attribute.png", "late.png"}));
}

TEST(WebViewTest, ASheetThatFirstDoesNotApplyIsReadAgainWhenItDoes)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("a.css"), "p { background: url(a.png) }");
    folder.write(QStringLiteral("a.png"), png);
    const QByteArray print = "<link rel=stylesheet media=print href=a.css>";
    const QString page = folder.write(QStringLiteral("page.html"), print);
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(page));
    EXPECT_EQ(recorder.names(), list({"a.css"}));
    folder.write(QStringLiteral("page.html"), print + "<link rel=stylesheet href=a.css>");
    ASSERT_TRUE(recorder.load(page));
    EXPECT_EQ(recorder.names(), list({"a.css", "a.png"}));
}

TEST(WebViewTest, FramesFinishBeforeThePageThatHoldsThem)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("a.png"), png);
    folder.write(QStringLiteral("inner.html"), "<img src=a.png>");
    folder.write(QStringLiteral("outer.html"), "<iframe name=innermost src=inner.html></iframe>");
    const QString page =
        folder.write(QStringLiteral("page.html"), "<iframe name=middle src=outer.html></iframe>");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(page));
    EXPECT_EQ(recorder.eventsNamed("finish"), list({"finish innermost", "finish middle", "finish main"}));
    WebFrame& main = recorder.view.mainFrame();
    ASSERT_EQ(main.childFrames().size(), 1);
    WebFrame* innermost = main.findFrameNamed(QStringLiteral("innermost"));
    ASSERT_NE(innermost, nullptr);
    EXPECT_EQ(innermost->parentFrame(), main.childFrames()[0]);
    EXPECT_EQ(innermost->frameElement()->kind, platform::FrameElement::Kind::InlineFrame);
    EXPECT_EQ(ViewRecorder::names(*innermost->dataSource()), list({"a.png"}));
    EXPECT_THAT(recorder.names(), IsEmpty());
    EXPECT_EQ(main.frameElement(), nullptr);
    EXPECT_EQ(main.findFrameNamed(QStringLiteral("none")), nullptr);
    EXPECT_EQ(main.findFrameNamed(QString()), nullptr);
    EXPECT_EQ(innermost->findFrameNamed(QStringLiteral("_top")), &main);
    EXPECT_EQ(innermost->findFrameNamed(QStringLiteral("_parent")), innermost->parentFrame());
    EXPECT_EQ(innermost->findFrameNamed(QStringLiteral("middle")), innermost->parentFrame());
}

TEST(WebViewTest, FramesOfAFrameSetSayThatTheyAre)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("left.html"), "left");
    const QString page =
        folder.write(QStringLiteral("page.html"),
                     "<frameset><frame src=left.html name=left><frame src=left.html></frameset>");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(page));
    const QList<WebFrame*> frames = recorder.view.mainFrame().childFrames();
    ASSERT_EQ(frames.size(), 2);
    EXPECT_EQ(frames[0]->frameElement()->kind, platform::FrameElement::Kind::Frame);
    EXPECT_EQ(frames[0]->name(), QStringLiteral("left"));
    EXPECT_EQ(frames[1]->name(), QStringLiteral("<!--framePath //<!--frame1-->-->"));
}

TEST(WebViewTest, FramesWithoutAFreeNameAreNamedForTheirPlace)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("inner.html"), "<iframe></iframe>");
    const QString page =
        folder.write(QStringLiteral("page.html"),
                     "<iframe src=inner.html></iframe><iframe name=x></iframe><iframe name=x></iframe>"
                     "<iframe id=y></iframe>");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(page));
    const QList<WebFrame*> frames = recorder.view.mainFrame().childFrames();
    ASSERT_EQ(frames.size(), 4);
    EXPECT_EQ(frames[0]->name(), QStringLiteral("<!--framePath //<!--frame0-->-->"));
    EXPECT_EQ(frames[1]->name(), QStringLiteral("x"));
    EXPECT_EQ(frames[2]->name(), QStringLiteral("<!--framePath //<!--frame2-->-->"));
    EXPECT_EQ(frames[3]->name(), QStringLiteral("y"));
    ASSERT_EQ(frames[0]->childFrames().size(), 1);
    EXPECT_EQ(frames[0]->childFrames()[0]->name(),
              QStringLiteral("<!--framePath //<!--frame0-->/<!--frame0-->-->"));
}

TEST(WebViewTest, SrcdocAndBlankFramesInheritTheBase)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("sub/a.png"), png);
    const QString page =
        folder.write(QStringLiteral("page.html"),
                     "<base href='sub/'><iframe srcdoc=\"&lt;img src=&quot;a.png&quot;&gt;\"></iframe>"
                     "<iframe></iframe>");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(page));
    const QList<WebFrame*> frames = recorder.view.mainFrame().childFrames();
    ASSERT_EQ(frames.size(), 2);
    EXPECT_EQ(frames[0]->dataSource()->response().absoluteString(), QStringLiteral("about:srcdoc"));
    EXPECT_EQ(frames[0]->dataSource()->mainResource().data(), QByteArray("<img src=\"a.png\">"));
    EXPECT_EQ(ViewRecorder::names(*frames[0]->dataSource()), list({"a.png"}));
    EXPECT_EQ(frames[1]->dataSource()->response().absoluteString(), QStringLiteral("about:blank"));
}

TEST(WebViewTest, DataAddressesAreDocumentsAndStyleSheetsAndReachTheWebButNoFile)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("a.png"), png);
    const QByteArray picture = QUrl::fromLocalFile(folder.filePath("a.png")).toEncoded();
    const QString page = folder.write(QStringLiteral("page.html"),
                                      "<iframe src=\"data:text/html,<img src='" + picture
                                          + "'>\"></iframe>"
                                            "<link rel=stylesheet href=\"data:text/css,p{background:url("
                                          + picture + ")}\">");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(page));
    // Both carry on for the local page that holds them, in whose folder the picture lies.
    EXPECT_EQ(recorder.names(), list({"a.png"}));
    EXPECT_EQ(ViewRecorder::names(*recorder.view.mainFrame().childFrames()[0]->dataSource()),
              list({"a.png"}));
}

TEST(WebViewTest, APageThatHoldsItselfIsShownTwiceInItsLine)
{
    const ScratchFolder folder;
    const QString page = folder.write(QStringLiteral("page.html"), "<iframe src=page.html></iframe>");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(page));
    const QList<WebFrame*> first = recorder.view.mainFrame().childFrames();
    ASSERT_EQ(first.size(), 1);
    EXPECT_THAT(first[0]->childFrames(), IsEmpty());
}

TEST(WebViewTest, ObjectsShowPicturesInPlaceAndDocumentsInFrames)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("a.png"), png);
    folder.write(QStringLiteral("inner.html"), "inner");
    folder.write(QStringLiteral("drawing.svg"),
                 "<svg xmlns='http://www.w3.org/2000/svg'><image href='a.png'/></svg>");
    folder.write(QStringLiteral("movie.swf"), "FWS");
    const QString page = folder.write(QStringLiteral("page.html"),
                                      "<object data=a.png></object><object data=inner.html name=o></object>"
                                      "<embed src=drawing.svg><object data=movie.swf></object>");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(page));
    EXPECT_EQ(recorder.names(), list({"a.png"}));
    const QList<WebFrame*> frames = recorder.view.mainFrame().childFrames();
    ASSERT_EQ(frames.size(), 2);
    EXPECT_EQ(frames[0]->frameElement()->kind, platform::FrameElement::Kind::Object);
    EXPECT_EQ(frames[1]->frameElement()->kind, platform::FrameElement::Kind::Embed);
    EXPECT_EQ(ViewRecorder::names(*frames[1]->dataSource()), list({"a.png"}));
}

TEST(WebViewTest, ALocalPageLoadsNoFileOutsideItsFolder)
{
    const ScratchFolder folder;
    const QByteArray secret = folder.write(QStringLiteral("secret.png"), png).toUtf8();
    folder.write(QStringLiteral("note/good.png"), png);
    ASSERT_TRUE(QFile::link(folder.filePath("secret.png"), folder.filePath("note/link.png")));
    const QString page =
        folder.write(QStringLiteral("note/page.html"),
                     "<img src=../secret.png><img src='" + secret + "'><img src='file://" + secret
                         + "'><img src=link.png><iframe src=../secret.png></iframe>"
                           "<style>p{background:url(../secret.png)}</style><img src=good.png>");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(page));
    EXPECT_EQ(recorder.names(), list({"good.png"}));
    EXPECT_EQ(recorder.view.mainFrame().childFrames().at(0)->dataSource(), nullptr);
}

TEST(WebViewTest, StoppingReportsEachFrameAsCancelledTheMainFrameLast)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("inner.html"), "<img src=a.png>");
    folder.write(QStringLiteral("a.png"), png);
    const QString page =
        folder.write(QStringLiteral("page.html"), "<iframe name=inner src=inner.html></iframe>");
    ViewRecorder recorder;
    recorder.onResponse = [&](const platform::URLResponse& response) {
        if (response.mimeType() == QLatin1String("image/png"))
            recorder.view.stopLoading();
    };
    EXPECT_FALSE(recorder.load(page));
    EXPECT_EQ(recorder.error.code(), platform::UrlErrorCancelled);
    EXPECT_EQ(recorder.eventsNamed("fail"), list({"fail inner", "fail main"}));
    EXPECT_FALSE(recorder.view.isLoading());
    recorder.events.clear();
    recorder.view.stopLoading();
    EXPECT_THAT(recorder.events, IsEmpty());
}

TEST(WebViewTest, StoppedFromWithinTheMainResponseNothingMoreIsReported)
{
    const ScratchFolder folder;
    const QString page = folder.write(QStringLiteral("page.html"), "<img src=a.png>");
    ViewRecorder recorder;
    recorder.onResponse = [&](const platform::URLResponse&) {
        recorder.view.stopLoading();
    };
    EXPECT_FALSE(recorder.load(page));
    EXPECT_EQ(recorder.events, list({"start main", "identifier page.html", "send page.html",
                                     "response page.html", "failProvisional main"}));
}

TEST(WebViewTest, AnotherPageMayBeLoadedFromWithinAReport)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("inner.html"), "inner");
    const QString first = folder.write(QStringLiteral("first.html"), "<iframe src=inner.html></iframe>");
    const QString second = folder.write(QStringLiteral("second.html"), "<p>second");
    ViewRecorder recorder;
    bool once = true;
    recorder.onResponse = [&](const platform::URLResponse& response) {
        if (response.absoluteString().endsWith(QLatin1String("inner.html")) && std::exchange(once, false))
            recorder.view.mainFrame().loadRequest(platform::URLRequest(QUrl::fromLocalFile(second)));
    };
    EXPECT_FALSE(recorder.load(first));
    EXPECT_EQ(recorder.error.code(), platform::UrlErrorCancelled);
    while (!recorder.finished)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(recorder.source().response().absoluteString().section(QLatin1Char('/'), -1),
              QStringLiteral("second.html"));
}

TEST(WebViewTest, ADestroyedViewLeavesNothingBehind)
{
    const ScratchFolder folder;
    const QString page = folder.write(QStringLiteral("page.html"), "<img src=a.png>");
    {
        platform::WebView view;
        view.mainFrame().loadRequest(platform::URLRequest(QUrl::fromLocalFile(page)));
    }
    QCoreApplication::processEvents();
    SUCCEED();
}

TEST(WebViewTest, ReadsADeclaredEncodingAndArchivesTheTextAsUtf8)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("\u00e9.png"), png);
    const QString page =
        folder.write(QStringLiteral("page.html"), "<meta charset=iso-8859-1><p>caf\xE9<img src='\xE9.png'>");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(page));
    EXPECT_EQ(recorder.source().textEncodingName(), QStringLiteral("windows-1252"));
    EXPECT_EQ(recorder.names(), list({"%C3%A9.png"}));
    const platform::WebResource main = recorder.source().mainResource();
    EXPECT_EQ(main.textEncodingName(), QStringLiteral("UTF-8"));
    EXPECT_TRUE(main.data().contains("caf\xC3\xA9"));
    EXPECT_TRUE(recorder.source().data().contains("caf\xE9"));
}

TEST(WebViewTest, XhtmlIsReadAsXml)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("a.png"), png);
    folder.write(QStringLiteral("b.png"), png);
    const QString page =
        folder.write(QStringLiteral("page.xhtml"),
                     "<?xml version='1.0'?><html xmlns='http://www.w3.org/1999/xhtml'><head>"
                     "<script/><title/><style><![CDATA[p{background:url(a.png)}]]></style></head>"
                     "<body><img src='b.png'/></body></html>");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(page));
    EXPECT_EQ(recorder.source().response().mimeType(), QStringLiteral("application/xhtml+xml"));
    EXPECT_EQ(recorder.names(), list({"a.png", "b.png"}));
}

TEST(WebViewTest, PicturesAndPlainTextAreDocumentsOfTheirOwn)
{
    const ScratchFolder folder;
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(folder.write(QStringLiteral("a.png"), png)));
    EXPECT_EQ(recorder.source().mainResource().data(), png);
    EXPECT_EQ(recorder.source().mainResource().textEncodingName(), QString());
    ASSERT_TRUE(recorder.load(folder.write(QStringLiteral("a.txt"), "<img src=a.png>")));
    EXPECT_THAT(recorder.names(), IsEmpty());
}

} // namespace
