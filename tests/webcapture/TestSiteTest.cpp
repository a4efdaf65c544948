// SPDX-License-Identifier: MIT
//
// Pages of every build, byte for byte and frame by frame.
#include "webcapture/TestSite.h"

#include <QtEndian>

namespace {

using TestSiteTest = TestSite;
using test::HttpAnswer;

// RFC 1952, round the deflated data that lies between the header and the checksum of Qt's own form.
QByteArray gzip(const QByteArray& plain)
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

TEST_F(TestSiteTest, APageWithStylesAndImages)
{
    const QByteArray document =
        "<!DOCTYPE html><link rel=stylesheet href='css/a.css'><link rel=icon href=icon.png>"
        "<img src=one.png srcset='two.png 2x'><p style='background:url(inline.png)'>text"
        "<style>q{background:url(own.png)}</style>";
    const QByteArray a = "@import 'b.css'; p{background:url(../back.png)} "
                         "@media print{p{background:url(no.png)}}";
    const QByteArray b =
        "/* url(no.png) */ @font-face{font-family:f;src:url(f.woff2)} p{font-family:f}";
    QByteArray everyByte;
    for (int value = 0; value < 256; ++value)
        everyByte += static_cast<char>(value);
    page("/page", document);
    styles("/css/a.css", a);
    styles("/css/b.css", b);
    page("/css/f.woff2", "font", "font/woff2");
    image("/one.png", everyByte);
    for (const char* name : {"icon", "inline", "back", "own"})
        image(qPrintable(QStringLiteral("/%1.png").arg(QLatin1String(name))), name);
    const QVariantMap found = archive();
    expectArchive(found, {"/page",
                          document,
                          {{"/css/a.css", a},
                           {"/css/b.css", b},
                           {"/css/f.woff2", "font"},
                           {"/back.png", "back"},
                           {"/icon.png", "icon"},
                           {"/one.png", everyByte},
                           {"/inline.png", "inline"},
                           {"/own.png", "own"}}});
    QStringList types;
    for (const QVariantMap& resource : subresources(found))
        types += resource.value(text("WebResourceMIMEType")).toString();
    EXPECT_EQ(types, QStringList({text("text/css"), text("text/css"), text("font/woff2"),
                                  text("image/png"), text("image/png"), text("image/png"),
                                  text("image/png"), text("image/png")}));
}

TEST_F(TestSiteTest, ImagesInAllTheirForms)
{
    const QByteArray document =
        "<base href=/img/><body background=body.png><img srcset='s.png 300w, l.png 1600w' "
        "sizes=100vw><picture><source media='(max-width:500px)' srcset=no.png>"
        "<source srcset=source.png><img src=no.png></picture><input type=image src=input.png>"
        "<object data=object.png></object><embed src=embed.png><video poster=poster.png></video>"
        "<svg><image href=svg.png /><use xlink:href='use.svg#part'/></svg>"
        "<img src='data:image/png;base64,AAAA'>";
    page("/page", document);
    QList<std::pair<QByteArray, QByteArray>> resources;
    for (const char* name : {"body.png", "l.png", "source.png", "input.png", "object.png",
                             "embed.png", "poster.png", "svg.png", "use.svg"}) {
        image(qPrintable(QStringLiteral("/img/%1").arg(QLatin1String(name))), name);
        resources.append({QByteArray("/img/") + name, name});
    }
    expectPage({"/page", document, resources});
}

TEST_F(TestSiteTest, FramesWithinFramesEachWithItsOwnResources)
{
    const QByteArray document = "<img src=top.png><iframe name=a src=a.html></iframe>"
                                "<iframe name=b srcdoc='<img src=b.png>'></iframe>"
                                "<iframe></iframe><object data=d.html name=d></object>";
    const QByteArray a = "<img src=a.png><img src=top.png><iframe name=c src=c.html></iframe>";
    page("/page", document);
    page("/a.html", a);
    page("/c.html", "<img src=c.png>");
    page("/d.html", "<p>object");
    for (const char* name : {"top", "a", "b", "c"})
        image(qPrintable(QStringLiteral("/%1.png").arg(QLatin1String(name))), name);
    expectPage({"/page",
                document,
                {{"/top.png", "top"}},
                {{"/a.html",
                  a,
                  {{"/a.png", "a"}, {"/top.png", "top"}},
                  {{"/c.html", "<img src=c.png>", {{"/c.png", "c"}}, {}, "c"}},
                  "a"},
                 {"about:srcdoc", "<img src=b.png>", {{"/b.png", "b"}}, {}, "b"},
                 {"about:blank",
                  "<html><head></head><body></body></html>",
                  {},
                  {},
                  "<!--framePath //<!--frame2-->-->"},
                 {"/d.html", "<p>object", {}, {}, "d"}}});
}

TEST_F(TestSiteTest, AFramesetOfFramesets)
{
    const QByteArray document = "<frameset cols='50%,50%'><frame name=left src=l.html>"
                                "<frame src=r.html></frameset>";
    const QByteArray right = "<frameset rows='50%,50%'><frame name=top src=t.html></frameset>";
    page("/page", document);
    page("/l.html", "<body background=l.png>left");
    page("/r.html", right);
    page("/t.html", "<p>top");
    image("/l.png", "l");
    expectPage({"/page",
                document,
                {},
                {{"/l.html", "<body background=l.png>left", {{"/l.png", "l"}}, {}, "left"},
                 {"/r.html",
                  right,
                  {},
                  {{"/t.html", "<p>top", {}, {}, "top"}},
                  "<!--framePath //<!--frame1-->-->"}}});
}

TEST_F(TestSiteTest, CompressedBodiesAreStoredPlain)
{
    const QByteArray document = "<p>packed<img src=a.svg><link rel=stylesheet href=a.css>";
    answer("/page", 200, gzip(document), "text/html", {"Content-Encoding: gzip"});
    answer("/a.svg", 200, gzip("<svg/>"), "image/svg+xml", {"Content-Encoding: gzip"});
    // A zlib stream, which is what "deflate" means; Qt puts four bytes before it.
    answer("/a.css", 200, qCompress("p{}").sliced(4), "text/css", {"Content-Encoding: deflate"});
    expectPage({"/page", document, {{"/a.svg", "<svg/>"}, {"/a.css", "p{}"}}});
}

TEST_F(TestSiteTest, DocumentsOfAnyCharsetAreStoredInUtf8)
{
    const QByteArray utf8 = "<p>caf\xC3\xA9";
    const QByteArray meta = "<meta charset=windows-1252><p>caf";
    const QByteArray utf16 = QByteArray::fromHex("fffe3c0070003e00630061006600e900");
    page("/header", "<p>caf\xE9", "text/html; charset=iso-8859-1");
    page("/utf8", utf8, "text/html; charset=utf-8");
    page("/meta", meta + "\xE9");
    page("/mark", "\xEF\xBB\xBF" + utf8, "text/html; charset=iso-8859-1");
    page("/utf16", utf16);
    page("/shift-jis", "<p>\x93\xFA\x96\x7B", "text/html; charset=Shift_JIS");
    for (const char* path : {"/header", "/utf8", "/mark", "/utf16"})
        expectArchive(archive(path), {path, utf8});
    expectArchive(archive("/meta"), {"/meta", meta + "\xC3\xA9"});
    expectArchive(archive("/shift-jis"), {"/shift-jis", "<p>\xE6\x97\xA5\xE6\x9C\xAC"});
    EXPECT_EQ(mainResource(archive("/meta")).value(text("WebResourceTextEncodingName")).toString(),
              text("UTF-8"));
}

TEST_F(TestSiteTest, StyleSheetsOfAnyCharsetAreReadAndStoredAsTheyCame)
{
    const QByteArray sheet = "@charset \"iso-8859-1\"; p{background:url(\xE9.png)}";
    const QByteArray document = "<link rel=stylesheet href=a.css>";
    page("/page", document);
    styles("/a.css", sheet);
    image("/%C3%A9.png", "e");
    expectPage({"/page", document, {{"/a.css", sheet}, {"/%C3%A9.png", "e"}}});
}

TEST_F(TestSiteTest, RedirectsOfEverything)
{
    const QByteArray document = "<img src=moved.png><link rel=stylesheet href=moved.css>"
                                "<iframe name=f src=moved.html></iframe>";
    m_server.redirect(text("/old"), "/new/");
    m_server.redirect(text("/new/"), "/new/page", 301);
    page("/new/page", document);
    m_server.redirect(text("/new/moved.png"), "/real.png", 307);
    m_server.redirect(text("/new/moved.css"), "/there/real.css", 308);
    m_server.redirect(text("/new/moved.html"), "/there/real.html", 303);
    image("/real.png", "real");
    styles("/there/real.css", "p{background:url(a.png)}");
    image("/there/a.png", "a");
    page("/there/real.html", "<img src=a.png>");
    // Documents under the address that answered, resources under the one that asks for them.
    expectArchive(archive("/old"),
                  {"/new/page",
                   document,
                   {{"/new/moved.png", "real"},
                    {"/new/moved.css", "p{background:url(a.png)}"},
                    {"/there/a.png", "a"},
                    // Where a reader looks who takes the sheet to be where the page names it.
                    {"/new/a.png", "a"}},
                   {{"/there/real.html", "<img src=a.png>", {{"/there/a.png", "a"}}, {}, "f"}}});
}

TEST_F(TestSiteTest, ADataAddressIsAFramesDocument)
{
    const QByteArray document = "<iframe src='data:text/html,<p>data'></iframe>";
    page("/page", document);
    expectPage({"/page", document, {}, {{"data:text/html,<p>data", "<p>data"}}});
}

TEST_F(TestSiteTest, DocumentsThatAreNoHtml)
{
    const QByteArray xhtml = "<?xml version='1.0'?><?xml-stylesheet href='a.css'?>"
                             "<html xmlns='http://www.w3.org/1999/xhtml'><img src='a.png'/></html>";
    const QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg'><image href='a.png'/></svg>";
    image("/a.png", "a");
    styles("/a.css", "p{}");
    page("/xhtml", xhtml, "application/xhtml+xml");
    expectArchive(archive("/xhtml"), {"/xhtml", xhtml, {{"/a.css", "p{}"}, {"/a.png", "a"}}});
    page("/svg", svg, "image/svg+xml");
    expectArchive(archive("/svg"), {"/svg", svg, {{"/a.png", "a"}}});
    page("/text", "<img src=a.png>", "text/plain");
    expectArchive(archive("/text"), {"/text", "<img src=a.png>"});
    expectArchive(archive("/a.png"), {"/a.png", "a"});
}

} // namespace
