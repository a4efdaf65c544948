// SPDX-License-Identifier: MIT
#include "platform/propertylist/TypedStream.h"

#include "platform/propertylist/PropertyListError.h"

namespace {

using platform::TypedStream;
using platform::TypedStreamColor;
using Space = TypedStreamColor::Space;

const QByteArray header = QByteArray::fromHex("040b") + "streamtyped" + QByteArray::fromHex("81e803");

QByteArray newString(const QByteArray& text) { return '\x84' + QByteArray(1, char(text.size())) + text; }

QByteArray real(float value)
{
    QByteArray bytes("\x83");
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
    return bytes;
}

// An object of the class, whose parent is the root class.
QByteArray newObject(const QByteArray& className)
{
    return "\x84\x84" + newString(className) + QByteArray(1, '\0') + '\x84' + newString("NSObject")
           + QByteArray(1, '\0') + '\x85';
}

// A stream of one colour of a kind, with the types and the bytes of its components.
QByteArray colorStream(int kind, const QByteArray& types, const QByteArray& components)
{
    return header + newString("@") + newObject("NSColor") + newString("c") + char(kind) + newString(types)
           + components + '\x86';
}

std::optional<TypedStreamColor> colorIn(const QByteArray& data)
{
    const auto stream = TypedStream::fromData(data);
    return stream ? stream->color() : std::nullopt;
}

TEST(TypedStreamTest, ReadsColoursOfEveryKind)
{
    const struct {
        int kind;
        const char* types;
        QByteArray bytes;
        Space space;
        std::vector<double> components;
    } cases[] = {
        {1,
         "ffff",
         real(0.5f) + QByteArray(1, '\0') + real(0.25f) + '\x01',
         Space::CalibratedRgb,
         {0.5, 0, 0.25, 1}},
        {2, "ffff", QByteArray("\x01\x01\x01") + real(0.5f), Space::DeviceRgb, {1, 1, 1, 0.5}},
        {3, "ff", real(0.75f) + '\x01', Space::CalibratedWhite, {0.75, 1}},
        {4, "ff", real(0.75f) + '\x01', Space::DeviceWhite, {0.75, 1}},
        {5,
         "fffff",
         real(0.5f) + real(0.25f) + QByteArray(1, '\0') + real(0.125f) + '\x01',
         Space::DeviceCmyk,
         {0.5, 0.25, 0, 0.125, 1}},
    };
    for (const auto& sample : cases) {
        const auto color = colorIn(colorStream(sample.kind, sample.types, sample.bytes));
        ASSERT_TRUE(color) << sample.kind;
        EXPECT_EQ(color->space, sample.space);
        EXPECT_EQ(color->components, sample.components);
    }
}

TEST(TypedStreamTest, ReadsTheOtherByteOrderAndDoubles)
{
    const QByteArray bigEndian = QByteArray::fromHex("040b") + "typedstream" + QByteArray::fromHex("8103e8");
    const QByteArray red = QByteArray::fromHex("833fe0000000000000");
    const auto color = colorIn(bigEndian + newString("@") + newObject("NSColor") + newString("c") + '\x02'
                               + newString("dddd") + red + QByteArray::fromHex("81000100") + '\x01' + '\x86');
    ASSERT_TRUE(color);
    EXPECT_EQ(color->components, (std::vector<double>{0.5, 1, 0, 1}));
}

TEST(TypedStreamTest, ReadsTheColourInsideANamedOne)
{
    // Class names and type strings in order: @, NSColor, NSObject, c, @@@, NSString, +, ffff. Objects and
    // classes: the colour, NSColor, NSObject, the catalogue's name, NSString, the colour's name.
    const QByteArray catalog =
        "\x84\x84" + newString("NSString") + '\x01' + '\x94' + newString("+") + QByteArray("\x06System\x86");
    const QByteArray name = QByteArray("\x84\x96\x98\x09textColor\x86");
    const QByteArray nested =
        QByteArray("\x84\x93\x95\x02") + newString("ffff") + QByteArray("\x01\0\0\x01", 4) + '\x86';
    const auto color = colorIn(colorStream(6, "@@@", catalog + name + nested));
    ASSERT_TRUE(color);
    EXPECT_EQ(color->catalogName, QStringLiteral("System"));
    EXPECT_EQ(color->colorName, QStringLiteral("textColor"));
    EXPECT_EQ(color->space, Space::DeviceRgb);
    EXPECT_EQ(color->components, (std::vector<double>{1, 0, 0, 1}));
}

TEST(TypedStreamTest, ANamedColourThatIsItsOwnContentsIsNone)
{
    EXPECT_FALSE(colorIn(colorStream(6, "@@@", "\x85\x85\x92")));
    EXPECT_FALSE(colorIn(colorStream(6, "@@@", "\x85\x85\x85")));
}

TEST(TypedStreamTest, OtherObjectsAndKindsAreNoColour)
{
    EXPECT_FALSE(
        colorIn(header + newString("@") + newObject("NSString") + newString("+") + QByteArray("\x01x\x86")));
    EXPECT_FALSE(colorIn(colorStream(10, "@", "\x85")));
    EXPECT_FALSE(colorIn(colorStream(1, "ff", QByteArray("\x01\x01"))));
    EXPECT_FALSE(colorIn(colorStream(1, "ffff", QByteArray("\x83\0\0\xC0\x7F\x01\x01\x01", 8))));
    EXPECT_FALSE(colorIn(header));
    EXPECT_FALSE(colorIn(header + newString("@") + '\x85'));
}

TEST(TypedStreamTest, ReadsStructsArraysAndOtherTypes)
{
    const auto stream =
        TypedStream::fromData(header + newString("{_NSPoint=ff}") + QByteArray("\x01\x02") + newString("[3c]")
                              + "abc" + newString("[2i]") + QByteArray::fromHex("8100010a") + newString("*")
                              + newString("text") + newString("*%#").left(4) + QByteArray("\x85\x92"));
    EXPECT_FALSE(stream);
    const auto values = TypedStream::fromData(
        header + newString("{_NSPoint=ff}") + QByteArray("\x01\x02") + newString("[3c]") + "abc"
        + newString("[2i]") + QByteArray::fromHex("8100010a") + newString("*") + '\x84' + newString("text"));
    ASSERT_TRUE(values);
    ASSERT_EQ(values->values().size(), 6u);
    EXPECT_EQ(values->values()[1].number, 2);
    EXPECT_EQ(values->values()[2].bytes, "abc");
    EXPECT_EQ(values->values()[3].number, 256);
    EXPECT_EQ(values->values()[5].bytes, "text");
}

TEST(TypedStreamTest, EveryTruncationIsAnError)
{
    const QByteArray whole = colorStream(1, "ffff", real(0.5f) + QByteArray(1, '\0') + real(0.25f) + '\x01');
    ASSERT_TRUE(TypedStream::fromData(whole));
    for (qsizetype size = 0; size < whole.size(); ++size) {
        platform::Error error;
        // The bare header is a stream of nothing.
        const bool isWhole = size == header.size();
        EXPECT_EQ(TypedStream::fromData(whole.first(size), &error).has_value(), isWhole) << size;
        EXPECT_EQ(error.code(), isWhole ? 0 : qint64(platform::PropertyListErrorCode::UnarchivingCorrupt));
    }
}

TEST(TypedStreamTest, RefusesDamage)
{
    const QByteArray damaged[] = {
        header + "\x93",                      // a string that was never written
        header + newString("@") + "\x92",     // an object that was never written
        header + newString("@") + "\x84\x92", // a class that is the object itself
        header + newString("@") + "\x84\x84" + newString("A") + QByteArray("\0\x93", 2), // its own ancestor
        header + newString("x") + "\x01",
        header + newString("[99999999999c]") + "a",
        header + newString("[c]"),
        header + newString("[5"),
        header + newString("{ff}") + "\x01\x01",
        header + newString("i") + "\x90",
        header + newString("+") + QByteArray::fromHex("82ffffff7f"),
        header + newString("+") + "\xFF",
    };
    for (const QByteArray& data : damaged)
        EXPECT_FALSE(TypedStream::fromData(data)) << data.toHex().constData();
}

TEST(TypedStreamTest, RefusesDepthAndGroupsWithoutEnd)
{
    const QByteArray group = QByteArray("\x92\x84\x93");
    EXPECT_FALSE(TypedStream::fromData(header + newString("@") + newObject("A") + group.repeated(100'000)));
    // Groups of types that take no bytes, again and again for the price of one byte.
    const QByteArray empties =
        header + newString(QByteArray("[0c]").repeated(20)) + QByteArray(1'000'000, '\x92');
    const QByteArray braces =
        header + newString(QByteArray("{=}").repeated(20)) + QByteArray(1'000'000, '\x92');
    EXPECT_FALSE(TypedStream::fromData(empties));
    EXPECT_FALSE(TypedStream::fromData(braces));
}

} // namespace
