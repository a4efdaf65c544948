// SPDX-License-Identifier: MIT
#include "platform/attributedtext/ArchivedAttributes.h"

#include "platform/attributedtext/ArchivedFields.h"

#include <array>
#include <cmath>

namespace platform {

namespace {

// NSColorSpace of a colour.
constexpr qint64 calibratedRgb = 1;
constexpr qint64 deviceRgb = 2;

// The flags of a font that is drawn as it is.
constexpr qint64 plainFontFlags = 16;

struct StyleNumber {
    LineStyle style;
    qint64 number;
};
// The values of NSUnderlineStyle.
constexpr std::array<StyleNumber, 3> lineStyles = {
    {{LineStyle::Single, 1}, {LineStyle::Thick, 2}, {LineStyle::Double, 9}}};

LineStyle lineStyleFrom(const ArchiveValue& value)
{
    // The bits above say how the line is dotted.
    const qint64 number = value.toInt64() & 0xF;
    for (const StyleNumber& known : lineStyles) {
        if (known.number == number)
            return known.style;
    }
    return LineStyle::None;
}

QByteArray numberText(double component)
{
    const double bounded = std::isnan(component) ? 0 : std::clamp(component, 0.0, 1.0);
    return QByteArray::number(bounded, 'g', 10);
}

// A URL as the platform archives it.
ArchiveValue archivedUrl(const QString& address)
{
    ArchivedFields fields({QStringLiteral("NSURL"), QStringLiteral("NSObject")});
    fields.addObject("NS.base", ArchiveValue());
    fields.addObject("NS.relative", ArchiveValue::string(address));
    return fields.value();
}

QString addressFrom(const ArchiveValue& value)
{
    const ArchivedObject* const url = value.toUnknown();
    return url ? url->referenceForKey(QStringLiteral("NS.relative")).toText() : value.toText();
}

// The dictionary's entries, under the attributes' names.
class Entries {
public:
    void add(const char* name, const ArchiveValue& value)
    {
        if (!value.isNull())
            m_entries.append({ArchiveValue::string(QLatin1String(name)), value});
    }
    void addColor(const char* name, const std::optional<Color>& color)
    {
        if (color)
            add(name, archivedColor(*color));
    }
    void addLine(const char* name, LineStyle style)
    {
        for (const StyleNumber& known : lineStyles) {
            if (known.style == style)
                add(name, ArchiveValue::integer(known.number));
        }
    }
    [[nodiscard]] ArchiveValue value() const { return ArchiveValue::dictionary(m_entries); }

private:
    QList<ArchiveValue::Entry> m_entries;
};

} // namespace

ArchiveValue archivedFont(const Font& font)
{
    ArchivedFields fields({QStringLiteral("NSFont"), QStringLiteral("NSObject")});
    fields.addObject("NSName", ArchiveValue::string(font.fontName()));
    fields.addPlain("NSSize", font.size);
    fields.addPlain("NSfFlags", plainFontFlags);
    return fields.value();
}

std::optional<Font> fontFromArchivedObject(const ArchiveValue& object)
{
    const ArchivedObject* const font = archivedObjectOfClass(object, "NSFont");
    const QString name =
        font ? font->referenceForKey(QStringLiteral("NSName")).toText() : QString();
    if (name.trimmed().isEmpty())
        return std::nullopt;
    return Font::fontWithFaceName(name, archivedNumber(*font, "NSSize"));
}

ArchiveValue archivedColor(const Color& color)
{
    if (color.space == Color::Space::Pattern)
        return {};
    QByteArray components = numberText(color.red) + ' ' + numberText(color.green) + ' ' +
                            numberText(color.blue);
    if (color.alpha != 1)
        components += ' ' + numberText(color.alpha);
    components += '\0';
    ArchivedFields fields({QStringLiteral("NSColor"), QStringLiteral("NSObject")});
    fields.addPlain("NSColorSpace",
                    color.space == Color::Space::CalibratedRgb ? calibratedRgb : deviceRgb);
    fields.addPlain("NSRGB", components);
    return fields.value();
}

Color textColorFromData(const ColorData& data)
{
    const Color::Space space = data.space == ColorData::Space::CalibratedRgb
                                   ? Color::Space::CalibratedRgb
                                   : Color::Space::DeviceRgb;
    return {data.red, data.green, data.blue, data.alpha, space};
}

std::optional<Color> textColorFromArchivedObject(const ArchiveValue& object)
{
    const std::optional<ColorData> data = colorFromArchivedObject(object);
    return data ? std::optional(textColorFromData(*data)) : std::nullopt;
}

ArchiveValue archivedTextAttributes(const TextAttributes& attributes)
{
    Entries entries;
    if (attributes.font)
        entries.add("NSFont", archivedFont(*attributes.font));
    if (attributes.paragraphStyle)
        entries.add("NSParagraphStyle", archivedParagraphStyle(*attributes.paragraphStyle));
    entries.addColor("NSColor", attributes.foregroundColor);
    entries.addColor("NSBackgroundColor", attributes.backgroundColor);
    entries.addLine("NSUnderline", attributes.underline);
    entries.addColor("NSUnderlineColor", attributes.underlineColor);
    entries.addLine("NSStrikethrough", attributes.strikethrough);
    entries.addColor("NSStrikethroughColor", attributes.strikethroughColor);
    if (attributes.superscript != 0)
        entries.add("NSSuperScript", ArchiveValue::integer(attributes.superscript));
    if (attributes.baselineOffset != 0)
        entries.add("NSBaselineOffset", ArchiveValue::floating(attributes.baselineOffset));
    if (attributes.kern != 0)
        entries.add("NSKern", ArchiveValue::floating(attributes.kern));
    if (!attributes.link.isEmpty())
        entries.add("NSLink", archivedUrl(attributes.link));
    return entries.value();
}

std::optional<TextAttributes> textAttributesFromArchivedObject(const ArchiveValue& object)
{
    if (object.kind() != ArchiveValue::Kind::Dictionary)
        return std::nullopt;
    const auto value = [&object](const char* name) {
        return object.valueForKey(QLatin1String(name));
    };
    TextAttributes attributes;
    attributes.font = fontFromArchivedObject(value("NSFont"));
    if (auto style = paragraphStyleFromArchivedObject(value("NSParagraphStyle")))
        attributes.paragraphStyle = std::make_shared<const ParagraphStyle>(std::move(*style));
    attributes.foregroundColor = textColorFromArchivedObject(value("NSColor"));
    attributes.backgroundColor = textColorFromArchivedObject(value("NSBackgroundColor"));
    attributes.underline = lineStyleFrom(value("NSUnderline"));
    attributes.underlineColor = textColorFromArchivedObject(value("NSUnderlineColor"));
    attributes.strikethrough = lineStyleFrom(value("NSStrikethrough"));
    attributes.strikethroughColor = textColorFromArchivedObject(value("NSStrikethroughColor"));
    constexpr qint64 deepestShift = 9;
    attributes.superscript = static_cast<int>(
        std::clamp(value("NSSuperScript").toInt64(), -deepestShift, deepestShift));
    attributes.baselineOffset = finiteNumber(value("NSBaselineOffset").toDouble());
    attributes.kern = finiteNumber(value("NSKern").toDouble());
    attributes.link = addressFrom(value("NSLink"));
    return attributes;
}

} // namespace platform
