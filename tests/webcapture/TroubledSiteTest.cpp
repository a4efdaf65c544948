// SPDX-License-Identifier: MIT
//
// Pages that refuse, dawdle, never end, go round in circles or are huge: what is left of them is in
// the archive byte for byte.
#include "webcapture/TestSite.h"

#include "platform/webview/LoadErrors.h"
#include "webcapture/WebConversionErrors.h"

namespace {

using TroubledSiteTest = TestSite;

TEST_F(TroubledSiteTest, PagesThatAreRefusedGiveNoArchive)
{
    const QList<std::pair<int, const char*>> refusals = {
        {401, "unauthorized"}, {404, "not found"}, {500, "internal server error"}};
    for (const auto& [status, meaning] : refusals) {
        answer("/page", status, "<p>no", "text/html",
               {status == 401 ? "WWW-Authenticate: Basic realm=\"r\"" : "X-Other: 1"});
        const Operation operation = convert(m_server.url(text("/page")));
        EXPECT_FALSE(operation->webArchiveData()) << status;
        ASSERT_TRUE(operation->operationError()) << status;
        EXPECT_EQ(*operation->operationError(), webConversionErrorForStatus(status, text(meaning)));
    }
}

TEST_F(TroubledSiteTest, WhatIsRefusedIsLeftOutButAFrameShowsWhatItsServerSays)
{
    const QByteArray document =
        "<img src=gone.png><img src=401.png><link rel=stylesheet href=500.css><img src=drawn.png>"
        "<iframe name=f src=404.html></iframe><iframe name=g src=500.html></iframe>";
    page("/page", document);
    answer("/401.png", 401, "<p>no", "text/html", {"WWW-Authenticate: Basic realm=\"r\""});
    answer("/500.css", 500, "p{background:url(a.png)}", "text/css");
    // Browsers show a picture whatever its status.
    answer("/drawn.png", 404, "picture", "image/png");
    answer("/404.html", 404, "<p>Not here<img src=in.png>");
    answer("/500.html", 500, "");
    image("/in.png", "in");
    expectPage({"/page",
                document,
                {{"/drawn.png", "picture"}},
                {{"/404.html", "<p>Not here<img src=in.png>", {{"/in.png", "in"}}, {}, "f"},
                 {"/500.html", "", {}, {}, "g"}}});
}

TEST_F(TroubledSiteTest, WhatComesByteByByteIsWaitedFor)
{
    const QByteArray document = "<img src=a.png><iframe name=f src=f.html></iframe>";
    deliver("/page", Delivery::Slow, document);
    deliver("/a.png", Delivery::Slow, "slow image", "image/png");
    deliver("/f.html", Delivery::Slow, "<link rel=stylesheet href=a.css>");
    deliver("/a.css", Delivery::Slow, "p{color:red}", "text/css");
    expectPage({"/page",
                document,
                {{"/a.png", "slow image"}},
                {{"/f.html", "<link rel=stylesheet href=a.css>", {{"/a.css", "p{color:red}"}}}}});
}

TEST_F(TroubledSiteTest, WhatHasNoEndIsLeftOut)
{
    const QByteArray document =
        "<img src=endless.png><iframe src=endless.html></iframe><img src=a.png>";
    page("/page", document);
    deliver("/endless.png", Delivery::Endless, QByteArray(1 << 16, 'x'), "image/png");
    deliver("/endless.html", Delivery::Endless, QByteArray(1 << 16, 'x'));
    image("/a.png", "a");
    expectPage({"/page", document, {{"/a.png", "a"}}});
}

TEST_F(TroubledSiteTest, APageWithoutAnEndGivesNoArchive)
{
    deliver("/page", Delivery::Endless, QByteArray(1 << 16, 'x'));
    const Operation operation = convert(m_server.url(text("/page")));
    EXPECT_FALSE(operation->webArchiveData());
    ASSERT_TRUE(operation->operationError());
    EXPECT_EQ(operation->operationError()->code(), platform::UrlErrorDataLengthExceedsMaximum);
}

TEST_F(TroubledSiteTest, WhatBreaksOffIsLeftOut)
{
    const QByteArray document = "<img src=cut.png><iframe src=cut.html></iframe><img src=a.png>";
    page("/page", document);
    deliver("/cut.png", Delivery::CutShort, QByteArray(4000, 'x'), "image/png");
    deliver("/cut.html", Delivery::CutShort, QByteArray(4000, 'x'));
    image("/a.png", "a");
    expectPage({"/page", document, {{"/a.png", "a"}}});
}

TEST_F(TroubledSiteTest, PagesThatHoldEachOtherEnd)
{
    const QByteArray document = "<iframe name=a src=other></iframe>";
    const QByteArray other = "<iframe name=b src=page></iframe>";
    page("/page", document);
    page("/other", other);
    // Each twice in its own line.
    expectPage({"/page",
                document,
                {},
                {{"/other", other, {}, {{"/page", document, {}, {{"/other", other}}}}}}});
}

TEST_F(TroubledSiteTest, StyleSheetsThatImportEachOtherEnd)
{
    const QByteArray document = "<link rel=stylesheet href=a.css>";
    page("/page", document);
    styles("/a.css", "@import 'b.css'; p{background:url(a.png)}");
    styles("/b.css", "@import 'a.css'; @import 'b.css';");
    image("/a.png", "a");
    expectPage({"/page",
                document,
                {{"/a.css", "@import 'b.css'; p{background:url(a.png)}"},
                 {"/b.css", "@import 'a.css'; @import 'b.css';"},
                 {"/a.png", "a"}}});
}

TEST_F(TroubledSiteTest, RedirectsInACircleAreLeftOut)
{
    m_server.redirect(text("/a.png"), "/b.png");
    m_server.redirect(text("/b.png"), "/a.png");
    page("/page", "<img src=a.png><iframe src=b.png></iframe>");
    expectPage({"/page", "<img src=a.png><iframe src=b.png></iframe>"});
}

TEST_F(TroubledSiteTest, APageOfManyElementsEnds)
{
    const QByteArray document = QByteArray("<div>").repeated(300000) + "<img src=a.png>";
    page("/page", document);
    image("/a.png", "a");
    expectPage({"/page", document, {{"/a.png", "a"}}});
}

TEST_F(TroubledSiteTest, AStyleSheetOfFiftyMegabytesEnds)
{
    QByteArray sheet = "p{background:url(a.png)}";
    sheet += QByteArray("@media print{.rule{background:url(no.png) /* comment */}}q{}")
                 .repeated((50 << 20) / 60);
    sheet += "r{background:url(b.png)}";
    const QByteArray document = "<link rel=stylesheet href=a.css>";
    page("/page", document);
    styles("/a.css", sheet);
    image("/a.png", "a");
    image("/b.png", "b");
    expectPage({"/page", document, {{"/a.css", sheet}, {"/a.png", "a"}, {"/b.png", "b"}}});
}

TEST_F(TroubledSiteTest, EmptyResourcesStayInTheArchive)
{
    page("/page", "<link rel=stylesheet href=empty.css>");
    styles("/empty.css", "");
    expectPage({"/page", "<link rel=stylesheet href=empty.css>", {{"/empty.css", ""}}});
}

} // namespace
