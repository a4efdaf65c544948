// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfWriter.h"

#include "platform/rtfd/RichText.h"

#include <cmath>
#include <limits>

namespace {

using namespace platform;
using test::plain;
using test::styled;

constexpr char standardParagraph[] =
    "\\pard\\tx560\\tx1120\\tx1680\\tx2240\\tx2800\\tx3360\\tx3920\\tx4480\\tx5040\\tx5600"
    "\\tx6160\\tx6720\\pardirnatural\\partightenfactor0\n";

QByteArray written(const AttributedString& text)
{
    return rtfFromAttributedString(text);
}

// The text behind the format of a standard paragraph in Helvetica 12.
QByteArray textOf(const AttributedString& text)
{
    const QByteArray start = QByteArray(standardParagraph) + "\n\\f0\\fs24 \\cf0 ";
    const QByteArray body = test::body(written(text));
    EXPECT_TRUE(body.startsWith(start)) << body.constData();
    return body.mid(start.size()).chopped(1);
}

QByteArray textOf(const QString& text)
{
    return textOf(plain(text));
}

QByteArray paragraphOf(const ParagraphStyle& style)
{
    const QByteArray body = test::body(written(test::inStyle(QStringLiteral("x"), style)));
    return body.left(body.indexOf('\n'));
}

// What stands between "a" and the second run's "b".
QByteArray changeTo(const std::function<void(TextAttributes&)>& change)
{
    AttributedString text = plain(QStringLiteral("a"));
    text.append(styled(QStringLiteral("b"), change));
    const QByteArray out = textOf(text);
    return out.mid(1, out.size() - 2);
}

TEST(RtfWriterTest, AnEmptyTextHasCocoasHeaderAndNothingElse)
{
    EXPECT_EQ(written(AttributedString()), "{\\rtf1\\ansi\\ansicpg1252\\cocoartf2639\n"
                                           "\\cocoatextscaling0\\cocoaplatform0{\\fonttbl}\n"
                                           "{\\colortbl;\\red255\\green255\\blue255;}\n"
                                           "{\\*\\expandedcolortbl;;}\n}");
}

TEST(RtfWriterTest, WritesASmallTextJustAsCocoaDoes)
{
    EXPECT_EQ(written(plain(QStringLiteral("A\nB\n"))),
              QByteArray("{\\rtf1\\ansi\\ansicpg1252\\cocoartf2639\n"
                         "\\cocoatextscaling0\\cocoaplatform0{\\fonttbl\\f0\\fswiss\\fcharset0 Helvetica;}\n"
                         "{\\colortbl;\\red255\\green255\\blue255;}\n{\\*\\expandedcolortbl;;}\n")
                  + standardParagraph + "\n\\f0\\fs24 \\cf0 A\\\nB\\\n}");
}

TEST(RtfWriterTest, EscapesText)
{
    EXPECT_EQ(textOf(QStringLiteral("a\\b{c}d")), "a\\\\b\\{c\\}d");
    EXPECT_EQ(textOf(QStringLiteral("a\tb")), "a\tb");
    EXPECT_EQ(textOf(QStringLiteral("é\u00A0–€“”")), "\\'e9\\'a0\\'96\\'80\\'93\\'94");
    EXPECT_EQ(textOf(QStringLiteral("\u2260日1")), "\\uc0\\u8800 \\u26085 1");
    EXPECT_EQ(textOf(QStringLiteral("\uFE0F")), "\\uc0\\u-497 ");
    EXPECT_EQ(textOf(QStringLiteral("\U0001F600")), "\\uc0\\u-10179 \\u-8704 ");
    EXPECT_EQ(textOf(QString(QChar(0xD83D))), "\\uc0\\u-10179 ");
    EXPECT_EQ(textOf(QStringLiteral("\u2028\u2029\u0085")), "\\uc0\\u8232 \\u8233 \\u133 ");
    EXPECT_EQ(textOf(QStringLiteral("a\fb")), "a\\page \nb");
    EXPECT_EQ(textOf(QStringLiteral("\u0007\r")), "\\'07\\'0d");
    EXPECT_EQ(textOf(QString(QChar(0))), "\\'00");
}

TEST(RtfWriterTest, ListsFontsUnderTheirFaces)
{
    AttributedString text = styled(QStringLiteral("a"), [](TextAttributes& a) {
        a.font = Font{QStringLiteral("Helvetica Neue"), 13, true, true};
    });
    text.append(styled(QStringLiteral("b"), [](TextAttributes& a) {
        a.font = Font{QStringLiteral("Menlo"), 13.333, false, false, true};
    }));
    text.append(styled(QStringLiteral("c"), [](TextAttributes& a) {
        a.font = Font{QStringLiteral("Times New Roman"), 9.5};
    }));
    text.append(styled(QStringLiteral("d"), [](TextAttributes& a) { a.font.reset(); }));
    const QByteArray rtf = written(text);
    EXPECT_TRUE(rtf.contains(
        "{\\fonttbl\\f0\\fnil\\fcharset0 HelveticaNeue-BoldItalic;\\f1\\fmodern\\fcharset0 Menlo-Regular;"
        "\\f2\\froman\\fcharset0 TimesNewRomanPSMT;\n\\f3\\fswiss\\fcharset0 Helvetica;}\n"));
    EXPECT_TRUE(rtf.endsWith(
        "\n\\f0\\i\\b\\fs26 \\cf0 a\n\\f1\\i0\\b0\\fs26\\fsmilli13333 b\n\\f2\\fs19 c\n\\f3\\fs24 d}"));
}

TEST(RtfWriterTest, NamesHoldNoWordsForCharacters)
{
    AttributedString text = styled(QStringLiteral("a\fb"), [](TextAttributes& a) {
        a.font = Font{QStringLiteral("No\fname"), 12};
    });
    DocumentAttributes attributes;
    attributes.title = QStringLiteral("one\ftwo");
    const QByteArray rtf = rtfFromAttributedString(text, attributes);
    EXPECT_TRUE(rtf.contains("\\fcharset0 No\\'0cname;"));
    EXPECT_TRUE(rtf.contains("{\\title one\\'0ctwo}"));
    EXPECT_TRUE(rtf.contains("a\\page \nb"));
    DocumentAttributes readAttributes;
    const AttributedString read = test::readRtf(rtf, &readAttributes);
    EXPECT_EQ(rtfFromAttributedString(read, readAttributes), rtf);
}

TEST(RtfWriterTest, ListsColoursInBytesAndExactly)
{
    AttributedString text = styled(QStringLiteral("a"), [](TextAttributes& a) {
        a.foregroundColor = Color{0.5, 1, 0, 0.25};
        a.backgroundColor = Color{0, 0, 1, 1, Color::Space::CalibratedRgb};
    });
    text.append(plain(QStringLiteral("b")));
    const QByteArray rtf = written(text);
    EXPECT_TRUE(rtf.contains(
        "{\\colortbl;\\red255\\green255\\blue255;\\red128\\green255\\blue0;\\red0\\green0\\blue255;}\n"
        "{\\*\\expandedcolortbl;;\\cssrgb\\c50000\\c100000\\c0\\c25000;\\csgenericrgb\\c0\\c0\\c100000;}\n"));
    EXPECT_TRUE(rtf.endsWith("\\cf2 \\cb3 a\\cf0 \\cb1 b}"));
}

TEST(RtfWriterTest, BreaksTheTablesLinesAsCocoaDoes)
{
    AttributedString text;
    for (int shade = 0; shade < 5; ++shade)
        text.append(styled(QStringLiteral("a"),
                           [&](TextAttributes& a) { a.foregroundColor = Color::fromRgb8(shade, 0, 0); }));
    EXPECT_TRUE(
        written(text).contains("\\red2\\green0\\blue0;\n\\red3\\green0\\blue0;\\red4\\green0\\blue0;}\n"));
}

TEST(RtfWriterTest, WritesRunFormats)
{
    EXPECT_EQ(changeTo([](TextAttributes& a) { a.underline = LineStyle::Single; }), "\\ul ");
    EXPECT_EQ(changeTo([](TextAttributes& a) { a.underline = LineStyle::Thick; }), "\\ulth ");
    EXPECT_EQ(changeTo([](TextAttributes& a) {
                  a.underline = LineStyle::Double;
                  a.underlineColor = Color{};
              }),
              "\\uldb \\ulc2 ");
    EXPECT_EQ(changeTo([](TextAttributes& a) { a.strikethrough = LineStyle::Single; }), "\\strike \\strikec0 ");
    EXPECT_EQ(changeTo([](TextAttributes& a) { a.strikethrough = LineStyle::Double; }),
              "\\striked1 \\strikec0 ");
    EXPECT_EQ(changeTo([](TextAttributes& a) { a.strikethrough = LineStyle::Thick; }),
              "\\strike \\strikestyle2 \\strikec0 ");
    EXPECT_EQ(changeTo([](TextAttributes& a) { a.superscript = 1; }), "\\super ");
    EXPECT_EQ(changeTo([](TextAttributes& a) { a.superscript = -1; }), "\\sub ");
    EXPECT_EQ(changeTo([](TextAttributes& a) { a.baselineOffset = 2.5; }), "\\up5 ");
    EXPECT_EQ(changeTo([](TextAttributes& a) { a.baselineOffset = -2; }), "\\dn4 ");
    EXPECT_EQ(changeTo([](TextAttributes& a) { a.kern = -1; }), "\\kerning1\\expnd-4\\expndtw-20\n");
}

TEST(RtfWriterTest, EndsRunFormats)
{
    AttributedString text = styled(QStringLiteral("a"), [](TextAttributes& a) {
        a.underline = LineStyle::Single;
        a.strikethrough = LineStyle::Double;
        a.superscript = -1;
        a.baselineOffset = 1;
        a.kern = 2;
    });
    text.append(plain(QStringLiteral("b")));
    EXPECT_TRUE(written(text).endsWith(
        "a\\kerning1\\expnd0\\expndtw0 \\up0 \\nosupersub \\ulnone \\strike0\\striked0 b}"));
}

TEST(RtfWriterTest, WritesLinksAsFieldsWithPercentEscapes)
{
    AttributedString text = plain(QStringLiteral("a "));
    text.append(styled(QStringLiteral("link"), [](TextAttributes& a) {
        a.link = QStringLiteral("https://example.org/{x}\\\"ä b");
        a.underline = LineStyle::Single;
    }));
    text.append(plain(QStringLiteral(" b")));
    EXPECT_EQ(textOf(text),
              "a {\\field{\\*\\fldinst{HYPERLINK \"https://example.org/%7Bx%7D%5C%22%C3%A4%20b\"}}"
              "{\\fldrslt \\ul link}} b");
}

TEST(RtfWriterTest, ALinkOfSeveralRunsIsOneField)
{
    const QString url = QStringLiteral("https://example.org");
    AttributedString text = styled(QStringLiteral("a"), [&](TextAttributes& a) { a.link = url; });
    text.append(styled(QStringLiteral("b"), [&](TextAttributes& a) {
        a.link = url;
        a.font->bold = true;
    }));
    EXPECT_TRUE(written(text).endsWith("\n{\\field{\\*\\fldinst{HYPERLINK \"https://example.org\"}}{\\fldrslt "
                                       "\n\\f0\\fs24 \\cf0 a\n\\f1\\b b}}}"));
}

TEST(RtfWriterTest, WritesParagraphFormatsInCocoasOrder)
{
    ParagraphStyle style;
    style.alignment = TextAlignment::Center;
    style.direction = WritingDirection::LeftToRight;
    style.defaultTabInterval = 36;
    style.headIndent = 36;
    style.firstLineHeadIndent = 18;
    style.tailIndent = -10;
    style.lineSpacing = 2;
    style.lineHeightMultiple = 1.5;
    style.paragraphSpacingBefore = 3;
    style.paragraphSpacing = 4;
    style.headerLevel = 2;
    style.tabStops = {{TextAlignment::Left, 11}, {TextAlignment::Right, 36}, {TextAlignment::Center, 72.5}};
    EXPECT_EQ(paragraphOf(style),
              "\\pard\\tx220\\tqr\\tx720\\tqc\\tx1450\\pardeftab720\\li720\\fi-360\\ri200\\slleading40"
              "\\sl360\\slmult1\\sb60\\sa80\\outlinelevel1\\qc\\partightenfactor0");
}

TEST(RtfWriterTest, WritesAlignmentsAndDirections)
{
    const auto formatOf = [](TextAlignment alignment, WritingDirection direction) {
        ParagraphStyle style;
        style.defaultTabInterval = 36;
        style.alignment = alignment;
        style.direction = direction;
        return paragraphOf(style).mid(static_cast<qsizetype>(qstrlen("\\pard\\pardeftab720")));
    };
    EXPECT_EQ(formatOf(TextAlignment::Natural, WritingDirection::Natural),
              "\\pardirnatural\\partightenfactor0");
    EXPECT_EQ(formatOf(TextAlignment::Left, WritingDirection::LeftToRight), "\\ql\\partightenfactor0");
    EXPECT_EQ(formatOf(TextAlignment::Right, WritingDirection::RightToLeft), "\\rtlpar\\qr\\partightenfactor0");
    EXPECT_EQ(formatOf(TextAlignment::Justified, WritingDirection::Natural),
              "\\pardirnatural\\qj\\partightenfactor0");
}

TEST(RtfWriterTest, WritesLineHeights)
{
    const auto heightOf = [](double minimum, double maximum) {
        ParagraphStyle style;
        style.defaultTabInterval = 36;
        style.minimumLineHeight = minimum;
        style.maximumLineHeight = maximum;
        const QByteArray format = paragraphOf(style).mid(
            static_cast<qsizetype>(qstrlen("\\pard\\pardeftab720")));
        return format.left(format.indexOf("\\pardirnatural"));
    };
    EXPECT_EQ(heightOf(26, 0), "\\sl520");
    EXPECT_EQ(heightOf(26, 26), "\\sl-520");
    EXPECT_EQ(heightOf(0, 26), "\\slmaximum520");
    EXPECT_EQ(heightOf(20, 26), "\\sl400\\slmaximum520\\slminimum400");
}

TEST(RtfWriterTest, LengthsThatAreNoneBecomeTheNearestThatAre)
{
    ParagraphStyle style;
    style.defaultTabInterval = 36;
    style.headIndent = std::numeric_limits<double>::infinity();
    style.paragraphSpacing = std::nan("");
    EXPECT_EQ(paragraphOf(style),
              "\\pard\\pardeftab720\\li2147483647\\fi-2147483647\\pardirnatural\\partightenfactor0");
    EXPECT_TRUE(written(styled(QStringLiteral("x"), [](TextAttributes& a) {
                    a.font->size = std::nan("");
                    a.foregroundColor = Color{std::nan(""), 2, -1};
                })).contains("\\red0\\green255\\blue0;"));
}

TEST(RtfWriterTest, AParagraphFormatStaysInForceUntilAnother)
{
    ParagraphStyle centred;
    centred.alignment = TextAlignment::Center;
    AttributedString text = test::inStyle(QStringLiteral("a\nb\n"), centred);
    text.append(test::inStyle(QStringLiteral("c\n"), centred));
    text.append(plain(QStringLiteral("d")));
    EXPECT_EQ(written(text).count("\\pard\\"), 2);
}

TEST(RtfWriterTest, WritesTheDocumentsAttributes)
{
    DocumentAttributes attributes;
    attributes.paperWidth = 595;
    attributes.paperHeight = 842;
    attributes.leftMargin = attributes.rightMargin = 72;
    attributes.bottomMargin = attributes.topMargin = 56.65;
    attributes.viewWidth = 540;
    attributes.viewHeight = 360;
    attributes.viewKind = 0;
    attributes.defaultTabInterval = 36;
    attributes.hyphenationFactor = 0.9;
    attributes.author = QStringLiteral("Zoë {1}");
    attributes.title = QStringLiteral("T");
    attributes.backgroundColor = Color::fromRgb8(255, 250, 200);
    const QByteArray rtf = rtfFromAttributedString(AttributedString(), attributes);
    EXPECT_TRUE(rtf.contains(
        "{\\info\n{\\title T}\n{\\author Zo\\'eb \\{1\\}}}\\paperw11900\\paperh16840\\margl1440\\margr1440"
        "\\margb1133\\margt1133\\vieww10800\\viewh7200\\viewkind0\n\\hyphauto1\\hyphfactor90\n"
        "\\deftab720\n{\\*\\background "))
        << rtf.constData();
    EXPECT_TRUE(rtf.contains("{\\sp{\\sn fillColor}{\\sv 13171455}}"));
    EXPECT_TRUE(rtf.contains("{\\sp{\\sn fBackground}{\\sv 1}}}}}\n}"));
}

TEST(RtfWriterTest, LeavesOutAttachmentsWhereThereIsNoPackage)
{
    AttributedString text = plain(QStringLiteral("a"));
    text.append(AttributedString::withAttachment(std::make_shared<TextAttachment>()));
    text.append(plain(QStringLiteral("b")));
    EXPECT_EQ(textOf(text), "ab");
}

} // namespace
