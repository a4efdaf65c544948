// SPDX-License-Identifier: MIT
#include "platform/webview/ImageCandidates.h"

namespace {

QString chosen(const char* srcset, const char* sizes = "", const char* src = "")
{
    return platform::chosenImage(QString::fromLatin1(srcset), QString::fromLatin1(sizes),
                                 QString::fromLatin1(src));
}

TEST(ImageCandidatesTest, TakesTheDensityOfTheScreen)
{
    EXPECT_EQ(chosen("a 2x, b 1x, c 3x"), QStringLiteral("b"));
    EXPECT_EQ(chosen("a, b 2x"), QStringLiteral("a"));
    EXPECT_EQ(chosen("a 0.5x, b 0.8x"), QStringLiteral("b"));
    EXPECT_EQ(chosen("a 1.5x, b 3x"), QStringLiteral("a"));
}

TEST(ImageCandidatesTest, TheSourceCountsWhereNoCandidateIsForThisScreen)
{
    EXPECT_EQ(chosen("a 2x", "", "s"), QStringLiteral("s"));
    EXPECT_EQ(chosen("a 1x", "", "s"), QStringLiteral("a"));
    EXPECT_EQ(chosen("a 100w", "", "s"), QStringLiteral("a"));
    EXPECT_EQ(chosen("", "", "s"), QStringLiteral("s"));
    EXPECT_EQ(chosen(""), QString());
}

TEST(ImageCandidatesTest, WidthsAreMeasuredAgainstTheSizes)
{
    const char* set = "a 400w, b 800w, c 1600w";
    EXPECT_EQ(chosen(set), QStringLiteral("b"));
    EXPECT_EQ(chosen(set, "300px"), QStringLiteral("a"));
    EXPECT_EQ(chosen(set, "(max-width: 600px) 100vw, (min-width: 700px) calc(50vw - 10px), 1600px"),
              QStringLiteral("a"));
    EXPECT_EQ(chosen(set, "(min-width: 900px) 10px, 1000px"), QStringLiteral("c"));
    EXPECT_EQ(chosen(set, "5000px"), QStringLiteral("c"));
}

TEST(ImageCandidatesTest, CommasInAddressesAreKept)
{
    EXPECT_EQ(chosen("data:image/png,a,b 1x, c 2x"), QStringLiteral("data:image/png,a,b"));
    EXPECT_EQ(chosen("a,b"), QStringLiteral("a,b"));
    EXPECT_EQ(chosen(" , a , b 2x"), QStringLiteral("a"));
}

TEST(ImageCandidatesTest, InvalidCandidatesAreDropped)
{
    EXPECT_EQ(chosen("a 1q, b 2x"), QStringLiteral("b"));
    EXPECT_EQ(chosen("a 0w, b -1x", "", "s"), QStringLiteral("s"));
}

TEST(ImageCandidatesTest, SizesFallBackToTheView)
{
    EXPECT_EQ(platform::sourceSize(u""), 800);
    EXPECT_EQ(platform::sourceSize(u"(min-width: 900px) 1px"), 800);
    EXPECT_EQ(platform::sourceSize(u"nonsense, 20px"), 20);
}

} // namespace
