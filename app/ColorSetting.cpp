// SPDX-License-Identifier: MIT
#include "app/ColorSetting.h"

#include "formats/ArchivedColors.h"
#include "platform/propertylist/KeyedArchiver.h"

namespace {

constexpr qint64 calibratedRgbSpace = 1; // NSColorSpace of archives
constexpr int componentDigits = 9;       // more than any display has, and a float's worth

// The fields of an archived NSColor: "NSRGB" is text, the numbers apart by blanks and a zero byte
// at the end.
class ArchivedColor : public platform::KeyedCoding {
public:
    explicit ArchivedColor(const QColor& color)
        : m_color(color)
    {
    }

    [[nodiscard]] QStringList archivedClassNames() const override
    {
        return {QStringLiteral("NSColor"), QStringLiteral("NSObject")};
    }

    void encodeWithCoder(platform::KeyedArchiver& coder) override
    {
        QByteArray components;
        QList<float> numbers = {m_color.redF(), m_color.greenF(), m_color.blueF()};
        if (m_color.alpha() != 255)
            numbers += m_color.alphaF();
        for (const float number : numbers)
            components +=
                QByteArray::number(static_cast<double>(number), 'g', componentDigits) + ' ';
        components.back() = '\0';
        coder.encodeInt64(calibratedRgbSpace, QStringLiteral("NSColorSpace"));
        coder.encodeBytes(components, QStringLiteral("NSRGB"));
    }

private:
    QColor m_color;
};

} // namespace

QColor colorOfSetting(const QString& key)
{
    const std::optional<platform::Color> color = colorForDefaultsKey(key);
    if (!color || color->space == platform::Color::Space::Pattern)
        return {};
    const auto component = [](double value) {
        return static_cast<float>(std::clamp(value, 0.0, 1.0));
    };
    return QColor::fromRgbF(component(color->red), component(color->green), component(color->blue),
                            component(color->alpha));
}

QVariant settingOfColor(const QColor& color)
{
    if (!color.isValid())
        return {};
    const auto archive =
        platform::KeyedArchiver::archivedDataWithRootObject(std::make_shared<ArchivedColor>(color));
    return archive ? QVariant(*archive) : QVariant();
}
