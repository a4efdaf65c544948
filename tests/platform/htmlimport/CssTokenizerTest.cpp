// SPDX-License-Identifier: MIT
#include "platform/htmlimport/CssTokenizer.h"

namespace {

using namespace platform::css;

std::string shown(std::string_view style)
{
    std::string text;
    const Declarations declarations(style);
    for (const Declaration& declaration : declarations.all()) {
        text += std::string(declaration.name) + "=" + std::string(declaration.value);
        text += declaration.important ? "!|" : "|";
    }
    return text;
}

TEST(CssTokenizerTest, ReadsDeclarations)
{
    EXPECT_EQ(shown("color:red"), "color=red|");
    EXPECT_EQ(shown(" COLOR : Red ;; font-size:1px ; "), "color=Red|font-size=1px|");
    EXPECT_EQ(shown(""), "");
    EXPECT_EQ(shown(";;;"), "");
}

TEST(CssTokenizerTest, CustomPropertiesKeepTheirCaseAndSpoilNothing)
{
    EXPECT_EQ(shown("--en-naturalWidth:12; --en-highlight:red;color:blue"),
              "--en-naturalWidth=12|--en-highlight=red|color=blue|");
    EXPECT_EQ(shown("-en-codeblock:true;color:blue"), "-en-codeblock=true|color=blue|");
}

TEST(CssTokenizerTest, NonsenseIsSkippedUpToItsSemicolon)
{
    EXPECT_EQ(shown("nonsense;color:red"), "color=red|");
    EXPECT_EQ(shown(":x;color:red"), "color=red|");
    EXPECT_EQ(shown("color:;top:1px"), "top=1px|");
    EXPECT_EQ(shown("{a:b}color:red;top:1"), "{a=b}color:red|top=1|");
}

TEST(CssTokenizerTest, SemicolonsInQuotesAndUrlsDoNotCount)
{
    EXPECT_EQ(shown("background:url(data:image/png;base64,AA==) red;color:blue"),
              "background=url(data:image/png;base64,AA==) red|color=blue|");
    EXPECT_EQ(shown("font-family:\"a;b\", 'c;d';color:blue"),
              "font-family=\"a;b\", 'c;d'|color=blue|");
    EXPECT_EQ(shown("content:'\\';';color:blue"), "content='\\';'|color=blue|");
}

TEST(CssTokenizerTest, WhatIsNeverClosedCostsOneDeclaration)
{
    EXPECT_EQ(shown("font-family:\"a;color:blue;top:1"), "font-family=\"a|color=blue|top=1|");
    EXPECT_EQ(shown("background:url(x;color:blue"), "background=url(x|color=blue|");
    EXPECT_EQ(shown("color:blue;font-family:'a"), "color=blue|font-family='a|");
}

TEST(CssTokenizerTest, CommentsAreBlanks)
{
    EXPECT_EQ(shown("/* a:b; */color/**/:/* ; */red;top:1/*"), "color=red|top=1|");
    EXPECT_EQ(shown("content:'/* no */';top:1"), "content='/* no */'|top=1|");
}

TEST(CssTokenizerTest, ImportantOnesComeLast)
{
    EXPECT_EQ(shown("color:red !important;color:blue"), "color=blue|color=red!|");
    EXPECT_EQ(shown("color:red ! IMPORTANT"), "color=red!|");
    EXPECT_EQ(shown("color:red!x"), "color=red!x|");
}

TEST(CssTokenizerTest, SplitsValues)
{
    const std::vector<std::string_view> expected = {"bold",    "12px", "/",           "1.5",
                                                    "\"A B\"", ",",    "rgb(1, 2, 3)"};
    EXPECT_EQ(valueParts("bold 12px/1.5 \"A B\",rgb(1, 2, 3)"), expected);
    EXPECT_TRUE(valueParts("  ").empty());
    EXPECT_EQ(valueParts("a\"b\"c").size(), 3U);
    EXPECT_EQ(valueParts(std::string(100000, ',')).size(), 64U);
}

TEST(CssTokenizerTest, ResolvesEscapes)
{
    EXPECT_EQ(unquoted("'a\\'b'"), "a'b");
    EXPECT_EQ(unquoted("\"\\41 B\""), "AB");
    EXPECT_EQ(unquoted("\\000041"), "A");
    EXPECT_EQ(unquoted("'\\1F600'"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(unquoted("'\\0'"), "\xEF\xBF\xBD");
    EXPECT_EQ(unquoted("'open"), "open");
    EXPECT_EQ(unquoted("'"), "");
}

} // namespace
