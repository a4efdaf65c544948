// SPDX-License-Identifier: MIT
#include "platform/htmlimport/HtmlImportSupport.h"

namespace {

using platform::Color;
using test::at;
using test::import;
using test::paragraphAt;
using test::shown;

QString s(const char* text)
{
    return QString::fromUtf8(text);
}
platform::AttributedString page(const QByteArray& body)
{
    return import("<html><body>" + body + "</body></html>");
}

TEST(EvernoteChecklistTest, ItemsAreLinesThatBeginWithTheirBoxes)
{
    EXPECT_EQ(
        shown("<ul style=\"--en-todo:true;\"><li style=\"--en-checked:true;\"><div>a</div></li>"
              "<li style=\"--en-checked:false;\"><div>b</div></li><li><div>c</div></li></ul>d"),
        s("\u2611\uFE0E a\n\u2610 b\n\u2610 c\nd\n"));
    EXPECT_EQ(shown("<ol style=\"--en-todo:true\"><li style=\"--en-checked:true\">a</li></ol>"),
              s("\u2611\uFE0E a\n"));
    EXPECT_EQ(shown("<ul style=\"--en-todo:true\"><li></li><li><div><br/></div></li></ul>"),
              s("\u2610 \n\u2610 \n"));
}

TEST(EvernoteChecklistTest, ItemsAreParagraphsOfNoList)
{
    const auto text = page("<ul style='--en-todo:true'><li>a</li></ul>");
    EXPECT_EQ(paragraphAt(text, "a"), platform::ParagraphStyle());
}

TEST(EvernoteChecklistTest, NestedOnesAreIndented)
{
    const auto text = page("<ul style='--en-todo:true'><li>a</li><ul style='--en-todo:true'><li "
                           "style='--en-checked:true'>b</li></ul></ul>");
    EXPECT_EQ(shown(text), s("\u2610 a\n\u2611\uFE0E b\n"));
    EXPECT_EQ(paragraphAt(text, "a").headIndent, 0);
    EXPECT_EQ(paragraphAt(text, "b").headIndent, 36);
}

TEST(EvernoteChecklistTest, OrdinaryListsInsideAreOrdinary)
{
    EXPECT_EQ(shown("<ul style=\"--en-todo:true\"><li>a<ul><li>b</li></ul></li></ul>"),
              s("\u2610 a\n>\u2022>b\n"));
    EXPECT_EQ(shown("<ul><li>a<ul style=\"--en-todo:true\"><li>b</li></ul></li></ul>"),
              s(">\u2022>a\n\u2610 b\n"));
}

TEST(EvernoteChecklistTest, AStrayCheckedIsNone)
{
    EXPECT_EQ(shown("<ul><li style=\"--en-checked:true;\">a</li></ul>"), s(">\u2022>a\n"));
    EXPECT_EQ(shown("<div style=\"--en-checked:true;\">a</div>"), s("a\n"));
    EXPECT_EQ(shown("<ul style=\"--en-todo:false;\"><li>a</li></ul>"), s(">\u2022>a\n"));
}

TEST(EvernoteChecklistTest, ABulletGivesWayToABoxInItsText)
{
    const QByteArray list =
        "<ul><li><div>\u2610 a</div></li><li>\u2611\uFE0E b</li><li>c</li></ul>";
    EXPECT_EQ(shown(list), s("\u2610 a\n\u2611\uFE0E b\n>\u2022>c\n"));
    EXPECT_TRUE(paragraphAt(page(list), "a").textLists.empty());
    EXPECT_EQ(paragraphAt(page(list), "c").textLists.size(), 1U);
    // A number says something that the box does not.
    EXPECT_EQ(shown("<ol><li>\u2610 a</li></ol>"), s(">1.>\u2610 a\n"));
}

TEST(EvernoteCodeTest, LinesLieInOneBox)
{
    for (const char* property : {"--en-codeblock:true", "-en-codeblock:true"}) {
        const auto text =
            page("<div style='" + QByteArray(property) +
                 ";padding: 8px; font-family: Monaco, Menlo, \"Courier New\", monospace;"
                 " font-size: 12px; color: rgb(51, 51, 51); background-color: rgb(251, 250, 248); "
                 "border: 1px solid rgba(0, 0, 0, 0.15);'>"
                 "<div>a() {</div><div>    "
                 "b();\n</div><div><br/></div><div>}<br/></div></div><div>after</div>");
        EXPECT_EQ(shown(text), s("a() {\n    b();\n\n}\nafter\n"));
        const auto& boxes = paragraphAt(text, "a()").textBlocks;
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_EQ(boxes, paragraphAt(text, "b()").textBlocks);
        EXPECT_EQ(boxes, paragraphAt(text, "}").textBlocks);
        EXPECT_EQ(boxes.front()->backgroundColor, Color::fromRgb8(251, 250, 248));
        EXPECT_EQ(boxes.front()->padding[0], 8);
        EXPECT_EQ(boxes.front()->borderWidth[0], 1);
        EXPECT_FALSE(at(text, "a()").backgroundColor);
        EXPECT_EQ(at(text, "a()").font->family, s("Monaco"));
        EXPECT_TRUE(at(text, "a()").font->monospaced);
        EXPECT_EQ(at(text, "a()").font->size, 12);
        EXPECT_TRUE(paragraphAt(text, "after").textBlocks.empty());
    }
}

TEST(EvernoteCodeTest, ABlockThatSaysNothingElseLooksLikeCode)
{
    const auto text = page("<div style='--en-codeblock:true'>a\n  b\n\nc\n</div>");
    EXPECT_EQ(shown(text), s("a\n  b\n\nc\n"));
    EXPECT_EQ(at(text, "a").font->family, s("Menlo"));
    ASSERT_EQ(paragraphAt(text, "a").textBlocks.size(), 1U);
    EXPECT_TRUE(paragraphAt(text, "a").textBlocks.front()->backgroundColor);
    EXPECT_GT(paragraphAt(text, "a").textBlocks.front()->padding[0], 0);
}

TEST(EvernoteCodeTest, WhiteSpaceThatLaysTheMarkupOutIsNoCode)
{
    EXPECT_EQ(shown("<div style=\"--en-codeblock:true\">\n  <div>a</div>\n  <div>b</div>\n</div>"),
              s("a\nb\n"));
}

TEST(EvernoteHighlightTest, TheColourBesideItWins)
{
    const auto text = page("<span style='--en-highlight:red;background-color: #fec1d0;'>x</span>y");
    EXPECT_EQ(at(text, "x").backgroundColor, Color::fromRgb8(0xfe, 0xc1, 0xd0));
    EXPECT_FALSE(at(text, "y").backgroundColor);
    EXPECT_EQ(at(page("<span style='background-color: rgb(255, 250, "
                      "165);-evernote-highlight:true;'>x</span>"),
                 "x")
                  .backgroundColor,
              Color::fromRgb8(255, 250, 165));
}

TEST(EvernoteHighlightTest, EachNameHasAColour)
{
    std::vector<Color> colours;
    for (const char* name : {"red", "yellow", "green", "blue", "purple", "orange"}) {
        const auto colour =
            at(page("<span style='--en-highlight:" + QByteArray(name) + "'>x</span>"), "x")
                .backgroundColor;
        ASSERT_TRUE(colour) << name;
        EXPECT_EQ(std::count(colours.begin(), colours.end(), *colour), 0) << name;
        colours.push_back(*colour);
    }
    EXPECT_EQ(at(page("<span style='-evernote-highlight:true;'>x</span>"), "x").backgroundColor,
              colours[1]);
    EXPECT_FALSE(
        at(page("<span style='-evernote-highlight:false;'>x</span>"), "x").backgroundColor);
    EXPECT_FALSE(at(page("<span style='--en-highlight:none;'>x</span>"), "x").backgroundColor);
}

} // namespace
