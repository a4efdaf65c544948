// SPDX-License-Identifier: MIT
#include "platform/attributedtext/Font.h"

#include "platform/attributedtext/InstalledFonts.h"

namespace {

using platform::Font;

QString s(const char* text)
{
    return QString::fromUtf8(text);
}

struct NameCase {
    const char* name;
    const char* family;
    bool bold;
    bool italic;
    bool monospaced;
    const char* fontName;
};

class FontNameTest : public testing::TestWithParam<NameCase> {};

TEST_P(FontNameTest, IsFoundAndGivesItsPostScriptName)
{
    const NameCase& c = GetParam();
    const auto font = Font::fontNamed(s(c.name), 14);
    ASSERT_TRUE(font) << c.name;
    EXPECT_EQ(font->family, s(c.family));
    EXPECT_EQ(font->bold, c.bold);
    EXPECT_EQ(font->italic, c.italic);
    EXPECT_EQ(font->monospaced, c.monospaced);
    EXPECT_EQ(font->size, 14);
    EXPECT_EQ(font->fontName(), s(c.fontName));
}

INSTANTIATE_TEST_SUITE_P(
    MacFonts, FontNameTest,
    testing::Values(
        NameCase{"Helvetica", "Helvetica", false, false, false, "Helvetica"},
        NameCase{"helvetica neue", "Helvetica Neue", false, false, false, "HelveticaNeue"},
        NameCase{" Arial ", "Arial", false, false, false, "ArialMT"},
        NameCase{"Helvetica-BoldOblique", "Helvetica", true, true, false, "Helvetica-BoldOblique"},
        NameCase{"Helvetica Bold Oblique", "Helvetica", true, true, false, "Helvetica-BoldOblique"},
        NameCase{"HelveticaNeue-Bold", "Helvetica Neue", true, false, false, "HelveticaNeue-Bold"},
        NameCase{"HelveticaNeue-Light", "Helvetica Neue", false, false, false, "HelveticaNeue"},
        NameCase{"ArialMT", "Arial", false, false, false, "ArialMT"},
        NameCase{"Arial-BoldMT", "Arial", true, false, false, "Arial-BoldMT"},
        NameCase{"TimesNewRomanPSMT", "Times New Roman", false, false, false, "TimesNewRomanPSMT"},
        NameCase{"TimesNewRomanPS-BoldItalicMT", "Times New Roman", true, true, false,
                 "TimesNewRomanPS-BoldItalicMT"},
        NameCase{"Times New Roman Bold Italic", "Times New Roman", true, true, false,
                 "TimesNewRomanPS-BoldItalicMT"},
        NameCase{"Times", "Times", false, false, false, "Times-Roman"},
        NameCase{"CourierNewPSMT", "Courier New", false, false, true, "CourierNewPSMT"},
        NameCase{"Courier", "Courier", false, false, true, "Courier"},
        NameCase{"Menlo", "Menlo", false, false, true, "Menlo-Regular"},
        NameCase{"Menlo-BoldItalic", "Menlo", true, true, true, "Menlo-BoldItalic"},
        NameCase{"Monaco", "Monaco", false, false, true, "Monaco"},
        NameCase{"Georgia-Bold", "Georgia", true, false, false, "Georgia-Bold"},
        NameCase{"Trebuchet-BoldItalic", "Trebuchet MS", true, true, false, "Trebuchet-BoldItalic"},
        NameCase{"GillSans", "Gill Sans", false, false, false, "GillSans"},
        NameCase{"Futura", "Futura", false, false, false, "Futura-Medium"},
        NameCase{"Lucida Grande", "Lucida Grande", false, false, false, "LucidaGrande"},
        NameCase{".AppleSystemUIFont", ".AppleSystemUIFont", false, false, false,
                 ".AppleSystemUIFont"}));

TEST(FontTest, EveryUsualMacFamilyIsKnown)
{
    for (const char* family : {"Helvetica",
                               "Helvetica Neue",
                               "Arial",
                               "Times New Roman",
                               "Times",
                               "Courier",
                               "Courier New",
                               "Menlo",
                               "Monaco",
                               "Georgia",
                               "Verdana",
                               "Tahoma",
                               "Trebuchet MS",
                               "Palatino",
                               "Gill Sans",
                               "Optima",
                               "Futura",
                               "Avenir",
                               "Avenir Next",
                               "Lucida Grande",
                               "Comic Sans MS",
                               "Impact",
                               "American Typewriter",
                               "Baskerville",
                               "Didot",
                               "Hoefler Text",
                               "Zapfino",
                               "Marker Felt",
                               "Chalkboard",
                               "Cochin",
                               "Copperplate"}) {
        const auto font = Font::fontNamed(s(family), 12);
        ASSERT_TRUE(font) << family;
        EXPECT_EQ(font->family, s(family));
        // The name that is written must be found again when it is read.
        const auto again = Font::fontNamed(font->fontName(), 12);
        EXPECT_EQ(again, font) << family;
    }
}

TEST(FontTest, ANameThatMeansNoFontGivesNone)
{
    EXPECT_FALSE(Font::fontNamed(s("No Such Font At All"), 12));
    EXPECT_FALSE(Font::fontNamed(QString(), 12));
    EXPECT_FALSE(Font::fontNamed(s("  "), 12));
    EXPECT_FALSE(Font::fontNamed(s("Helvetica-Purple"), 12));
    EXPECT_FALSE(Font::fontNamed(QString(5000, u'x'), 12));
    // Names that fontconfig answers with another font.
    EXPECT_FALSE(Font::fontNamed(s("Comic Sans"), 12));
    EXPECT_FALSE(Font::fontNamed(s("Segoe UI"), 12));
}

TEST(FontTest, NoSizeGivesTwelvePoints)
{
    EXPECT_EQ(Font::fontNamed(s("Helvetica"), 0)->size, 12);
    EXPECT_EQ(Font::fontNamed(s("Helvetica"), -3)->size, 12);
    EXPECT_EQ(Font::userFont(0).size, 12);
    EXPECT_EQ(Font::systemFont(0).size, 13);
}

TEST(FontTest, TheStandardFontsHaveTheirNames)
{
    EXPECT_EQ(Font::userFont(14).fontName(), s("Helvetica"));
    EXPECT_EQ(Font::systemFont(Font::systemFontSize).fontName(), s(".AppleSystemUIFont"));
}

TEST(FontTest, AMissingFaceFallsBackToTheNearest)
{
    EXPECT_EQ((Font{s("Tahoma"), 12, true, true}).fontName(), s("Tahoma-Bold"));
    EXPECT_EQ((Font{s("Tahoma"), 12, false, true}).fontName(), s("Tahoma"));
    EXPECT_EQ((Font{s("Zapfino"), 12, true, true}).fontName(), s("Zapfino"));
    EXPECT_EQ((Font{s("Didot"), 12, false, true}).fontName(), s("Didot-Italic"));
}

TEST(FontTest, AFamilyThatNobodyKnowsGetsAMadeUpName)
{
    EXPECT_EQ((Font{s("Some Font"), 12}).fontName(), s("SomeFont"));
    EXPECT_EQ((Font{s("Some Font"), 12, true, false}).fontName(), s("SomeFont-Bold"));
    EXPECT_EQ((Font{s("Some Font"), 12, true, true}).fontName(), s("SomeFont-BoldItalic"));
}

TEST(FontTest, AMadeUpNameNeverMeansAFaceThatAnotherFamilyLacks)
{
    EXPECT_EQ((Font{s("H elvetica"), 12, true, true}).fontName(), s("Helvetica-BoldOblique"));
}

TEST(FontTest, InstalledFontsAreFoundByTheirOwnNames)
{
    const auto installed = platform::installedFontFace(s("DejaVu Sans Mono"));
    if (!installed)
        GTEST_SKIP() << "DejaVu Sans Mono is not installed";
    const auto font = Font::fontNamed(s("dejavu sans mono"), 12);
    ASSERT_TRUE(font);
    EXPECT_EQ(font->family, s("DejaVu Sans Mono"));
    EXPECT_TRUE(font->monospaced);
    EXPECT_FALSE(font->bold);
    EXPECT_EQ(font->fontName(), s("DejaVuSansMono"));
    const auto bold = Font::fontNamed(s("DejaVuSansMono-Bold"), 12);
    ASSERT_TRUE(bold);
    EXPECT_EQ(bold->family, s("DejaVu Sans Mono"));
    EXPECT_TRUE(bold->bold);
    EXPECT_EQ(bold->fontName(), s("DejaVuSansMono-Bold"));
}

} // namespace
