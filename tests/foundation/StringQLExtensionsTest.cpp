// SPDX-License-Identifier: MIT
#include "foundation/StringQLExtensions.h"

#include "foundation/StringProgressQLExtensions.h"
#include "platform/core/ByteCountFormatter.h"
#include "platform/defaults/UserDefaults.h"
#include "support/RandomText.h"

#include <QCoreApplication>
#include <QTranslator>

#include <limits>
#include <random>

namespace {

using namespace Qt::StringLiterals;
using platform::UserDefaults;

TEST(GenerateFilenameTest, TakesTheFirstLine)
{
    EXPECT_EQ(generateFilename(u"  Meeting notes\nsecond line"_s), u"Meeting notes"_s);
    EXPECT_EQ(generateFilename(u"Version 1.2 of\tit"_s), u"Version 1.2 of"_s);
    EXPECT_EQ(generateFilename(u"soft\u00adhyphen"_s), u"soft"_s);
    EXPECT_EQ(generateFilename(u"tag\U000E0001after"_s), u"tag"_s);
    EXPECT_EQ(generateFilename(u"a\u2028b"_s), u"a"_s);
}

TEST(GenerateFilenameTest, EndsAtTheFirstPeriodWhereverItStands)
{
    EXPECT_EQ(generateFilename(u"Buy milk. Then eggs"_s), u"Buy milk"_s);
    EXPECT_EQ(generateFilename(u"Version 1.2 is out"_s), u"Version 1"_s);
    EXPECT_EQ(generateFilename(u"Buy .milk"_s), u"Buy"_s);
    EXPECT_EQ(generateFilename(u"...Buy milk..."_s), u"Buy milk"_s);
}

TEST(GenerateFilenameTest, IsCutAfterTheWordThatCrossesTheLimit)
{
    const QString words = u"abcdefghi "_s.repeated(30);
    EXPECT_EQ(generateFilename(words), words.first(129));
    const QString oneWord(300, u'w');
    EXPECT_EQ(generateFilename(oneWord), oneWord.first(254));
    const QString exactly = QString(128, u'a') + u" b"_s;
    EXPECT_EQ(generateFilename(exactly), QString(128, u'a'));
    const QString justShort = QString(126, u'a') + u" bcd e"_s;
    EXPECT_EQ(generateFilename(justShort), QString(126, u'a') + u" bcd"_s);
}

TEST(GenerateFilenameTest, ALineEndBehindTheLimitIsNotSeen)
{
    const QString text = QString(127, u'a') + u"bc\nd"_s;
    EXPECT_EQ(generateFilename(text), QString(127, u'a') + u"bc"_s);
    const QString spaced = QString(126, u'a') + u" bcd\nef"_s;
    EXPECT_EQ(generateFilename(spaced), QString(126, u'a') + u" bcd"_s);
}

TEST(GenerateFilenameTest, LeavesOutAttachments)
{
    EXPECT_EQ(generateFilename(u"\ufffcA\ufffcB\ufffc"_s), u"AB"_s);
    EXPECT_EQ(generateFilename(u"\ufffc\nA"_s), std::nullopt);
}

TEST(GenerateFilenameTest, NothingLeftGivesNone)
{
    for (const QString& text : {u"..."_s, u"   "_s, u"\ufffc"_s, u""_s, u"\n\t."_s, u"\ufffc \ufffc"_s})
        EXPECT_EQ(generateFilename(text), std::nullopt) << qPrintable(text);
}

TEST(GenerateFilenameTest, IsMadeAFileNameInTheFileSystemsForm)
{
    EXPECT_EQ(generateFilename(u"Caf\u00e9: a/b~c"_s), u"Cafe\u0301- a-b-c"_s);
}

TEST(GenerateFilenameTest, AnyTextGivesAFileNameOrNone)
{
    for (const unsigned seed : {18U, 20130416U, 0xF00DU}) {
        test::RandomText random(seed);
        for (int count = 0; count < 3000; ++count) {
            const auto name = generateFilename(random.next(300));
            if (name) {
                EXPECT_FALSE(name->contains(u'/') || name->contains(u':') || name->contains(u'~'));
                EXPECT_FALSE(name->startsWith(u'.') || name->contains(u'\n') || name->contains(QChar(0xFFFC)));
                // A letter may come apart into four code units.
                EXPECT_LE(name->size(), 255 * 4);
            }
        }
    }
}

TEST(IsEncryptedFileTest, KnowsTheEncryptedItemsExtensions)
{
    for (const char* kind : {"note", "document", "image", "movie", "sound", "bookmark", "webpage"})
        EXPECT_TRUE(isEncryptedFile(u"folder/a.qlencrypt"_s + QLatin1String(kind))) << kind;
    EXPECT_FALSE(isEncryptedFile(u"A.QLENCRYPTNOTE"_s));
    EXPECT_FALSE(isEncryptedFile(u"a.qlnote"_s));
    EXPECT_FALSE(isEncryptedFile(u"qlencryptnote"_s));
    EXPECT_FALSE(isEncryptedFile(u".qlencryptnote"_s));
}

TEST(IsEncryptedFileTest, OnlyWhatEndsInAnEncryptedExtensionIs)
{
    test::RandomText random(25);
    for (int count = 0; count < 2000; ++count) {
        const QString name = random.next(12);
        EXPECT_FALSE(isEncryptedFile(name));
        EXPECT_TRUE(isEncryptedFile(u"x"_s + name.left(5) + u"y.qlencryptimage"_s));
        EXPECT_FALSE(isEncryptedFile(name + u".qlencryptimagE"_s));
    }
}

class SpotlightCommentsTest : public ::testing::Test {
protected:
    void TearDown() override { UserDefaults::standard().clearOverrides(); }

    static void prefixTags(const QVariant& prefix = {})
    {
        UserDefaults::standard().setOverride(u"QLPrefixExportedTags"_s, true);
        UserDefaults::standard().setOverride(u"QLImportedTagsPrefix"_s, prefix);
    }
};

using Tags = std::optional<QStringList>;

TEST_F(SpotlightCommentsTest, ABlockHoldsTagsBetweenSemicolons)
{
    EXPECT_EQ(tagNamesFromSpotlightComments(u"text###begin_tags###@work@;@home@###end_tags###"_s),
              Tags({u"work"_s, u"home"_s}));
    EXPECT_EQ(tagNamesFromSpotlightComments(u"###begin_tags###;@@;@@a b@;c@d; ###end_tags###x"_s),
              Tags({u"a b"_s, u"c@d"_s, u" "_s}));
    EXPECT_EQ(tagNamesFromSpotlightComments(u"###begin_tags######end_tags###"_s), Tags(QStringList()));
}

TEST_F(SpotlightCommentsTest, ABlockWithoutEndHasNoTagsAtAll)
{
    EXPECT_EQ(tagNamesFromSpotlightComments(u"text###begin_tags###@work@;@home@"_s), std::nullopt);
    EXPECT_EQ(tagNamesFromSpotlightComments(u"###end_tags######begin_tags###a"_s), std::nullopt);
    prefixTags();
    EXPECT_EQ(tagNamesFromSpotlightComments(u"@red ###begin_tags###"_s), std::nullopt);
}

TEST_F(SpotlightCommentsTest, EveryWordIsATag)
{
    EXPECT_EQ(tagNamesFromSpotlightComments(u"red big_box ver1.2"_s), Tags({u"red"_s, u"big box"_s, u"ver1 2"_s}));
    EXPECT_EQ(tagNamesFromSpotlightComments(u"  a  b\nc "_s), Tags({u"a"_s, u"b\nc"_s}));
    EXPECT_EQ(tagNamesFromSpotlightComments(u"_ ."_s), Tags({u" "_s, u" "_s}));
    EXPECT_EQ(tagNamesFromSpotlightComments(u""_s), Tags(QStringList()));
}

TEST_F(SpotlightCommentsTest, WordsWithAPrefixAreTags)
{
    prefixTags(u"#"_s);
    EXPECT_EQ(tagNamesFromSpotlightComments(u"@red #blue & green"_s), Tags({u"red"_s, u"blue"_s}));
    EXPECT_EQ(tagNamesFromSpotlightComments(u"&big_box @ver1.2 @@x plain"_s), Tags({u"big box"_s, u"ver1 2"_s, u"@x"_s}));
    prefixTags();
    EXPECT_EQ(tagNamesFromSpotlightComments(u"@red #blue"_s), Tags(QStringList{u"red"_s}));
    prefixTags(u"&"_s);
    EXPECT_EQ(tagNamesFromSpotlightComments(u"@red &blue #x"_s), Tags({u"red"_s, u"blue"_s}));
    prefixTags(u"#!"_s);
    EXPECT_EQ(tagNamesFromSpotlightComments(u"!a #b"_s), Tags({u"a"_s, u"b"_s}));
    // Appended whole: it does not occur so in "@&".
    prefixTags(u"&@+"_s);
    EXPECT_EQ(tagNamesFromSpotlightComments(u"+a @b &c"_s), Tags({u"a"_s, u"b"_s, u"c"_s}));
    EXPECT_EQ(tagNamesFromSpotlightComments(u"@_ @."_s), Tags({u" "_s, u" "_s}));
}

TEST_F(SpotlightCommentsTest, APrefixBeyondTheBasicPlaneIsOneCharacter)
{
    prefixTags(u"\U0001F516"_s);
    EXPECT_EQ(tagNamesFromSpotlightComments(u"\U0001F516red \U0001F517blue \U0001F516"_s),
              Tags(QStringList{u"red"_s}));
}

TEST_F(SpotlightCommentsTest, WithoutTheSettingThereIsNoComment)
{
    EXPECT_EQ(commentsFromSpotlightComments(u"hello###begin_tags###@a@###end_tags###"_s), std::nullopt);
    EXPECT_EQ(commentsFromSpotlightComments(u"hello"_s), std::nullopt);
}

TEST_F(SpotlightCommentsTest, TheCommentStandsBeforeTheBlock)
{
    prefixTags();
    EXPECT_EQ(commentsFromSpotlightComments(u" hello \n###begin_tags###@a@###end_tags###"_s), u"hello"_s);
    EXPECT_EQ(commentsFromSpotlightComments(u"hello###begin_tags###"_s), u"hello"_s);
    EXPECT_EQ(commentsFromSpotlightComments(u" ###begin_tags###@a@###end_tags###"_s), std::nullopt);
}

TEST_F(SpotlightCommentsTest, ACommentWithoutTagsIsGivenWhole)
{
    prefixTags();
    EXPECT_EQ(commentsFromSpotlightComments(u" hello there "_s), u" hello there "_s);
    EXPECT_EQ(commentsFromSpotlightComments(u"hello @tag"_s), std::nullopt);
    EXPECT_EQ(commentsFromSpotlightComments(u"###begin_tags###@a@###end_tags###"_s), std::nullopt);
    EXPECT_EQ(commentsFromSpotlightComments(u"###begin_tags###;###end_tags###"_s), u"###begin_tags###;###end_tags###"_s);
    EXPECT_EQ(commentsFromSpotlightComments(u"###begin_tags###a"_s), u"###begin_tags###a"_s);
}

TEST_F(SpotlightCommentsTest, AnyCommentIsReadWithoutHarm)
{
    test::RandomText random(19);
    for (int count = 0; count < 2000; ++count) {
        if (count == 1000)
            prefixTags(u"#"_s);
        const QString text = random.next(20) + (count % 3 ? u"###begin_tags###"_s : u" @"_s) + random.next(20)
                             + (count % 2 ? u"###end_tags###"_s : QString());
        const Tags tags = tagNamesFromSpotlightComments(text);
        EXPECT_FALSE(tags && tags->contains(QString()));
        const auto comment = commentsFromSpotlightComments(text);
        EXPECT_LE(comment.value_or(QString()).size(), text.size());
    }
}

TEST(ProgressTest, CountsAreShownInTheFileStyle)
{
    EXPECT_EQ(stringForBytesCompleted(1'200'000, 3'000'000'000), u"1.2 MB of 3 GB"_s);
    EXPECT_EQ(stringForBytesCompleted(0, 1), u"Zero KB of 1 byte"_s);
    EXPECT_EQ(stringForDataRate(1'200'000), u"1.2 MB/sec"_s);
    EXPECT_EQ(stringForDataRate(0), u"Zero KB/sec"_s);
    EXPECT_EQ(stringForDataRate(std::numeric_limits<qint64>::min()), u"-9.22 EB/sec"_s);
}

TEST(ProgressTest, AnyCountsHaveATextThatNamesBoth)
{
    std::mt19937_64 random(26);
    for (int count = 0; count < 3000; ++count) {
        const auto completed = qint64(random() >> (random() % 64));
        const auto total = qint64(random());
        const QString text = stringForBytesCompleted(completed, total);
        EXPECT_EQ(text, platform::byteCountString(completed) + u" of "_s +
                            platform::byteCountString(total));
        EXPECT_EQ(stringForDataRate(total), platform::byteCountString(total) + u"/sec"_s);
        EXPECT_LT(platform::byteCountString(total).size(), 16);
    }
}

class SwappingTranslator : public QTranslator {
public:
    [[nodiscard]] QString translate(const char*, const char* text, const char*, int) const override
    {
        return QString::fromUtf8(text) == u"%1$@ of %2$@"_s ? u"von %2$@ sind %1$@ da"_s : QString();
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
};

TEST(ProgressTest, ATranslationMaySwapTheCounts)
{
    SwappingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    const QString text = stringForBytesCompleted(1000, 2000);
    QCoreApplication::removeTranslator(&translator);
    EXPECT_EQ(text, u"von 2 KB sind 1 KB da"_s);
}

} // namespace
