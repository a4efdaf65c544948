// SPDX-License-Identifier: MIT
#include "webcapture/WebFrameBMExtensions.h"
#include "platform/propertylist/PropertyList.h"

#include "platform/webview/HttpTestServer.h"
#include "platform/webview/ViewRecorder.h"

namespace {

class WebFrameBMExtensionsTest : public ::testing::Test {
protected:
    static QString text(const char* utf8) { return QString::fromUtf8(utf8); }

    // Loads the page and returns the platform's archive of it.
    QVariantMap load(const QByteArray& markup)
    {
        m_server.serve(text("/page"), markup);
        EXPECT_TRUE(m_view.load(m_server.url(text("/page"))));
        return frame().webArchive().value_or(platform::WebArchive()).dictionary();
    }
    void serveImages(const QStringList& names)
    {
        for (const QString& name : names)
            m_server.serve(QLatin1Char('/') + name, "bytes of " + name.toUtf8(), "image/png");
    }
    platform::WebFrame& frame() { return m_view.view.mainFrame(); }
    QVariantMap completed(const QVariantMap& archive, const CachedResponses& responses = {})
    {
        return webArchiveDictionaryWithDictionary(frame(), archive, responses);
    }

    static QVariantList subresources(const QVariantMap& archive)
    {
        return archive.value(text("WebSubresources")).toList();
    }
    static QVariantList subframes(const QVariantMap& archive)
    {
        return archive.value(text("WebSubframeArchives")).toList();
    }
    static QString address(const QVariant& resource)
    {
        return resource.toMap().value(text("WebResourceURL")).toString();
    }
    // The archive with its only frame's name replaced; none removes it.
    static QVariantMap withFrameNamed(QVariantMap archive, const std::optional<QString>& name)
    {
        QVariantMap child = subframes(archive).first().toMap();
        QVariantMap mainResource = child.value(text("WebMainResource")).toMap();
        mainResource.remove(text("WebResourceFrameName"));
        if (name)
            mainResource.insert(text("WebResourceFrameName"), *name);
        child.insert(text("WebMainResource"), mainResource);
        archive.insert(text("WebSubframeArchives"), QVariantList{child});
        return archive;
    }

    test::HttpTestServer m_server;
    test::ViewRecorder m_view;
};

TEST_F(WebFrameBMExtensionsTest, AnArchiveThatListsEverythingKeepsItsResourcesAsTheyAre)
{
    serveImages({text("a.png"), text("b.png")});
    const QVariantMap archive = load("<img src=a.png><img src=b.png>");
    CachedResponses responses;
    for (const QVariant& resource : subresources(archive))
        responses.insert(address(resource), "a response");
    const QVariantMap result = completed(archive, responses);
    ASSERT_EQ(subresources(result).size(), 2);
    EXPECT_EQ(subresources(result), subresources(archive));
    for (const QVariant& resource : subresources(result))
        EXPECT_FALSE(resource.toMap().contains(text("WebResourceResponse")));
    EXPECT_EQ(result.value(text("WebMainResource")), archive.value(text("WebMainResource")));
}

TEST_F(WebFrameBMExtensionsTest, AReceivedResourceThatTheArchiveMissesIsAddedBehindTheOthers)
{
    serveImages({text("a.png"), text("b.png"), text("c.png")});
    QVariantMap archive = load("<img src=a.png><img src=b.png><img src=c.png>");
    const QVariantList all = subresources(archive);
    archive.insert(text("WebSubresources"), QVariantList{all[1]});
    const QVariantMap result = completed(archive);
    const QVariantList expected = {all[1], all[0], all[2]};
    EXPECT_EQ(subresources(result), expected);
    EXPECT_EQ(subresources(result)[1].toMap().keys(),
              QStringList(
                  {text("WebResourceData"), text("WebResourceMIMEType"), text("WebResourceURL")}));
}

TEST_F(WebFrameBMExtensionsTest, AnAddedResourceWhoseResponseWasSeenSaysSo)
{
    serveImages({text("a.png"), text("b.png")});
    QVariantMap archive = load("<img src=a.png><img src=b.png>");
    archive.remove(text("WebSubresources"));
    const QVariantList added =
        subresources(completed(archive, {{m_server.address(text("/a.png")), "a response"}}));
    ASSERT_EQ(added.size(), 2);
    EXPECT_FALSE(added[1].toMap().contains(text("WebResourceResponse")));

    // A keyed archive whose only object is mutable data without a byte, whatever the response was.
    const QByteArray mark = added[0].toMap().value(text("WebResourceResponse")).toByteArray();
    const QVariantMap keyed = platform::propertyListFromData(mark).value_or(QVariant()).toMap();
    EXPECT_EQ(keyed.value(text("$archiver")).toString(), text("NSKeyedArchiver"));
    EXPECT_EQ(keyed.value(text("$top")).toMap().keys(), QStringList({text("WebResourceResponse")}));
    const QVariantList objects = keyed.value(text("$objects")).toList();
    ASSERT_EQ(objects.size(), 3);
    EXPECT_EQ(objects[1].toMap().value(text("NS.data")), QVariant(QByteArray("")));
    EXPECT_EQ(objects[2].toMap().value(text("$classname")).toString(), text("NSMutableData"));
}

TEST_F(WebFrameBMExtensionsTest, AddressesThatDifferInCaseAreTwoResources)
{
    serveImages({text("a.png")});
    QVariantMap archive = load("<img src=a.png>");
    QVariantMap resource = subresources(archive).first().toMap();
    resource.insert(text("WebResourceURL"), m_server.address(text("/A.png")));
    archive.insert(text("WebSubresources"), QVariantList{resource});
    const QVariantList result = subresources(completed(archive));
    ASSERT_EQ(result.size(), 2);
    EXPECT_EQ(address(result[0]), m_server.address(text("/A.png")));
    EXPECT_EQ(address(result[1]), m_server.address(text("/a.png")));
}

TEST_F(WebFrameBMExtensionsTest, AnArchiveWithoutResourcesGetsBothListsAndKeepsItsOtherKeys)
{
    serveImages({text("a.png")});
    QVariantMap archive = load("<img src=a.png>");
    archive.remove(text("WebSubresources"));
    archive.insert(text("Another"), 1);
    const QVariantMap result = completed(archive);
    EXPECT_EQ(subresources(result).size(), 1);
    ASSERT_TRUE(result.contains(text("WebSubframeArchives")));
    EXPECT_TRUE(subframes(result).isEmpty());
    EXPECT_EQ(result.value(text("Another")), QVariant(1));
}

TEST_F(WebFrameBMExtensionsTest, AFrameIsCompletedFromItsOwnResources)
{
    serveImages({text("a.png"), text("inner.png")});
    m_server.serve(text("/frame.html"), "<img src=inner.png>");
    QVariantMap archive = load("<img src=a.png><iframe name=inner src=frame.html></iframe>");
    QVariantMap child = subframes(archive).first().toMap();
    child.remove(text("WebSubresources"));
    archive.insert(text("WebSubframeArchives"), QVariantList{child});
    const QVariantMap result =
        completed(archive, {{m_server.address(text("/inner.png")), "a response"}});
    EXPECT_EQ(subresources(result), subresources(archive));
    ASSERT_EQ(subframes(result).size(), 1);
    const QVariantList added = subresources(subframes(result).first().toMap());
    ASSERT_EQ(added.size(), 1);
    EXPECT_EQ(address(added[0]), m_server.address(text("/inner.png")));
    EXPECT_TRUE(added[0].toMap().contains(text("WebResourceResponse")));
}

TEST_F(WebFrameBMExtensionsTest, FramesWithoutANameOrThatAreNotFoundAreDropped)
{
    m_server.serve(text("/frame.html"), "<p>text");
    const QVariantMap archive = load("<iframe name=inner src=frame.html></iframe>");
    EXPECT_EQ(subframes(completed(archive)).size(), 1);
    EXPECT_TRUE(subframes(completed(withFrameNamed(archive, QString()))).isEmpty());
    EXPECT_TRUE(subframes(completed(withFrameNamed(archive, std::nullopt))).isEmpty());
    EXPECT_TRUE(subframes(completed(withFrameNamed(archive, text("another")))).isEmpty());
}

TEST_F(WebFrameBMExtensionsTest, AFrameWhoseElementHasNoNameIsKeptUnderItsPath)
{
    m_server.serve(text("/frame.html"), "<p>text");
    const QVariantMap result =
        completed(load("<iframe src=frame.html></iframe><iframe src=frame.html></iframe>"));
    EXPECT_EQ(subframes(result).size(), 2);
}

TEST_F(WebFrameBMExtensionsTest, AFrameWithoutADocumentAddsNothing)
{
    const QVariantMap result = completed({{text("WebSubresources"), QVariantList()}});
    EXPECT_TRUE(subresources(result).isEmpty());
}

TEST_F(WebFrameBMExtensionsTest, OnlyElementsOfAFrameSetMakeAFrameset)
{
    m_server.serve(text("/frame.html"), "<p>text");
    load("<p>text");
    EXPECT_FALSE(isFrameset(frame()));
    load("<iframe src=frame.html></iframe><iframe src=frame.html></iframe>");
    EXPECT_FALSE(isFrameset(frame()));
    load("<frameset cols=50%,50%><frame src=frame.html><frame src=frame.html></frameset>");
    EXPECT_TRUE(isFrameset(frame()));
}

} // namespace
