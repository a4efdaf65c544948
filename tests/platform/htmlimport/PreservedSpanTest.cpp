// SPDX-License-Identifier: MIT
#include "platform/htmlimport/HtmlImportSupport.h"

namespace {

const QString opening = QStringLiteral("***QUILLERYATTACHMENT ");
const QString closing = QStringLiteral(" QUILLERYATTACHMENT***");

platform::HtmlImportOptions options()
{
    platform::HtmlImportOptions result = test::htmlOptions();
    result.preservedSpanDelimiters = platform::PreservedSpanDelimiters{opening, closing};
    return result;
}

// The text of a page in which a file's name stands between the delimiters, with the second blanks.
QString importedName(const QString& name, const char* before = "", const char* after = "")
{
    const QString page = QString::fromUtf8("<html><body>%1%2 %3 %4%5</body></html>")
                             .arg(QString::fromUtf8(before), opening, name.toHtmlEscaped(), closing,
                                  QString::fromUtf8(after));
    return test::import(page.toUtf8(), options()).string();
}

class PreservedNameTest : public testing::TestWithParam<const char*> {};

TEST_P(PreservedNameTest, ComesThroughUntouched)
{
    const QString name = QString::fromUtf8(GetParam());
    const QString expected = opening + name + closing;
    EXPECT_EQ(importedName(name), expected + u'\n');
    EXPECT_EQ(importedName(name, "<div>", "</div>"), expected + u'\n');
    EXPECT_EQ(importedName(name, "<pre>", "</pre>"), expected + u'\n');
    EXPECT_EQ(importedName(name, "<ul><li>", "</li></ul>"),
              QStringLiteral("\t\u2022\t") + expected + u'\n');
    EXPECT_EQ(importedName(name, "a  ", "  b"),
              QStringLiteral("a ") + expected + QStringLiteral(" b\n"));
    EXPECT_EQ(importedName(name, "<span style=\"text-transform:uppercase\">a ", " b</span>"),
              QStringLiteral("A ") + expected + QStringLiteral(" B\n"));
    // The same page, damaged.
    EXPECT_EQ(importedName(name, "<div>", "<br>"), expected + u'\n');
}

INSTANTIATE_TEST_SUITE_P(Names, PreservedNameTest,
                         testing::Values("doc.pdf", "name  with two blanks.pdf", "a\tb.pdf",
                                         " leading.pdf", "trailing ", "  two at each end  ",
                                         "\u00FCml\u00E4ut \u65E5\u672C.pdf", "a & b.pdf",
                                         "a#b?c%20d.pdf", "x   y", "QUILLERYATTACHMENT",
                                         "*** stars ***"));

TEST(PreservedSpanTest, TheCharacterThatStandsForAttachmentsIsKeptWithinOneAlone)
{
    const QString page = QStringLiteral("<p>x\uFFFCy %1 a\uFFFCb.pdf %2</p>").arg(opening, closing);
    const auto text = platform::attributedStringFromHtml(page.toUtf8(), options());
    ASSERT_TRUE(text);
    EXPECT_EQ(text->string(), QStringLiteral("x\uFFFDy %1a\uFFFCb.pdf%2\n").arg(opening, closing));
}

TEST(PreservedSpanTest, SeveralInOneText)
{
    const QString marker = opening + QStringLiteral(" a  b ") + closing;
    const auto text = test::import((QStringLiteral("<div>") + marker + QStringLiteral("  ") +
                                    marker + QStringLiteral("</div>"))
                                       .toUtf8(),
                                   options());
    const QString expected = opening + QStringLiteral("a  b") + closing;
    EXPECT_EQ(text.string(), expected + u' ' + expected + u'\n');
}

TEST(PreservedSpanTest, AnOpeningWithoutItsClosingIsText)
{
    const auto text = test::import(
        (QStringLiteral("<div>") + opening + QStringLiteral("  a  b</div>")).toUtf8(), options());
    EXPECT_EQ(text.string(), opening + QStringLiteral("a b\n"));
}

TEST(PreservedSpanTest, WithoutTheOptionTheDelimitersAreText)
{
    const QString page = QStringLiteral("<div>") + opening + QStringLiteral(" a  b ") + closing +
                         QStringLiteral("</div>");
    EXPECT_EQ(test::import(page.toUtf8()).string(),
              opening + QStringLiteral("a b") + closing + u'\n');
}

TEST(PreservedSpanTest, TheTextHasOneStyle)
{
    const QString page = QStringLiteral("<div><b>") + opening + QStringLiteral(" a  b ") + closing +
                         QStringLiteral("</b></div>");
    const auto text = test::import(page.toUtf8(), options());
    platform::TextRange range;
    EXPECT_TRUE(text.attributesAt(0, &range).font->bold);
    EXPECT_EQ(range.length, text.length());
}

} // namespace
