// SPDX-License-Identifier: MIT
#include "platform/attributedtext/ArchivedAttributes.h"

#include "platform/propertylist/KeyedArchiver.h"
#include "platform/propertylist/KeyedUnarchiver.h"
#include "platform/propertylist/PropertyList.h"
#include "support/ScratchFolder.h"

#include <limits>
#include <random>

namespace {

using namespace platform;

QString s(const char* text)
{
    return QString::fromUtf8(text);
}

// Through the bytes of an archive, as a record holds them.
ArchiveValue archivedAndRead(const ArchiveValue& value)
{
    const auto data = KeyedArchiver::archivedDataWithRootObject(value);
    EXPECT_TRUE(data);
    return data ? KeyedUnarchiver::unarchiveObjectWithData(*data) : ArchiveValue();
}

QVariant plain(const ArchiveValue& object, const char* key)
{
    const ArchivedObject::Field* field = object.toUnknown()->fieldForKey(s(key));
    return field ? field->plain : QVariant();
}

ArchiveValue reference(const ArchiveValue& object, const char* key)
{
    return object.toUnknown()->referenceForKey(s(key));
}

TextAttributes comeBack(const TextAttributes& attributes)
{
    const auto read =
        textAttributesFromArchivedObject(archivedAndRead(archivedTextAttributes(attributes)));
    EXPECT_TRUE(read);
    return read.value_or(TextAttributes());
}

// Lists have an identity, which an archive cannot keep; their contents must come back.
void expectSameLists(const ParagraphStyle& left, const ParagraphStyle& right)
{
    ASSERT_EQ(left.textLists.size(), right.textLists.size());
    for (std::size_t index = 0; index < left.textLists.size(); ++index) {
        EXPECT_EQ(left.textLists[index]->markerFormat, right.textLists[index]->markerFormat);
        EXPECT_EQ(left.textLists[index]->startingItemNumber,
                  right.textLists[index]->startingItemNumber);
    }
}

TEST(ArchivedAttributesTest, AFontIsItsFacesNameAndSize)
{
    const ArchiveValue archived =
        archivedAndRead(archivedFont(Font{s("Helvetica Neue"), 13.5, true, false}));
    EXPECT_EQ(archived.toUnknown()->classNames, QStringList({s("NSFont"), s("NSObject")}));
    EXPECT_EQ(reference(archived, "NSName").toText(), s("HelveticaNeue-Bold"));
    EXPECT_EQ(plain(archived, "NSSize").userType(), QMetaType::Double);
    EXPECT_EQ(plain(archived, "NSSize"), QVariant(13.5));
    EXPECT_EQ(plain(archived, "NSfFlags").toLongLong(), 16);
    EXPECT_EQ(fontFromArchivedObject(archived), (Font{s("Helvetica Neue"), 13.5, true, false}));
}

TEST(ArchivedAttributesTest, AFontThatNobodyKnowsKeepsItsNameAndTraits)
{
    const Font font{s("Kalam"), 9, true, true};
    EXPECT_EQ(fontFromArchivedObject(archivedAndRead(archivedFont(font))), font);
}

TEST(ArchivedAttributesTest, AColourIsItsComponentsInAscii)
{
    const ArchiveValue device = archivedAndRead(archivedColor(Color::fromRgb8(255, 51, 0)));
    EXPECT_EQ(device.toUnknown()->classNames, QStringList({s("NSColor"), s("NSObject")}));
    EXPECT_EQ(plain(device, "NSColorSpace").toLongLong(), 2);
    EXPECT_EQ(plain(device, "NSRGB").toByteArray(), QByteArray("1 0.2 0\0", 8));
    const ArchiveValue calibrated =
        archivedAndRead(archivedColor({0.1568627451, 0.5, 1, 0.25, Color::Space::CalibratedRgb}));
    EXPECT_EQ(plain(calibrated, "NSColorSpace").toLongLong(), 1);
    EXPECT_EQ(plain(calibrated, "NSRGB").toByteArray(), QByteArray("0.1568627451 0.5 1 0.25\0", 24));
    EXPECT_EQ(textColorFromArchivedObject(calibrated),
              (Color{0.1568627451, 0.5, 1, 0.25, Color::Space::CalibratedRgb}));
    EXPECT_TRUE(archivedColor({0, 0, 0, 1, Color::Space::Pattern}).isNull());
}

TEST(ArchivedAttributesTest, AParagraphStyleNamesOnlyWhatItChanges)
{
    const ArchiveValue archived = archivedAndRead(archivedParagraphStyle(ParagraphStyle()));
    EXPECT_EQ(archived.toUnknown()->classNames,
              QStringList({s("NSParagraphStyle"), s("NSObject")}));
    // The natural alignment is number 4; left, number 0, would be left out.
    ASSERT_EQ(archived.toUnknown()->fields.size(), 2);
    EXPECT_EQ(plain(archived, "NSAlignment").toLongLong(), 4);
    EXPECT_TRUE(archived.toUnknown()->fieldForKey(s("NSTabStops")));
    EXPECT_TRUE(reference(archived, "NSTabStops").isNull());
    EXPECT_EQ(paragraphStyleFromArchivedObject(archived), ParagraphStyle());
}

TEST(ArchivedAttributesTest, AParagraphStyleHoldsItsTabsAndLists)
{
    ParagraphStyle style;
    style.alignment = TextAlignment::Justified;
    style.direction = WritingDirection::RightToLeft;
    style.headIndent = 36;
    style.lineHeightMultiple = 1.5;
    style.headerLevel = 2;
    style.tabStops = {{TextAlignment::Left, 11}, {TextAlignment::Center, 36.5}};
    style.textLists = {std::make_shared<const TextList>(TextList{s("{disc}"), 1}),
                       std::make_shared<const TextList>(TextList{s("{decimal}."), 7})};
    const ArchiveValue archived = archivedAndRead(archivedParagraphStyle(style));
    EXPECT_EQ(plain(archived, "NSAlignment").toLongLong(), 3);
    EXPECT_EQ(plain(archived, "NSWritingDirection").toLongLong(), 2);
    EXPECT_EQ(plain(archived, "NSHeadIndent"), QVariant(36.0));
    EXPECT_FALSE(archived.toUnknown()->fieldForKey(s("NSTailIndent")));
    const ArchiveValue tab = reference(archived, "NSTabStops").elements().value(1);
    EXPECT_EQ(tab.toUnknown()->classNames, QStringList({s("NSTextTab"), s("NSObject")}));
    EXPECT_EQ(plain(tab, "NSLocation"), QVariant(36.5));
    const ArchiveValue list = reference(archived, "NSTextLists").elements().value(0);
    EXPECT_EQ(list.toUnknown()->classNames, QStringList({s("NSTextList"), s("NSObject")}));
    EXPECT_EQ(reference(list, "NSMarkerFormat").toText(), s("{disc}"));

    auto read = paragraphStyleFromArchivedObject(archived);
    ASSERT_TRUE(read);
    expectSameLists(*read, style);
    read->textLists = style.textLists;
    EXPECT_EQ(*read, style);
}

TEST(ArchivedAttributesTest, NoTabStopsButAnIntervalIsAnEmptyArray)
{
    ParagraphStyle style;
    style.defaultTabInterval = 28;
    const ArchiveValue archived = archivedAndRead(archivedParagraphStyle(style));
    EXPECT_EQ(reference(archived, "NSTabStops").kind(), ArchiveValue::Kind::Array);
    EXPECT_EQ(paragraphStyleFromArchivedObject(archived), style);
}

TEST(ArchivedAttributesTest, AttributesStandUnderTheirNames)
{
    TextAttributes attributes;
    attributes.font = Font{s("Menlo"), 11, false, false, true};
    attributes.foregroundColor = Color::fromRgb8(255, 0, 0);
    attributes.underline = LineStyle::Double;
    attributes.link = s("https://example.org/a b");
    const ArchiveValue archived = archivedAndRead(archivedTextAttributes(attributes));
    QStringList names;
    for (const ArchiveValue::Entry& entry : archived.entries())
        names.append(entry.first.toText());
    EXPECT_EQ(names, QStringList({s("NSFont"), s("NSColor"), s("NSUnderline"), s("NSLink")}));
    EXPECT_EQ(archived.valueForKey(s("NSUnderline")).toInt64(), 9);
    EXPECT_EQ(reference(archived.valueForKey(s("NSLink")), "NS.relative").toText(),
              attributes.link);
    EXPECT_EQ(comeBack(attributes), attributes);
    EXPECT_EQ(comeBack(TextAttributes()), TextAttributes());
}

TEST(ArchivedAttributesTest, AnyAttributesComeBack)
{
    static const char* const families[] = {"Helvetica", "Georgia", "Menlo", "Kalam", "Arial"};
    static const char* const formats[] = {"{disc}", "{lower-alpha})", "", "{check}"};
    for (unsigned seed = 1; seed <= 300; ++seed) {
        std::mt19937 random(seed);
        const auto below = [&random](int count) {
            return static_cast<int>(random() % static_cast<unsigned>(count));
        };
        const auto color = [&]() -> std::optional<Color> {
            if (below(2) == 0)
                return std::nullopt;
            return Color{below(101) / 100.0, below(101) / 100.0, below(101) / 100.0,
                         below(3) == 0 ? below(100) / 100.0 : 1,
                         below(2) == 0 ? Color::Space::DeviceRgb : Color::Space::CalibratedRgb};
        };
        TextAttributes attributes;
        attributes.font = Font::fontWithFaceName(s(families[below(5)]), 6 + below(60) / 4.0);
        attributes.font->bold = below(2) == 0;
        attributes.foregroundColor = color();
        attributes.backgroundColor = color();
        attributes.underline = static_cast<LineStyle>(below(4));
        attributes.underlineColor = color();
        attributes.strikethrough = static_cast<LineStyle>(below(4));
        attributes.strikethroughColor = color();
        attributes.superscript = below(5) - 2;
        attributes.baselineOffset = below(9) / 2.0 - 2;
        attributes.kern = below(9) / 3.0 - 1;
        ParagraphStyle style;
        style.alignment = static_cast<TextAlignment>(below(5));
        style.direction = static_cast<WritingDirection>(below(3));
        style.firstLineHeadIndent = below(100);
        style.tailIndent = below(100) - 50;
        style.paragraphSpacing = below(3) * 4.25;
        style.maximumLineHeight = below(2) * 20;
        style.hyphenationFactor = below(2);
        style.headerLevel = below(7);
        for (int count = below(4); count > 0; --count)
            style.tabStops.push_back({static_cast<TextAlignment>(below(4)), below(400) / 2.0});
        for (int count = below(3); count > 0; --count)
            style.textLists.push_back(
                std::make_shared<const TextList>(TextList{s(formats[below(4)]), below(9)}));
        attributes.paragraphStyle = std::make_shared<const ParagraphStyle>(style);

        TextAttributes read = comeBack(attributes);
        ASSERT_TRUE(read.paragraphStyle) << "seed " << seed;
        expectSameLists(*read.paragraphStyle, style);
        ParagraphStyle readStyle = *read.paragraphStyle;
        readStyle.textLists = style.textLists;
        read.paragraphStyle = std::make_shared<const ParagraphStyle>(readStyle);
        ASSERT_EQ(read, attributes) << "seed " << seed;
    }
}

TEST(ArchivedAttributesTest, WhatIsOfAnotherKindReadsAsNone)
{
    const ArchiveValue text = ArchiveValue::string(s("text"));
    const ArchiveValue noFont = ArchiveValue::unknown({{s("NSFont"), s("NSObject")}, {}});
    for (const ArchiveValue& value : {ArchiveValue(), text, ArchiveValue::integer(3),
                                      ArchiveValue::array({text}), noFont}) {
        EXPECT_FALSE(fontFromArchivedObject(value));
        EXPECT_FALSE(textColorFromArchivedObject(value));
        EXPECT_FALSE(paragraphStyleFromArchivedObject(value));
        EXPECT_FALSE(textAttributesFromArchivedObject(value));
    }
    const auto read = textAttributesFromArchivedObject(ArchiveValue::dictionary(
        {{ArchiveValue::string(s("NSFont")), text},
         {ArchiveValue::string(s("NSParagraphStyle")), text},
         {text, noFont},
         {ArchiveValue(), ArchiveValue()},
         {ArchiveValue::string(s("NSUnderline")), ArchiveValue::integer(0x7fffffff)},
         {ArchiveValue::string(s("NSSuperScript")), ArchiveValue::integer(1LL << 60)},
         {ArchiveValue::string(s("NSKern")),
          ArchiveValue::floating(std::numeric_limits<double>::infinity())}}));
    ASSERT_TRUE(read);
    EXPECT_FALSE(read->font);
    EXPECT_FALSE(read->paragraphStyle);
    EXPECT_EQ(read->superscript, 9);
    EXPECT_EQ(read->kern, 0);
}

TEST(ArchivedAttributesTest, NumbersOfAStyleStayWithinReason)
{
    ArchivedObject archived{{s("NSMutableParagraphStyle"), s("NSParagraphStyle"), s("NSObject")}, {}};
    const auto add = [&archived](const char* key, const QVariant& value) {
        ArchivedObject::Field field;
        field.key = s(key);
        field.plain = value;
        archived.fields.append(field);
    };
    add("NSAlignment", qlonglong(99));
    add("NSWritingDirection", qlonglong(-5));
    add("NSHeadIndent", std::numeric_limits<double>::quiet_NaN());
    add("NSTailIndent", -1e300);
    add("NSHeaderLevel", 1e300);
    add("NSTabStops", QByteArray("no tabs"));
    const auto style = paragraphStyleFromArchivedObject(ArchiveValue::unknown(archived));
    ASSERT_TRUE(style);
    EXPECT_EQ(style->alignment, TextAlignment::Left);
    EXPECT_EQ(style->direction, WritingDirection::Natural);
    EXPECT_EQ(style->headIndent, 0);
    EXPECT_EQ(style->tailIndent, -1e6);
    EXPECT_EQ(style->headerLevel, 6);
    EXPECT_TRUE(style->tabStops.empty());
}

TEST(ArchivedAttributesTest, FontsAndColoursOfRealFilesAreRead)
{
    const QString path = QStringLiteral(VUPUGE_SHARED_DIRECTORY "/samples/keyed/Dracula.terminal");
    if (!QFileInfo::exists(path))
        GTEST_SKIP() << "there are no sample files";
    const auto settings = propertyListFromData(test::readFile(path));
    ASSERT_TRUE(settings);
    const auto object = [&settings](const char* key) {
        return KeyedUnarchiver::unarchiveObjectWithData(
            settings->toMap().value(s(key)).toByteArray());
    };
    EXPECT_EQ(fontFromArchivedObject(object("Font")),
              Font::fontWithFaceName(s("SFMono-Regular"), 12));
    EXPECT_EQ(textColorFromArchivedObject(object("ANSIBlackColor")),
              (Color{0.1568627451, 0.1647058824, 0.2117647059}));
    // Written again, the archive holds the same.
    for (const char* key : {"ANSIBlackColor", "BackgroundColor", "TextColor"}) {
        const ArchiveValue read = object(key);
        EXPECT_EQ(archivedAndRead(archivedColor(*textColorFromArchivedObject(read))), read) << key;
    }
}

} // namespace
