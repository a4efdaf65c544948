// SPDX-License-Identifier: MIT
#include "foundation/StringEscapingBMExtensions.h"

#include "support/RandomText.h"

namespace {

using namespace Qt::StringLiterals;

TEST(StringByEscapingBackslashesTest, DoublesEach)
{
    EXPECT_EQ(stringByEscapingBackslashes(u"a\\b\\\\c"_s), u"a\\\\b\\\\\\\\c"_s);
    EXPECT_EQ(stringByEscapingBackslashes(u"plain"_s), u"plain"_s);
}

TEST(StringByEscapingQuotesTest, PutsABackslashBeforeBothKinds)
{
    EXPECT_EQ(stringByEscapingQuotes(u"it's \"so\""_s), u"it\\'s \\\"so\\\""_s);
    EXPECT_EQ(stringByEscapingQuotes(u"\\'"_s), u"\\\\'"_s);
}

TEST(PercentEncodedURLStringTest, EscapesWhatMayNotStandInAUrl)
{
    EXPECT_EQ(percentEncodedURLString(u"http://a.example/b c"_s), u"http://a.example/b%20c"_s);
    EXPECT_EQ(percentEncodedURLString(u"\"<>\\^`{|}"_s), u"%22%3C%3E%5C%5E%60%7B%7C%7D"_s);
    EXPECT_EQ(percentEncodedURLString(u"a\tb\n\u007f"_s), u"a%09b%0A%7F"_s);
}

TEST(PercentEncodedURLStringTest, EscapesUtf8Bytes)
{
    EXPECT_EQ(percentEncodedURLString(u"caf\u00e9"_s), u"caf%C3%A9"_s);
    EXPECT_EQ(percentEncodedURLString(u"\U0001F600"_s), u"%F0%9F%98%80"_s);
    EXPECT_EQ(percentEncodedURLString(QString(QChar(0xD800))), u"%EF%BF%BD"_s);
}

TEST(PercentEncodedURLStringTest, KeepsEscapesAndEscapesOtherPercentSigns)
{
    EXPECT_EQ(percentEncodedURLString(u"%41%7e%zz%4"_s), u"%41%7e%25zz%254"_s);
}

TEST(PercentEncodedURLStringTest, KeepsWhatUrlsAreMadeOf)
{
    const QString url = u"https://me:pw@host.example:80/a;b=c/~d?e=f&g='(h)*+,!$#frag"_s;
    EXPECT_EQ(percentEncodedURLString(url), url);
}

TEST(PercentEncodedURLStringTest, KeepsOnlyTheFirstHash)
{
    EXPECT_EQ(percentEncodedURLString(u"a#b#c"_s), u"a#b%23c"_s);
}

TEST(PercentEncodedURLStringTest, KeepsTheBracketsOfAHostAlone)
{
    EXPECT_EQ(percentEncodedURLString(u"http://[::1]:8080/a[1]"_s), u"http://[::1]:8080/a%5B1%5D"_s);
    EXPECT_EQ(percentEncodedURLString(u"http://me@[::1]/"_s), u"http://me@[::1]/"_s);
    EXPECT_EQ(percentEncodedURLString(u"//[::1]/"_s), u"//[::1]/"_s);
    EXPECT_EQ(percentEncodedURLString(u"http://a/[b]"_s), u"http://a/%5Bb%5D"_s);
    EXPECT_EQ(percentEncodedURLString(u"http://[a"_s), u"http://%5Ba"_s);
    EXPECT_EQ(percentEncodedURLString(u"a[b]"_s), u"a%5Bb%5D"_s);
}

class EscapingPropertyTest : public ::testing::TestWithParam<unsigned> {
protected:
    test::RandomText m_random{GetParam()};
};

TEST_P(EscapingPropertyTest, AnEncodedUrlHoldsOnlyUrlCharactersAndStaysAsItIs)
{
    const QString allowed =
        u"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz!$&'()*+,-./:;=?@_~#%[]"_s;
    for (int count = 0; count < 3000; ++count) {
        const QString url = percentEncodedURLString(m_random.next(60));
        for (const QChar unit : url)
            EXPECT_TRUE(allowed.contains(unit));
        EXPECT_EQ(percentEncodedURLString(url), url);
    }
}

TEST_P(EscapingPropertyTest, EscapedBackslashesCanBeTakenBack)
{
    for (int count = 0; count < 1000; ++count) {
        const QString text = m_random.next(40);
        QString escaped = stringByEscapingBackslashes(text);
        EXPECT_EQ(escaped.replace(u"\\\\"_s, u"\\"_s), text);
        EXPECT_EQ(stringByEscapingQuotes(text).size(), text.size() + text.count(u'\'') + text.count(u'"'));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, EscapingPropertyTest, ::testing::Values(2U, 20130413U, 0xC0DEU));

} // namespace
