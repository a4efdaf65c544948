// SPDX-License-Identifier: MIT
#include "foundation/StringCleaningBMExtensions.h"

#include "support/RandomText.h"

namespace {

using namespace Qt::StringLiterals;
using platform::CharacterSet;

TEST(StringByRemovingNewlinesAndTabsTest, MakesABlankOfEachAndTrims)
{
    EXPECT_EQ(stringByRemovingNewlinesAndTabs(u"\ta\tb\nc\r\nd\r"_s), u"a b c  d"_s);
    EXPECT_EQ(stringByRemovingNewlinesAndTabs(u"\n\t \r"_s), u""_s);
    EXPECT_EQ(stringByRemovingNewlinesAndTabs(u""_s), u""_s);
}

TEST(StringByRemovingNewlinesAndTabsTest, TrimsUnicodesBlanksButNoOtherLineEnds)
{
    EXPECT_EQ(stringByRemovingNewlinesAndTabs(u"\u00a0\u3000a\u2003"_s), u"a"_s);
    EXPECT_EQ(stringByRemovingNewlinesAndTabs(u"\u2028a\u0085"_s), u"\u2028a\u0085"_s);
}

TEST(StringByRemovingNewlinesTest, LeavesTabsWithinTheText)
{
    EXPECT_EQ(stringByRemovingNewlines(u"\ta\tb\nc\r\nd\t\n"_s), u"a\tb c  d"_s);
}

TEST(StringByTrimmingWhitespaceTest, TrimsBlanksAndLineEndsAtBothEnds)
{
    EXPECT_EQ(stringByTrimmingWhitespace(u"\r\n\u2029 a b\t\u0085"_s), u"a b"_s);
    EXPECT_EQ(stringByTrimmingWhitespace(u" \n"_s), u""_s);
}

TEST(StringByRemovingCharactersInSetTest, RemovesEveryCharacterOfTheSet)
{
    const CharacterSet set = CharacterSet::charactersInString(u"ab\U0001F600"_s);
    EXPECT_EQ(stringByRemovingCharactersInSet(u"a1b2\U0001F600c\U0001F601"_s, set), u"12c\U0001F601"_s);
    EXPECT_EQ(stringByRemovingCharactersInSet(u"abba"_s, set), u""_s);
}

TEST(StringByRemovingCharactersInSetTest, ComparesLiterally)
{
    const CharacterSet set = CharacterSet::charactersInString(u"\u00e9"_s);
    EXPECT_EQ(stringByRemovingCharactersInSet(u"\u00e9e\u0301E"_s, set), u"e\u0301E"_s);
}

TEST(StringByRemovingCharactersInSetTest, FindsWhatComesTogetherByTheRemoval)
{
    const CharacterSet set = CharacterSet::charactersInString(u"x\U0001F600"_s);
    const QString halves = QString(QChar(0xD83D)) + u'x' + QChar(0xDE00);
    EXPECT_EQ(stringByRemovingCharactersInSet(u"a"_s + QChar(0xD83D) + halves + QChar(0xDE00) + u'b', set), u"ab"_s);
}

TEST(StringByRemovingCharactersInSetTest, AnUnpairedSurrogateIsACharacterOfItsOwn)
{
    const QString high(QChar(0xD83D));
    const CharacterSet set = CharacterSet::charactersInString(high);
    EXPECT_EQ(stringByRemovingCharactersInSet(high + u'a' + high + u"\U0001F600"_s, set), u"a\U0001F600"_s);
}

TEST(StringByRemovingControlAndIllegalCharactersTest, RemovesControlsFormatsNoncharactersAndUnassigned)
{
    EXPECT_EQ(stringByRemovingControlAndIllegalCharacters(u"a\tb\nc\u00ad\u200d\ufeff\u0085d"_s), u"abcd"_s);
    EXPECT_EQ(stringByRemovingControlAndIllegalCharacters(u"a\ufffe\uffff\ufdd0\u0378b"_s), u"ab"_s);
    EXPECT_EQ(stringByRemovingControlAndIllegalCharacters(u"a\U000E0001\U0010FFFFb\U0001F600"_s), u"ab\U0001F600"_s);
}

TEST(StringByRemovingControlAndIllegalCharactersTest, LeavesUnpairedSurrogatesAndPrivateCharacters)
{
    const QString odd = QString(QChar(0xDC00)) + u'\ue000' + QChar(0xD800);
    EXPECT_EQ(stringByRemovingControlAndIllegalCharacters(odd), odd);
}

TEST(StringByStandardizingNewlinesTest, MakesALineFeedOfEachKind)
{
    EXPECT_EQ(stringByStandardizingNewlines(u"a\r\n\rb\n\rc"_s), u"a\n\nb\nc"_s);
    EXPECT_EQ(stringByStandardizingNewlines(u"\n\n\r\r"_s), u"\n\n\n"_s);
    EXPECT_EQ(stringByStandardizingNewlines(u"\r\n\r\n"_s), u"\n\n"_s);
    EXPECT_EQ(stringByStandardizingNewlines(u"a\u2028b\n"_s), u"a\u2028b\n"_s);
}

class CleaningPropertyTest : public ::testing::TestWithParam<unsigned> {
protected:
    test::RandomText m_random{GetParam()};
};

TEST_P(CleaningPropertyTest, CleaningTwiceIsCleaningOnceAndNeverMakesATextLonger)
{
    using Operation = QString (*)(const QString&);
    const Operation operations[] = {stringByRemovingNewlinesAndTabs, stringByRemovingNewlines,
                                    stringByTrimmingWhitespace, stringByRemovingControlAndIllegalCharacters};
    for (int count = 0; count < 2000; ++count) {
        const QString text = m_random.next(60);
        for (const Operation operation : operations) {
            const QString once = operation(text);
            EXPECT_LE(once.size(), text.size());
            EXPECT_EQ(operation(once), once);
        }
    }
}

TEST_P(CleaningPropertyTest, NothingOfTheSetIsLeftAndAllElseIs)
{
    for (int count = 0; count < 2000; ++count) {
        const QString text = m_random.next(60);
        const CharacterSet set = CharacterSet::charactersInString(m_random.next(10));
        const QString kept = stringByRemovingCharactersInSet(text, set);
        for (const char32_t character : kept.toStdU32String())
            EXPECT_FALSE(set.contains(character) && character != QChar::ReplacementCharacter);
        EXPECT_EQ(stringByRemovingCharactersInSet(kept, set), kept);
    }
}

TEST_P(CleaningPropertyTest, StandardNewlinesHoldNoCarriageReturn)
{
    for (int count = 0; count < 2000; ++count) {
        const QString text = m_random.next(60);
        const QString standard = stringByStandardizingNewlines(text);
        EXPECT_FALSE(standard.contains(u'\r'));
        EXPECT_LE(standard.size(), text.size());
        EXPECT_EQ(stringByStandardizingNewlines(standard), standard);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, CleaningPropertyTest, ::testing::Values(1U, 20130412U, 0x5EEDU));

} // namespace
