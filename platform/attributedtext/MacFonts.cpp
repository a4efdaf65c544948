// SPDX-License-Identifier: MIT
#include "platform/attributedtext/MacFonts.h"

#include <QHash>

namespace platform {

namespace {

constexpr bool fixedPitch = true;
constexpr bool obliqueFaces = true;

// The families that have shipped with every macOS of the last ten years. The interface's own font
// stands first; its names begin with a dot because no menu shows it.
constexpr MacFontFamily families[] = {
    {".AppleSystemUIFont",
     {".AppleSystemUIFont", ".AppleSystemUIFontBold", ".AppleSystemUIFontItalic",
      ".AppleSystemUIFontBoldItalic"}},
    {"American Typewriter", {"AmericanTypewriter", "AmericanTypewriter-Bold"}},
    {"Andale Mono", {"AndaleMono"}, fixedPitch},
    {"Apple Chancery", {"Apple-Chancery"}},
    {"Apple Color Emoji", {"AppleColorEmoji"}},
    {"Apple SD Gothic Neo", {"AppleSDGothicNeo-Regular", "AppleSDGothicNeo-Bold"}},
    {"Apple Symbols", {"AppleSymbols"}},
    {"AppleGothic", {"AppleGothic"}},
    {"Arial", {"ArialMT", "Arial-BoldMT", "Arial-ItalicMT", "Arial-BoldItalicMT"}},
    {"Arial Black", {"Arial-Black"}},
    {"Arial Hebrew", {"ArialHebrew", "ArialHebrew-Bold"}},
    {"Arial Narrow",
     {"ArialNarrow", "ArialNarrow-Bold", "ArialNarrow-Italic", "ArialNarrow-BoldItalic"}},
    {"Arial Rounded MT Bold", {"ArialRoundedMTBold"}},
    {"Arial Unicode MS", {"ArialUnicodeMS"}},
    {"Avenir",
     {"Avenir-Book", "Avenir-Heavy", "Avenir-BookOblique", "Avenir-HeavyOblique"},
     false,
     obliqueFaces},
    {"Avenir Next",
     {"AvenirNext-Regular", "AvenirNext-Bold", "AvenirNext-Italic", "AvenirNext-BoldItalic"}},
    {"Avenir Next Condensed",
     {"AvenirNextCondensed-Regular", "AvenirNextCondensed-Bold", "AvenirNextCondensed-Italic",
      "AvenirNextCondensed-BoldItalic"}},
    {"Baskerville",
     {"Baskerville", "Baskerville-Bold", "Baskerville-Italic", "Baskerville-BoldItalic"}},
    {"Big Caslon", {"BigCaslon-Medium"}},
    {"Bodoni 72",
     {"BodoniSvtyTwoITCTT-Book", "BodoniSvtyTwoITCTT-Bold", "BodoniSvtyTwoITCTT-BookIta"}},
    {"Bradley Hand", {"BradleyHandITCTT-Bold"}},
    {"Brush Script MT", {"BrushScriptMT"}},
    {"Chalkboard", {"Chalkboard", "Chalkboard-Bold"}},
    {"Chalkboard SE", {"ChalkboardSE-Regular", "ChalkboardSE-Bold"}},
    {"Chalkduster", {"Chalkduster"}},
    {"Charter", {"Charter-Roman", "Charter-Bold", "Charter-Italic", "Charter-BoldItalic"}},
    {"Cochin", {"Cochin", "Cochin-Bold", "Cochin-Italic", "Cochin-BoldItalic"}},
    {"Comic Sans MS", {"ComicSansMS", "ComicSansMS-Bold"}},
    {"Copperplate", {"Copperplate", "Copperplate-Bold"}},
    {"Courier",
     {"Courier", "Courier-Bold", "Courier-Oblique", "Courier-BoldOblique"},
     fixedPitch,
     obliqueFaces},
    {"Courier New",
     {"CourierNewPSMT", "CourierNewPS-BoldMT", "CourierNewPS-ItalicMT",
      "CourierNewPS-BoldItalicMT"},
     fixedPitch},
    {"Didot", {"Didot", "Didot-Bold", "Didot-Italic"}},
    {"Futura", {"Futura-Medium", "Futura-Bold", "Futura-MediumItalic"}},
    {"Geneva", {"Geneva"}},
    {"Georgia", {"Georgia", "Georgia-Bold", "Georgia-Italic", "Georgia-BoldItalic"}},
    {"Gill Sans", {"GillSans", "GillSans-Bold", "GillSans-Italic", "GillSans-BoldItalic"}},
    {"Heiti SC", {"STHeitiSC-Light", "STHeitiSC-Medium"}},
    {"Heiti TC", {"STHeitiTC-Light", "STHeitiTC-Medium"}},
    {"Helvetica",
     {"Helvetica", "Helvetica-Bold", "Helvetica-Oblique", "Helvetica-BoldOblique"},
     false,
     obliqueFaces},
    {"Helvetica Neue",
     {"HelveticaNeue", "HelveticaNeue-Bold", "HelveticaNeue-Italic", "HelveticaNeue-BoldItalic"}},
    {"Herculanum", {"Herculanum"}},
    {"Hiragino Kaku Gothic ProN", {"HiraKakuProN-W3", "HiraKakuProN-W6"}},
    {"Hiragino Mincho ProN", {"HiraMinProN-W3", "HiraMinProN-W6"}},
    {"Hiragino Sans", {"HiraginoSans-W3", "HiraginoSans-W6"}},
    {"Hoefler Text",
     {"HoeflerText-Regular", "HoeflerText-Black", "HoeflerText-Italic", "HoeflerText-BlackItalic"}},
    {"Impact", {"Impact"}},
    {"Iowan Old Style",
     {"IowanOldStyle-Roman", "IowanOldStyle-Bold", "IowanOldStyle-Italic",
      "IowanOldStyle-BoldItalic"}},
    {"Lucida Grande", {"LucidaGrande", "LucidaGrande-Bold"}},
    {"Luminari", {"Luminari-Regular"}},
    {"Marker Felt", {"MarkerFelt-Thin", "MarkerFelt-Wide"}},
    {"Menlo", {"Menlo-Regular", "Menlo-Bold", "Menlo-Italic", "Menlo-BoldItalic"}, fixedPitch},
    {"Microsoft Sans Serif", {"MicrosoftSansSerif"}},
    {"Monaco", {"Monaco"}, fixedPitch},
    {"Noteworthy", {"Noteworthy-Light", "Noteworthy-Bold"}},
    {"Optima", {"Optima-Regular", "Optima-Bold", "Optima-Italic", "Optima-BoldItalic"}},
    {"Palatino", {"Palatino-Roman", "Palatino-Bold", "Palatino-Italic", "Palatino-BoldItalic"}},
    {"Papyrus", {"Papyrus"}},
    {"PingFang HK", {"PingFangHK-Regular", "PingFangHK-Semibold"}},
    {"PingFang SC", {"PingFangSC-Regular", "PingFangSC-Semibold"}},
    {"PingFang TC", {"PingFangTC-Regular", "PingFangTC-Semibold"}},
    {"PT Mono", {"PTMono-Regular", "PTMono-Bold"}, fixedPitch},
    {"PT Sans", {"PTSans-Regular", "PTSans-Bold", "PTSans-Italic", "PTSans-BoldItalic"}},
    {"PT Serif", {"PTSerif-Regular", "PTSerif-Bold", "PTSerif-Italic", "PTSerif-BoldItalic"}},
    {"Rockwell", {"Rockwell-Regular", "Rockwell-Bold", "Rockwell-Italic", "Rockwell-BoldItalic"}},
    {"Savoye LET", {"SavoyeLetPlain"}},
    {"Skia", {"Skia-Regular", "Skia-Regular_Bold"}},
    {"Snell Roundhand", {"SnellRoundhand", "SnellRoundhand-Bold"}},
    {"Songti SC", {"STSongti-SC-Regular", "STSongti-SC-Bold"}},
    {"Symbol", {"Symbol"}},
    {"Tahoma", {"Tahoma", "Tahoma-Bold"}},
    {"Thonburi", {"Thonburi", "Thonburi-Bold"}},
    {"Times", {"Times-Roman", "Times-Bold", "Times-Italic", "Times-BoldItalic"}},
    {"Times New Roman",
     {"TimesNewRomanPSMT", "TimesNewRomanPS-BoldMT", "TimesNewRomanPS-ItalicMT",
      "TimesNewRomanPS-BoldItalicMT"}},
    {"Trattatello", {"Trattatello"}},
    {"Trebuchet MS",
     {"TrebuchetMS", "TrebuchetMS-Bold", "TrebuchetMS-Italic", "Trebuchet-BoldItalic"}},
    {"Verdana", {"Verdana", "Verdana-Bold", "Verdana-Italic", "Verdana-BoldItalic"}},
    {"Webdings", {"Webdings"}},
    {"Wingdings", {"Wingdings-Regular"}},
    {"Zapf Dingbats", {"ZapfDingbatsITC"}},
    {"Zapfino", {"Zapfino"}},
};

struct OtherWeight {
    const char* postScriptName;
    const char* family;
    bool bold;
    bool italic;
};

constexpr OtherWeight otherWeights[] = {
    {"AmericanTypewriter-Light", "American Typewriter", false, false},
    {"AmericanTypewriter-Condensed", "American Typewriter", false, false},
    {"AmericanTypewriter-Semibold", "American Typewriter", true, false},
    {"Avenir-Roman", "Avenir", false, false},
    {"Avenir-Light", "Avenir", false, false},
    {"Avenir-Medium", "Avenir", false, false},
    {"Avenir-Black", "Avenir", true, false},
    {"Avenir-Oblique", "Avenir", false, true},
    {"Avenir-LightOblique", "Avenir", false, true},
    {"Avenir-MediumOblique", "Avenir", false, true},
    {"Avenir-BlackOblique", "Avenir", true, true},
    {"AvenirNext-UltraLight", "Avenir Next", false, false},
    {"AvenirNext-Medium", "Avenir Next", false, false},
    {"AvenirNext-DemiBold", "Avenir Next", true, false},
    {"AvenirNext-Heavy", "Avenir Next", true, false},
    {"AvenirNext-MediumItalic", "Avenir Next", false, true},
    {"AvenirNext-DemiBoldItalic", "Avenir Next", true, true},
    {"Baskerville-SemiBold", "Baskerville", true, false},
    {"Baskerville-SemiBoldItalic", "Baskerville", true, true},
    {"Copperplate-Light", "Copperplate", false, false},
    {"Futura-CondensedMedium", "Futura", false, false},
    {"Futura-CondensedExtraBold", "Futura", true, false},
    {"GillSans-Light", "Gill Sans", false, false},
    {"GillSans-LightItalic", "Gill Sans", false, true},
    {"GillSans-SemiBold", "Gill Sans", true, false},
    {"GillSans-UltraBold", "Gill Sans", true, false},
    {"Helvetica-Light", "Helvetica", false, false},
    {"Helvetica-LightOblique", "Helvetica", false, true},
    {"HelveticaNeue-UltraLight", "Helvetica Neue", false, false},
    {"HelveticaNeue-Thin", "Helvetica Neue", false, false},
    {"HelveticaNeue-Light", "Helvetica Neue", false, false},
    {"HelveticaNeue-Medium", "Helvetica Neue", false, false},
    {"HelveticaNeue-CondensedBold", "Helvetica Neue", true, false},
    {"HelveticaNeue-CondensedBlack", "Helvetica Neue", true, false},
    {"HelveticaNeue-UltraLightItalic", "Helvetica Neue", false, true},
    {"HelveticaNeue-ThinItalic", "Helvetica Neue", false, true},
    {"HelveticaNeue-LightItalic", "Helvetica Neue", false, true},
    {"HelveticaNeue-MediumItalic", "Helvetica Neue", false, true},
    {"Optima-ExtraBlack", "Optima", true, false},
    {"PingFangSC-Light", "PingFang SC", false, false},
    {"PingFangSC-Medium", "PingFang SC", false, false},
    {"PingFangTC-Light", "PingFang TC", false, false},
    {"PingFangTC-Medium", "PingFang TC", false, false},
    {"SnellRoundhand-Black", "Snell Roundhand", true, false},
};

struct Index {
    QHash<QString, const MacFontFamily*> families;
    QHash<QString, MacFontFace> faces;

    Index();

private:
    void addFaces(const MacFontFamily& entry);
};

Index::Index()
{
    for (const MacFontFamily& entry : ::platform::families) {
        families.insert(QString::fromLatin1(entry.family).toCaseFolded(), &entry);
        addFaces(entry);
    }
    for (const OtherWeight& face : otherWeights) {
        const MacFontFamily* entry =
            families.value(QString::fromLatin1(face.family).toCaseFolded());
        faces.insert(QString::fromLatin1(face.postScriptName).toCaseFolded(),
                     {entry, face.bold, face.italic});
    }
}

void Index::addFaces(const MacFontFamily& entry)
{
    const QString family = QString::fromLatin1(entry.family).toCaseFolded();
    const QString slant = entry.oblique ? QStringLiteral(" oblique") : QStringLiteral(" italic");
    for (std::size_t index = 0; index < entry.faces.size(); ++index) {
        if (!entry.faces[index])
            continue;
        const bool bold = index == 1 || index == 3;
        const bool italic = index >= 2;
        QString fullName = family;
        if (bold)
            fullName += QStringLiteral(" bold");
        if (italic)
            fullName += slant;
        faces.insert(fullName, {&entry, bold, italic});
        faces.insert(QString::fromLatin1(entry.faces[index]).toCaseFolded(),
                     {&entry, bold, italic});
    }
}

const Index& index()
{
    static const Index theIndex;
    return theIndex;
}

} // namespace

const MacFontFamily* macFontFamily(QStringView name)
{
    return index().families.value(name.toString().toCaseFolded());
}

MacFontFace macFontFace(QStringView name)
{
    return index().faces.value(name.toString().toCaseFolded());
}

} // namespace platform
