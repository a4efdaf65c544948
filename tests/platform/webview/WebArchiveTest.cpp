// SPDX-License-Identifier: MIT
#include "platform/webview/WebArchive.h"

#include "platform/propertylist/PropertyList.h"
#include "platform/webview/HttpTestServer.h"
#include "platform/webview/ViewRecorder.h"
#include "support/ScratchFolder.h"

namespace {

using platform::WebArchive;
using platform::WebResource;
using test::HttpTestServer;
using test::ScratchFolder;
using test::ViewRecorder;

const QByteArray png = QByteArray::fromHex("89504e470d0a1a0a0000000d49484452");

QVariantMap map(const QVariant& value)
{
    return value.toMap();
}

TEST(WebArchiveTest, HoldsADocumentAndLeavesEmptyListsOut)
{
    const WebArchive archive(WebResource(QStringLiteral("http://h/"), QByteArray(),
                                         QStringLiteral("text/html"), QStringLiteral("UTF-8")),
                             {}, {});
    const QVariantMap expected = {
        {QStringLiteral("WebMainResource"),
         QVariantMap{{QStringLiteral("WebResourceData"), QByteArray("")},
                     {QStringLiteral("WebResourceURL"), QStringLiteral("http://h/")},
                     {QStringLiteral("WebResourceMIMEType"), QStringLiteral("text/html")},
                     {QStringLiteral("WebResourceTextEncodingName"), QStringLiteral("UTF-8")},
                     {QStringLiteral("WebResourceFrameName"), QStringLiteral("")}}}};
    EXPECT_EQ(archive.dictionary(), expected);
    const std::optional<QByteArray> data = archive.data();
    ASSERT_TRUE(data);
    EXPECT_TRUE(data->startsWith("bplist00"));
    EXPECT_EQ(platform::propertyListFromData(*data)->toMap(), expected);
}

TEST(WebArchiveTest, ALoadedPageWithFramesBecomesAnArchiveInDocumentOrder)
{
    const ScratchFolder folder;
    folder.write(QStringLiteral("a.png"), png);
    folder.write(QStringLiteral("a.css"), "p{background:url(b.png)}");
    folder.write(QStringLiteral("b.png"), png + "b");
    folder.write(QStringLiteral("inner.html"), "<img src=a.png>");
    const QString page = folder.write(
        QStringLiteral("page.html"),
        "<link rel=stylesheet href=a.css><img src=a.png><img src=none.png>"
        "<iframe name=f src=inner.html></iframe><iframe></iframe><iframe src=none.html></iframe>");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(page));
    const std::optional<WebArchive> archive = recorder.view.mainFrame().webArchive();
    ASSERT_TRUE(archive);
    const QVariantMap dictionary = archive->dictionary();
    const QString base =
        QString::fromLatin1(QUrl::fromLocalFile(folder.path()).toEncoded()) + QLatin1Char('/');

    const QVariantMap main = map(dictionary.value(QStringLiteral("WebMainResource")));
    EXPECT_EQ(main.value(QStringLiteral("WebResourceURL")), base + QStringLiteral("page.html"));
    EXPECT_EQ(main.value(QStringLiteral("WebResourceFrameName")), QString());
    EXPECT_EQ(main.value(QStringLiteral("WebResourceData")).toByteArray(),
              folder.read(QStringLiteral("page.html")));

    QStringList addresses;
    for (const QVariant& resource : dictionary.value(QStringLiteral("WebSubresources")).toList()) {
        addresses += map(resource).value(QStringLiteral("WebResourceURL")).toString().remove(base);
        EXPECT_FALSE(map(resource).contains(QStringLiteral("WebResourceFrameName")));
    }
    EXPECT_EQ(addresses, (QStringList{QStringLiteral("a.css"), QStringLiteral("b.png"),
                                      QStringLiteral("a.png")}));

    const QVariantList frames = dictionary.value(QStringLiteral("WebSubframeArchives")).toList();
    ASSERT_EQ(frames.size(), 2);
    const QVariantMap inner = map(frames[0]);
    EXPECT_EQ(map(inner.value(QStringLiteral("WebMainResource")))
                  .value(QStringLiteral("WebResourceFrameName")),
              QStringLiteral("f"));
    EXPECT_EQ(inner.value(QStringLiteral("WebSubresources")).toList().size(), 1);
    const QVariantMap blank = map(map(frames[1]).value(QStringLiteral("WebMainResource")));
    EXPECT_EQ(blank.value(QStringLiteral("WebResourceURL")), QStringLiteral("about:blank"));
    EXPECT_EQ(blank.value(QStringLiteral("WebResourceMIMEType")), QStringLiteral("text/html"));
    EXPECT_EQ(blank.value(QStringLiteral("WebResourceFrameName")),
              QStringLiteral("<!--framePath //<!--frame1-->-->"));
    EXPECT_TRUE(archive->data().has_value());
}

TEST(WebArchiveTest, TheMainResourceIsStoredUnderItsFinalAddressWithTheTypeOfTheResponse)
{
    HttpTestServer server;
    server.redirect(QStringLiteral("/old"), "/new");
    server.serve(QStringLiteral("/new"), "<p>caf\xE9", "application/xhtml+xml; charset=iso-8859-1");
    ViewRecorder recorder;
    ASSERT_TRUE(recorder.load(server.url(QStringLiteral("/old"))));
    const WebResource main = recorder.view.mainFrame().webArchive()->mainResource();
    EXPECT_EQ(main.absoluteString(), server.address(QStringLiteral("/new")));
    EXPECT_EQ(main.mimeType(), QStringLiteral("application/xhtml+xml"));
    EXPECT_EQ(main.textEncodingName(), QStringLiteral("UTF-8"));
    EXPECT_EQ(main.data(), QByteArray("<p>caf\xC3\xA9"));
}

class DisplacedResourcesTest : public ::testing::Test {
protected:
    void styles(const char* path, const QByteArray& sheet)
    {
        m_server.serve(QString::fromUtf8(path), sheet, "text/css");
    }
    void image(const char* path) { m_server.serve(QString::fromUtf8(path), path, "image/png"); }
    // The archive's resources without their server, and what each holds.
    QList<std::pair<QByteArray, QByteArray>> archived(const QByteArray& page)
    {
        m_server.serve(QStringLiteral("/page"), page);
        EXPECT_TRUE(m_recorder.load(m_server.url(QStringLiteral("/page"))));
        QList<std::pair<QByteArray, QByteArray>> result;
        const std::optional<WebArchive> archive = m_recorder.view.mainFrame().webArchive();
        for (const WebResource& resource : archive->subresources())
            result.append({resource.absoluteString().mid(m_server.address({}).size()).toUtf8(),
                           resource.data()});
        return result;
    }

    HttpTestServer m_server;
    ViewRecorder m_recorder;
};

TEST_F(DisplacedResourcesTest, WhatARedirectedSheetShowsIsAlsoWhereAReaderLooksForIt)
{
    const QByteArray sheet =
        "@import 'sub/b.css'; p{background:url(a.png)} q{background:url(/c.png)}";
    m_server.redirect(QStringLiteral("/a.css"), "/there/a.css");
    styles("/there/a.css", sheet);
    styles("/there/sub/b.css", "p{background:url(../d.png);list-style:url(gone.png)}");
    for (const char* path : {"/there/a.png", "/there/d.png", "/c.png"})
        image(path);
    const QList<std::pair<QByteArray, QByteArray>> expected = {
        {"/a.css", sheet},
        {"/there/sub/b.css", "p{background:url(../d.png);list-style:url(gone.png)}"},
        {"/there/d.png", "/there/d.png"},
        {"/there/a.png", "/there/a.png"},
        {"/c.png", "/c.png"},
        {"/sub/b.css", "p{background:url(../d.png);list-style:url(gone.png)}"},
        {"/a.png", "/there/a.png"},
        {"/d.png", "/there/d.png"}};
    EXPECT_EQ(archived("<link rel=stylesheet href=a.css>"), expected);
    // They were not received there.
    EXPECT_EQ(m_recorder.source().subresources().size(), 5);
}

TEST_F(DisplacedResourcesTest, WhatIsThereAlreadyStays)
{
    m_server.redirect(QStringLiteral("/a.css"), "/there/a.css");
    styles("/there/a.css", "p{background:url(a.png)}");
    image("/there/a.png");
    image("/a.png");
    const QList<std::pair<QByteArray, QByteArray>> expected = {
        {"/a.css", "p{background:url(a.png)}"},
        {"/there/a.png", "/there/a.png"},
        {"/a.png", "/a.png"}};
    EXPECT_EQ(archived("<link rel=stylesheet href=a.css><img src=a.png>"), expected);
}

TEST_F(DisplacedResourcesTest, ASheetThatIsLedBackToItselfAddsNoMoreThanThePageMayHold)
{
    // Each import is the same sheet again, one folder deeper for who takes it to be where it is
    // named.
    m_server.redirect(QStringLiteral("/a.css"), "/there/a.css");
    const QByteArray sheet = "@import 'z/b.css';";
    styles("/there/a.css", sheet);
    m_server.redirect(QStringLiteral("/there/z/b.css"), "/there/a.css");
    platform::LoadLimits limits;
    limits.resources = 50;
    m_recorder.view.setLimits(limits);
    EXPECT_EQ(archived("<link rel=stylesheet href=a.css>").size(), 2 + 50);
    limits = {};
    limits.pageBytes = 10 * sheet.size();
    m_recorder.view.setLimits(limits);
    EXPECT_LE(archived("<link rel=stylesheet href=a.css>").size(), 10);
}

} // namespace
