// SPDX-License-Identifier: MIT
#include "platform/webview/PageScanner.h"

namespace {

using platform::FrameElement;
using platform::MarkupKind;
using platform::PageReference;
using platform::PageScanner;

QList<PageReference> references(const QByteArray& markup, MarkupKind kind = MarkupKind::Html)
{
    PageScanner scanner(markup, kind, QStringLiteral("http://h/page"), QStringLiteral("screen"));
    while (!scanner.advance(1000)) {
    }
    return scanner.takeReferences();
}

// "css:a", "style:{text}", "attribute:{text}", "image:b", "icon:c", "frame:d".
QString found(const QByteArray& markup, MarkupKind kind = MarkupKind::Html)
{
    static const char* const names[] = {"css:", "style:", "attribute:", "image:", "icon:", "frame:"};
    QStringList result;
    for (const PageReference& reference : references(markup, kind)) {
        QString address = reference.address;
        address.remove(QStringLiteral("http://h/"));
        result += QLatin1String(names[int(reference.kind)]) + address + QString::fromUtf8(reference.text)
                  + (reference.applies ? QString() : QStringLiteral("!"));
    }
    return result.join(QLatin1Char(' '));
}

TEST(PageScannerTest, FindsPictures)
{
    EXPECT_EQ(
        found("<img src=a><IMG SRC=' b&amp;c '><img src=''><img src='data:image/png,x'><img data-src=n>"),
        QStringLiteral("image:a image:b&c"));
    EXPECT_EQ(found("<img src=a srcset='b 2x, c 1x'>"), QStringLiteral("image:c"));
    EXPECT_EQ(found("<video poster=a src=b><source src=c></video><input type=IMAGE src=d><input src=e>"),
              QStringLiteral("image:a image:d"));
    EXPECT_EQ(found("<body background=a><table background='b'><td background=c>"),
              QStringLiteral("image:a image:b image:c"));
    EXPECT_EQ(found("<svg><image href=a /><image xlink:href='b'/><use href='c.svg#d'/><use "
                    "href='#e'/><feImage href=f /></svg>"),
              QStringLiteral("image:a image:b image:c.svg image:f"));
}

TEST(PageScannerTest, TakesTheFirstSourceOfAPictureThatFits)
{
    EXPECT_EQ(
        found(
            "<picture><source media='(max-width:500px)' srcset=a><source type='image/x-odd' srcset=b>"
            "<source type=image/webp srcset='c 1x, d 2x'><source srcset=e><img src=f></picture><img src=g>"),
        QStringLiteral("image:c image:g"));
    EXPECT_EQ(found("<picture><source media=print srcset=a><img src=f></picture>"),
              QStringLiteral("image:f"));
}

TEST(PageScannerTest, FindsStyle)
{
    EXPECT_EQ(found("<link rel='StyleSheet x' href=a><link rel=stylesheet type=text/less href=b>"
                    "<link rel=stylesheet disabled href=c><link rel='alternate stylesheet' href=d>"
                    "<link rel=stylesheet media=print href=e><link rel=stylesheet>"),
              QStringLiteral("css:a css:d! css:e!"));
    EXPECT_EQ(found("<style>x</style><style media=print>y</style><style type=text/x>z</style><style>open"),
              QStringLiteral("style:x style:y! style:z! style:open"));
    EXPECT_EQ(found("<p style='color:rgb(1,2,3)'><p style='a:url(&quot;b&quot;)'><p style='a:u\\72l(c)'>"),
              QStringLiteral("attribute:a:url(\"b\") attribute:a:u\\72l(c)"));
    EXPECT_EQ(references("<link rel=stylesheet href=a charset=koi8-r>").at(0).charset,
              QStringLiteral("koi8-r"));
}

TEST(PageScannerTest, FindsIcons)
{
    EXPECT_EQ(
        found(
            "<link rel='shortcut icon' href=a><link rel=apple-touch-icon href=b><link rel=canonical href=c>"),
        QStringLiteral("icon:a icon:b"));
}

TEST(PageScannerTest, FindsFrames)
{
    const QList<PageReference> frames =
        references("<iframe name=n id=i src=a></iframe><iframe id=i srcdoc='&lt;p>' src=b>"
                   "</iframe><frame src=c><iframe></iframe><iframe src='javascript:x'></iframe>");
    ASSERT_EQ(frames.size(), 5);
    EXPECT_EQ(frames[0].address, QStringLiteral("http://h/a"));
    EXPECT_EQ(frames[0].element.name, QStringLiteral("n"));
    EXPECT_EQ(frames[1].address, QStringLiteral("about:srcdoc"));
    EXPECT_EQ(frames[1].text, QByteArray("<p>"));
    EXPECT_EQ(frames[1].element.name, QStringLiteral("i"));
    EXPECT_EQ(frames[2].element.kind, FrameElement::Kind::Frame);
    EXPECT_EQ(frames[3].address, QString());
    EXPECT_EQ(frames[4].address, QString());
}

TEST(PageScannerTest, ObjectsDependOnTheirType)
{
    EXPECT_EQ(found("<object data=a type=image/png><img src=b></object><object data=c.html></object><object "
                    "data=d.swf></object>"
                    "<embed src=e.png><embed src=f type=application/x-java><object data=g></object><embed>"),
              QStringLiteral("image:a image:b frame:c.html image:e.png frame:g"));
}

TEST(PageScannerTest, TheFirstBaseCountsFromWhereItStands)
{
    EXPECT_EQ(found("<img src=a><base target=x><base href=dir/><img src=b><base href=other/><img src=c>"),
              QStringLiteral("image:a image:dir/b image:dir/c"));
    EXPECT_EQ(found("<base href='data:text/html,x'><img src=a>"), QStringLiteral("image:a"));
}

TEST(PageScannerTest, LeavesOutWhatIsNotPartOfThePage)
{
    EXPECT_EQ(found("<template><img src=a><template></template><img src=b></template><img "
                    "src=c></template><img src=d>"),
              QStringLiteral("image:c image:d"));
    EXPECT_EQ(found("<!--<img src=a>--><script><img src=b></script><noscript><img "
                    "src=c></noscript><textarea><img src=d></textarea>"),
              QStringLiteral("image:c"));
}

TEST(PageScannerTest, ReadsXml)
{
    EXPECT_EQ(found("<?xml-stylesheet type='text/css' href='a.css'?><svg:svg xmlns:svg='x'><svg:image "
                    "xlink:href='b'/>"
                    "<style><![CDATA[c]]>&amp;d</style></svg:svg>",
                    MarkupKind::Xml),
              QStringLiteral("css:a.css image:b style:c&d"));
}

TEST(PageScannerTest, TakesTheFirstTitle)
{
    const QByteArray page = "<title>\n a &amp;\n b</title><svg><title>c</title></svg>";
    PageScanner scanner(page, MarkupKind::Html, QString(), QStringLiteral("screen"));
    EXPECT_TRUE(scanner.advance(10000));
    EXPECT_EQ(scanner.title(), QStringLiteral("a & b"));
}

} // namespace
