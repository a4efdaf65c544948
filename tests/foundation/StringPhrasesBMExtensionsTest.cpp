// SPDX-License-Identifier: MIT
#include "foundation/StringPhrasesBMExtensions.h"

#include "support/RandomText.h"

#include <QCoreApplication>
#include <QTranslator>

#include <cmath>
#include <limits>

namespace {

using namespace Qt::StringLiterals;
using platform::StringEncoding;

TEST(StringWithCStringTest, EndsAtTheLengthOrAtAZeroByte)
{
    EXPECT_EQ(stringWithCString("Evernote", StringEncoding::Utf8, 4), u"Ever"_s);
    EXPECT_EQ(stringWithCString("ab\0cd", StringEncoding::Ascii, 5), u"ab"_s);
    EXPECT_EQ(stringWithCString("ab", StringEncoding::Ascii, 100), u"ab"_s);
    const char withoutEnd[] = {'a', 'b', 'c'};
    EXPECT_EQ(stringWithCString(withoutEnd, StringEncoding::Ascii, 3), u"abc"_s);
}

TEST(StringWithCStringTest, NoBytesGiveTheEmptyString)
{
    EXPECT_EQ(stringWithCString(nullptr, StringEncoding::Utf8, 10), u""_s);
    EXPECT_EQ(stringWithCString("abc", StringEncoding::Utf8, 0), u""_s);
    EXPECT_EQ(stringWithCString("abc", StringEncoding::Utf8, -1), u""_s);
}

TEST(StringWithCStringTest, DecodesWithTheEncoding)
{
    EXPECT_EQ(stringWithCString("caf\xC3\xA9", StringEncoding::Utf8, 10), u"caf\u00e9"_s);
    EXPECT_EQ(stringWithCString("caf\xE9", StringEncoding::IsoLatin1, 10), u"caf\u00e9"_s);
    EXPECT_EQ(stringWithCString("\x80\x93", StringEncoding::WindowsLatin1, 10), u"\u20ac\u201c"_s);
    EXPECT_EQ(stringWithCString("\x8E", StringEncoding::MacRoman, 10), u"\u00e9"_s);
    EXPECT_EQ(stringWithCString("\xCF\xF0", StringEncoding::WindowsCyrillic, 10), u"\u041f\u0440"_s);
    EXPECT_EQ(stringWithCString("\xE1\xEE", StringEncoding::WindowsGreek, 10), u"\u03b1\u03be"_s);
    EXPECT_EQ(stringWithCString("\xFE", StringEncoding::WindowsTurkish, 10), u"\u015f"_s);
    EXPECT_EQ(stringWithCString("\xB9", StringEncoding::WindowsLatin2, 10), u"\u0105"_s);
    EXPECT_EQ(stringWithCString("\xB1", StringEncoding::IsoLatin2, 10), u"\u0105"_s);
    EXPECT_EQ(stringWithCString("\x93\xFA", StringEncoding::ShiftJis, 10), u"\u65e5"_s);
    EXPECT_EQ(stringWithCString("\xC6\xFC", StringEncoding::JapaneseEuc, 10), u"\u65e5"_s);
    EXPECT_EQ(stringWithCString("\x1B$BF|\x1B(B", StringEncoding::Iso2022Japanese, 20), u"\u65e5"_s);
    EXPECT_EQ(stringWithCString("\x65\xE5", StringEncoding::Utf16BigEndian, 10), u"\u65e5"_s);
    EXPECT_EQ(stringWithCString("\xE5\x65", StringEncoding::Utf16LittleEndian, 10), u"\u65e5"_s);
}

TEST(StringWithCStringTest, WhatCannotBeDecodedBecomesTheReplacementCharacter)
{
    EXPECT_EQ(stringWithCString("a\xFFz", StringEncoding::Utf8, 10), u"a\ufffdz"_s);
    EXPECT_EQ(stringWithCString("a\xE9z", StringEncoding::Ascii, 10), u"a\ufffdz"_s);
    EXPECT_EQ(stringWithCString("a\xE9z", StringEncoding(999), 10), u"a\ufffdz"_s);
    // Cut within a character.
    EXPECT_EQ(stringWithCString("\xC3\xA9", StringEncoding::Utf8, 1), u"\ufffd"_s);
}

TEST(StringWithCStringTest, AnyBytesInAnyEncodingGiveAText)
{
    test::RandomText random(5);
    const quint32 encodings[] = {1, 3, 4, 5, 8, 9, 10, 11, 12, 13, 14, 15, 21, 30,
                                 0x90000100, 0x94000100, 0x8C000100, 0x98000100, 0x9C000100};
    for (int count = 0; count < 500; ++count) {
        QByteArray bytes;
        for (int index = random.number(0, 40); index > 0; --index)
            bytes += char(random.number(0, 255));
        const qsizetype used = qsizetype(qstrnlen(bytes.constData(), size_t(bytes.size())));
        for (const quint32 encoding : encodings) {
            const QString text = stringWithCString(bytes.constData(), StringEncoding(encoding), bytes.size());
            EXPECT_LE(text.size(), used * 2);
        }
    }
}

TEST(StringWithQuantityTest, TheSingularIsForExactlyOne)
{
    EXPECT_EQ(stringWithQuantity(1, u"note"_s, u"notes"_s), u"1 note"_s);
    EXPECT_EQ(stringWithQuantity(0, u"note"_s, u"notes"_s), u"0 notes"_s);
    EXPECT_EQ(stringWithQuantity(-1, u"note"_s, u"notes"_s), u"-1 notes"_s);
    EXPECT_EQ(stringWithQuantity(123456789, u"note"_s, u"notes"_s), u"123456789 notes"_s);
    EXPECT_EQ(stringWithQuantity(2, u"%@"_s, u"%ld"_s), u"2 %ld"_s);
}

TEST(StringForTimeIntervalTest, ShowsTheLargestUnitRoundedDown)
{
    EXPECT_EQ(stringForTimeInterval(5400), u"1 hour remaining"_s);
    EXPECT_EQ(stringForTimeInterval(60), u"1 minute remaining"_s);
    EXPECT_EQ(stringForTimeInterval(119.9), u"1 minute remaining"_s);
    EXPECT_EQ(stringForTimeInterval(120), u"2 minutes remaining"_s);
    EXPECT_EQ(stringForTimeInterval(86399), u"23 hours remaining"_s);
    EXPECT_EQ(stringForTimeInterval(86400), u"1 day remaining"_s);
    EXPECT_EQ(stringForTimeInterval(200000), u"2 days remaining"_s);
}

TEST(StringForTimeIntervalTest, RoundsSecondsUp)
{
    EXPECT_EQ(stringForTimeInterval(59.2), u"60 seconds remaining"_s);
    EXPECT_EQ(stringForTimeInterval(0.1), u"1 second remaining"_s);
    EXPECT_EQ(stringForTimeInterval(1), u"1 second remaining"_s);
    EXPECT_EQ(stringForTimeInterval(0), u"0 seconds remaining"_s);
}

TEST(StringForTimeIntervalTest, AnyNumberGivesAPhrase)
{
    EXPECT_EQ(stringForTimeInterval(-1), u"-1 days remaining"_s);
    EXPECT_EQ(stringForTimeInterval(std::numeric_limits<double>::quiet_NaN()), u"0 seconds remaining"_s);
    EXPECT_EQ(stringForTimeInterval(std::numeric_limits<double>::infinity()),
              u"9223372036854775807 days remaining"_s);
    EXPECT_EQ(stringForTimeInterval(-std::numeric_limits<double>::infinity()),
              u"-9223372036854775808 days remaining"_s);
}

TEST(StringForTimeIntervalTest, EveryTimeIsToldInItsLargestUnit)
{
    test::RandomText random(22);
    const qint64 units[] = {86400, 3600, 60};
    const QString names[] = {u"day"_s, u"hour"_s, u"minute"_s};
    for (int count = 0; count < 3000; ++count) {
        const double seconds = random.number(0, 100'000'000) / double(random.number(1, 100'000));
        QString expected;
        for (int unit = 0; unit < 3 && expected.isEmpty(); ++unit) {
            if (const qint64 whole = qint64(seconds) / units[unit])
                expected = stringWithQuantity(whole, names[unit], names[unit] + u's');
        }
        if (expected.isEmpty())
            expected = stringWithQuantity(qint64(std::ceil(seconds)), u"second"_s, u"seconds"_s);
        EXPECT_EQ(stringForTimeInterval(seconds), expected + u" remaining"_s) << seconds;
    }
}

TEST(StringWithQuantityTest, AnyWordsFollowTheNumberAsTheyAre)
{
    test::RandomText random(23);
    for (int count = 0; count < 1000; ++count) {
        const QString singular = random.next(10);
        const QString plural = random.next(10);
        const qint64 quantity = random.number(-2, 2);
        EXPECT_EQ(stringWithQuantity(quantity, singular, plural),
                  QString::number(quantity) + u' ' + (quantity == 1 ? singular : plural));
    }
}

class GermanTranslator : public QTranslator {
public:
    [[nodiscard]] QString translate(const char*, const char* text, const char*, int) const override
    {
        const QString english = QString::fromUtf8(text);
        return english == u"%ld hours remaining"_s ? u"Noch %ld Stunden"_s : QString();
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
};

TEST(StringForTimeIntervalTest, PhrasesComeFromTheTranslationTables)
{
    GermanTranslator translator;
    QCoreApplication::installTranslator(&translator);
    EXPECT_EQ(stringForTimeInterval(7200), u"Noch 2 Stunden"_s);
    EXPECT_EQ(stringForTimeInterval(3600), u"1 hour remaining"_s);
    QCoreApplication::removeTranslator(&translator);
    EXPECT_EQ(stringForTimeInterval(7200), u"2 hours remaining"_s);
}

} // namespace
