// SPDX-License-Identifier: MIT
#include "platform/attributedtext/InstalledFonts.h"

#include <QHash>

#include <fontconfig/fontconfig.h>

#include <cstdlib>

namespace platform {

namespace {

struct PatternDeleter {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
struct FontSetDeleter {
    void operator()(FcFontSet* set) const { FcFontSetDestroy(set); }
};
struct ObjectSetDeleter {
    void operator()(FcObjectSet* set) const { FcObjectSetDestroy(set); }
};
struct ConfigurationDeleter {
    void operator()(FcConfig* configuration) const { FcConfigDestroy(configuration); }
};
using FontSetPointer = std::unique_ptr<FcFontSet, FontSetDeleter>;

// Our own, because nobody takes the library's shared one down at the end.
FcConfig* configuration()
{
    static const std::unique_ptr<FcConfig, ConfigurationDeleter> ours(FcInitLoadConfigAndFonts());
    return ours.get();
}

// Listing, unlike matching, gives only fonts that have the very name that is asked for.
FontSetPointer fontsWith(const char* property, const QString& name)
{
    const std::unique_ptr<FcPattern, PatternDeleter> pattern(FcPatternCreate());
    const QByteArray utf8 = name.toUtf8();
    FcPatternAddString(pattern.get(), property, reinterpret_cast<const FcChar8*>(utf8.constData()));
    const std::unique_ptr<FcObjectSet, ObjectSetDeleter> objects(FcObjectSetBuild(
        FC_FAMILY, FC_POSTSCRIPT_NAME, FC_WEIGHT, FC_SLANT, FC_SPACING, FC_WIDTH, nullptr));
    return FontSetPointer(FcFontList(configuration(), pattern.get(), objects.get()));
}

QString stringIn(FcPattern* font, const char* property)
{
    FcChar8* text = nullptr;
    if (FcPatternGetString(font, property, 0, &text) != FcResultMatch)
        return {};
    return QString::fromUtf8(reinterpret_cast<const char*>(text));
}

int integerIn(FcPattern* font, const char* property, int otherwise)
{
    int value = otherwise;
    return FcPatternGetInteger(font, property, 0, &value) == FcResultMatch ? value : otherwise;
}

InstalledFontFace faceOf(FcPattern* font)
{
    InstalledFontFace face;
    face.family = stringIn(font, FC_FAMILY);
    face.bold = integerIn(font, FC_WEIGHT, FC_WEIGHT_REGULAR) >= FC_WEIGHT_DEMIBOLD;
    face.italic = integerIn(font, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN;
    face.monospaced = integerIn(font, FC_SPACING, FC_PROPORTIONAL) >= FC_MONO;
    return face;
}

// How far a face is from the plain upright or bold face that was asked for: narrow, light and black
// faces lose against the usual ones.
int distanceFrom(FcPattern* font, bool bold)
{
    const int weight = integerIn(font, FC_WEIGHT, FC_WEIGHT_REGULAR);
    const int width = integerIn(font, FC_WIDTH, FC_WIDTH_NORMAL);
    return std::abs(weight - (bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR)) +
           std::abs(width - FC_WIDTH_NORMAL);
}

FcPattern* nearest(const FontSetPointer& fonts, bool bold, bool italic)
{
    FcPattern* best = nullptr;
    int bestDistance = 0;
    for (int index = 0; fonts && index < fonts->nfont; ++index) {
        FcPattern* font = fonts->fonts[index];
        const InstalledFontFace face = faceOf(font);
        if (face.bold != bold || face.italic != italic)
            continue;
        const int distance = distanceFrom(font, bold);
        if (!best || distance < bestDistance) {
            best = font;
            bestDistance = distance;
        }
    }
    return best;
}

std::optional<InstalledFontFace> lookUpFace(const QString& name)
{
    const FontSetPointer ofFamily = fontsWith(FC_FAMILY, name);
    if (ofFamily && ofFamily->nfont > 0) {
        FcPattern* plain = nearest(ofFamily, false, false);
        InstalledFontFace face = faceOf(plain ? plain : ofFamily->fonts[0]);
        face.bold = false;
        face.italic = false;
        return face;
    }
    for (const char* property : {FC_POSTSCRIPT_NAME, FC_FULLNAME}) {
        const FontSetPointer fonts = fontsWith(property, name);
        if (fonts && fonts->nfont > 0)
            return faceOf(fonts->fonts[0]);
    }
    return std::nullopt;
}

} // namespace

// Looking a font up takes tens of microseconds and text asks for the same few again and again. The
// caches belong to a thread each, so they need no lock, and what they forget is only time.
constexpr qsizetype rememberedNames = 512;

std::optional<InstalledFontFace> installedFontFace(const QString& name)
{
    // Listing by an empty name gives every font.
    if (name.isEmpty() || name.size() > 200)
        return std::nullopt;
    thread_local QHash<QString, std::optional<InstalledFontFace>> known;
    const auto found = known.constFind(name);
    if (found != known.cend())
        return *found;
    if (known.size() >= rememberedNames)
        known.clear();
    return *known.insert(name, lookUpFace(name));
}

QString installedPostScriptName(const QString& family, bool bold, bool italic)
{
    if (family.isEmpty())
        return {};
    thread_local QHash<QString, QString> known;
    const QString key = family + QChar(bold ? u'b' : u'r') + QChar(italic ? u'i' : u'u');
    const auto found = known.constFind(key);
    if (found != known.cend())
        return *found;
    if (known.size() >= rememberedNames)
        known.clear();
    const FontSetPointer fonts = fontsWith(FC_FAMILY, family);
    FcPattern* font = nearest(fonts, bold, italic);
    return *known.insert(key, font ? stringIn(font, FC_POSTSCRIPT_NAME) : QString());
}

} // namespace platform
