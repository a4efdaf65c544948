// SPDX-License-Identifier: MIT
#include "formats/QLNoteAttributes.h"

#include "formats/CoderQLExtensions.h"
#include "formats/ColorArchives.h"
#include "platform/defaults/UserDefaults.h"
#include "platform/propertylist/PropertyList.h"

#include "support/ScratchFolder.h"

namespace {

using platform::ArchiveValue;
using platform::Color;
using platform::KeyedArchiver;
using platform::KeyedUnarchiver;
using platform::TextRange;
using platform::UserDefaults;

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

class QLNoteAttributesTest : public ::testing::Test {
protected:
    void TearDown() override { UserDefaults::standard().clearOverrides(); }

    static void setSetting(const char* key, const QVariant& value) { UserDefaults::standard().setOverride(text(key), value); }

    static QByteArray archive(const std::shared_ptr<QLNoteAttributes>& record)
    {
        const std::optional<QByteArray> data = QLNoteAttributes::archivedData(record);
        EXPECT_TRUE(data);
        return data.value_or(QByteArray());
    }

    static std::shared_ptr<QLNoteAttributes> roundTrip(const std::shared_ptr<QLNoteAttributes>& record)
    {
        return QLNoteAttributes::unarchivedFromData(archive(record));
    }

    // The record's own dictionary in the archive, and what a reference in it leads to.
    static QVariantMap fields(const QByteArray& data)
    {
        const QVariantMap list = platform::propertyListFromData(data)->toMap();
        const auto root = list.value(text("$top")).toMap().value(text("root")).value<platform::PropertyListUid>();
        return list.value(text("$objects")).toList().value(static_cast<int>(root.value)).toMap();
    }
    static QVariant resolved(const QByteArray& data, const QVariant& reference)
    {
        const QVariantMap list = platform::propertyListFromData(data)->toMap();
        return list.value(text("$objects")).toList().value(static_cast<int>(reference.value<platform::PropertyListUid>().value));
    }

    // A record of any layout, made key by key.
    class RawRecord : public platform::KeyedCoding {
    public:
        explicit RawRecord(std::function<void(KeyedArchiver&)> encode)
            : m_encode(std::move(encode))
        {
        }
        QStringList archivedClassNames() const override { return {QLNoteAttributes::archivedClassName, text("NSObject")}; }
        void encodeWithCoder(KeyedArchiver& coder) override { m_encode(coder); }

    private:
        std::function<void(KeyedArchiver&)> m_encode;
    };
    static std::shared_ptr<QLNoteAttributes> decodeRaw(const std::function<void(KeyedArchiver&)>& encode)
    {
        const auto data = KeyedArchiver::archivedDataWithRootObject(std::make_shared<RawRecord>(encode));
        return QLNoteAttributes::unarchivedFromData(*data);
    }
};

TEST_F(QLNoteAttributesTest, ANewRecordHasTheDefaults)
{
    const QLNoteAttributes record;
    EXPECT_EQ(record.fileVersion(), 3000);
    EXPECT_EQ(record.visibleChars(), TextRange());
    EXPECT_EQ(record.selectedChars(), TextRange());
    EXPECT_TRUE(record.typingAttributes().isNull());
    EXPECT_EQ(record.layoutOrientation(), 0);
    EXPECT_EQ(record.hyphenationFactor(), 0);
    EXPECT_EQ(record.scaleFactor(), 0);
    EXPECT_FALSE(record.rulerVisible());
    EXPECT_EQ(record.visibleRect(), QRectF(0, 0, 0, 0));
    EXPECT_FALSE(record.backgroundColor());
    EXPECT_FALSE(record.checklistItems());
}

TEST_F(QLNoteAttributesTest, ANewRecordTakesThePersonsChoicesForNewNotes)
{
    setSetting("DefaultNoteScaleFactor", 1.1);
    setSetting("NewNotesShowRuler", true);
    for (const QByteArray& archive : {test::legacyColorArchive(), test::keyedColorArchive()}) {
        setSetting("DefaultNoteBackgroundColor", archive);
        const QLNoteAttributes record;
        EXPECT_EQ(record.scaleFactor(), static_cast<double>(1.1F));
        EXPECT_TRUE(record.rulerVisible());
        EXPECT_EQ(record.backgroundColor(), (Color{1, 0.5, 0, 1, Color::Space::CalibratedRgb}));
    }
}

TEST_F(QLNoteAttributesTest, AColourSettingThatIsNoneLeavesNoColour)
{
    setSetting("DefaultNoteBackgroundColor", QByteArray("no archive"));
    EXPECT_FALSE(QLNoteAttributes().backgroundColor());
    setSetting("DefaultNoteBackgroundColor", text("a text"));
    EXPECT_FALSE(QLNoteAttributes().backgroundColor());
}

TEST_F(QLNoteAttributesTest, EveryFieldComesBack)
{
    const auto record = std::make_shared<QLNoteAttributes>();
    record->setVisibleChars({3, 40});
    record->setSelectedChars({12, 0});
    record->setTypingAttributes(ArchiveValue::dictionary({{ArchiveValue::string(text("NSKern")), ArchiveValue::floating(2.0)}}));
    record->setLayoutOrientation(1);
    record->setHyphenationFactor(0.5);
    record->setScaleFactor(1.3);
    record->setVisibleRect({1, 2, 300, 400});
    record->setRulerVisible(true);
    record->setBackgroundColor(Color{0.25, 0.5, 0.75, 1});
    record->setChecklistItems(QLNoteChecklistItems{std::make_shared<QLNoteChecklistItem>(true, TextRange{17, 3})});

    const std::shared_ptr<QLNoteAttributes> read = roundTrip(record);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->fileVersion(), 3000);
    EXPECT_EQ(read->visibleChars(), (TextRange{3, 40}));
    EXPECT_EQ(read->selectedChars(), (TextRange{12, 0}));
    EXPECT_EQ(read->typingAttributes(), record->typingAttributes());
    EXPECT_EQ(read->layoutOrientation(), 1);
    EXPECT_EQ(read->hyphenationFactor(), 0.5);
    EXPECT_EQ(read->scaleFactor(), 1.3);
    EXPECT_EQ(read->visibleRect(), QRectF(1, 2, 300, 400));
    EXPECT_TRUE(read->rulerVisible());
    EXPECT_EQ(read->backgroundColor(), (Color{0.25, 0.5, 0.75, 1}));
    ASSERT_TRUE(read->checklistItems());
    ASSERT_EQ(read->checklistItems()->size(), 1u);
    EXPECT_TRUE(read->checklistItems()->front()->isOn());
    EXPECT_EQ(read->checklistItems()->front()->range(), (TextRange{17, 3}));
}

TEST_F(QLNoteAttributesTest, TheVersionWrittenIsAlwaysTheCurrentOne)
{
    const auto record = std::make_shared<QLNoteAttributes>();
    record->setFileVersion(2000);
    EXPECT_EQ(fields(archive(record)).value(text("fileVersion")).toLongLong(), 3000);
    EXPECT_EQ(roundTrip(record)->fileVersion(), 3000);
    EXPECT_EQ(record->fileVersion(), 2000);
}

TEST_F(QLNoteAttributesTest, ARectangleLosesWhatIsFinerThanAFloat)
{
    const auto record = std::make_shared<QLNoteAttributes>();
    record->setVisibleRect({0.1, 0.2, 10, 20});
    const QRectF read = roundTrip(record)->visibleRect();
    EXPECT_EQ(read.x(), static_cast<double>(0.1F));
    EXPECT_EQ(read.y(), static_cast<double>(0.2F));
    EXPECT_NE(read.x(), 0.1);
}

TEST_F(QLNoteAttributesTest, TheHyphenationFactorIsAFloatAndTheScaleADouble)
{
    const auto record = std::make_shared<QLNoteAttributes>();
    record->setHyphenationFactor(0.1);
    record->setScaleFactor(0.1);
    EXPECT_EQ(roundTrip(record)->hyphenationFactor(), static_cast<double>(0.1F));
    EXPECT_EQ(roundTrip(record)->scaleFactor(), 0.1);
}

TEST_F(QLNoteAttributesTest, ARangeIsStoredAsText)
{
    const auto record = std::make_shared<QLNoteAttributes>();
    record->setVisibleChars({5, 3});
    record->setSelectedChars({12, 0});
    const QByteArray data = archive(record);
    EXPECT_EQ(resolved(data, fields(data).value(text("visibleChars"))).toString(), text("{5, 3}"));
    EXPECT_EQ(resolved(data, fields(data).value(text("selectedChars"))).toString(), text("{12, 0}"));
}

TEST_F(QLNoteAttributesTest, TheArchiveHoldsTheTypesThatReadersExpect)
{
    const auto record = std::make_shared<QLNoteAttributes>();
    record->setHyphenationFactor(0.5);
    record->setScaleFactor(0.5);
    record->setBackgroundColor(Color{1, 1, 1, 1});
    record->setChecklistItems(QLNoteChecklistItems{});
    const QByteArray data = archive(record);
    const QVariantMap keys = fields(data);
    EXPECT_EQ(keys.keys(), QStringList({text("$class"), text("backgroundColorComponents"), text("checklistItems"), text("fileVersion"),
                                        text("hyphenationFactor"), text("layoutOrientation"), text("rulerVisible"), text("scaleFactor"),
                                        text("selectedChars"), text("typingAttributes"), text("visibleCGRect"), text("visibleChars")}));
    EXPECT_EQ(keys.value(text("hyphenationFactor")).userType(), QMetaType::Float);
    EXPECT_EQ(keys.value(text("scaleFactor")).userType(), QMetaType::Double);
    EXPECT_EQ(keys.value(text("rulerVisible")).userType(), QMetaType::Bool);
    EXPECT_EQ(keys.value(text("typingAttributes")).value<platform::PropertyListUid>().value, 0u);
    EXPECT_EQ(resolved(data, keys.value(text("$class"))).toMap().value(text("$classes")).toStringList(),
              QStringList({text("QLNoteAttributes"), text("NSObject")}));
    const QVariantMap array = resolved(data, keys.value(text("checklistItems"))).toMap();
    EXPECT_EQ(resolved(data, array.value(text("$class"))).toMap().value(text("$classname")).toString(), text("NSMutableArray"));
}

TEST_F(QLNoteAttributesTest, WithoutABackgroundColourThereIsNoKeyForIt)
{
    const auto record = std::make_shared<QLNoteAttributes>();
    EXPECT_FALSE(fields(archive(record)).contains(text("backgroundColorComponents")));
    EXPECT_FALSE(roundTrip(record)->backgroundColor());
}

TEST_F(QLNoteAttributesTest, EncodingTurnsTheColourIntoDeviceRgbForGood)
{
    const auto record = std::make_shared<QLNoteAttributes>();
    record->setBackgroundColor(Color{0.5, 0.5, 0.5, 1, Color::Space::CalibratedRgb});
    static_cast<void>(archive(record));
    EXPECT_EQ(record->backgroundColor()->space, Color::Space::DeviceRgb);
}

TEST_F(QLNoteAttributesTest, AColourWithoutComponentsIsWrittenAsZerosAndGivenUp)
{
    const auto record = std::make_shared<QLNoteAttributes>();
    record->setBackgroundColor(Color{1, 1, 1, 1, Color::Space::Pattern});
    const std::shared_ptr<QLNoteAttributes> read = roundTrip(record);
    EXPECT_FALSE(record->backgroundColor());
    EXPECT_EQ(read->backgroundColor(), (Color{0, 0, 0, 0}));
}

TEST_F(QLNoteAttributesTest, MissingKeysDecodeToZeroAndTheSettingsAreNotAsked)
{
    setSetting("NewNotesShowRuler", true);
    setSetting("DefaultNoteScaleFactor", 2.0);
    setSetting("DefaultNoteBackgroundColor", test::legacyColorArchive());
    const auto read = decodeRaw([](KeyedArchiver&) {});
    ASSERT_TRUE(read);
    EXPECT_EQ(read->fileVersion(), 0);
    EXPECT_EQ(read->visibleChars(), TextRange());
    EXPECT_TRUE(read->typingAttributes().isNull());
    EXPECT_EQ(read->scaleFactor(), 0);
    EXPECT_FALSE(read->rulerVisible());
    EXPECT_EQ(read->visibleRect(), QRectF(0, 0, 0, 0));
    EXPECT_FALSE(read->backgroundColor());
    EXPECT_FALSE(read->checklistItems());
}

TEST_F(QLNoteAttributesTest, MissingColourComponentsAreZero)
{
    const auto read = decodeRaw([](KeyedArchiver& coder) {
        coder.encodeInt64(3000, text("fileVersion"));
        coder.encodeObject(ArchiveValue::dictionary({{ArchiveValue::string(text("red")), ArchiveValue::floating(1.0F)}}),
                           text("backgroundColorComponents"));
    });
    EXPECT_EQ(read->backgroundColor(), (Color{1, 0, 0, 0}));
}

TEST_F(QLNoteAttributesTest, ARecordOfTheOldestLayoutReadsItsOwnKeys)
{
    const ArchiveValue color = KeyedUnarchiver::unarchiveObjectWithData(test::keyedColorArchive());
    const auto read = decodeRaw([&color](KeyedArchiver& coder) {
        coder.encodeInt64(1500, text("fileVersion"));
        coder.encodeRect({1, 2, 3, 4}, text("visibleRect"));
        coder.encodeObject(color, text("backgroundColor"));
        encodeCGRectInQuillery(coder, {9, 9, 9, 9}, text("visibleCGRect"));
        coder.encodeObject(ArchiveValue::dictionary({{ArchiveValue::string(text("blue")), ArchiveValue::floating(1.0F)}}),
                           text("backgroundColorComponents"));
    });
    EXPECT_EQ(read->fileVersion(), 1500);
    EXPECT_EQ(read->visibleRect(), QRectF(1, 2, 3, 4));
    ASSERT_TRUE(read->backgroundColor());
    EXPECT_EQ(read->backgroundColor()->green, 0.5);
    EXPECT_EQ(read->backgroundColor()->blue, 0);
}

TEST_F(QLNoteAttributesTest, ACopySharesItsItemsButNotItsList)
{
    const auto record = std::make_shared<QLNoteAttributes>();
    record->setFileVersion(1500);
    record->setScaleFactor(4);
    record->setChecklistItems(QLNoteChecklistItems{std::make_shared<QLNoteChecklistItem>(false, TextRange{0, 2})});
    const std::shared_ptr<QLNoteAttributes> copy = record->copy();
    EXPECT_EQ(copy->fileVersion(), 1500);
    EXPECT_EQ(copy->scaleFactor(), 4);
    copy->checklistItems()->front()->setOn(true);
    EXPECT_TRUE(record->checklistItems()->front()->isOn());
    copy->setChecklistItems(QLNoteChecklistItems{});
    EXPECT_EQ(record->checklistItems()->size(), 1u);
}

TEST_F(QLNoteAttributesTest, BytesThatAreNoArchiveRaise)
{
    EXPECT_THROW(static_cast<void>(QLNoteAttributes::unarchivedFromData("not an archive")), platform::InvalidArchive);
}

TEST_F(QLNoteAttributesTest, AnArchiveOfSomethingElseHoldsNoRecord)
{
    const auto data = KeyedArchiver::archivedDataWithRootObject(ArchiveValue::string(text("just text")));
    EXPECT_EQ(QLNoteAttributes::unarchivedFromData(*data), nullptr);
}

TEST(CoderQLExtensionsTest, RangeTextsAreReadByTheirFirstTwoNumbers)
{
    EXPECT_EQ(stringFromRange({12, 34}), text("{12, 34}"));
    EXPECT_EQ(rangeFromString(text("{12, 34}")), (TextRange{12, 34}));
    EXPECT_EQ(rangeFromString(text("7 8 9")), (TextRange{7, 8}));
    EXPECT_EQ(rangeFromString(text("{5}")), (TextRange{5, 0}));
    EXPECT_EQ(rangeFromString(QString()), TextRange());
    EXPECT_EQ(rangeFromString(text("{99999999999999999999999, 1}")).length, 1);
}

} // namespace
