// SPDX-License-Identifier: MIT
#include "platform/propertylist/XmlPropertyListStream.h"

#include "platform/propertylist/PropertyList.h"
#include "platform/propertylist/PropertyListError.h"
#include "support/ScratchFolder.h"
#include "support/SmallVolume.h"

#include <QDateTime>

#include <functional>

namespace {

using platform::Error;
using platform::PropertyListErrorCode;
using platform::PropertyListFormat;
using platform::XmlPropertyListStream;

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

// A tmpfs gives whole pages, so the last page that there is room for tells how large a file may be.
constexpr qint64 volumeSize = 64 * 1024;

TEST(XmlPropertyListStreamTest, WritesTheBytesOfAListWrittenWhole)
{
    const test::ScratchFolder scratch;
    const QVariantMap inner{{text("date"), QDateTime(QDate(2019, 3, 4), QTime(5, 6, 7), Qt::UTC)},
                            {text("list"), QVariantList{1, 2.5, QByteArray("bytes"), QVariantMap{}}},
                            {text("text"), text("a < b\r& \xe6\x97\xa5")}};
    const QVariantMap whole{{text("array"), QVariantList{true, inner, QVariantList{}}}, {text("b & c"), inner}, {text("z"), QVariantMap{}}};

    XmlPropertyListStream list(scratch.filePath("list.plist"));
    list.beginDictionary();
    list.writeKey(text("array"));
    list.beginArray();
    list.writeValue(true);
    list.writeValue(inner);
    list.beginArray();
    list.endArray();
    list.endArray();
    list.writeKey(text("b & c"));
    list.beginDictionary();
    for (auto entry = inner.cbegin(); entry != inner.cend(); ++entry) {
        list.writeKey(entry.key());
        list.writeValue(entry.value());
    }
    list.endDictionary();
    list.writeKey(text("z"));
    list.beginDictionary();
    list.endDictionary();
    list.endDictionary();
    Error error;
    ASSERT_TRUE(list.commit(&error)) << qPrintable(error.description());
    EXPECT_TRUE(error.isNull());
    EXPECT_EQ(scratch.read(text("list.plist")), platform::propertyListData(whole, PropertyListFormat::Xml));
    EXPECT_EQ(scratch.tree(), QStringList{text("list.plist")});
}

TEST(XmlPropertyListStreamTest, ARootMayBeAnyValue)
{
    const test::ScratchFolder scratch;
    XmlPropertyListStream list(scratch.filePath("list.plist"));
    list.writeValue(text("alone"));
    ASSERT_TRUE(list.commit());
    EXPECT_EQ(platform::readPropertyList(scratch.filePath("list.plist")), QVariant(text("alone")));
}

TEST(XmlPropertyListStreamTest, UntilTheCommitWhatWasThereStays)
{
    const test::ScratchFolder scratch;
    const QString path = scratch.write(text("list.plist"), "before");
    {
        XmlPropertyListStream list(path);
        list.writeValue(1);
        EXPECT_EQ(scratch.read(text("list.plist")), "before");
    }
    EXPECT_EQ(scratch.read(text("list.plist")), "before");
    EXPECT_EQ(scratch.tree(), QStringList{text("list.plist")});
}

TEST(XmlPropertyListStreamTest, ElementsOutOfOrderAreAnErrorAndLeaveNoFile)
{
    using Steps = std::function<void(XmlPropertyListStream&)>;
    const QList<Steps> mistakes = {
        [](auto&) {},
        [](auto& list) { list.writeValue(1), list.writeValue(2); },
        [](auto& list) { list.beginDictionary(), list.writeValue(1), list.endDictionary(); },
        [](auto& list) { list.beginDictionary(), list.beginArray(), list.endArray(), list.endDictionary(); },
        [](auto& list) { list.beginDictionary(), list.writeKey(text("a")), list.endDictionary(); },
        [](auto& list) { list.beginDictionary(), list.writeKey(text("a")), list.writeKey(text("b")), list.writeValue(1), list.endDictionary(); },
        [](auto& list) { list.beginArray(), list.writeKey(text("a")), list.writeValue(1), list.endArray(); },
        [](auto& list) { list.writeKey(text("a")), list.writeValue(1); },
        [](auto& list) { list.beginArray(), list.endDictionary(); },
        [](auto& list) { list.writeValue(1), list.endArray(); },
        [](auto& list) { list.beginArray(); },
    };
    for (qsizetype number = 0; number < mistakes.size(); ++number) {
        const test::ScratchFolder scratch;
        XmlPropertyListStream list(scratch.filePath("list.plist"));
        mistakes[number](list);
        Error error;
        EXPECT_FALSE(list.commit(&error)) << number;
        EXPECT_EQ(error.code(), qint64(PropertyListErrorCode::WriteInvalid));
        EXPECT_FALSE(QFileInfo::exists(scratch.filePath("list.plist")));
    }
}

TEST(XmlPropertyListStreamTest, AValueThatHasNoPlaceInAListIsAnErrorThatLasts)
{
    const test::ScratchFolder scratch;
    XmlPropertyListStream list(scratch.filePath("list.plist"));
    list.beginArray();
    EXPECT_FALSE(list.hasFailed());
    list.writeValue(QVariantList{QVariant()});
    EXPECT_TRUE(list.hasFailed());
    list.writeValue(1);
    list.endArray();
    Error error;
    EXPECT_FALSE(list.commit(&error));
    EXPECT_EQ(error.code(), qint64(PropertyListErrorCode::WriteInvalid));
}

TEST(XmlPropertyListStreamTest, NestsAsDeepAsAListWrittenWhole)
{
    const test::ScratchFolder scratch;
    for (const int depth : {512, 513}) {
        XmlPropertyListStream list(scratch.filePath("list.plist"));
        for (int level = 0; level < depth; ++level)
            list.beginArray();
        for (int level = 0; level < depth; ++level)
            list.endArray();
        EXPECT_EQ(list.commit(), depth == 512);
    }
}

TEST(XmlPropertyListStreamTest, AFileThatCannotBeMadeIsAnError)
{
    const test::ScratchFolder scratch;
    XmlPropertyListStream list(scratch.filePath("no/such/folder/list.plist"));
    list.writeValue(1);
    Error error;
    EXPECT_FALSE(list.commit(&error));
    EXPECT_EQ(error.code(), qint64(PropertyListErrorCode::FileWrite));
    EXPECT_FALSE(error.localizedDescription().isEmpty());
}

// From lists that fail in the middle to lists whose last buffer alone does not fit any more.
TEST(XmlPropertyListStreamTest, AFullDiskIsAnErrorWhereverItHappensAndLeavesNoFile)
{
    const test::SmallVolume volume(volumeSize);
    if (!volume.isMounted())
        GTEST_SKIP() << "no volume can be mounted here";
    int written = 0;
    int refused = 0;
    for (qint64 size = volumeSize - 24 * 1024; size <= volumeSize + 40 * 1024; size += 512) {
        XmlPropertyListStream list(volume.filePath(text("list.plist")));
        list.beginArray();
        for (qint64 total = 0; total < size; total += 128)
            list.writeValue(QString(128 - 19, QLatin1Char('x')));
        list.endArray();
        Error error;
        if (list.commit(&error)) {
            ++written;
            EXPECT_TRUE(test::readFile(volume.filePath(text("list.plist"))).trimmed().endsWith("</plist>")) << size;
            QFile::remove(volume.filePath(text("list.plist")));
        } else {
            ++refused;
            EXPECT_EQ(error.code(), qint64(PropertyListErrorCode::FileWrite));
            EXPECT_TRUE(volume.folder().tree().isEmpty()) << size;
        }
    }
    EXPECT_GT(written, 0);
    EXPECT_GT(refused, 0);
}

TEST(XmlPropertyListStreamTest, AListWrittenWholeFailsOnAFullDiskToo)
{
    const test::SmallVolume volume(volumeSize);
    if (!volume.isMounted())
        GTEST_SKIP() << "no volume can be mounted here";
    const QString path = volume.folder().write(text("list.plist"), "before");
    for (const PropertyListFormat format : {PropertyListFormat::Xml, PropertyListFormat::Binary}) {
        // A filler leaves the list less room than a file's buffer holds, so that it fails at the flush.
        const QString filler = volume.folder().write(text("filler"), QByteArray(volumeSize - 12 * 1024, 'x'));
        Error error;
        EXPECT_FALSE(platform::writePropertyList(path, QString(15000, QLatin1Char('y')), format, &error));
        EXPECT_EQ(error.code(), qint64(PropertyListErrorCode::FileWrite));
        EXPECT_EQ(test::readFile(path), "before");
        EXPECT_EQ(volume.folder().tree(), QStringList({text("filler"), text("list.plist")}));
        QFile::remove(filler);
    }
}

} // namespace
