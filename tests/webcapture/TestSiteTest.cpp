// SPDX-License-Identifier: MIT
//
// Pages of every build, byte for byte and frame by frame.
#include "webcapture/CaptureFixture.h"

#include <QtEndian>

namespace {

using test::HttpAnswer;

class TestSiteTest : public CaptureTest {
protected:
    QVariantMap archive(const char* path = "/page")
    {
        return archiveOf(convert(m_server.url(text(path))));
    }
    void expectResources(const QVariantMap& found,
                         const QList<std::pair<QByteArray, QByteArray>>& expected)
    {
        QList<std::pair<QByteArray, QByteArray>> resources;
        for (const QVariantMap& resource : subresources(found)) {
            const QString url = resource.value(text("WebResourceURL")).toString();
            resources.append(
                {url.mid(m_server.address(QString()).size()).toUtf8(), bytes(resource)});
        }
        EXPECT_EQ(resources, expected);
    }
    // RFC 1952, round the deflated data that lies between the header and the checksum of Qt's own
    // form.
    static QByteArray gzip(const QByteArray& plain)
    {
        quint32 checksum = 0xFFFFFFFF;
        for (const char byte : plain) {
            checksum ^= static_cast<uchar>(byte);
            for (int bit = 0; bit < 8; ++bit)
                checksum = (checksum >> 1) ^ (checksum & 1 ? 0xEDB88320 : 0);
        }
        QByteArray trailer(8, '\0');
        qToLittleEndian<quint32>(~checksum, trailer.data());
        qToLittleEndian<quint32>(quint32(plain.size()), trailer.data() + 4);
        const QByteArray compressed = qCompress(plain);
        return QByteArray("\x1F\x8B\x08\0\0\0\0\0\0\x03", 10) + compressed.sliced(6).chopped(4) +
               trailer;
    }
};

TEST_F(TestSiteTest, APageWithStylesAndImages)
{
    const QByteArray page =
        "<!DOCTYPE html><link rel=stylesheet href='css/a.css'><link rel=icon href=icon.png>"
        "<img src=one.png srcset='two.png 2x'><p style='background:url(inline.png)'>text";
    m_server.serve(text("/page"), page);
    m_server.serve(text("/css/a.css"), "@import 'b.css'; p{background:url(../back.png)}",
                   "text/css");
    m_server.serve(text("/css/b.css"),
                   "/* url(no.png) */ @font-face{font-family:f;src:url(f.woff2)} p{font-family:f}",
                   "text/css");
    QByteArray everyByte;
    for (int value = 0; value < 256; ++value)
        everyByte += static_cast<char>(value);
    m_server.serve(text("/one.png"), everyByte, "image/png");
    m_server.serve(text("/icon.png"), "icon", "image/png");
    m_server.serve(text("/inline.png"), "inline", "image/png");
    m_server.serve(text("/back.png"), "back", "image/png");
    m_server.serve(text("/css/f.woff2"), "font", "font/woff2");
    const QVariantMap found = archive();
    EXPECT_EQ(bytes(mainResource(found)), page);
    QStringList addresses = paths(found);
    addresses.sort();
    EXPECT_EQ(addresses, QStringList({text("/back.png"), text("/css/a.css"), text("/css/b.css"),
                                      text("/css/f.woff2"), text("/icon.png"), text("/inline.png"),
                                      text("/one.png")}));
    for (const QVariantMap& resource : subresources(found)) {
        if (resource.value(text("WebResourceURL")).toString().endsWith(text("/one.png"))) {
            EXPECT_EQ(bytes(resource), everyByte);
            EXPECT_EQ(resource.value(text("WebResourceMIMEType")).toString(), text("image/png"));
        }
    }
}

TEST_F(TestSiteTest, FramesWithinFramesEachWithItsOwnResources)
{
    m_server.serve(text("/page"), "<img src=top.png><iframe name=a src=a.html></iframe>"
                                  "<iframe name=b srcdoc='<img src=b.png>'></iframe>");
    m_server.serve(text("/a.html"), "<img src=a.png><iframe name=c src=c.html></iframe>");
    m_server.serve(text("/c.html"), "<img src=c.png>");
    for (const char* name : {"top", "a", "b", "c"})
        m_server.serve(QStringLiteral("/%1.png").arg(QLatin1String(name)), name, "image/png");
    const QVariantMap found = archive();
    expectResources(found, {{"/top.png", "top"}});
    ASSERT_EQ(subframes(found).size(), 2);
    const QVariantMap a = subframes(found)[0];
    const QVariantMap b = subframes(found)[1];
    expectResources(a, {{"/a.png", "a"}});
    expectResources(b, {{"/b.png", "b"}});
    EXPECT_EQ(mainResource(a).value(text("WebResourceFrameName")).toString(), text("a"));
    EXPECT_EQ(bytes(mainResource(b)), QByteArray("<img src=b.png>"));
    ASSERT_EQ(subframes(a).size(), 1);
    expectResources(subframes(a)[0], {{"/c.png", "c"}});
    EXPECT_EQ(bytes(mainResource(subframes(a)[0])), QByteArray("<img src=c.png>"));
}

TEST_F(TestSiteTest, AFrameset)
{
    m_server.serve(
        text("/page"),
        "<frameset cols='50%,50%'><frame name=left src=l.html><frame src=r.html></frameset>");
    m_server.serve(text("/l.html"), "<p>left");
    m_server.serve(text("/r.html"), "<p>right");
    const QVariantMap found = archive();
    ASSERT_EQ(subframes(found).size(), 2);
    EXPECT_EQ(bytes(mainResource(subframes(found)[0])), QByteArray("<p>left"));
    EXPECT_EQ(bytes(mainResource(subframes(found)[1])), QByteArray("<p>right"));
    EXPECT_FALSE(
        mainResource(subframes(found)[1]).value(text("WebResourceFrameName")).toString().isEmpty());
}

TEST_F(TestSiteTest, CompressedBodiesAreStoredPlain)
{
    m_server.serve(
        text("/page"),
        HttpAnswer{200, "text/html", gzip("<p>packed<img src=a.svg>"), {"Content-Encoding: gzip"}});
    m_server.serve(text("/a.svg"),
                   HttpAnswer{200, "image/svg+xml", gzip("<svg/>"), {"Content-Encoding: gzip"}});
    const QVariantMap found = archive();
    EXPECT_EQ(bytes(mainResource(found)), QByteArray("<p>packed<img src=a.svg>"));
    expectResources(found, {{"/a.svg", "<svg/>"}});
}

TEST_F(TestSiteTest, DocumentsOfAnyCharsetAreStoredInUtf8)
{
    const QByteArray utf8 = "<p>caf\xC3\xA9";
    m_server.serve(text("/header"), "<p>caf\xE9", "text/html; charset=iso-8859-1");
    m_server.serve(text("/meta"), "<meta charset=windows-1252><p>caf\xE9");
    m_server.serve(text("/plain"), utf8, "text/html; charset=utf-8");
    EXPECT_EQ(bytes(mainResource(archive("/header"))), utf8);
    EXPECT_EQ(bytes(mainResource(archive("/plain"))), utf8);
    const QVariantMap meta = mainResource(archive("/meta"));
    EXPECT_TRUE(bytes(meta).endsWith(utf8));
    EXPECT_EQ(meta.value(text("WebResourceTextEncodingName")).toString(), text("UTF-8"));
}

TEST_F(TestSiteTest, RedirectedImagesAreStoredUnderTheAddressThatThePageNames)
{
    m_server.serve(text("/page"), "<img src=moved.png>");
    m_server.redirect(text("/moved.png"), "/real.png");
    m_server.serve(text("/real.png"), "real", "image/png");
    expectResources(archive(), {{"/moved.png", "real"}});
}

TEST_F(TestSiteTest, PagesThatHoldThemselvesEnd)
{
    m_server.serve(text("/page"), "<iframe src=other></iframe>");
    m_server.serve(text("/other"), "<iframe src=page></iframe>");
    const QVariantMap found = archive();
    EXPECT_EQ(subframes(found).size(), 1);
}

TEST_F(TestSiteTest, APageOfManyElementsEnds)
{
    QByteArray page;
    for (int depth = 0; depth < 300000; ++depth)
        page += "<div>";
    page += "<img src=a.png>";
    m_server.serve(text("/page"), page);
    m_server.serve(text("/a.png"), "a", "image/png");
    const QVariantMap found = archive();
    EXPECT_EQ(bytes(mainResource(found)), page);
    expectResources(found, {{"/a.png", "a"}});
}

TEST_F(TestSiteTest, EmptyResourcesStayInTheArchive)
{
    m_server.serve(text("/page"), "<link rel=stylesheet href=empty.css>");
    m_server.serve(text("/empty.css"), "", "text/css");
    expectResources(archive(), {{"/empty.css", ""}});
}

} // namespace
