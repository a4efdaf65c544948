// SPDX-License-Identifier: MIT
#include "platform/rtfd/RichText.h"
#include "platform/rtfd/RtfReader.h"
#include "platform/rtfd/RtfWriter.h"

namespace {

using namespace platform;
using List = std::shared_ptr<const TextList>;

List list(const char* format, int start = 1)
{
    auto made = std::make_shared<TextList>();
    made->markerFormat = QString::fromLatin1(format);
    made->startingItemNumber = start;
    return made;
}

AttributedString item(const QString& text, std::vector<List> lists)
{
    ParagraphStyle style;
    style.defaultTabInterval = 36;
    style.textLists = std::move(lists);
    return test::inStyle(text, style);
}

QByteArray tablesOf(const AttributedString& text)
{
    const QByteArray rtf = rtfFromAttributedString(text);
    const qsizetype start = rtf.indexOf("{\\*\\listtable");
    return start < 0 ? QByteArray() : rtf.mid(start, rtf.indexOf("\\pard") - start);
}

TEST(RtfListsTest, WritesABulletListAsCocoaDoes)
{
    const AttributedString text = item(QStringLiteral("\t•\tone\n\t•\ttwo\n"), {list("{disc}")});
    EXPECT_EQ(
        tablesOf(text),
        "{\\*\\listtable{\\list\\listtemplateid1\\listhybrid{"
        "\\listlevel\\levelnfc23\\levelnfcn23\\leveljc0\\leveljcn0"
        "\\levelfollow0\\levelstartat1\\levelspace360\\levelindent0{\\*\\levelmarker \\{disc\\}}{\\leveltext"
        "\\leveltemplateid1\\'01\\uc0\\u8226 ;}{\\levelnumbers;}\\fi-360\\li720\\lin720 }{\\listname "
        ";}\\listid1}}\n"
        "{\\*\\listoverridetable{\\listoverride\\listid1\\listoverridecount0\\ls1}}\n");
    EXPECT_EQ(test::body(rtfFromAttributedString(text)),
              "\\pard\\pardeftab720\\pardirnatural\\partightenfactor0\n\\ls1\\ilvl0\n\\f0\\fs24 \\cf0 "
              "{\\listtext\t\\uc0\\u8226 \t}one\\\n{\\listtext\t\\uc0\\u8226 \t}two\\\n}");
}

TEST(RtfListsTest, WritesNumbersWithTheirPlaceAndLevel)
{
    const List outer = list("{decimal}.", 3);
    AttributedString text = item(QStringLiteral("\t3.\ta\n"), {outer});
    text.append(item(QStringLiteral("\t(a)\tb\n"), {outer, list("({lower-alpha})")}));
    const QByteArray tables = tablesOf(text);
    EXPECT_TRUE(tables.contains(
        "\\levelnfc0\\levelnfcn0\\leveljc0\\leveljcn0\\levelfollow0\\levelstartat3\\levelspace360"
        "\\levelindent0{\\*\\levelmarker \\{decimal\\}.}{\\leveltext\\leveltemplateid1\\'02\\'00.;}"
        "{\\levelnumbers\\'01;}\\fi-360\\li720\\lin720 }"));
    EXPECT_TRUE(
        tables.contains("{\\*\\levelmarker (\\{lower-alpha\\})}{\\leveltext\\leveltemplateid2\\'03(\\'01);}"
                        "{\\levelnumbers\\'02;}\\fi-360\\li1440\\lin1440 }"));
    EXPECT_TRUE(rtfFromAttributedString(text).contains("\\ls1\\ilvl1\\cf0 {\\listtext\t(a)\t}b\\\n"));
}

TEST(RtfListsTest, AListWithoutAMarkerIsCalledNone)
{
    EXPECT_TRUE(
        tablesOf(item(QStringLiteral("x\n"), {list("")}))
            .contains("{\\*\\levelmarker \\{none\\}}{\\leveltext\\leveltemplateid1\\'00;}{\\levelnumbers;}"));
}

TEST(RtfListsTest, AnItemsFurtherParagraphHasNoMarker)
{
    const AttributedString text = item(QStringLiteral("\t•\tone\nmore\n\ttabbed\n"), {list("{disc}")});
    const QByteArray rtf = rtfFromAttributedString(text);
    EXPECT_EQ(rtf.count("\\listtext"), 1);
    EXPECT_TRUE(rtf.endsWith("one\\\nmore\\\n\ttabbed\\\n}"));
}

TEST(RtfListsTest, ASecondInnerListRepeatsTheOuterOneUnderItsNumber)
{
    const List outer = list("{disc}");
    AttributedString text = item(QStringLiteral("a\n"), {outer, list("{hyphen}")});
    text.append(item(QStringLiteral("b\n"), {outer, list("{circle}")}));
    const QByteArray rtf = rtfFromAttributedString(text);
    EXPECT_TRUE(rtf.contains("\\ls1\\ilvl1"));
    EXPECT_TRUE(rtf.contains("\\ls2\\ilvl1"));
    EXPECT_TRUE(rtf.contains(
        "{\\leveltext\\leveltemplateid1\\'01\\uc0\\u8226 ;}{\\levelnumbers;}\\fi-360\\li720\\lin720 }"
        "{\\listlevel\\levelnfc23\\levelnfcn23\\leveljc0\\leveljcn0\\levelfollow0\\levelstartat1"
        "\\levelspace360\\levelindent0{\\*\\levelmarker \\{circle\\}}{\\leveltext\\leveltemplateid102"));
    const AttributedString read = test::readRtf(rtf);
    const auto& first = read.attributesAt(0).paragraphStyle->textLists;
    const auto& second = read.attributesAt(2).paragraphStyle->textLists;
    EXPECT_EQ(first.at(0), second.at(0));
    EXPECT_NE(first.at(1), second.at(1));
}

TEST(RtfListsTest, SeparateListsAreSeparateEntries)
{
    AttributedString text = item(QStringLiteral("a\n"), {list("{disc}")});
    text.append(item(QStringLiteral("b\n"), {list("{disc}")}));
    const AttributedString read = test::readRtf(rtfFromAttributedString(text));
    EXPECT_NE(read.attributesAt(0).paragraphStyle->textLists, read.attributesAt(2).paragraphStyle->textLists);
}

TEST(RtfListsTest, FontsMaySwitchWithinAMarker)
{
    const AttributedString read = test::readBody(
        "\\pard\\ls1\\ilvl0\\f0\\fs24 {\\listtext\t\n\\f1\\b \\uc0\\u8226 \n\\f0\\b0 \t}x\\\n");
    EXPECT_EQ(read.string(), QStringLiteral("\t•\tx\n"));
    EXPECT_TRUE(read.attributesAt(1).font->bold);
    EXPECT_FALSE(read.attributesAt(3).font->bold);
}

TEST(RtfListsTest, ReadsTheOlderFormOfLists)
{
    const AttributedString read = test::readRtf(
        "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}{\\f1\\fcharset2 Symbol;}}"
        "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1{\\pntxtb\\'B7}}\\fi-360\\li720 one\\par"
        "{\\pntext\\f1\\'B7\\tab}two\\par\\pard{\\pntext "
        "1.\\tab}{\\*\\pn\\pnlvlbody\\pndec\\pnstart4{\\pntxta.}}x\\par}");
    EXPECT_EQ(read.string(), QStringLiteral("\t•\tone\n\t•\ttwo\n\t1.\tx\n"));
    const auto listAt = [&](qsizetype place) {
        return read.attributesAt(place).paragraphStyle->textLists.at(0);
    };
    EXPECT_EQ(listAt(0)->markerFormat, QStringLiteral("{disc}"));
    EXPECT_EQ(listAt(0), listAt(8));
    EXPECT_EQ(listAt(14)->markerFormat, QStringLiteral("{decimal}."));
    EXPECT_EQ(listAt(14)->startingItemNumber, 4);
}

TEST(RtfListsTest, AReferenceThatLeadsNowhereIsNoList)
{
    const AttributedString read = test::readBody("\\pard\\pardeftab720\\ls99\\ilvl3 x\\\n");
    ASSERT_TRUE(read.attributesAt(0).paragraphStyle);
    EXPECT_TRUE(read.attributesAt(0).paragraphStyle->textLists.empty());
}

} // namespace
