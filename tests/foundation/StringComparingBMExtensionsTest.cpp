// SPDX-License-Identifier: MIT
#include "foundation/StringComparingBMExtensions.h"

#include "support/RandomText.h"

namespace {

using namespace Qt::StringLiterals;

TEST(StartsWithTest, IgnoresCase)
{
    EXPECT_TRUE(startsWith(u"Evernote"_s, u"EVER"_s));
    EXPECT_TRUE(startsWith(u"https"_s, u"http"_s));
    EXPECT_FALSE(startsWith(u"htt"_s, u"http"_s));
    EXPECT_FALSE(startsWith(u"shttp"_s, u"http"_s));
    EXPECT_TRUE(startsWith(u"\u00c9t\u00e9"_s, u"\u00e9T"_s));
    EXPECT_TRUE(startsWith(u"a"_s, u""_s));
    EXPECT_TRUE(startsWith(u""_s, u""_s));
}

TEST(StartsWithTest, ComparesAsManyCodeUnitsAsThePrefixHas)
{
    EXPECT_FALSE(startsWith(u"\u00df"_s, u"SS"_s));
    EXPECT_TRUE(startsWith(u"e\u0301"_s, u"e"_s));
    EXPECT_TRUE(startsWith(u"\U0001F600"_s, QString(QChar(0xD83D))));
}

TEST(EndsWithTest, IgnoresCase)
{
    EXPECT_TRUE(endsWith(u"note.HTML"_s, u".html"_s));
    EXPECT_FALSE(endsWith(u"l"_s, u"html"_s));
    EXPECT_FALSE(endsWith(u"note.html "_s, u".html"_s));
    EXPECT_TRUE(endsWith(u"a"_s, u""_s));
}

TEST(ContainsStringTest, IgnoresCase)
{
    EXPECT_TRUE(containsString(u"Evernote"_s, u"NOTE"_s));
    EXPECT_FALSE(containsString(u"Evernote"_s, u""_s));
    EXPECT_FALSE(containsString(u""_s, u"a"_s));
    EXPECT_FALSE(containsString(u"Evernote"_s, u"notes"_s));
    EXPECT_TRUE(containsString(u"STRASSE \u00c9T\u00c9"_s, u"stra\u00dfe"_s));
    EXPECT_TRUE(containsString(u"\U00010400x"_s, u"\U00010428"_s));
}

TEST(ContainsStringTest, ComposedAndDecomposedLettersAreTheSame)
{
    EXPECT_TRUE(containsString(u"Caf\u00e9 noir"_s, u"cafe\u0301"_s));
    EXPECT_TRUE(containsString(u"Cafe\u0301 noir"_s, u"CAF\u00c9"_s));
    EXPECT_TRUE(containsString(u"\ud55c\uae00"_s, u"\u1112\u1161\u11ab"_s));
}

TEST(ContainsStringTest, ALetterIsFoundWithAllItsMarks)
{
    EXPECT_FALSE(containsString(u"Cafe\u0301"_s, u"cafe"_s));
    EXPECT_FALSE(containsString(u"Caf\u00e9"_s, u"cafe"_s));
    EXPECT_FALSE(containsString(u"\u00df"_s, u"s"_s));
}

TEST(ContainsStringTest, UnpairedSurrogatesMatchThemselves)
{
    const QString high(QChar(0xD83D));
    EXPECT_TRUE(containsString(u"a"_s + high + u'b', high + u'B'));
    EXPECT_FALSE(containsString(u"a\U0001F600"_s, high));
}

TEST(IsCaseInsensitiveEqualToStringTest, FoldsFully)
{
    EXPECT_TRUE(isCaseInsensitiveEqualToString(u"Stra\u00dfe"_s, u"STRASSE"_s));
    EXPECT_TRUE(isCaseInsensitiveEqualToString(u"\u03a3\u03c2"_s, u"\u03c3\u03c3"_s));
    EXPECT_TRUE(isCaseInsensitiveEqualToString(u"\u00c9"_s, u"e\u0301"_s));
    EXPECT_TRUE(isCaseInsensitiveEqualToString(u""_s, u""_s));
    EXPECT_FALSE(isCaseInsensitiveEqualToString(u"a"_s, u"a "_s));
    EXPECT_FALSE(isCaseInsensitiveEqualToString(u"I"_s, u"\u0131"_s));
}

class ComparingPropertyTest : public ::testing::TestWithParam<unsigned> {
protected:
    test::RandomText m_random{GetParam()};
};

TEST_P(ComparingPropertyTest, EveryTextBeginsAndEndsWithItsPartsInAnyCase)
{
    for (int count = 0; count < 2000; ++count) {
        const QString text = m_random.next(40);
        const int cut = m_random.number(0, int(text.size()));
        EXPECT_TRUE(startsWith(text, text.first(cut)));
        EXPECT_TRUE(endsWith(text, text.sliced(cut)));
        EXPECT_TRUE(isCaseInsensitiveEqualToString(text, text));
        EXPECT_EQ(containsString(text, text), !text.isEmpty());
        EXPECT_FALSE(startsWith(text, text + u'a'));
        EXPECT_FALSE(endsWith(text, u'a' + text));
    }
}

TEST_P(ComparingPropertyTest, AWordIsFoundBetweenAnyTwoTexts)
{
    for (int count = 0; count < 2000; ++count) {
        const QString text = m_random.next(20) + u" Evernote "_s + m_random.next(20);
        EXPECT_TRUE(containsString(text, u"EVERNOTE"_s));
    }
}

TEST_P(ComparingPropertyTest, EqualityIsSymmetric)
{
    for (int count = 0; count < 2000; ++count) {
        const QString left = m_random.next(3);
        const QString right = m_random.next(3);
        EXPECT_EQ(isCaseInsensitiveEqualToString(left, right), isCaseInsensitiveEqualToString(right, left));
        EXPECT_LE(isCaseInsensitiveEqualToString(left, right), left.isEmpty() || containsString(left, right));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ComparingPropertyTest, ::testing::Values(3U, 20130414U, 0xFACEU));

} // namespace
