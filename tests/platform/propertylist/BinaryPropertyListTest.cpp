// SPDX-License-Identifier: MIT
#include "platform/propertylist/PropertyList.h"

#include "HandmadePropertyLists.h"

#include <random>

namespace {

using platform::PropertyListFormat;
using test::bigEndian;
using test::binaryPropertyList;

QByteArray written(const QVariant& value)
{
    return platform::propertyListData(value, PropertyListFormat::Binary).value_or(QByteArray());
}

TEST(BinaryPropertyListTest, KeepsTheWidthOfReals)
{
    const QByteArray bytes = written(QVariantList{0.5f, 0.5});
    EXPECT_TRUE(bytes.contains(QByteArray::fromHex("223f000000")));
    EXPECT_TRUE(bytes.contains(QByteArray::fromHex("233fe0000000000000")));
    const QVariantList read = platform::propertyListFromData(bytes)->toList();
    EXPECT_EQ(read[0].typeId(), QMetaType::Float);
    EXPECT_EQ(read[1].typeId(), QMetaType::Double);
}

TEST(BinaryPropertyListTest, HasTheDocumentedLayout)
{
    const QByteArray expected = QByteArray("bplist00") + QByteArray::fromHex("d101025161")
                                + QByteArray::fromHex("10ff") + QByteArray::fromHex("080b0d")
                                + QByteArray::fromHex("000000000000") + "\x01\x01" + bigEndian(3, 8)
                                + bigEndian(0, 8) + bigEndian(15, 8);
    EXPECT_EQ(written(QVariantMap{{QStringLiteral("a"), 255}}), expected);
}

TEST(BinaryPropertyListTest, WritesEqualScalarsOnce)
{
    const QString text(100, u'x');
    EXPECT_EQ(written(QVariantList{text, text, text}).count(text.toLatin1()), 1);
}

TEST(BinaryPropertyListTest, WritesManyObjectsWithWiderReferences)
{
    for (const int count : {250, 300, 70000}) {
        QVariantList list;
        for (int value = 0; value < count; ++value)
            list += value;
        EXPECT_EQ(platform::propertyListFromData(written(list)), QVariant(list));
    }
}

TEST(BinaryPropertyListTest, KeepsFractionsOfASecond)
{
    const QDateTime date(QDate(2018, 3, 9), QTime(1, 2, 3, 456), Qt::UTC);
    EXPECT_EQ(platform::propertyListFromData(written(date)), QVariant(date));
}

TEST(BinaryPropertyListTest, KeepsControlCharacters)
{
    const QString text = QStringLiteral("a\u0001\ufffe") + QChar(u'\0');
    EXPECT_EQ(platform::propertyListFromData(written(text)), QVariant(text));
}

TEST(BinaryPropertyListTest, ReadsLongIntegers)
{
    const QByteArray wide = QByteArray::fromHex("14");
    EXPECT_EQ(platform::propertyListFromData(binaryPropertyList({wide + bigEndian(0, 8) + bigEndian(5, 8)})),
              QVariant(5));
    const QByteArray minusTwo = wide + QByteArray(15, '\xFF') + '\xFE';
    EXPECT_EQ(platform::propertyListFromData(binaryPropertyList({minusTwo})), QVariant(-2));
    EXPECT_FALSE(
        platform::propertyListFromData(binaryPropertyList({wide + bigEndian(1, 8) + bigEndian(0, 8)})));
}

TEST(BinaryPropertyListTest, RefusesObjectsThatHoldThemselves)
{
    EXPECT_FALSE(platform::propertyListFromData(binaryPropertyList({QByteArray::fromHex("a100")})));
    EXPECT_FALSE(platform::propertyListFromData(binaryPropertyList(
        {QByteArray::fromHex("a101"), QByteArray::fromHex("a102"), QByteArray::fromHex("a101")})));
    EXPECT_FALSE(platform::propertyListFromData(binaryPropertyList({QByteArray::fromHex("d10100"), "Qa"})));
}

TEST(BinaryPropertyListTest, RefusesSharingThatUnfoldsWithoutEnd)
{
    std::vector<QByteArray> objects;
    for (int level = 1; level <= 60; ++level)
        objects.push_back(QByteArray::fromHex("a2") + char(level) + char(level));
    objects.push_back("Qx");
    EXPECT_FALSE(platform::propertyListFromData(binaryPropertyList(objects)));
}

TEST(BinaryPropertyListTest, TakesModestSharing)
{
    const auto read = platform::propertyListFromData(
        binaryPropertyList({QByteArray::fromHex("a3010101"), QByteArray::fromHex("a20202"), "Qx"}));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->toList().size(), 3);
    EXPECT_EQ(read->toList()[2], QVariant(QVariantList{QStringLiteral("x"), QStringLiteral("x")}));
}

TEST(BinaryPropertyListTest, RefusesADepthBomb)
{
    const int depth = 200'000;
    QByteArray bodies;
    std::vector<quint64> offsets;
    for (int level = 1; level <= depth; ++level) {
        offsets.push_back(quint64(bodies.size()));
        bodies += QByteArray::fromHex("a1") + bigEndian(quint64(level), 4);
    }
    offsets.push_back(quint64(bodies.size()));
    bodies += "Qx";
    EXPECT_FALSE(platform::propertyListFromData(binaryPropertyList(bodies, offsets, 4)));
}

// Every object claims the same bytes: reading them all would take the square of the size.
TEST(BinaryPropertyListTest, RefusesOverlappingObjects)
{
    const int count = 30'000;
    QByteArray references;
    for (int index = 0; index < count; ++index)
        references += bigEndian(quint64(index + 1), 4);
    QByteArray bodies = QByteArray::fromHex("af12") + bigEndian(quint64(count), 4) + references;
    const quint64 dataOffset = quint64(bodies.size());
    bodies += QByteArray::fromHex("4f12") + bigEndian(quint64(count), 4) + QByteArray(count, 'x');
    std::vector<quint64> offsets(count + 1, dataOffset);
    offsets[0] = 0;
    EXPECT_FALSE(platform::propertyListFromData(binaryPropertyList(bodies, offsets, 4)));
}

TEST(BinaryPropertyListTest, RefusesSizesThatAreNotThere)
{
    for (const char* object : {"4f13ffffffffffffffff",
                               "5f137fffffffffffffff",
                               "6f138000000000000000",
                               "af13ffffffffffffffff",
                               "df134000000000000000",
                               "4f1200ffffff",
                               "4f23",
                               "4f",
                               "15",
                               "24",
                               "3300",
                               "87",
                               "a105",
                               "d10001",
                               "00",
                               "0f",
                               "c100",
                               "70",
                               "90",
                               "e0"})
        EXPECT_FALSE(platform::propertyListFromData(binaryPropertyList({QByteArray::fromHex(object)})))
            << object;
}

TEST(BinaryPropertyListTest, RefusesKeysThatAreNoText)
{
    EXPECT_FALSE(platform::propertyListFromData(
        binaryPropertyList({QByteArray::fromHex("d10101"), QByteArray::fromHex("1001")})));
}

TEST(BinaryPropertyListTest, RefusesDatesBeyondAnyCalendar)
{
    for (const char* object : {"337ff8000000000000", "337ff0000000000000", "337e37e43c8800759c"})
        EXPECT_FALSE(platform::propertyListFromData(binaryPropertyList({QByteArray::fromHex(object)})))
            << object;
}

TEST(BinaryPropertyListTest, RefusesDamagedTrailers)
{
    const QByteArray whole = written(QVariantList{1, QStringLiteral("text")});
    const qsizetype trailer = whole.size() - 32;
    for (const auto& [offset, value] : {std::pair{6, 0},
                                        {6, 9},
                                        {7, 0},
                                        {7, 9},
                                        {8, 0xFF},
                                        {15, 0xFF},
                                        {16, 0xFF},
                                        {23, 3},
                                        {24, 0xFF},
                                        {31, 0xFF},
                                        {31, 0}}) {
        QByteArray damaged = whole;
        damaged[trailer + offset] = char(value);
        EXPECT_FALSE(platform::propertyListFromData(damaged)) << offset << " " << value;
    }
}

TEST(BinaryPropertyListTest, SurvivesEveryTruncationAndRandomDamage)
{
    const QVariantMap map{{QStringLiteral("list"),
                           QVariantList{1, -1, 0.5, 0.5f, QByteArray(40, 'd'), QStringLiteral("\u4e2d")}},
                          {QStringLiteral("date"), QDateTime(QDate(2018, 3, 9), QTime(0, 0), Qt::UTC)}};
    const QByteArray whole = written(map);
    // Fewer bytes than the format's name are a word of the text form.
    for (qsizetype size = 6; size < whole.size(); ++size)
        EXPECT_FALSE(platform::propertyListFromData(whole.first(size))) << size;
    std::mt19937 random(1);
    int readable = 0;
    for (int round = 0; round < 20'000; ++round) {
        QByteArray damaged = whole;
        for (int change = 0; change < 3; ++change)
            damaged[qsizetype(random() % std::size_t(damaged.size()))] = char(random());
        const auto read = platform::propertyListFromData(damaged);
        // What can be read can be written again, so it holds nothing but values of property lists.
        if (read) {
            ++readable;
            EXPECT_TRUE(platform::propertyListData(*read, PropertyListFormat::Binary));
        }
    }
    EXPECT_GT(readable, 0);
}

} // namespace
