// SPDX-License-Identifier: MIT
#include "platform/webview/StyleScanner.h"

namespace {

using platform::StyleReference;
using platform::StyleScanner;

// "sheet:a", "image:b", "font:c", with a "!" where an imported sheet does not apply.
QString found(const QByteArray& text, StyleScanner::Form form = StyleScanner::Form::Sheet,
              bool applies = true, qsizetype step = 1 << 20)
{
    StyleScanner scanner(text, QStringLiteral("http://h/s/a.css"), QStringLiteral("screen"), form, applies);
    QStringList result;
    bool atEnd = false;
    while (!atEnd) {
        atEnd = scanner.advance(step);
        for (const StyleReference& reference : scanner.takeReferences()) {
            static const char* const names[] = {"sheet:", "image:", "font:"};
            QString address = reference.address;
            address.remove(QStringLiteral("http://h/s/"));
            result += QLatin1String(names[int(reference.kind)]) + address
                      + (reference.applies ? QString() : QStringLiteral("!"));
        }
    }
    return result.join(QLatin1Char(' '));
}

TEST(StyleScannerTest, FindsAddressesInAllTheirForms)
{
    EXPECT_EQ(found("a{b:url(x.png) , url( 'y z.png' ),URL(\"w.png\")}"),
              QStringLiteral("image:x.png image:y%20z.png image:w.png"));
    EXPECT_EQ(found("a{b:url(../x.png)}"), QStringLiteral("image:http://h/x.png"));
    EXPECT_EQ(found("a{b:u\\72l(x\\.p\\6E g)} b{c:url('a\\\nb.png')}"),
              QStringLiteral("image:x.png image:ab.png"));
    EXPECT_EQ(found("a{b:url(#x) url() url(data:image/png,x)}"), QString());
    EXPECT_EQ(found("a{b:image-set('x.png' 1x, url(y.png) 2x, 'z' type('image/png'))} c{content:'n.png'}"),
              QStringLiteral("image:x.png image:y.png image:z"));
}

TEST(StyleScannerTest, CommentsAndStringsHideWhatTheyHold)
{
    EXPECT_EQ(found("/* url(a.png) */ a{content:'url(b.png)';c:url(/**/d.png)}"),
              QStringLiteral("image:http://h/**/d.png"));
    EXPECT_EQ(found("a{content:'\nurl(b.png)} c{d:url(e.png)}"), QStringLiteral("image:b.png image:e.png"));
    EXPECT_EQ(found("a{b:url(c.png)} /* url(d.png)"), QStringLiteral("image:c.png"));
    EXPECT_EQ(found("<!-- a{b:url(c.png)} -->"), QStringLiteral("image:c.png"));
}

TEST(StyleScannerTest, FollowsImportsThatStandFirst)
{
    EXPECT_EQ(found("@charset \"utf-8\"; @import 'a.css'; @import/**/url(b.css);@import url(\"c.css\") "
                    "screen;a{}@import 'late.css';"),
              QStringLiteral("sheet:a.css sheet:b.css sheet:c.css"));
    EXPECT_EQ(
        found(
            "@layer base; @import 'a.css' layer(base) supports(display: grid) print; @import 'b.css' layer;"),
        QStringLiteral("sheet:a.css! sheet:b.css"));
    EXPECT_EQ(found("<!-- @import 'a.css'; -->"), QStringLiteral("sheet:a.css"));
    EXPECT_EQ(found("@import 'a.css'; b{c:url(d.png)}", StyleScanner::Form::Sheet, false),
              QStringLiteral("sheet:a.css!"));
    EXPECT_EQ(found("@import 'a.css'", StyleScanner::Form::Declarations), QString());
    EXPECT_EQ(found("@import 'a.css'"), QStringLiteral("sheet:a.css"));
}

TEST(StyleScannerTest, EvaluatesMediaAndSupports)
{
    EXPECT_EQ(found("@media print{a{b:url(1.png)}} @media (min-width:700px){a{b:url(2.png)} @media "
                    "print{c{d:url(3.png)}} e{f:url(4.png)}} g{h:url(5.png)}"),
              QStringLiteral("image:2.png image:4.png image:5.png"));
    EXPECT_EQ(
        found("@supports (display:grid){a{b:url(1.png)}} @supports not (display:grid){a{b:url(2.png)}}"),
        QStringLiteral("image:1.png"));
    EXPECT_EQ(found("@media print; a{b:url(1.png)} @namespace url(http://x/); @page{b:url(2.png)} @keyframes "
                    "k{from{b:url(3.png)}}"),
              QStringLiteral("image:1.png image:3.png"));
}

TEST(StyleScannerTest, TakesTheOneSourceOfAFontThatABrowserTakes)
{
    EXPECT_EQ(found("@font-face{font-family:f;src:url(a.eot);src:local('x'),url('a.eot?#iefix') "
                    "format('embedded-opentype'),url(a.woff2)format(woff2),url(a.woff)format('woff')} "
                    "p{a:url(b.png)}"),
              QStringLiteral("font:a.woff2 image:b.png"));
    EXPECT_EQ(found("@font-face{src:url(a.svg) format('svg')} @media print{@font-face{src:url(b.ttf)}} "
                    "@font-face{src:url(c.ttf)"),
              QStringLiteral("font:c.ttf"));
    EXPECT_EQ(found("@font-face{src:url(data:font/woff2;base64,AA)}"), QString());
}

TEST(StyleScannerTest, ReadsStyleAttributes)
{
    EXPECT_EQ(
        found("background:url(a.png);behavior:url(b.htc);-moz-binding:url(c.xml);list-style:url('d.png')",
              StyleScanner::Form::Declarations),
        QStringLiteral("image:a.png image:d.png"));
}

TEST(StyleScannerTest, StepsOfAnySizeFindTheSame)
{
    const QByteArray sheet =
        "@import 'a.css'; @media print{x{y:url(1.png)}} p{b:url( 'c\\64 .png' )} @font-face{src:url(f.woff)}";
    const QString whole = found(sheet);
    EXPECT_EQ(whole, QStringLiteral("sheet:a.css image:cd.png font:f.woff"));
    EXPECT_EQ(found(sheet, StyleScanner::Form::Sheet, true, 1), whole);
}

TEST(StyleScannerTest, UnbalancedBracketsDoNoHarm)
{
    EXPECT_EQ(found("}}} a{b:url(1.png)} ))) c{d:(((url(2.png)} e{f:url(3.png)"),
              QStringLiteral("image:1.png image:2.png image:3.png"));
    for (const char* end : {"@", "@import", "@import ", "@media", "@font-face{src:url(", "a{b:url('", "\\",
                            "a{b:u\\", "/*", "'\\"})
        EXPECT_NO_FATAL_FAILURE((void)found(end)) << end;
}

} // namespace
