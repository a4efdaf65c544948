// SPDX-License-Identifier: MIT
#include "platform/propertylist/ColorData.h"

#include "platform/propertylist/KeyedArchiver.h"
#include "platform/propertylist/PropertyListError.h"

namespace {

using platform::ArchivedObject;
using platform::ArchiveValue;
using platform::ColorData;
using Field = ArchivedObject::Field;
using Space = ColorData::Space;

ArchiveValue color(qint64 space, QList<Field> fields)
{
    fields.prepend({QStringLiteral("NSColorSpace"), Field::Form::Plain, qlonglong(space), {}});
    return ArchiveValue::unknown({{QStringLiteral("NSColor"), QStringLiteral("NSObject")}, fields});
}

ArchiveValue color(qint64 space, const char* key, const QByteArray& components)
{
    return color(space, {{QLatin1String(key), Field::Form::Plain, components, {}}});
}

std::optional<ColorData> archivedAndRead(const ArchiveValue& value)
{
    const auto data = platform::KeyedArchiver::archivedDataWithRootObject(value);
    EXPECT_TRUE(data);
    return platform::colorFromArchiveData(*data);
}

TEST(ColorDataTest, ReadsKeyedColours)
{
    EXPECT_EQ(archivedAndRead(color(1, "NSRGB", QByteArray("0.25 0.5 1\0", 11))),
              (ColorData{0.25, 0.5, 1, 1, Space::CalibratedRgb}));
    EXPECT_EQ(archivedAndRead(color(2, "NSRGB", "0.25 0.5 1 0.75")),
              (ColorData{0.25, 0.5, 1, 0.75, Space::DeviceRgb}));
    EXPECT_EQ(archivedAndRead(color(3, "NSWhite", "0.5")),
              (ColorData{0.5, 0.5, 0.5, 1, Space::CalibratedRgb}));
    EXPECT_EQ(archivedAndRead(color(4, "NSWhite", QByteArray("1 0.5\0", 6))),
              (ColorData{1, 1, 1, 0.5, Space::DeviceRgb}));
    EXPECT_EQ(archivedAndRead(color(5, "NSCMYK", "1 0.25 0 0.25 0.5")),
              (ColorData{0, 0.5, 0.75, 0.5, Space::DeviceRgb}));
}

TEST(ColorDataTest, ReadsTheColourInsideANamedOne)
{
    const auto nested = color(2, "NSRGB", "0 1 0");
    const auto named = color(6, {{QStringLiteral("NSCatalogName"),
                                  Field::Form::Reference,
                                  {},
                                  {ArchiveValue::string(QStringLiteral("System"))}},
                                 {QStringLiteral("NSColor"), Field::Form::Reference, {}, {nested}}});
    EXPECT_EQ(archivedAndRead(named), (ColorData{0, 1, 0, 1, Space::DeviceRgb}));
}

TEST(ColorDataTest, PrefersTheComponentsOfSrgb)
{
    const auto colorWithSpace = [](qint64 identifier) {
        const auto space = ArchiveValue::unknown(
            {{QStringLiteral("NSColorSpace"), QStringLiteral("NSObject")},
             {{QStringLiteral("NSID"), Field::Form::Plain, qlonglong(identifier), {}}}});
        return color(1, {{QStringLiteral("NSRGB"), Field::Form::Plain, QByteArray("0.5 0 0"), {}},
                         {QStringLiteral("NSComponents"), Field::Form::Plain, QByteArray("1 0 0 0.5"), {}},
                         {QStringLiteral("NSCustomColorSpace"), Field::Form::Reference, {}, {space}}});
    };
    EXPECT_EQ(archivedAndRead(colorWithSpace(7)), (ColorData{1, 0, 0, 0.5, Space::DeviceRgb}));
    EXPECT_EQ(archivedAndRead(colorWithSpace(1)), (ColorData{0.5, 0, 0, 1, Space::CalibratedRgb}));
}

TEST(ColorDataTest, BringsComponentsIntoRange)
{
    EXPECT_EQ(archivedAndRead(color(2, "NSRGB", "-1 2 0.5 7")), (ColorData{0, 1, 0.5, 1, Space::DeviceRgb}));
}

TEST(ColorDataTest, ReadsALegacyArchive)
{
    const QByteArray data =
        QByteArray::fromHex("040b") + "streamtyped" + QByteArray::fromHex("81e80384014084848407") + "NSColor"
        + QByteArray::fromHex("00848408") + "NSObject" + QByteArray::fromHex("008584016301840466666666")
        + QByteArray::fromHex("830000003f00010186");
    EXPECT_EQ(platform::colorFromArchiveData(data), (ColorData{0.5, 0, 1, 1, Space::CalibratedRgb}));
}

TEST(ColorDataTest, WhatIsNoColourIsAnError)
{
    platform::Error error;
    EXPECT_FALSE(platform::colorFromArchiveData({}, &error));
    EXPECT_EQ(error.code(), qint64(platform::PropertyListErrorCode::UnarchivingCorrupt));
    EXPECT_FALSE(platform::colorFromArchiveData("\x04\x0bnonsense"));
    EXPECT_FALSE(platform::colorFromArchiveData("{}"));
    EXPECT_FALSE(archivedAndRead(ArchiveValue()));
    EXPECT_FALSE(archivedAndRead(ArchiveValue::string(QStringLiteral("red"))));
    EXPECT_FALSE(archivedAndRead(color(10, {})));
    EXPECT_FALSE(archivedAndRead(color(6, {})));
    EXPECT_FALSE(archivedAndRead(color(1, "NSRGB", "1 0")));
    EXPECT_FALSE(archivedAndRead(color(1, "NSRGB", "red 0 0")));
    EXPECT_FALSE(archivedAndRead(color(1, "NSRGB", "nan 0 0")));
    EXPECT_FALSE(archivedAndRead(color(1, "NSRGB", "")));
    EXPECT_FALSE(archivedAndRead(color(1, {})));
}

} // namespace
