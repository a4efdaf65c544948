// SPDX-License-Identifier: MIT
#include "enex/MarkupTags.h"

#include <gtest/gtest.h>

namespace {

using Tag = MarkupTags::Tag;

// The tags in order: "+name", "=name" for an empty one, "-name" for an end.
QByteArray tagsIn(const QByteArray& markup, qsizetype* readableEnd = nullptr)
{
    MarkupTags tags(markup);
    QByteArray result;
    while (const auto tag = tags.next()) {
        result += tag->kind == Tag::Kind::Start ? '+' : tag->kind == Tag::Kind::Empty ? '=' : '-';
        result += tag->name;
        EXPECT_EQ(markup[tag->start], '<');
        EXPECT_EQ(markup[tag->end - 1], '>');
    }
    EXPECT_FALSE(tags.next());
    if (readableEnd)
        *readableEnd = tags.readableEnd();
    return result;
}

QByteArray attribute(const QByteArray& tag, QByteArrayView name)
{
    MarkupTags tags(tag);
    const auto found = tags.next();
    if (!found)
        return "no tag";
    const auto value = found->attribute(name);
    return value ? value->toByteArray() : QByteArray("none");
}

TEST(MarkupTagsTest, TagsComeInOrder)
{
    EXPECT_EQ(tagsIn("<a>x<b/><c d='e' />y</a>"), "+a=b=c-a");
    EXPECT_EQ(tagsIn("no tags"), "");
    EXPECT_EQ(tagsIn(""), "");
}

TEST(MarkupTagsTest, WhatIsNoTagIsPassedOver)
{
    EXPECT_EQ(
        tagsIn(
            "<?xml version=\"1.0\"?><!DOCTYPE a SYSTEM \"b\"><!-- <c> --><a><![CDATA[<d>]]></a>"),
        "+a-a");
    EXPECT_EQ(tagsIn("1 < 2 <3> <> </> <a>"), "+a");
}

TEST(MarkupTagsTest, ASignInQuotesEndsNoTag)
{
    EXPECT_EQ(tagsIn("<a b=\">\" c='/>'>x</a>"), "+a-a");
}

TEST(MarkupTagsTest, ATagInsideATagMakesTheOuterOneNone)
{
    EXPECT_EQ(tagsIn("<a b=\"c <d>e</d>"), "+d-d");
}

TEST(MarkupTagsTest, WhatNothingEndsIsTheEnd)
{
    qsizetype end = 0;
    EXPECT_EQ(tagsIn("<a>xy<b c=\"d", &end), "+a");
    EXPECT_EQ(end, 5);
    EXPECT_EQ(tagsIn("<a><!-- b <c>", &end), "+a");
    EXPECT_EQ(end, 3);
    EXPECT_EQ(tagsIn("<a><![CDATA[ b", &end), "+a");
    EXPECT_EQ(end, 3);
    EXPECT_EQ(tagsIn("<a>x<", &end), "+a");
    EXPECT_EQ(end, 4);
    EXPECT_EQ(tagsIn("<a>x</", &end), "+a");
    EXPECT_EQ(end, 4);
    EXPECT_EQ(tagsIn("<a>x", &end), "+a");
    EXPECT_EQ(end, 4);
}

TEST(MarkupTagsTest, AttributesAreFoundHoweverTheyAreWritten)
{
    EXPECT_EQ(attribute("<a b=\"1\" c = '2'\n d=3>", "b"), "1");
    EXPECT_EQ(attribute("<a b=\"1\" c = '2'\n d=3>", "c"), "2");
    EXPECT_EQ(attribute("<a b=\"1\" c = '2'\n d=3>", "d"), "3");
    EXPECT_EQ(attribute("<a b=\"1\"/>", "c"), "none");
    EXPECT_EQ(attribute("<a b c='1'>", "c"), "1");
    EXPECT_EQ(attribute("<a b c='1'>", "b"), "none");
    EXPECT_EQ(attribute("<a b=\"c='1'\" d=''>", "c"), "none");
    EXPECT_EQ(attribute("<a b=\"c='1'\" d=''>", "d"), "");
    EXPECT_EQ(attribute("<a =\"x\" / b='1'>", "b"), "1");
    EXPECT_EQ(attribute("<a b=>", "b"), "");
    EXPECT_EQ(attribute("<a/>", "b"), "none");
}

TEST(MarkupTagsTest, ABodyOfDeclarationsHoldsNothing)
{
    EXPECT_TRUE(MarkupTags::holdNothing(""));
    EXPECT_TRUE(MarkupTags::holdNothing(" \n"));
    EXPECT_TRUE(MarkupTags::holdNothing("<?xml?>\n<!DOCTYPE a SYSTEM \"b\"> <!-- <c> -->"));
    EXPECT_FALSE(MarkupTags::holdNothing("<?xml?><a/>"));
    EXPECT_FALSE(MarkupTags::holdNothing("<?xml?>a"));
    EXPECT_FALSE(MarkupTags::holdNothing("<![CDATA[]]>"));
    EXPECT_FALSE(MarkupTags::holdNothing("<?xml"));
    EXPECT_FALSE(MarkupTags::holdNothing("<"));
}

TEST(MarkupTagsTest, HostileMarkupTakesTimeInProportion)
{
    EXPECT_EQ(tagsIn(QByteArray("<a b=\"").repeated(300'000)), "");
    EXPECT_EQ(tagsIn(QByteArray("<!--").repeated(300'000)), "");
    EXPECT_EQ(tagsIn(QByteArray("<").repeated(1'000'000)), "");
    EXPECT_EQ(tagsIn(QByteArray("<a>").repeated(300'000)).size(), 600'000);
}

} // namespace
