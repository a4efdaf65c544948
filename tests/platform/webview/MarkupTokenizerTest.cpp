// SPDX-License-Identifier: MIT
#include "platform/webview/MarkupTokenizer.h"

#include "platform/webview/CharacterReferences.h"

namespace {

using platform::MarkupKind;
using platform::MarkupTokenizer;

// "<a" for a start tag, "</a" for an end tag, "?x" for an instruction, else the text.
QStringList tokens(const QByteArray& markup, MarkupKind kind = MarkupKind::Html)
{
    QStringList result;
    MarkupTokenizer tokenizer(markup, kind);
    while (tokenizer.next() != MarkupTokenizer::Token::End) {
        switch (tokenizer.token()) {
        case MarkupTokenizer::Token::StartTag:
            result += QLatin1Char('<') + QString::fromUtf8(tokenizer.name());
            break;
        case MarkupTokenizer::Token::EndTag:
            result += QStringLiteral("</") + QString::fromUtf8(tokenizer.name());
            break;
        case MarkupTokenizer::Token::Instruction:
            result += QLatin1Char('?') + QString::fromUtf8(tokenizer.text());
            break;
        default:
            result += QString::fromUtf8(tokenizer.text());
        }
    }
    return result;
}

QString join(const QByteArray& markup, MarkupKind kind = MarkupKind::Html)
{
    return tokens(markup, kind).join(QLatin1Char('|'));
}

TEST(MarkupTokenizerTest, CutsTagsAndText)
{
    EXPECT_EQ(join("a<P class=x>b</P >c<br/>d"), QStringLiteral("a|<p|b|</p|c|<br|d"));
    EXPECT_EQ(join("1 < 2 <3 </> </ >x"), QStringLiteral("1 |< 2 |<3 | |x"));
    EXPECT_EQ(join("<a><b"), QStringLiteral("<a|<b"));
    EXPECT_EQ(join("x<"), QStringLiteral("x|<"));
    EXPECT_EQ(join("x</"), QStringLiteral("x|</"));
    EXPECT_EQ(join(""), QString());
}

TEST(MarkupTokenizerTest, PassesOverCommentsAndDeclarations)
{
    EXPECT_EQ(join("<!DOCTYPE html>a<!-- <b> --->c<!-->d<!--->e<!-- x --!>f<!x>g"),
              QStringLiteral("a|c|d|e|f|g"));
    EXPECT_EQ(join("a<!-- <b>"), QStringLiteral("a"));
    EXPECT_EQ(join("a<![CDATA[<b>]]>"), QStringLiteral("a|]]>"));
}

TEST(MarkupTokenizerTest, ACommentEndsAtTheFirstOfItsEnds)
{
    EXPECT_EQ(join("a<!--x-->b<!--x--!>c<!---->d<!--->e<!-->f"), QStringLiteral("a|b|c|d|e|f"));
    EXPECT_EQ(join("<!--x--!y-->a<!--x-- >y--!>b<!-----!>c<!--x---->d"), QStringLiteral("a|b|c|d"));
    EXPECT_EQ(join("a<!--x--!"), QStringLiteral("a"));
    EXPECT_EQ(join("a<!--x--"), QStringLiteral("a"));
}

TEST(MarkupTokenizerTest, MillionsOfCommentsAreReadInOnePass)
{
    // A search for the end that none of them has would go through the whole page for each.
    EXPECT_EQ(join(QByteArray("<!--a--!>").repeated(2000000) + "b"), QStringLiteral("b"));
    EXPECT_EQ(join(QByteArray("<!--a-->").repeated(2000000) + "b"), QStringLiteral("b"));
    EXPECT_EQ(join("<!--" + QByteArray("-").repeated(20000000) + ">b"), QStringLiteral("b"));
}

TEST(MarkupTokenizerTest, TextElementsHoldNoTags)
{
    EXPECT_EQ(join("<script>a<b></scripts></SCRIPT\n>c"),
              QStringLiteral("<script|a<b></scripts>|</script|c"));
    EXPECT_EQ(join("<title>a<b></title><style></style>"),
              QStringLiteral("<title|a<b>|</title|<style||</style"));
    EXPECT_EQ(join("<iframe><img></iframe><textarea><img>"),
              QStringLiteral("<iframe|<img>|</iframe|<textarea|<img>"));
    EXPECT_EQ(join("<noscript><img></noscript>"), QStringLiteral("<noscript|<img|</noscript"));
}

TEST(MarkupTokenizerTest, ReadsAttributes)
{
    const QByteArray markup = "<img A=1 b = '2>' c=\"&lt;3\" d e=f/g =h a=9 i=\"\"/>x";
    MarkupTokenizer tokenizer(markup, MarkupKind::Html);
    tokenizer.next();
    EXPECT_EQ(tokenizer.attribute("a"), QStringLiteral("1"));
    EXPECT_EQ(tokenizer.attribute("b"), QStringLiteral("2>"));
    EXPECT_EQ(tokenizer.attribute("c"), QStringLiteral("<3"));
    EXPECT_EQ(tokenizer.rawAttribute("c"), QByteArrayView("&lt;3"));
    EXPECT_TRUE(tokenizer.hasAttribute("d"));
    EXPECT_FALSE(tokenizer.attribute("d").isNull());
    EXPECT_EQ(tokenizer.attribute("e"), QStringLiteral("f/g"));
    EXPECT_TRUE(tokenizer.hasAttribute("=h"));
    EXPECT_TRUE(tokenizer.attribute("none").isNull());
    EXPECT_TRUE(tokenizer.isSelfClosing());
    tokenizer.next();
    EXPECT_EQ(tokenizer.text(), QByteArrayView("x"));
}

TEST(MarkupTokenizerTest, XmlHasCdataCaseAndNoTextElements)
{
    EXPECT_EQ(
        join("<?xml version='1.0'?><!DOCTYPE a [<!ENTITY b '>'>]><A/><script/><![CDATA[<b>]]>c",
             MarkupKind::Xml),
        QStringLiteral("?xml version='1.0'|<A|<script|<b>|c"));
}

TEST(MarkupTokenizerTest, AThousandAttributesAreEnough)
{
    QByteArray markup = "<a";
    for (int index = 0; index < 5000; ++index)
        markup += " x" + QByteArray::number(index);
    markup += ">";
    MarkupTokenizer tokenizer(markup, MarkupKind::Html);
    tokenizer.next();
    EXPECT_TRUE(tokenizer.hasAttribute("x999"));
    EXPECT_FALSE(tokenizer.hasAttribute("x1000"));
    EXPECT_EQ(tokenizer.next(), MarkupTokenizer::Token::End);
}

TEST(CharacterReferencesTest, AreResolvedAsInAttributes)
{
    using platform::resolvedReferences;
    EXPECT_EQ(resolvedReferences("a&amp;b&eacute;&#65;&#x42;&apos;"),
              QStringLiteral("a&b\u00e9AB'"));
    EXPECT_EQ(resolvedReferences("?a=1&copy=2&amp=3&ampx"),
              QStringLiteral("?a=1&copy=2&amp=3&ampx"));
    EXPECT_EQ(resolvedReferences("x&amp"), QStringLiteral("x&"));
    EXPECT_EQ(resolvedReferences("&none;&;&#;&#x;&"), QStringLiteral("&none;&;&#;&#x;&"));
    EXPECT_EQ(resolvedReferences("&#0;&#xD800;&#x110000;&#99999999999;&#65"),
              QStringLiteral("\uFFFD\uFFFD\uFFFD\uFFFDA"));
    EXPECT_EQ(resolvedReferences("&#x1F600;"), QString::fromUtf8("\xF0\x9F\x98\x80"));
}

} // namespace
