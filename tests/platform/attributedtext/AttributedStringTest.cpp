// SPDX-License-Identifier: MIT
#include "platform/attributedtext/AttributedString.h"

#include <stdexcept>

namespace {

using platform::AttributedString;
using platform::Font;
using platform::ParagraphStyle;
using platform::TextAttributes;
using platform::TextRange;

TextAttributes withFontSize(double size)
{
    TextAttributes attributes;
    attributes.font = Font::userFont(size);
    return attributes;
}

// The text with a bar between runs, and each run's font size.
QString show(const AttributedString& text)
{
    QStringList parts;
    qsizetype end = 0;
    for (const AttributedString::Run& run : text.runs()) {
        EXPECT_EQ(run.range.location, end);
        end = run.range.end();
        const double size = run.attributes->font ? run.attributes->font->size : 0;
        parts += text.string().mid(run.range.location, run.range.length) + QString::number(size);
    }
    EXPECT_EQ(end, text.length());
    return parts.join(u'|');
}

AttributedString sample()
{
    AttributedString text;
    text.append(u"abc", withFontSize(1));
    text.append(u"def", withFontSize(2));
    text.append(u"ghi", withFontSize(3));
    return text;
}

QString s(const char* text)
{
    return QString::fromUtf8(text);
}

TEST(AttributedStringTest, AnEmptyOneHasNoRuns)
{
    const AttributedString empty;
    EXPECT_TRUE(empty.isEmpty());
    EXPECT_TRUE(empty.runs().empty());
    EXPECT_EQ(AttributedString(QString(), withFontSize(1)), empty);
}

TEST(AttributedStringTest, EqualNeighboursAreOneRun)
{
    AttributedString text(s("ab"), withFontSize(1));
    text.append(u"cd", withFontSize(1));
    text.append(u"ef", std::make_shared<const TextAttributes>(withFontSize(1)));
    text.append(u"gh", withFontSize(2));
    text.append(u"", withFontSize(3));
    EXPECT_EQ(show(text), s("abcdef1|gh2"));
}

TEST(AttributedStringTest, ANullAttributesPointerMeansNone)
{
    AttributedString text;
    text.append(u"a", std::shared_ptr<const TextAttributes>());
    EXPECT_EQ(text.attributesAt(0), TextAttributes());
}

TEST(AttributedStringTest, AppendedTextJoinsAtTheSeam)
{
    AttributedString text = sample();
    AttributedString tail;
    tail.append(u"j", withFontSize(3));
    tail.append(u"k", withFontSize(4));
    text.append(tail);
    EXPECT_EQ(show(text), s("abc1|def2|ghij3|k4"));
}

TEST(AttributedStringTest, CanBeAppendedToItself)
{
    AttributedString text = sample();
    text.append(text);
    EXPECT_EQ(show(text), s("abc1|def2|ghi3|abc1|def2|ghi3"));
}

TEST(AttributedStringTest, AnAttachmentIsOneCharacter)
{
    const auto attachment = std::make_shared<platform::TextAttachment>();
    const AttributedString text = AttributedString::withAttachment(attachment);
    EXPECT_EQ(text.string(), QString(QChar(0xFFFC)));
    EXPECT_EQ(text.attributesAt(0).attachment, attachment);
    EXPECT_FALSE(text.attributesAt(0).font);
}

TEST(AttributedStringTest, TellsTheAttributesAndTheirRange)
{
    const AttributedString text = sample();
    TextRange range;
    EXPECT_EQ(text.attributesAt(0, &range).font->size, 1);
    EXPECT_EQ(range, (TextRange{0, 3}));
    EXPECT_EQ(text.attributesAt(5, &range).font->size, 2);
    EXPECT_EQ(range, (TextRange{3, 3}));
    EXPECT_EQ(text.attributesAt(8, &range).font->size, 3);
    EXPECT_EQ(range, (TextRange{6, 3}));
}

TEST(AttributedStringTest, PositionsOutsideTheTextThrow)
{
    const AttributedString text = sample();
    EXPECT_THROW((void)text.attributesAt(9), std::out_of_range);
    EXPECT_THROW((void)text.attributesAt(-1), std::out_of_range);
    EXPECT_THROW((void)AttributedString().attributesAt(0), std::out_of_range);
}

TEST(AttributedStringTest, RangesOutsideTheTextThrow)
{
    constexpr qsizetype huge = std::numeric_limits<qsizetype>::max();
    const TextRange bad[] = {{-1, 1}, {0, -1}, {0, 10}, {9, 1}, {10, 0}, {5, huge}, {huge, huge}};
    for (const TextRange range : bad) {
        AttributedString text = sample();
        EXPECT_THROW((void)text.substring(range), std::out_of_range);
        EXPECT_THROW(text.replaceCharacters(range, QStringView(u"x")), std::out_of_range);
        EXPECT_THROW(text.replaceCharacters(range, sample()), std::out_of_range);
        EXPECT_THROW(text.deleteCharacters(range), std::out_of_range);
        EXPECT_THROW(text.changeAttributes(range, [](TextAttributes&) {}), std::out_of_range);
        EXPECT_THROW(text.setParagraphStyle(range, nullptr), std::out_of_range);
        EXPECT_THROW((void)text.lineRangeFor(range), std::out_of_range);
        EXPECT_EQ(text, sample());
    }
}

TEST(AttributedStringTest, ASubstringKeepsItsRuns)
{
    EXPECT_EQ(show(sample().substring({2, 5})), s("c1|def2|g3"));
    EXPECT_EQ(show(sample().substring({3, 3})), s("def2"));
    EXPECT_EQ(show(sample().substring({4, 1})), s("e2"));
    EXPECT_TRUE(sample().substring({9, 0}).isEmpty());
    EXPECT_EQ(sample().substring({0, 9}), sample());
}

TEST(AttributedStringTest, ReplacingTakesTheNewTextWithItsOwnAttributes)
{
    AttributedString text = sample();
    text.replaceCharacters({2, 5}, AttributedString(s("XY"), withFontSize(9)));
    EXPECT_EQ(show(text), s("ab1|XY9|hi3"));

    text = sample();
    text.replaceCharacters({4, 1}, AttributedString(s("X"), withFontSize(2)));
    EXPECT_EQ(show(text), s("abc1|dXf2|ghi3"));

    text = sample();
    text.replaceCharacters({0, 9}, AttributedString());
    EXPECT_TRUE(text.isEmpty());
    EXPECT_TRUE(text.runs().empty());

    text = sample();
    text.replaceCharacters({4, 2}, text);
    EXPECT_EQ(show(text), s("abc1|d2|abc1|def2|ghi3|ghi3").replace(s("ghi3|ghi3"), s("ghighi3")));
}

TEST(AttributedStringTest, InsertingAtEitherEndKeepsTheRest)
{
    AttributedString text = sample();
    text.replaceCharacters({0, 0}, AttributedString(s("<"), withFontSize(9)));
    text.replaceCharacters({10, 0}, AttributedString(s(">"), withFontSize(9)));
    EXPECT_EQ(show(text), s("<9|abc1|def2|ghi3|>9"));
}

TEST(AttributedStringTest, PlainReplacementsTakeTheFirstReplacedCharactersAttributes)
{
    AttributedString text = sample();
    text.replaceCharacters({2, 2}, u"XYZ");
    EXPECT_EQ(show(text), s("abXYZ1|ef2|ghi3"));
}

TEST(AttributedStringTest, PlainInsertionsTakeTheAttributesBeforeThem)
{
    AttributedString text = sample();
    text.replaceCharacters({3, 0}, u"X");
    EXPECT_EQ(show(text), s("abcX1|def2|ghi3"));
    text.replaceCharacters({0, 0}, u"Y");
    EXPECT_EQ(show(text), s("YabcX1|def2|ghi3"));
    text.replaceCharacters({11, 0}, u"Z");
    EXPECT_EQ(show(text), s("YabcX1|def2|ghiZ3"));

    AttributedString empty;
    empty.replaceCharacters({0, 0}, u"new");
    EXPECT_EQ(show(empty), s("new0"));
}

TEST(AttributedStringTest, ReplacesByAPieceOfItself)
{
    AttributedString text = sample();
    text.replaceCharacters({0, 3}, QStringView(text.string()).mid(3, 6));
    EXPECT_EQ(show(text), s("defghi1|def2|ghi3"));
}

TEST(AttributedStringTest, DeletingJoinsWhatMeets)
{
    AttributedString text;
    text.append(u"ab", withFontSize(1));
    text.append(u"cd", withFontSize(2));
    text.append(u"ef", withFontSize(1));
    text.deleteCharacters({2, 2});
    EXPECT_EQ(show(text), s("abef1"));
    text.deleteCharacters({0, 0});
    EXPECT_EQ(show(text), s("abef1"));
    text.deleteCharacters({0, 4});
    EXPECT_TRUE(text.runs().empty());
}

TEST(AttributedStringTest, ChangesTheAttributesOfTheRangeAlone)
{
    AttributedString text = sample();
    text.changeAttributes({1, 7}, [](TextAttributes& attributes) { attributes.font->size += 10; });
    EXPECT_EQ(show(text), s("a1|bc11|def12|gh13|i3"));
    text.changeAttributes({0, 9},
                          [](TextAttributes& attributes) { attributes.font = Font::userFont(5); });
    EXPECT_EQ(show(text), s("abcdefghi5"));
    int calls = 0;
    text.changeAttributes({9, 0}, [&](TextAttributes&) { ++calls; });
    EXPECT_EQ(calls, 0);
}

TEST(AttributedStringTest, AChangeThatThrowsLeavesTheTextAlone)
{
    AttributedString text = sample();
    int calls = 0;
    const auto change = [&](TextAttributes& attributes) {
        attributes.font->size = 77;
        if (++calls == 2)
            throw std::runtime_error("no");
    };
    EXPECT_THROW(text.changeAttributes({1, 7}, change), std::runtime_error);
    EXPECT_EQ(text, sample());
}

TEST(AttributedStringTest, CopiesDoNotSeeEachOthersChanges)
{
    const AttributedString original = sample();
    AttributedString copy = original;
    copy.changeAttributes({0, 9}, [](TextAttributes& attributes) { attributes.link = s("x"); });
    copy.append(u"more", withFontSize(1));
    EXPECT_EQ(show(original), s("abc1|def2|ghi3"));
    EXPECT_EQ(original, sample());
}

TEST(AttributedStringTest, EqualityComparesTextAndAttributesByValue)
{
    EXPECT_EQ(sample(), sample());
    AttributedString other = sample();
    other.changeAttributes({8, 1}, [](TextAttributes& attributes) { attributes.kern = 1; });
    EXPECT_FALSE(other == sample());
    EXPECT_FALSE(AttributedString(s("a")) == AttributedString(s("b")));
}

TEST(AttributedStringTest, AttachmentsCompareByIdentityAndParagraphStylesByValue)
{
    const auto attachment = std::make_shared<platform::TextAttachment>();
    EXPECT_EQ(AttributedString::withAttachment(attachment),
              AttributedString::withAttachment(attachment));
    EXPECT_FALSE(AttributedString::withAttachment(attachment) ==
                 AttributedString::withAttachment(std::make_shared<platform::TextAttachment>()));

    TextAttributes one;
    TextAttributes other;
    one.paragraphStyle = std::make_shared<const ParagraphStyle>(ParagraphStyle{.headIndent = 4});
    EXPECT_FALSE(one == other);
    other.paragraphStyle = std::make_shared<const ParagraphStyle>(ParagraphStyle{.headIndent = 4});
    EXPECT_EQ(one, other);
    other.paragraphStyle = std::make_shared<const ParagraphStyle>(ParagraphStyle{.headIndent = 5});
    EXPECT_FALSE(one == other);
}

TEST(AttributedStringTest, SetsTheParagraphStyleOfARange)
{
    AttributedString text = sample();
    const auto style = std::make_shared<const ParagraphStyle>(ParagraphStyle{.headIndent = 4});
    text.setParagraphStyle({0, 4}, style);
    EXPECT_EQ(text.attributesAt(3).paragraphStyle, style);
    EXPECT_FALSE(text.attributesAt(4).paragraphStyle);
    EXPECT_EQ(show(text), s("abc1|d2|ef2|ghi3"));
}

struct LineCase {
    const char16_t* text;
    TextRange range;
    TextRange line;
};

TEST(AttributedStringTest, FindsTheLineThatHoldsARange)
{
    const LineCase cases[] = {
        {u"one\ntwo\nthree", {5, 0}, {4, 4}},
        {u"one\ntwo\nthree", {4, 0}, {4, 4}},
        {u"one\ntwo\nthree", {3, 0}, {0, 4}},  // at the terminator, before it
        {u"one\ntwo\nthree", {0, 4}, {0, 4}},  // ends with the terminator
        {u"one\ntwo\nthree", {0, 5}, {0, 8}},  // reaches into the second
        {u"one\ntwo\nthree", {13, 0}, {8, 5}}, // at the end of the text
        {u"one\n", {4, 0}, {4, 0}},            // after the last terminator
        {u"one\r\ntwo", {1, 0}, {0, 5}},
        {u"one\r\ntwo", {4, 0}, {0, 5}}, // between the two
        {u"one\r\ntwo", {0, 4}, {0, 5}}, // ends between the two
        {u"one\rtwo", {1, 0}, {0, 4}},
        {u"one\u0085two", {1, 0}, {0, 4}},
        {u"one\u2028two", {5, 1}, {4, 3}},
        {u"one\u2029two", {5, 1}, {4, 3}},
        {u"one\vtwo", {1, 0}, {0, 7}}, // a vertical tab ends no line
        {u"\n\n", {1, 0}, {1, 1}},
        {u"", {0, 0}, {0, 0}},
    };
    for (const LineCase& c : cases) {
        const AttributedString text(QString::fromUtf16(c.text));
        EXPECT_EQ(text.lineRangeFor(c.range), c.line)
            << qPrintable(text.string()) << ' ' << c.range.location << ',' << c.range.length;
    }
}

// A random walk against a model that keeps the attributes of every character apart.
TEST(AttributedStringTest, AgreesWithAModelOfSingleCharacters)
{
    std::vector<std::pair<QChar, int>> model;
    AttributedString text;
    std::uint32_t state = 7;
    const auto random = [&state](qsizetype below) {
        state = state * 1664525U + 1013904223U;
        return below <= 0
                   ? 0
                   : static_cast<qsizetype>((state >> 8) % static_cast<std::uint32_t>(below));
    };
    for (int step = 0; step < 3000; ++step) {
        const qsizetype location = random(text.length() + 1);
        const qsizetype length = random(std::min<qsizetype>(text.length() - location, 6) + 1);
        const auto at = model.begin() + location;
        if (random(3) == 0) {
            const int size = static_cast<int>(random(3)) + 1;
            text.changeAttributes({location, length},
                                  [size](TextAttributes& a) { a.font = Font::userFont(size); });
            for (auto one = at; one != at + length; ++one)
                one->second = size;
        } else {
            AttributedString piece;
            std::vector<std::pair<QChar, int>> modelPiece;
            for (qsizetype count = random(5); count > 0; --count) {
                const QChar character(static_cast<char16_t>(u'a' + random(26)));
                const int size = static_cast<int>(random(3)) + 1;
                piece.append(QStringView(&character, 1), withFontSize(size));
                modelPiece.emplace_back(character, size);
            }
            text.replaceCharacters({location, length}, piece);
            model.insert(model.erase(at, at + length), modelPiece.begin(), modelPiece.end());
        }
        ASSERT_EQ(text.length(), static_cast<qsizetype>(model.size()));
        std::size_t runs = model.empty() ? 0 : 1;
        for (std::size_t index = 0; index < model.size(); ++index) {
            ASSERT_EQ(text.string()[static_cast<qsizetype>(index)], model[index].first);
            ASSERT_EQ(text.attributesAt(static_cast<qsizetype>(index)).font->size,
                      model[index].second);
            runs += index > 0 && model[index].second != model[index - 1].second ? 1 : 0;
        }
        ASSERT_EQ(text.runs().size(), runs);
    }
}

TEST(AttributedStringTest, ManyReplacementsAreOneAfterAnother)
{
    AttributedString text = sample();
    text.replaceCharacters(std::vector<AttributedString::Replacement>{
        {{0, 0}, AttributedString(s("<"), withFontSize(1))},
        {{1, 3}, AttributedString(s("XY"), withFontSize(4))},
        {{4, 1}, {}},
        {{5, 0}, AttributedString(s("+"), withFontSize(3))},
        {{9, 0}, AttributedString(s(">"), withFontSize(3))}});
    EXPECT_EQ(show(text), s("<a1|XY4|+3|f2|ghi>3"));
    text.replaceCharacters(std::vector<AttributedString::Replacement>());
    EXPECT_EQ(show(text), s("<a1|XY4|+3|f2|ghi>3"));
}

TEST(AttributedStringTest, ManyRangesAreChangedAsOneAfterAnother)
{
    AttributedString text = sample();
    const std::vector<TextRange> ranges{{0, 1}, {2, 3}, {5, 0}, {5, 4}};
    text.changeAttributes(ranges, [](TextAttributes& a) { a.font->size += 10; });
    EXPECT_EQ(show(text), s("a11|b1|c11|def12|ghi13"));
    text.changeAttributes(std::vector<TextRange>(), [](TextAttributes& a) { a.font.reset(); });
    EXPECT_EQ(text.attributesAt(0).font->size, 11);
}

TEST(AttributedStringTest, ManyRangesThatDoNotAscendOrFitThrowAndChangeNothing)
{
    const std::vector<std::vector<TextRange>> wrong{
        {{0, 2}, {1, 2}}, {{4, 1}, {2, 1}}, {{0, 1}, {9, 1}}, {{-1, 1}}, {{3, -1}}};
    for (const std::vector<TextRange>& ranges : wrong) {
        AttributedString text = sample();
        std::vector<AttributedString::Replacement> replacements;
        for (const TextRange& range : ranges)
            replacements.push_back({range, AttributedString(s("new"))});
        EXPECT_THROW(text.replaceCharacters(replacements), std::out_of_range);
        EXPECT_THROW(text.changeAttributes(ranges, [](TextAttributes& a) { a.font.reset(); }),
                     std::out_of_range);
        EXPECT_EQ(text, sample());
    }
}

TEST(AttributedStringTest, PassesOverManyRangesAgreeWithSingleChanges)
{
    std::uint32_t state = 11;
    const auto random = [&state](std::uint32_t below) {
        state = state * 1664525U + 1013904223U;
        return static_cast<qsizetype>((state >> 8) % below);
    };
    for (int round = 0; round < 500; ++round) {
        AttributedString text;
        for (qsizetype piece = random(12); piece > 0; --piece)
            text.append(QString(1 + random(4), u'x'), withFontSize(double(1 + random(3))));
        std::vector<TextRange> ranges;
        std::vector<AttributedString::Replacement> replacements;
        for (qsizetype start = random(4); start < text.length(); start += random(4)) {
            const TextRange range{start, std::min(random(5), text.length() - start)};
            ranges.push_back(range);
            replacements.push_back(
                {range, AttributedString(QString(random(3), u'y'), withFontSize(2))});
            start = range.end();
        }
        AttributedString changed = text;
        AttributedString replaced = text;
        for (std::size_t index = ranges.size(); index-- > 0;) {
            changed.changeAttributes(ranges[index], [](TextAttributes& a) { a.kern += 1; });
            replaced.replaceCharacters(ranges[index], replacements[index].text);
        }
        AttributedString changedAtOnce = text;
        changedAtOnce.changeAttributes(ranges, [](TextAttributes& a) { a.kern += 1; });
        EXPECT_EQ(changedAtOnce, changed);
        text.replaceCharacters(replacements);
        EXPECT_EQ(text, replaced);
    }
}

TEST(AttributedStringTest, ManyRunsAreAppendedInLinearTime)
{
    const auto one = std::make_shared<const TextAttributes>(withFontSize(1));
    const auto other = std::make_shared<const TextAttributes>(withFontSize(2));
    AttributedString text;
    for (int index = 0; index < 1000000; ++index)
        text.append(u"x", index % 2 == 0 ? one : other);
    EXPECT_EQ(text.runs().size(), 1000000U);
}

} // namespace
