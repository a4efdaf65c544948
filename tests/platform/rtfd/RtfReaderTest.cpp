// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfReader.h"

#include "platform/files/FileManager.h"
#include "platform/rtfd/RichText.h"

namespace {

using namespace platform;
using test::readBody;
using test::readRtf;

QString textOf(const QByteArray& rtf)
{
    return readRtf(rtf).string();
}

TEST(RtfReaderTest, FailsOnlyWhenItIsNoRichText)
{
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("text"), QByteArray("{\\html}"), QByteArray("\\rtf1 x")}) {
        Error error;
        EXPECT_FALSE(attributedStringFromRtf(bytes, nullptr, &error)) << bytes.constData();
        EXPECT_EQ(error.domain(), cocoaErrorDomain);
        EXPECT_EQ(error.code(), FileReadCorruptFileError);
    }
    EXPECT_EQ(textOf("{\\rtf1"), QString());
    EXPECT_EQ(textOf(" \n{\\rtf1 cut"), QStringLiteral("cut"));
    EXPECT_EQ(textOf("\xEF\xBB\xBF{\\rtf1 a}"), QStringLiteral("a"));
}

TEST(RtfReaderTest, WhatFollowsTheDocumentIsNotRead)
{
    EXPECT_EQ(textOf("{\\rtf1 a}b{c}"), QStringLiteral("a"));
}

TEST(RtfReaderTest, ReadsCodePagesOfTheDocument)
{
    EXPECT_EQ(textOf("{\\rtf1\\ansi \\'e4\\'80}"), QStringLiteral("ä€"));
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg1251 \\'e4}"), QStringLiteral("д"));
    EXPECT_EQ(textOf("{\\rtf1\\mac \\'8a\\'a5}"), QStringLiteral("ä•"));
    EXPECT_EQ(textOf("{\\rtf1\\pc \\'84}"), QStringLiteral("ä"));
    EXPECT_EQ(textOf("{\\rtf1\\pca \\'84}"), QStringLiteral("ä"));
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg932 \\'93\\'fa{\\'96}}"), QString::fromUtf8("日–"));
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg65001 \xC3\xA4}"), QStringLiteral("ä"));
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg99999 \\'e4}"), QStringLiteral("ä"));
}

TEST(RtfReaderTest, ReadsBytesInTheCharsetOfTheirFont)
{
    const QByteArray fonts =
        "{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset128 B;}{\\f2\\fcharset204 C;}{\\f3\\fcharset2 Symbol;}"
        "{\\f4\\fcharset77 E;}{\\f5\\fcharset161 F;}}";
    EXPECT_EQ(
        textOf("{\\rtf1\\ansi" + fonts + "\\f0\\'e4\\f1\\'93\\'fa\\'83A\\f2\\'e4\\f3\\'b7\\f4\\'8a\\f5\\'e4}"),
        QString::fromUtf8("ä日アд•äδ"));
    // A second byte that stands for itself, and one that is an escape.
    EXPECT_EQ(textOf("{\\rtf1\\ansi" + fonts + "\\f1 \\'95\\\\\\'83\\{}"), QString::fromUtf8("表ボ"));
}

TEST(RtfReaderTest, ReadsUnicodeAndPassesOverItsSubstitutes)
{
    EXPECT_EQ(textOf("{\\rtf1\\u8364?x}"), QStringLiteral("€x"));
    EXPECT_EQ(textOf("{\\rtf1\\uc2\\u8364 ab x}"), QStringLiteral("€ x"));
    EXPECT_EQ(textOf("{\\rtf1\\uc0\\u8364 x}"), QStringLiteral("€x"));
    EXPECT_EQ(textOf("{\\rtf1\\u8364\\'80x}"), QStringLiteral("€x"));
    EXPECT_EQ(textOf("{\\rtf1{\\uc0\\u8364}\\u8364 ?x}"), QStringLiteral("€€x"));
    EXPECT_EQ(textOf("{\\rtf1\\uc1\\u8364{x}}"), QStringLiteral("€x"));
    EXPECT_EQ(textOf("{\\rtf1\\uc0\\u-10179 \\u-8704 }"), QString::fromUtf8("😀"));
    EXPECT_EQ(textOf("{\\rtf1\\uc0\\u55357 \\u56832 }"), QString::fromUtf8("😀"));
    EXPECT_EQ(textOf("{\\rtf1\\uc0\\u-10179 x}"), QString(QChar(0xD83D)) + u'x');
}

TEST(RtfReaderTest, ReadsWordsAndSymbolsThatStandForCharacters)
{
    EXPECT_EQ(textOf("{\\rtf1 a\\tab b\\line c\\page "
                     "d\\~\\_\\-\\bullet\\emdash\\endash\\lquote\\rquote\\ldblquote\\rdblquote"
                     "\\{\\}\\\\\\emspace\\enspace\\rtlmark}"),
              QString::fromUtf8("a\tb\u2028c\fd\u00A0\u2011\u00AD•—–‘’“”{}\\\u2003\u2002\u200F"));
}

TEST(RtfReaderTest, EndsParagraphsAtParAndAtAnEscapedLineEnd)
{
    EXPECT_EQ(textOf("{\\rtf1 a\\par b\\\nc\\\r\nd\\\re\\sect f}"), QStringLiteral("a\nb\nc\nd\ne\nf"));
    EXPECT_EQ(textOf("{\\rtf1 a\nb\r\nc}"), QStringLiteral("abc"));
}

TEST(RtfReaderTest, ReadsRunFormats)
{
    const auto attributesOf = [](const QByteArray& words) {
        return readBody("\\f0\\fs24 " + words + " x").attributesAt(0);
    };
    EXPECT_TRUE(attributesOf("\\b").font->bold);
    EXPECT_TRUE(attributesOf("\\f1").font->bold);
    EXPECT_FALSE(attributesOf("\\b\\b0").font->bold);
    EXPECT_TRUE(attributesOf("\\i").font->italic);
    EXPECT_EQ(attributesOf("\\fs27").font->size, 13.5);
    EXPECT_EQ(attributesOf("\\fs26\\fsmilli13333").font->size, 13.333);
    EXPECT_EQ(attributesOf("\\fs0").font->size, 12);
    EXPECT_EQ(attributesOf("\\cf2").foregroundColor, (Color{1, 0, 0}));
    EXPECT_EQ(attributesOf("\\cf0").foregroundColor, std::nullopt);
    EXPECT_EQ(attributesOf("\\cf99").foregroundColor, std::nullopt);
    EXPECT_EQ(attributesOf("\\cb2").backgroundColor, (Color{1, 0, 0}));
    EXPECT_EQ(attributesOf("\\cb2\\cb1").backgroundColor, std::nullopt);
    EXPECT_EQ(attributesOf("\\highlight2").backgroundColor, (Color{1, 0, 0}));
    EXPECT_EQ(attributesOf("\\ul").underline, LineStyle::Single);
    EXPECT_EQ(attributesOf("\\ulwave").underline, LineStyle::Single);
    EXPECT_EQ(attributesOf("\\uldb").underline, LineStyle::Double);
    EXPECT_EQ(attributesOf("\\ulth").underline, LineStyle::Thick);
    EXPECT_EQ(attributesOf("\\ulstyle9").underline, LineStyle::Double);
    EXPECT_EQ(attributesOf("\\ul\\ul0").underline, LineStyle::None);
    EXPECT_EQ(attributesOf("\\ul\\ulnone").underline, LineStyle::None);
    EXPECT_EQ(attributesOf("\\ulc2").underlineColor, (Color{1, 0, 0}));
    EXPECT_EQ(attributesOf("\\strike").strikethrough, LineStyle::Single);
    EXPECT_EQ(attributesOf("\\striked1").strikethrough, LineStyle::Double);
    EXPECT_EQ(attributesOf("\\strike\\striked0").strikethrough, LineStyle::Single);
    EXPECT_EQ(attributesOf("\\striked1\\strike0").strikethrough, LineStyle::Double);
    EXPECT_EQ(attributesOf("\\striked1\\strike0\\striked0").strikethrough, LineStyle::None);
    EXPECT_EQ(attributesOf("\\super").superscript, 1);
    EXPECT_EQ(attributesOf("\\sub").superscript, -1);
    EXPECT_EQ(attributesOf("\\super\\nosupersub").superscript, 0);
    EXPECT_EQ(attributesOf("\\up5").baselineOffset, 2.5);
    EXPECT_EQ(attributesOf("\\dn4").baselineOffset, -2);
    EXPECT_EQ(attributesOf("\\expnd4").kern, 1);
    EXPECT_EQ(attributesOf("\\expnd4\\expndtw21").kern, 1.05);
    EXPECT_EQ(attributesOf("\\b\\i\\fs40\\plain").font, Font::userFont(12));
}

TEST(RtfReaderTest, FormatsEndWithTheirGroup)
{
    const AttributedString text = readBody("\\f0 a{\\b b{\\i c}}d");
    EXPECT_FALSE(text.attributesAt(0).font->bold);
    EXPECT_TRUE(text.attributesAt(1).font->bold);
    EXPECT_TRUE(text.attributesAt(2).font->bold && text.attributesAt(2).font->italic);
    EXPECT_EQ(text.attributesAt(3), text.attributesAt(0));
}

TEST(RtfReaderTest, ReadsFontsThatNobodyKnows)
{
    const AttributedString text = readRtf(
        "{\\rtf1\\ansi\\deff3{\\fonttbl{\\f3\\fmodern{\\*\\panose 020b}Nobody Mono-BoldOblique"
        "{\\*\\falt Other};}}x}");
    EXPECT_EQ(text.attributesAt(0).font, (Font{QStringLiteral("Nobody Mono"), 12, true, true, true}));
}

TEST(RtfReaderTest, TextWithoutAFontIsInHelvetica)
{
    EXPECT_EQ(readRtf("{\\rtf1 x}").attributesAt(0).font, Font::userFont(12));
}

TEST(RtfReaderTest, ReadsExactColours)
{
    const AttributedString text = readRtf("{\\rtf1\\ansi\\cocoartf2639{\\colortbl;\\red255\\green255\\blue255;"
                                          "\\red87\\green96\\blue106;\\red1\\green2\\blue3;"
                                          "\\red4\\green5\\blue6;\\red7\\green8\\blue9;}{\\*\\expandedcolortbl;"
                                          ";\\cssrgb\\c50000\\c45098\\c49020\\c30196;"
                                          "\\csgenericrgb\\c0\\c0\\c93333;\\csgray\\c25000;"
                                          "\\cspthree\\c1\\c2\\c3;}\\cf2 a\\cf3 b\\cf4 c\\cf5 d\\cf1 e}");
    EXPECT_EQ(text.attributesAt(0).foregroundColor, (Color{0.5, 115 / 255.0, 125 / 255.0, 77 / 255.0}));
    EXPECT_EQ(text.attributesAt(1).foregroundColor, (Color{0, 0, 238 / 255.0, 1, Color::Space::CalibratedRgb}));
    EXPECT_EQ(text.attributesAt(2).foregroundColor, (Color{0.25, 0.25, 0.25}));
    EXPECT_EQ(text.attributesAt(3).foregroundColor, Color::fromRgb8(7, 8, 9));
    EXPECT_EQ(text.attributesAt(4).foregroundColor, (Color{1, 1, 1}));
}

TEST(RtfReaderTest, NumberOneIsAColourWhereCocoaDidNotWrite)
{
    EXPECT_EQ(readRtf("{\\rtf1{\\colortbl;\\red255\\green255\\blue0;}\\cb1 x}").attributesAt(0).backgroundColor,
              (Color{1, 1, 0}));
}

TEST(RtfReaderTest, ReadsLinksOfManyForms)
{
    const auto linkOf = [](const QByteArray& instruction) {
        const AttributedString text = readRtf("{\\rtf1 a{\\field{\\*\\fldinst" + instruction
                                              + "}{\\fldrslt link}}b}");
        EXPECT_EQ(text.string(), QStringLiteral("alinkb"));
        EXPECT_TRUE(text.attributesAt(0).link.isEmpty());
        EXPECT_TRUE(text.attributesAt(5).link.isEmpty());
        return text.attributesAt(2).link;
    };
    EXPECT_EQ(linkOf("{HYPERLINK \"http://a.b/c\"}"), QStringLiteral("http://a.b/c"));
    EXPECT_EQ(linkOf(" HYPERLINK http://a.b/c "), QStringLiteral("http://a.b/c"));
    EXPECT_EQ(linkOf("{ hyperlink \"a\" \\\\o \"tip\" }"), QStringLiteral("a"));
    EXPECT_EQ(linkOf("{HYPERLINK \\\\l \"place\"}"), QStringLiteral("#place"));
    EXPECT_EQ(linkOf("{HYPERLINK \"http://a.b\" \\\\l \"place\" \\\\t \"_blank\"}"),
              QStringLiteral("http://a.b#place"));
    EXPECT_EQ(linkOf("{HYPERLINK \"C:\\\\\\\\dir\\\\\\\\f.txt\"}"), QStringLiteral("C:\\dir\\f.txt"));
    EXPECT_EQ(linkOf("{HYPERLINK \"http://a.b/\\'e4\\u8364?\"}"), QString::fromUtf8("http://a.b/ä€"));
    EXPECT_EQ(linkOf("{\\rtlch HYPERLINK {\\b \"http://a.b\"}}"), QStringLiteral("http://a.b"));
    EXPECT_EQ(linkOf("{PAGE}"), QString());
    EXPECT_EQ(linkOf("{HYPERLINK}"), QString());
    EXPECT_EQ(linkOf("{HYPERLINK \"open}"), QStringLiteral("open"));
}

TEST(RtfReaderTest, PassesOverWhatIsNoText)
{
    EXPECT_EQ(
        textOf("{\\rtf1{\\stylesheet{\\s1 Heading;}}{\\info{\\author Me}}{\\header h}{\\footerl "
               "f}{\\*\\unknown x{y}z}"
               "{\\pict\\wmetafile8 0102}a{\\*\\bkmkstart m}b{\\footnote n}{\\nonesttables\\par}\\bin3 {}}c}"),
        QStringLiteral("abc"));
    EXPECT_EQ(textOf("{\\rtf1 a{\\v hidden}b\\unknownword1 c\\caps d}"), QStringLiteral("ahiddenbcd"));
}

TEST(RtfReaderTest, PicturesWithinTheTextBecomeAttachments)
{
    const AttributedString text = readRtf(
        "{\\rtf1 a{\\*\\shppict{\\pict{\\*\\picprop x}\\picwgoal400\\pichgoal200\\picscalex50"
        "\\pngblip 8950\n4e47}}{\\nonshppict{\\pict\\wmetafile8 00}}{\\pict\\jpegblip\\bin2 }{}b}");
    EXPECT_EQ(text.string(), QStringLiteral("a\uFFFC\uFFFCb"));
    const TextAttachment& png = *text.attributesAt(1).attachment;
    EXPECT_EQ(png.fileWrapper()->contents(), "\x89PNG");
    EXPECT_EQ(png.fileWrapper()->preferredFilename(), QStringLiteral("picture.png"));
    EXPECT_EQ(png.size(), (TextAttachment::Size{10, 10}));
    EXPECT_EQ(text.attributesAt(2).attachment->fileWrapper()->contents(), "}{");
}

TEST(RtfReaderTest, ReadsAttachmentsOfAllWriters)
{
    QStringList names;
    const RtfAttachmentMaker maker = [&names](const QString& name) {
        names.append(name);
        return nullptr;
    };
    const auto text = attributedStringFromRtf(
        "{\\rtf1\\mac a{{\\NeXTGraphic Image 1.png \\width200 \\height100\n}\xAC}b{{\\NeXTGraphic B\\'c3\\'a4r "
        "\\{1\\}.jpg "
        "\\width0 \\height0 \\noorient \\appleattachmentpadding0 \\appleembedtype0 \\appleaqc\n}\\'ac}c"
        "{{\\NeXTGraphic x.tiff}\xAC}{{\\NeXTGraphic \\'8a.png \\width1}\xAC}{\\NeXTGraphic bare.png}d}",
        maker);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->string(), QStringLiteral("a\uFFFCb\uFFFCc\uFFFC\uFFFC\uFFFCd"));
    EXPECT_EQ(names,
              (QStringList{QStringLiteral("Image 1.png"), QString::fromUtf8("Bär {1}.jpg"),
                           QStringLiteral("x.tiff"), QString::fromUtf8("ä.png"), QStringLiteral("bare.png")}));
    EXPECT_EQ(text->attributesAt(1).attachment->size(), (TextAttachment::Size{10, 5}));
}

TEST(RtfReaderTest, ReadsParagraphFormats)
{
    const auto styleOf = [](const QByteArray& words) {
        const AttributedString text = readBody("\\pard\\pardirnatural" + words + " x\\\n");
        return text.attributesAt(0).paragraphStyle ? *text.attributesAt(0).paragraphStyle : ParagraphStyle();
    };
    EXPECT_EQ(styleOf(""), ParagraphStyle());
    EXPECT_EQ(styleOf("\\ql").alignment, TextAlignment::Left);
    EXPECT_EQ(styleOf("\\ql\\qnatural").alignment, TextAlignment::Natural);
    EXPECT_EQ(styleOf("\\qj").alignment, TextAlignment::Justified);
    EXPECT_EQ(styleOf("\\rtlpar").direction, WritingDirection::RightToLeft);
    EXPECT_EQ(styleOf("\\li720\\fi-360").headIndent, 36);
    EXPECT_EQ(styleOf("\\fi-360\\li720").firstLineHeadIndent, 18);
    EXPECT_EQ(styleOf("\\ri200").tailIndent, -10);
    EXPECT_EQ(styleOf("\\sb20\\sa40").paragraphSpacingBefore, 1);
    EXPECT_EQ(styleOf("\\sb20\\sa40").paragraphSpacing, 2);
    EXPECT_EQ(styleOf("\\sl264\\slmult1").lineHeightMultiple, 1.1);
    EXPECT_EQ(styleOf("\\sl520").minimumLineHeight, 26);
    EXPECT_EQ(styleOf("\\sl-520").maximumLineHeight, 26);
    EXPECT_EQ(styleOf("\\sl-520").minimumLineHeight, 26);
    EXPECT_EQ(styleOf("\\slleading40").lineSpacing, 2);
    EXPECT_EQ(styleOf("\\outlinelevel0").headerLevel, 1);
    EXPECT_EQ(styleOf("\\outlinelevel9").headerLevel, 0);
    EXPECT_EQ(styleOf("\\tx100\\tqr\\tx200").tabStops,
              (std::vector<TextTab>{{TextAlignment::Left, 5}, {TextAlignment::Right, 10}}));
    EXPECT_EQ(styleOf("\\qc\\pard\\pardirnatural"), ParagraphStyle());
}

TEST(RtfReaderTest, DirectionIsLeftToRightWhereCocoaTellsNone)
{
    EXPECT_EQ(readBody("\\pard x\\\n").attributesAt(0).paragraphStyle->direction,
              WritingDirection::LeftToRight);
    EXPECT_FALSE(readRtf("{\\rtf1\\pard x\\par}").attributesAt(0).paragraphStyle);
}

TEST(RtfReaderTest, AParagraphHasTheFormatOfItsEnd)
{
    const AttributedString text = readRtf("{\\rtf1\\pard a\\qc b\\par\\pard c\\par}");
    EXPECT_EQ(text.attributesAt(0).paragraphStyle->alignment, TextAlignment::Center);
    EXPECT_FALSE(text.attributesAt(3).paragraphStyle);
}

TEST(RtfReaderTest, ReadsTheDocumentsAttributes)
{
    DocumentAttributes attributes;
    (void)readRtf(
        "{\\rtf1\\paperw11900\\paperh16840\\margl1440\\margr1440\\margt720\\margb720\\vieww10800\\viewh7200\\vi"
        "ewkind1"
        "\\viewscale125\\deftab720\\hyphauto1\\hyphfactor90{\\info{\\title T}{\\author Zo\\'eb}{\\*\\company C}"
        "{\\doccomm x}}{\\*\\background{\\shp{\\*\\shpinst{\\sp{\\sn fillColor}{\\sv 13171455}}"
        "{\\sp{\\sn fBackground}{\\sv 1}}}}}}",
        &attributes);
    DocumentAttributes expected;
    expected.paperWidth = 595;
    expected.paperHeight = 842;
    expected.leftMargin = expected.rightMargin = 72;
    expected.topMargin = expected.bottomMargin = 36;
    expected.viewWidth = 540;
    expected.viewHeight = 360;
    expected.viewKind = 1;
    expected.viewScale = 125;
    expected.defaultTabInterval = 36;
    expected.hyphenationFactor = 0.9;
    expected.title = QStringLiteral("T");
    expected.author = QString::fromUtf8("Zoë");
    expected.company = QStringLiteral("C");
    expected.comment = QStringLiteral("x");
    expected.backgroundColor = Color::fromRgb8(255, 250, 200);
    EXPECT_EQ(attributes, expected);
}

} // namespace
