// SPDX-License-Identifier: MIT
// Real files, each read as what it is.
#include "platform/propertylist/ColorData.h"
#include "platform/propertylist/KeyedArchiver.h"
#include "platform/propertylist/KeyedUnarchiver.h"
#include "platform/propertylist/PropertyList.h"
#include "platform/propertylist/TypedStream.h"
#include "support/ScratchFolder.h"

#include <random>

namespace {

using platform::ArchiveValue;
using platform::KeyedUnarchiver;

class SampleFilesTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!QFileInfo::exists(directory()))
            GTEST_SKIP() << "there are no sample files";
    }

    static QString directory() { return QStringLiteral(VUPUGE_SHARED_DIRECTORY "/samples"); }
    static QString path(const char* name) { return directory() + QLatin1Char('/') + QLatin1String(name); }
    static QByteArray bytes(const char* name) { return test::readFile(path(name)); }
    static ArchiveValue root(const char* name)
    {
        return KeyedUnarchiver::unarchiveObjectWithData(bytes(name));
    }
};

TEST_F(SampleFilesTest, EveryKeyedArchiveReadsAndArchivesAgainUnchanged)
{
    for (const char* name :
         {"keyed/libnska_setconfig_mutabledict.bplist", "keyed/nskeyed_NSMutableAttributedString.plist",
          "keyed/nskeyed_note.plist", "keyed/nskeyed_nsData.plist", "keyed/nskeyed_simpleDict.plist",
          "keyed/swift_ComplexTest.plist", "keyed/swift_DateIntervalFormatter_NSDate.archive",
          "keyed/swift_NSAttributedString.archive", "keyed/swift_NSMutableAttributedString.archive",
          "keyed/swift_URLTest.plist"}) {
        const ArchiveValue value = root(name);
        EXPECT_FALSE(value.isNull()) << name;
        const auto data = platform::KeyedArchiver::archivedDataWithRootObject(value);
        ASSERT_TRUE(data) << name;
        EXPECT_EQ(KeyedUnarchiver::unarchiveObjectWithData(*data), value) << name;
    }
}

TEST_F(SampleFilesTest, ReadsStandardObjects)
{
    EXPECT_EQ(root("keyed/nskeyed_nsData.plist").toData(), "Some data!");
    EXPECT_TRUE(root("keyed/nskeyed_nsData.plist").isMutable());
    const ArchiveValue dictionary = root("keyed/nskeyed_simpleDict.plist");
    EXPECT_EQ(dictionary.valueForKey(QStringLiteral("First key")).toText(), QStringLiteral("First value"));
    EXPECT_EQ(dictionary.valueForKey(QStringLiteral("Array key")).elements()[2].toInt64(), 3);
    const ArchiveValue settings = root("keyed/libnska_setconfig_mutabledict.bplist");
    EXPECT_EQ(settings.valueForKey(QStringLiteral("ur")).toInt64(), 500);
    const ArchiveValue complex = root("keyed/swift_ComplexTest.plist");
    EXPECT_EQ(complex.valueForKey(QStringLiteral("string")).toText(), QStringLiteral("hello"));
    EXPECT_EQ(complex.valueForKey(QStringLiteral("uuid")).toUnknown()->classNames.value(0),
              QStringLiteral("NSUUID"));
    EXPECT_EQ(complex.valueForKey(QStringLiteral("array")).elements()[0].toUnknown()->classNames.value(0),
              QStringLiteral("NSNull"));
}

TEST_F(SampleFilesTest, ReadsObjectsOfUnknownClasses)
{
    const ArchiveValue note = root("keyed/nskeyed_note.plist");
    ASSERT_TRUE(note.toUnknown());
    EXPECT_EQ(note.toUnknown()->classNames.value(0), QStringLiteral("Note"));
    EXPECT_EQ(note.toUnknown()->referenceForKey(QStringLiteral("author")).toText(),
              QStringLiteral("Michael Wright"));
    EXPECT_EQ(note.toUnknown()->fieldForKey(QStringLiteral("date"))->plain, QVariant(2025));
    EXPECT_EQ(note.toUnknown()->referenceForKey(QStringLiteral("array")).elements()[1].toInt64(), 42);

    const ArchiveValue text = root("keyed/nskeyed_NSMutableAttributedString.plist");
    EXPECT_EQ(text.toUnknown()->referenceForKey(QStringLiteral("NSString")).toText(),
              QStringLiteral("firstsecondthird"));

    const ArchiveValue url = root("keyed/swift_URLTest.plist");
    EXPECT_EQ(url.toUnknown()->referenceForKey(QStringLiteral("NS.relative")).toText(),
              QStringLiteral("foo.xml"));

    const ArchiveValue formatter = root("keyed/swift_DateIntervalFormatter_NSDate.archive");
    const ArchiveValue calendar = formatter.toUnknown()->referenceForKey(QStringLiteral("NS.calendar"));
    EXPECT_EQ(calendar.toUnknown()->referenceForKey(QStringLiteral("NS.gstartdate")).toDate(),
              QDateTime(QDate(1582, 10, 15), QTime(0, 0), Qt::UTC));
}

TEST_F(SampleFilesTest, AListThatHoldsItselfEnds)
{
    const ArchiveValue list = root("keyed/nskeyed_circularReference.plist");
    ASSERT_EQ(list.elements().size(), 1);
    EXPECT_TRUE(list.elements()[0].isNull());
}

TEST_F(SampleFilesTest, APlainPropertyListIsNoArchive)
{
    EXPECT_TRUE(platform::readPropertyList(path("keyed/Dracula.itermcolors")));
    EXPECT_THROW((void)root("keyed/Dracula.itermcolors"), platform::InvalidArchive);
}

TEST_F(SampleFilesTest, ReadsTheColoursOfTerminalProfiles)
{
    int colors = 0;
    for (const char* name : {"keyed/Dracula.terminal", "keyed/Nord.terminal"}) {
        const QVariantMap profile = platform::readPropertyList(path(name)).value_or(QVariant()).toMap();
        for (auto entry = profile.begin(); entry != profile.end(); ++entry) {
            if (entry->typeId() != QMetaType::QByteArray)
                continue;
            const bool isColor = entry.key().endsWith(QLatin1String("Color"));
            EXPECT_EQ(platform::colorFromArchiveData(entry->toByteArray()).has_value(), isColor)
                << qPrintable(entry.key());
            colors += isColor;
        }
    }
    EXPECT_GE(colors, 38);

    const QVariantMap dracula = platform::readPropertyList(path("keyed/Dracula.terminal"))->toMap();
    const auto black =
        platform::colorFromArchiveData(dracula.value(QStringLiteral("ANSIBlackColor")).toByteArray());
    EXPECT_EQ(black, (platform::ColorData{0.1568627451, 0.1647058824, 0.2117647059, 1,
                                          platform::ColorData::Space::DeviceRgb}));
    const auto green =
        platform::colorFromArchiveData(dracula.value(QStringLiteral("ANSIBrightGreenColor")).toByteArray());
    EXPECT_EQ(green, (platform::ColorData{0.3529411765, 0.968627451, 0.5568627451, 1,
                                          platform::ColorData::Space::CalibratedRgb}));
}

TEST_F(SampleFilesTest, ReadsAColourOfACustomSpace)
{
    const ArchiveValue text = root("keyed/nskeyed_NSMutableAttributedString.plist");
    const ArchiveValue runs = text.toUnknown()->referenceForKey(QStringLiteral("NSAttributes"));
    const ArchiveValue color = runs.elements()[0].valueForKey(QStringLiteral("NSColor"));
    EXPECT_EQ(platform::colorFromArchivedObject(color),
              (platform::ColorData{1, 0, 0, 1, platform::ColorData::Space::DeviceRgb}));
}

TEST_F(SampleFilesTest, ReadsEveryColourOfAColourList)
{
    const auto stream = platform::TypedStream::fromData(bytes("typed/Emacs.clr"));
    ASSERT_TRUE(stream);
    const auto colors = stream->namedColors();
    ASSERT_EQ(colors.size(), 752);
    EXPECT_EQ(colors[0].first, QStringLiteral("LightGreen"));
    EXPECT_NEAR(colors[0].second.components[0], 144 / 255.0, 1e-6);
    EXPECT_NEAR(colors[0].second.components[1], 238 / 255.0, 1e-6);
    EXPECT_EQ(colors[0].second.components[3], 1);
    const auto red = std::find_if(colors.begin(), colors.end(),
                                  [](const auto& color) { return color.first == QLatin1String("red"); });
    ASSERT_NE(red, colors.end());
    EXPECT_EQ(red->second.components, (std::vector<double>{1, 0, 0, 1}));
    EXPECT_EQ(red->second.space, platform::TypedStreamColor::Space::CalibratedRgb);
}

TEST_F(SampleFilesTest, DamagedSamplesEndInAnErrorOrAValue)
{
    std::mt19937 random(2);
    int readable = 0;
    for (const char* name : {"typed/Emacs.clr", "keyed/nskeyed_note.plist", "keyed/swift_URLTest.plist",
                             "keyed/swift_ComplexTest.plist"}) {
        const QByteArray whole = bytes(name).left(3000);
        for (int round = 0; round < 2000; ++round) {
            QByteArray damaged =
                round % 2 ? whole : whole.left(qsizetype(random() % std::size_t(whole.size())));
            for (int change = 0; change < 2 && !damaged.isEmpty(); ++change)
                damaged[qsizetype(random() % std::size_t(damaged.size()))] = char(random());
            readable += platform::TypedStream::fromData(damaged).has_value();
            readable += KeyedUnarchiver::unarchivedRootObject(damaged).has_value();
        }
    }
    EXPECT_GT(readable, 0);
}

TEST_F(SampleFilesTest, ReadsBookmarkFiles)
{
    const QDir links(directory() + QStringLiteral("/links"));
    const QStringList names = links.entryList({QStringLiteral("*.webloc")}, QDir::Files);
    EXPECT_EQ(names.size(), 6);
    for (const QString& name : names) {
        const auto list = platform::readPropertyList(links.filePath(name));
        ASSERT_TRUE(list) << qPrintable(name);
        const QVariant url = list->toMap().value(QStringLiteral("URL"));
        EXPECT_EQ(url.typeId(), QMetaType::QString) << qPrintable(name);
        // The template's address is a placeholder.
        EXPECT_EQ(url.toString().startsWith(QLatin1String("http")),
                  !name.contains(QLatin1String("template")));
    }
    EXPECT_FALSE(platform::readPropertyList(links.filePath(QStringLiteral("._tischda_appledouble.webloc"))));
}

TEST_F(SampleFilesTest, ReadsWebArchives)
{
    const QDir archives(directory() + QStringLiteral("/webarchive"));
    const QStringList names = archives.entryList({QStringLiteral("*.webarchive")}, QDir::Files);
    EXPECT_EQ(names.size(), 6);
    for (const QString& name : names) {
        const auto list = platform::readPropertyList(archives.filePath(name));
        ASSERT_TRUE(list) << qPrintable(name);
        EXPECT_TRUE(list->toMap().contains(QStringLiteral("WebMainResource"))) << qPrintable(name);
        for (const auto format : {platform::PropertyListFormat::Xml, platform::PropertyListFormat::Binary}) {
            const auto data = platform::propertyListData(*list, format);
            ASSERT_TRUE(data);
            EXPECT_EQ(platform::propertyListFromData(*data), list) << qPrintable(name);
        }
    }
}

} // namespace
