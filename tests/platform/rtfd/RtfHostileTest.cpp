// SPDX-License-Identifier: MIT
#include "platform/rtfd/RichText.h"
#include "platform/rtfd/RtfReader.h"
#include "platform/rtfd/RtfWriter.h"
#include "support/ScratchFolder.h"

#include <random>

namespace {

using namespace platform;

// Whatever comes in, what comes out can be written, and read again to the same text.
void expectSurvives(const QByteArray& rtf)
{
    DocumentAttributes attributes;
    const auto text = attributedStringFromRtf(rtf, &attributes);
    if (!text)
        return;
    const QByteArray written = rtfFromAttributedString(*text, attributes);
    const auto again = attributedStringFromRtf(written);
    ASSERT_TRUE(again);
}

void mutate(QByteArray& bytes, std::mt19937& random)
{
    static const char* const pieces[] = {"{",
                                         "}",
                                         "\\",
                                         "\\'",
                                         "\\u-99999999999999",
                                         "\\itap30",
                                         "\\nestcell",
                                         "\\cell",
                                         "\\row",
                                         "\\nestrow",
                                         "\\trowd",
                                         "\\cellx9",
                                         "\\clmrg",
                                         "\\clvmrg",
                                         "\\lastrow",
                                         "{\\*",
                                         "\\bin9 ",
                                         "\\uc99 ",
                                         "\\ls2\\ilvl9",
                                         "{\\listtext",
                                         "{\\field{\\*\\fldinst",
                                         "{{\\NeXTGraphic ",
                                         "\\pard",
                                         "\\f7",
                                         "\\ansicpg932",
                                         "{\\fonttbl",
                                         "{\\colortbl;",
                                         "\xAC",
                                         "\\par",
                                         "\\fs-1"};
    const auto place = [&] {
        return static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size() + 1));
    };
    for (unsigned count = 1 + random() % 6; count > 0; --count) {
        switch (random() % 5) {
        case 0:
            bytes.truncate(std::max<qsizetype>(place(), 6));
            break;
        case 1:
            bytes.insert(place(), pieces[random() % std::size(pieces)]);
            break;
        case 2:
            bytes.remove(std::max<qsizetype>(place(), 6), static_cast<qsizetype>(random() % 20));
            break;
        case 3:
            if (const qsizetype at = place(); at < bytes.size())
                bytes[at] = static_cast<char>(random());
            break;
        default: {
            const QByteArray copied = bytes.mid(place(), static_cast<qsizetype>(random() % 200));
            bytes.insert(place(), copied);
            break;
        }
        }
    }
}

TEST(RtfHostileTest, SurvivesRandomBytes)
{
    std::mt19937 random(1);
    for (int count = 0; count < 2000; ++count) {
        QByteArray bytes = "{\\rtf1";
        for (unsigned length = random() % 300; length > 0; --length)
            bytes.append(static_cast<char>(random()));
        expectSurvives(bytes);
    }
}

TEST(RtfHostileTest, SurvivesChangedDocuments)
{
    std::mt19937 random(2);
    std::vector<QByteArray> documents;
    for (int count = 0; count < 40; ++count)
        documents.push_back(rtfFromAttributedString(test::randomText(random)));
    for (int count = 0; count < 10000; ++count) {
        QByteArray bytes = documents[static_cast<std::size_t>(count) % documents.size()];
        if (bytes.size() > 6000)
            bytes.remove(3000, bytes.size() - 6000);
        mutate(bytes, random);
        expectSurvives(bytes);
    }
}

TEST(RtfHostileTest, SurvivesChangedSamples)
{
    const QString folder = qEnvironmentVariable("VUPUGE_SHARED_DIRECTORY") + QStringLiteral("/samples/");
    if (!QFileInfo::exists(folder + QStringLiteral("rtf_cocoa")))
        GTEST_SKIP() << "VUPUGE_SHARED_DIRECTORY names no folder with samples";
    std::vector<QByteArray> samples;
    for (const char* name : {"rtf_cocoa", "rtf_foreign"}) {
        for (const QFileInfo& file : QDir(folder + QLatin1String(name)).entryInfoList(QDir::Files))
            samples.push_back(test::readFile(file.filePath()).left(8000));
    }
    std::mt19937 random(3);
    for (int count = 0; count < 10000; ++count) {
        QByteArray bytes = samples[static_cast<std::size_t>(count) % samples.size()];
        mutate(bytes, random);
        expectSurvives(bytes);
    }
}

TEST(RtfHostileTest, DeepGroupsAreFlattened)
{
    const AttributedString deep = test::readRtf("{\\rtf1 a" + QByteArray(200000, '{') + "b"
                                                + QByteArray(200000, '}') + "c}d");
    EXPECT_EQ(deep.string(), QStringLiteral("abc"));
    EXPECT_EQ(test::readRtf("{\\rtf1 a" + QByteArray(1000000, '{')).string(), QStringLiteral("a"));
    EXPECT_EQ(test::readRtf("{\\rtf1{\\*\\x" + QByteArray("{").repeated(1000000)).string(), QString());
}

TEST(RtfHostileTest, NumbersBeyondAllBoundsAreBroughtBack)
{
    const AttributedString text = test::readBody(
        "\\pard\\li99999999999999999999\\fi-99999999999999999999\\tx-99999999999999\\sl-"
        "2147483648\\fs99999999999"
        "\\up99999999999\\expndtw-99999999999\\super99999999999\\cf-1\\f-1\\itap-5\\ls-1\\ilvl-1\\u99999999999 "
        "x\\bin99999999999 ");
    EXPECT_GT(text.length(), 0);
    expectSurvives(rtfFromAttributedString(text));
    EXPECT_EQ(test::readRtf("{\\rtf1 a\\bin-5 b}").string(), QStringLiteral("ab"));
}

TEST(RtfHostileTest, ManyCellsWithinEachOtherStaySmall)
{
    const QByteArray rtf = "{\\rtf1" + QByteArray("\\itap30\\par\\itap0\\par").repeated(50000);
    const AttributedString text = test::readRtf(rtf);
    EXPECT_EQ(text.length(), 100000);
    EXPECT_LT(rtfFromAttributedString(text).size(), 40 * rtf.size());
}

TEST(RtfHostileTest, ALongRowThatIsRepeatedTakesNoTime)
{
    const QByteArray rtf = "{\\rtf1\\trowd" + QByteArray("\\cellx1").repeated(1000)
                           + QByteArray(" x\\cell\\row").repeated(20000);
    EXPECT_EQ(test::readRtf(rtf).length(), 40000);
}

} // namespace
