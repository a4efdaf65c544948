// SPDX-License-Identifier: MIT
#include "platform/attributedtext/Font.h"

#include "platform/attributedtext/InstalledFonts.h"
#include "platform/attributedtext/MacFonts.h"

namespace platform {

namespace {

constexpr double defaultSize = 12;

// The face with the traits, or the one that comes nearest: weight is kept before slant.
const char* nearestFace(const MacFontFamily& family, bool bold, bool italic)
{
    const auto& [regular, boldFace, italicFace, boldItalic] = family.faces;
    if (bold && italic && boldItalic)
        return boldItalic;
    if (bold && boldFace)
        return boldFace;
    if (italic && italicFace)
        return italicFace;
    return regular;
}

QString madeUpName(const Font& font)
{
    QString name = font.family;
    name.remove(u' ');
    // A made-up name must not come to mean another family's face that this family does not have.
    if (const MacFontFamily* known = macFontFamily(name))
        return QString::fromLatin1(nearestFace(*known, font.bold, font.italic));
    if (font.bold || font.italic)
        name += u'-';
    if (font.bold)
        name += QStringLiteral("Bold");
    if (font.italic)
        name += QStringLiteral("Italic");
    return name;
}

struct FaceEnding {
    const char* text;
    bool bold;
    bool italic;
};

// How PostScript names tell the face of a family that is not known; longer ones first.
constexpr FaceEnding faceEndings[] = {{"-BoldItalic", true, true},
                                      {"-BoldOblique", true, true},
                                      {"-Bold", true, false},
                                      {"-Italic", false, true},
                                      {"-Oblique", false, true}};

} // namespace

QString Font::fontName() const
{
    if (const MacFontFamily* known = macFontFamily(family))
        return QString::fromLatin1(nearestFace(*known, bold, italic));
    const QString installed = installedPostScriptName(family, bold, italic);
    return installed.isEmpty() ? madeUpName(*this) : installed;
}

std::optional<Font> Font::fontNamed(const QString& name, double size)
{
    const QString trimmed = name.trimmed();
    const double points = size > 0 ? size : defaultSize;
    const MacFontFace face = macFontFace(trimmed);
    if (face.family)
        return Font{QString::fromLatin1(face.family->family), points, face.bold, face.italic,
                    face.family->monospaced};
    if (const auto installed = installedFontFace(trimmed))
        return Font{installed->family, points, installed->bold, installed->italic,
                    installed->monospaced};
    return std::nullopt;
}

Font Font::fontWithFaceName(const QString& name, double size)
{
    if (const auto known = fontNamed(name, size))
        return *known;
    const double points = size > 0 ? size : defaultSize;
    for (const FaceEnding& ending : faceEndings) {
        const QLatin1String text(ending.text);
        if (name.endsWith(text) && name.size() > text.size())
            return Font{name.chopped(text.size()), points, ending.bold, ending.italic};
    }
    return Font{name, points};
}

Font Font::userFont(double size)
{
    return Font{QStringLiteral("Helvetica"), size > 0 ? size : defaultSize};
}

Font Font::systemFont(double size)
{
    return Font{QStringLiteral(".AppleSystemUIFont"), size > 0 ? size : systemFontSize};
}

} // namespace platform
