// SPDX-License-Identifier: MIT
#include "platform/xml/TagAttributes.h"

#include <QByteArray>

namespace {

using platform::mayHaveMoreAttributes;
using platform::TagGrammar;

constexpr int count = 100;

QByteArray repeated(const QByteArray& attribute)
{
    QByteArray all;
    for (int number = 0; number < count; ++number)
        all += QByteArray(attribute).replace('#', QByteArray::number(number));
    return all;
}

// As many as there are, and no fewer.
void expectAll(const QByteArray& tag, TagGrammar grammar)
{
    EXPECT_TRUE(mayHaveMoreAttributes((tag), grammar, count - 1)) << tag.first(60).constData();
}

void expectFew(const QByteArray& markup, TagGrammar grammar)
{
    EXPECT_FALSE(mayHaveMoreAttributes((markup), grammar, count / 2))
        << markup.first(60).constData();
}

TEST(TagAttributesTest, CountsTheAttributesOfATag)
{
    for (const auto grammar : {TagGrammar::Xml, TagGrammar::Html}) {
        const QByteArray tag = "<a" + repeated(" a#='x' b#=\"y\"") + ">";
        EXPECT_TRUE(mayHaveMoreAttributes((tag), grammar, 2 * count - 1));
        EXPECT_FALSE(mayHaveMoreAttributes((tag), grammar, 2 * count));
    }
}

TEST(TagAttributesTest, AddsNothingUpOverSeveralTags)
{
    for (const auto grammar : {TagGrammar::Xml, TagGrammar::Html})
        expectFew(repeated("<p a='1' b=\"2\">text c='3' </p><br/>"), grammar);
}

TEST(TagAttributesTest, ValuesHoldNoAttributes)
{
    for (const auto grammar : {TagGrammar::Xml, TagGrammar::Html}) {
        expectFew("<img src=\"data:image/png;base64," + repeated("\niVBOR#w0KGgo=") + "\">",
                  grammar);
        expectFew("<p a='" + repeated(" b#=\"c\"") + "'>", grammar);
    }
}

TEST(TagAttributesTest, ValuesMayHoldTheEndOfATag)
{
    expectAll("<a" + repeated(" a#='>'") + ">", TagGrammar::Xml);
    expectAll("<a" + repeated(" \xC3\xA9#=' b=\">\"'") + ">", TagGrammar::Xml);
    expectAll("<a" + repeated(" a#='>'") + ">", TagGrammar::Html);
    expectAll("<a" + repeated(" a#='<>\"'") + ">", TagGrammar::Html);
}

TEST(TagAttributesTest, ATagCountsWhereverItSeemsToBegin)
{
    const QByteArray tag = "<a" + repeated(" a#='x'") + ">";
    for (const char* head : {"<!-- ", "<![CDATA[", "<b c='", "<? ", "<!ENTITY x \"", "<b <"}) {
        expectAll(head + tag, TagGrammar::Xml);
        expectAll(head + tag, TagGrammar::Html);
    }
}

TEST(TagAttributesTest, HtmlTakesWhateverStandsInATagForAttributes)
{
    for (const char* head : {"<p", "<p a=b\"", "<p \"=\"", "<p a=\"b\"c=", "<p /",
                             "<p a = ", "<p a'", "<p a=''\"", "<p =\""}) {
        expectAll(head + repeated(" a#"), TagGrammar::Html);
        expectAll(head + repeated(" a#=x"), TagGrammar::Html);
    }
    expectAll("<p a=''" + repeated("a#=''"), TagGrammar::Html);
    expectAll("<p " + repeated("a#\" "), TagGrammar::Html);
}

TEST(TagAttributesTest, TextHasNoTags)
{
    for (const char* text : {"", "<", "a < b <", "</a b='c'>", "<1 a='b'>", "a b='c' d=\"e\""}) {
        EXPECT_FALSE(mayHaveMoreAttributes(text, TagGrammar::Html, 0)) << text;
        EXPECT_FALSE(mayHaveMoreAttributes(text, TagGrammar::Xml, 0)) << text;
    }
}

} // namespace
