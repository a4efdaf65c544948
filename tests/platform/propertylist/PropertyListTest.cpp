// SPDX-License-Identifier: MIT
#include "platform/propertylist/PropertyList.h"

#include "platform/propertylist/PropertyListError.h"
#include "support/ScratchFolder.h"

#include <QRectF>

#include <cmath>
#include <limits>

namespace {

using platform::Error;
using platform::PropertyListFormat;
using platform::PropertyListUid;

class PropertyListFormatsTest : public ::testing::TestWithParam<PropertyListFormat> {
protected:
    static QVariant roundTrip(const QVariant& value)
    {
        Error error;
        const auto data = platform::propertyListData(value, GetParam(), &error);
        EXPECT_TRUE(data) << qPrintable(error.description());
        const auto read = data ? platform::propertyListFromData(*data, &error) : std::nullopt;
        EXPECT_TRUE(read) << qPrintable(error.description());
        return read.value_or(QVariant());
    }

    static void expectKept(const QVariant& value, int typeId)
    {
        const QVariant read = roundTrip(value);
        EXPECT_EQ(read.typeId(), typeId) << read.typeName();
        EXPECT_EQ(read, value);
    }

    static void expectRefused(const QVariant& value)
    {
        Error error;
        EXPECT_FALSE(platform::propertyListData(value, GetParam(), &error));
        EXPECT_EQ(error.domain(), QStringLiteral("NSCocoaErrorDomain"));
        EXPECT_EQ(error.code(), qint64(platform::PropertyListErrorCode::WriteInvalid));
    }

    static QVariant nested(int depth)
    {
        QVariant value = QStringLiteral("core");
        for (int level = 0; level < depth; ++level)
            value = QVariantList{value};
        return value;
    }
};

INSTANTIATE_TEST_SUITE_P(, PropertyListFormatsTest,
                         ::testing::Values(PropertyListFormat::Xml, PropertyListFormat::Binary),
                         [](const auto& parameter) {
                             return parameter.param == PropertyListFormat::Xml ? "Xml" : "Binary";
                         });

TEST_P(PropertyListFormatsTest, KeepsIntegersOfEverySizeAndSign)
{
    constexpr qint64 values[] = {0,
                                 1,
                                 127,
                                 128,
                                 255,
                                 256,
                                 65535,
                                 65536,
                                 4294967295,
                                 4294967296,
                                 -1,
                                 -5,
                                 -128,
                                 -129,
                                 std::numeric_limits<qint64>::max(),
                                 std::numeric_limits<qint64>::min()};
    for (const qint64 value : values)
        expectKept(qlonglong(value), QMetaType::LongLong);
    expectKept(qulonglong(std::numeric_limits<quint64>::max()), QMetaType::ULongLong);
    expectKept(qulonglong(9223372036854775808u), QMetaType::ULongLong);
}

TEST_P(PropertyListFormatsTest, TakesEveryIntegerType)
{
    const QVariant values[] = {QVariant(-7),
                               QVariant(7u),
                               QVariant::fromValue(short(-7)),
                               QVariant::fromValue(ushort(7)),
                               QVariant::fromValue(7l),
                               QVariant::fromValue(7ul),
                               QVariant(qulonglong(7))};
    for (const QVariant& value : values)
        expectKept(value, QMetaType::LongLong);
}

TEST_P(PropertyListFormatsTest, KeepsReals)
{
    for (const double value : {0.0, 0.5, -1.0 / 3, 1e300, 5e-324, 12.0, 123456789.123456789})
        expectKept(value, QMetaType::Double);
    EXPECT_EQ(roundTrip(0.1f).toDouble(), double(0.1f));
    EXPECT_TRUE(std::isnan(roundTrip(std::nan("")).toDouble()));
    EXPECT_EQ(roundTrip(std::numeric_limits<double>::infinity()).toDouble(),
              std::numeric_limits<double>::infinity());
    EXPECT_EQ(roundTrip(-std::numeric_limits<double>::infinity()).toDouble(),
              -std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::signbit(roundTrip(-0.0).toDouble()));
}

TEST_P(PropertyListFormatsTest, KeepsBooleansApartFromNumbers)
{
    const QVariantList list{true, 1, 1.0, false, 0, QStringLiteral("1")};
    const QVariantList read = roundTrip(list).toList();
    ASSERT_EQ(read.size(), list.size());
    EXPECT_EQ(read[0].typeId(), QMetaType::Bool);
    EXPECT_EQ(read[1].typeId(), QMetaType::LongLong);
    EXPECT_EQ(read[2].typeId(), QMetaType::Double);
    EXPECT_EQ(read[3].typeId(), QMetaType::Bool);
    EXPECT_EQ(read[4].typeId(), QMetaType::LongLong);
    EXPECT_EQ(read[5].typeId(), QMetaType::QString);
}

TEST_P(PropertyListFormatsTest, KeepsTextsOfEveryKind)
{
    const QString texts[] = {QString(),
                             QStringLiteral("plain"),
                             QStringLiteral("<a href=\"b\">&amp;'</a> ]]>"),
                             QStringLiteral("  blanks  "),
                             QStringLiteral("tab\tline\nreturn\rboth\r\n"),
                             QStringLiteral("\u00e4\u4e2d\u0000\u0416").remove(QChar(u'\0')),
                             QString::fromUtf8("\xF0\x9F\x8E\x89 pair"),
                             QString(70000, QChar(0x4e2d))};
    for (const QString& text : texts)
        expectKept(text, QMetaType::QString);
}

TEST_P(PropertyListFormatsTest, KeepsData)
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += char(byte);
    for (const QByteArray& data :
         {QByteArray(), QByteArray("\0", 1), QByteArray("ab"), bytes, bytes.repeated(300)})
        expectKept(data, QMetaType::QByteArray);
}

TEST_P(PropertyListFormatsTest, KeepsDatesInUtc)
{
    const QDateTime date(QDate(2013, 4, 12), QTime(9, 30, 15), Qt::UTC);
    expectKept(date, QMetaType::QDateTime);
    expectKept(QDateTime(QDate(1999, 12, 31), QTime(23, 59, 59), Qt::UTC), QMetaType::QDateTime);
    expectKept(QDateTime(QDate(1, 1, 1), QTime(0, 0), Qt::UTC), QMetaType::QDateTime);
    expectKept(QDateTime(QDate(4001, 1, 1), QTime(0, 0), Qt::UTC), QMetaType::QDateTime);
    const QDateTime elsewhere(QDate(2013, 4, 12), QTime(11, 30, 15), Qt::OffsetFromUTC, 7200);
    EXPECT_EQ(roundTrip(elsewhere).toDateTime(), date);
    EXPECT_EQ(roundTrip(elsewhere).toDateTime().timeSpec(), Qt::UTC);
}

TEST_P(PropertyListFormatsTest, KeepsContainersAndReferences)
{
    const QVariantMap map{{QStringLiteral("list"), QVariantList{1, QVariantMap{}, QVariantList{}}},
                          {QString(), QStringLiteral("empty key")},
                          {QStringLiteral("uid"), QVariant::fromValue(PropertyListUid{70000})},
                          {QStringLiteral("\u00fc<&>"), QVariantMap{{QStringLiteral("a"), QByteArray("b")}}}};
    EXPECT_EQ(roundTrip(map), QVariant(map));
}

TEST_P(PropertyListFormatsTest, TakesTheContainersOfQt)
{
    const QStringList strings{QStringLiteral("a"), QStringLiteral("b")};
    EXPECT_EQ(roundTrip(strings).toList(), (QVariantList{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(roundTrip(QVariant::fromValue(QList<int>{3, -4})).toList(), (QVariantList{3, -4}));
    const QVariantHash hash{{QStringLiteral("x"), 1}, {QStringLiteral("y"), strings}};
    EXPECT_EQ(roundTrip(hash).toMap().value(QStringLiteral("y")).toList().size(), 2);
    const QMap<QString, QString> map{{QStringLiteral("k"), QStringLiteral("v")}};
    EXPECT_EQ(roundTrip(QVariant::fromValue(map)),
              QVariant(QVariantMap{{QStringLiteral("k"), QStringLiteral("v")}}));
}

TEST_P(PropertyListFormatsTest, RefusesWhatPropertyListsDoNotHave)
{
    expectRefused(QVariant());
    expectRefused(QVariant(QRectF(0, 0, 1, 1)));
    expectRefused(QVariant(QUrl(QStringLiteral("http://a"))));
    expectRefused(QVariant(QDateTime()));
    expectRefused(QVariantMap{{QStringLiteral("a"), QVariantList{QVariant()}}});
    expectRefused(QVariant::fromValue(QMap<int, QString>{{1, QStringLiteral("a")}}));
    expectRefused(QVariant::fromValue(nullptr));
}

TEST_P(PropertyListFormatsTest, NestsToTheLimitAndNoFurther)
{
    EXPECT_EQ(roundTrip(nested(512)), nested(512));
    expectRefused(nested(513));
}

TEST_P(PropertyListFormatsTest, ReplacesUnpairedSurrogatesWithoutChangingLengths)
{
    const QString broken =
        QString(QChar(0xD83D)) + QStringLiteral("x") + QChar(0xDE00) + QChar(0xD83D) + QChar(0xDE00);
    const QString kept =
        QString(QChar(0xFFFD)) + QStringLiteral("x") + QChar(0xFFFD) + QChar(0xD83D) + QChar(0xDE00);
    EXPECT_EQ(roundTrip(broken), QVariant(kept));
    expectRefused(QVariantMap{{QString(QChar(0xD83D)), 1}, {QString(QChar(0xDE00)), 2}});
}

TEST_P(PropertyListFormatsTest, TheSameValueGivesTheSameBytes)
{
    QVariantHash hash;
    for (int key = 0; key < 50; ++key)
        hash.insert(QString::number(key), key);
    QVariantHash reversed;
    for (int key = 49; key >= 0; --key)
        reversed.insert(QString::number(key), key);
    EXPECT_EQ(platform::propertyListData(hash, GetParam()), platform::propertyListData(reversed, GetParam()));
}

TEST(PropertyListTest, NothingAndNonsenseAreErrors)
{
    for (const char* data :
         {"", " \n", "bplist00", "bplist", "<?xml version=\"1.0\"?>", "<plist/>", "{", "\xFF\xFF"}) {
        Error error;
        EXPECT_FALSE(platform::propertyListFromData(data, &error)) << data;
        EXPECT_EQ(error.code(), qint64(platform::PropertyListErrorCode::ReadCorrupt)) << data;
        EXPECT_FALSE(error.localizedDescription().isEmpty());
    }
}

TEST(PropertyListTest, AnErrorIsLeftAloneOnSuccess)
{
    Error error(QStringLiteral("before"), 1);
    EXPECT_TRUE(platform::propertyListFromData("{}", &error));
    EXPECT_TRUE(platform::propertyListData(QVariantMap{}, PropertyListFormat::Xml, &error));
    EXPECT_EQ(error.domain(), QStringLiteral("before"));
}

TEST(PropertyListFileTest, IsWrittenAndReadBack)
{
    const test::ScratchFolder scratch;
    const QVariantMap map{{QStringLiteral("a"), 1}};
    for (const auto format : {PropertyListFormat::Xml, PropertyListFormat::Binary}) {
        ASSERT_TRUE(platform::writePropertyList(scratch.filePath("file.plist"), map, format));
        EXPECT_EQ(platform::readPropertyList(scratch.filePath("file.plist")), QVariant(map));
    }
    EXPECT_EQ(scratch.tree(), QStringList{QStringLiteral("file.plist")});
}

TEST(PropertyListFileTest, AFailureLeavesTheFileAsItWas)
{
    const test::ScratchFolder scratch;
    const QString path = scratch.write(QStringLiteral("file.plist"), "{a = b;}");
    Error error;
    EXPECT_FALSE(platform::writePropertyList(path, QVariant(), PropertyListFormat::Xml, &error));
    EXPECT_EQ(scratch.read(QStringLiteral("file.plist")), "{a = b;}");
    EXPECT_FALSE(
        platform::writePropertyList(scratch.filePath("no/such/folder"), 1, PropertyListFormat::Xml, &error));
    EXPECT_EQ(error.code(), qint64(platform::PropertyListErrorCode::FileWrite));
}

TEST(PropertyListFileTest, AMissingFileSaysSo)
{
    const test::ScratchFolder scratch;
    Error error;
    EXPECT_FALSE(platform::readPropertyList(scratch.filePath("none.plist"), &error));
    EXPECT_EQ(error.code(), qint64(platform::PropertyListErrorCode::NoSuchFile));
    EXPECT_FALSE(platform::readPropertyList(scratch.path(), &error));
    EXPECT_EQ(error.code(), qint64(platform::PropertyListErrorCode::FileRead));
}

} // namespace
