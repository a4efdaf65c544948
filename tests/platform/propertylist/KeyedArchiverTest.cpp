// SPDX-License-Identifier: MIT
#include "platform/propertylist/KeyedArchiver.h"

#include "platform/propertylist/KeyedUnarchiver.h"
#include "platform/propertylist/PropertyList.h"
#include "platform/propertylist/PropertyListError.h"

namespace {

using platform::ArchiveValue;
using platform::KeyedArchiver;
using platform::KeyedCoding;
using platform::KeyedUnarchiver;
using platform::PropertyListUid;
using Mutability = ArchiveValue::Mutability;

// Encodes whatever a test wants under the class name Probe.
class Probe : public KeyedCoding {
public:
    using Encoder = std::function<void(KeyedArchiver&)>;

    explicit Probe(Encoder encoder = [](KeyedArchiver&) {})
        : m_encoder(std::move(encoder))
    {
    }

    [[nodiscard]] QStringList archivedClassNames() const override
    {
        return {QStringLiteral("Probe"), QStringLiteral("NSObject")};
    }
    void encodeWithCoder(KeyedArchiver& coder) override { m_encoder(coder); }
    void setEncoder(Encoder encoder) { m_encoder = std::move(encoder); }

private:
    Encoder m_encoder;
};

QVariantMap archiveOf(const ArchiveValue& root)
{
    const auto data = KeyedArchiver::archivedDataWithRootObject(root);
    EXPECT_TRUE(data);
    return data ? platform::propertyListFromData(*data)->toMap() : QVariantMap();
}

QVariantMap archiveOf(Probe::Encoder encoder)
{
    return archiveOf(ArchiveValue::object(std::make_shared<Probe>(std::move(encoder))));
}

QVariantList objectsOf(const QVariantMap& archive)
{
    return archive.value(QStringLiteral("$objects")).toList();
}

QVariant uid(quint32 value) { return QVariant::fromValue(PropertyListUid{value}); }

QVariantMap classRecord(const QStringList& names)
{
    QVariantList list;
    for (const QString& name : names)
        list += name;
    return {{QStringLiteral("$classname"), names[0]}, {QStringLiteral("$classes"), list}};
}

TEST(KeyedArchiverTest, HasTheHeaderOfTheFormat)
{
    const QVariantMap archive = archiveOf(ArchiveValue::string(QStringLiteral("text")));
    EXPECT_EQ(archive.value(QStringLiteral("$archiver")), QVariant(QStringLiteral("NSKeyedArchiver")));
    EXPECT_EQ(archive.value(QStringLiteral("$version")), QVariant(100000));
    EXPECT_EQ(archive.value(QStringLiteral("$top")), QVariant(QVariantMap{{QStringLiteral("root"), uid(1)}}));
    EXPECT_EQ(objectsOf(archive), (QVariantList{QStringLiteral("$null"), QStringLiteral("text")}));
}

TEST(KeyedArchiverTest, NothingIsReferenceZero)
{
    const QVariantMap archive = archiveOf(ArchiveValue());
    EXPECT_EQ(archive.value(QStringLiteral("$top")).toMap().value(QStringLiteral("root")), uid(0));
    EXPECT_EQ(objectsOf(archive).size(), 1);
}

TEST(KeyedArchiverTest, PutsValuesUnderTheirKeys)
{
    const QVariantList objects = objectsOf(archiveOf([](KeyedArchiver& coder) {
        coder.encodeInt64(-5, QStringLiteral("integer"));
        coder.encodeBool(true, QStringLiteral("bool"));
        coder.encodeBytes("bytes", QStringLiteral("bytes"));
        coder.encodeString(QStringLiteral("{5, 3}"), QStringLiteral("range"));
        coder.encodeRect(QRectF(0.5, -1, 640, 480.25), QStringLiteral("rect"));
        coder.encodeObject(ArchiveValue(), QStringLiteral("nothing"));
        coder.encodeInt64(1, QStringLiteral("$odd"));
    }));
    const QVariantMap record = objects[1].toMap();
    EXPECT_EQ(record.value(QStringLiteral("integer")), QVariant(-5));
    EXPECT_EQ(record.value(QStringLiteral("bool")).typeId(), QMetaType::Bool);
    EXPECT_EQ(record.value(QStringLiteral("bytes")), QVariant(QByteArray("bytes")));
    EXPECT_EQ(record.value(QStringLiteral("range")), uid(2));
    EXPECT_EQ(objects[2], QVariant(QStringLiteral("{5, 3}")));
    EXPECT_EQ(objects[3], QVariant(QStringLiteral("{{0.5, -1}, {640, 480.25}}")));
    EXPECT_EQ(record.value(QStringLiteral("nothing")), uid(0));
    EXPECT_EQ(record.value(QStringLiteral("$$odd")), QVariant(1));
    EXPECT_EQ(objects[4], QVariant(classRecord({QStringLiteral("Probe"), QStringLiteral("NSObject")})));
    EXPECT_EQ(record.value(QStringLiteral("$class")), uid(4));
}

TEST(KeyedArchiverTest, KeepsTheWidthOfRealsEvenWhereTheShorterWouldDo)
{
    const auto probe = std::make_shared<Probe>([](KeyedArchiver& coder) {
        coder.encodeFloat(0.5f, QStringLiteral("float"));
        coder.encodeDouble(0.5, QStringLiteral("double"));
        coder.encodeObject(ArchiveValue::floating(2.0f), QStringLiteral("floatObject"));
        coder.encodeObject(ArchiveValue::floating(2.0), QStringLiteral("doubleObject"));
    });
    const QByteArray bytes = KeyedArchiver::archivedDataWithRootObject(probe).value_or(QByteArray());
    for (const char* real : {"223f000000", "233fe0000000000000", "2240000000", "234000000000000000"})
        EXPECT_EQ(bytes.count(QByteArray::fromHex(real)), 1) << real;
}

TEST(KeyedArchiverTest, WritesTheStandardClasses)
{
    const QDateTime date(QDate(2001, 1, 2), QTime(0, 0), Qt::UTC);
    const QVariantList objects = objectsOf(archiveOf(ArchiveValue::array(
        {
            ArchiveValue::string(QStringLiteral("m"), Mutability::Mutable),
            ArchiveValue::data("plain"),
            ArchiveValue::data({}, Mutability::Mutable),
            ArchiveValue::date(date),
            ArchiveValue::dictionary({{ArchiveValue::string(QStringLiteral("k")), ArchiveValue::integer(7)}}),
            ArchiveValue::boolean(true),
        },
        Mutability::Mutable)));
    const QVariantMap root = objects[1].toMap();
    const QVariantList references = root.value(QStringLiteral("NS.objects")).toList();
    ASSERT_EQ(references.size(), 6);
    const auto objectAt = [&](int position) {
        return objects[references[position].value<PropertyListUid>().value];
    };
    const auto classAt = [&](const QVariant& record) {
        const quint32 number = record.toMap().value(QStringLiteral("$class")).value<PropertyListUid>().value;
        return objects[number]
            .toMap()
            .value(QStringLiteral("$classes"))
            .toStringList()
            .join(QLatin1Char(' '));
    };
    EXPECT_EQ(classAt(root), QStringLiteral("NSMutableArray NSArray NSObject"));
    EXPECT_EQ(objectAt(0).toMap().value(QStringLiteral("NS.string")), QVariant(QStringLiteral("m")));
    EXPECT_EQ(classAt(objectAt(0)), QStringLiteral("NSMutableString NSString NSObject"));
    EXPECT_EQ(objectAt(1), QVariant(QByteArray("plain")));
    EXPECT_EQ(objectAt(2).toMap().value(QStringLiteral("NS.data")), QVariant(QByteArray()));
    EXPECT_EQ(classAt(objectAt(2)), QStringLiteral("NSMutableData NSData NSObject"));
    EXPECT_EQ(objectAt(3).toMap().value(QStringLiteral("NS.time")), QVariant(86400.0));
    EXPECT_EQ(classAt(objectAt(3)), QStringLiteral("NSDate NSObject"));
    EXPECT_EQ(classAt(objectAt(4)), QStringLiteral("NSDictionary NSObject"));
    EXPECT_EQ(objectAt(5).typeId(), QMetaType::Bool);
}

TEST(KeyedArchiverTest, ArchivesAnObjectOnceAndSharesClassesAndTexts)
{
    const auto shared = ArchiveValue::array({}, Mutability::Mutable);
    const auto twin = ArchiveValue::array({}, Mutability::Mutable);
    const auto text = QStringLiteral("text");
    const QVariantList objects = objectsOf(archiveOf([&](KeyedArchiver& coder) {
        coder.encodeObject(ArchiveValue::array({shared, shared, twin}), QStringLiteral("list"));
        coder.encodeString(text, QStringLiteral("a"));
        coder.encodeString(text, QStringLiteral("b"));
        coder.encodeObject(ArchiveValue::integer(1), QStringLiteral("one"));
        coder.encodeObject(ArchiveValue::boolean(true), QStringLiteral("true"));
        coder.encodeObject(ArchiveValue::integer(1), QStringLiteral("another one"));
    }));
    const QVariantList list = objects[2].toMap().value(QStringLiteral("NS.objects")).toList();
    EXPECT_EQ(list[0], list[1]);
    EXPECT_NE(list[0], list[2]);
    EXPECT_EQ(objects.count(QVariant(text)), 1);
    EXPECT_EQ(objects.count(QVariant(classRecord({QStringLiteral("NSMutableArray"), QStringLiteral("NSArray"),
                                                  QStringLiteral("NSObject")}))),
              1);
    const QVariantMap record = objects[1].toMap();
    EXPECT_EQ(record.value(QStringLiteral("one")), record.value(QStringLiteral("another one")));
    EXPECT_NE(record.value(QStringLiteral("one")), record.value(QStringLiteral("true")));
}

TEST(KeyedArchiverTest, WritesCirclesAsTheyAre)
{
    const auto first = std::make_shared<Probe>();
    const auto second = std::make_shared<Probe>();
    first->setEncoder(
        [second](KeyedArchiver& coder) { coder.encodeObject(second, QStringLiteral("other")); });
    second->setEncoder([weak = std::weak_ptr<Probe>(first)](KeyedArchiver& coder) {
        coder.encodeObject(weak.lock(), QStringLiteral("other"));
    });
    const QVariantList objects = objectsOf(archiveOf(ArchiveValue::object(first)));
    EXPECT_EQ(objects[1].toMap().value(QStringLiteral("other")), uid(2));
    EXPECT_EQ(objects[2].toMap().value(QStringLiteral("other")), uid(1));
}

TEST(KeyedArchiverTest, ATopLevelCanBeFilledByHand)
{
    KeyedArchiver archiver;
    archiver.encodeObject(ArchiveValue::data({}, Mutability::Mutable), QStringLiteral("WebResourceResponse"));
    archiver.encodeBool(false, QStringLiteral("flag"));
    const auto data = archiver.finishEncoding();
    ASSERT_TRUE(data);
    const QVariantMap archive = platform::propertyListFromData(*data)->toMap();
    EXPECT_EQ(archive.value(QStringLiteral("$top")),
              QVariant(QVariantMap{{QStringLiteral("WebResourceResponse"), uid(1)},
                                   {QStringLiteral("flag"), false}}));
}

TEST(KeyedArchiverTest, RefusesWhatCannotBeArchived)
{
    platform::Error error;
    EXPECT_FALSE(KeyedArchiver::archivedDataWithRootObject(ArchiveValue::date(QDateTime()), &error));
    EXPECT_EQ(error.code(), qint64(platform::PropertyListErrorCode::WriteInvalid));
    ArchiveValue deep;
    for (int level = 0; level < 257; ++level)
        deep = ArchiveValue::array({deep});
    EXPECT_FALSE(KeyedArchiver::archivedDataWithRootObject(deep, &error));
    EXPECT_TRUE(KeyedArchiver::archivedDataWithRootObject(deep.elements()[0]));
}

TEST(ArchiveValueTest, NumbersConvertIntoEachOther)
{
    EXPECT_EQ(ArchiveValue::floating(2.9).toInt64(), 2);
    EXPECT_EQ(ArchiveValue::floating(-1e300).toInt64(), std::numeric_limits<qint64>::min());
    EXPECT_EQ(ArchiveValue::integer(3).toFloat(), 3.0f);
    EXPECT_EQ(ArchiveValue::boolean(true).toInt64(), 1);
    EXPECT_TRUE(ArchiveValue::floating(0.5f).toBool());
    EXPECT_EQ(ArchiveValue::integer(9007199254740993).toInt64(), 9007199254740993);
    EXPECT_EQ(ArchiveValue::string(QStringLiteral("3")).toInt64(), 0);
    EXPECT_EQ(ArchiveValue::integer(3).toText(), QString());
    EXPECT_FALSE(ArchiveValue().toDate().isValid());
}

TEST(ArchiveValueTest, EqualContentsAreEqualButNotTheSameObject)
{
    const auto one = ArchiveValue::array({ArchiveValue::integer(1)});
    const auto other = ArchiveValue::array({ArchiveValue::integer(1)});
    EXPECT_EQ(one, other);
    EXPECT_NE(one.identity(), other.identity());
    EXPECT_FALSE(one == ArchiveValue::array({ArchiveValue::integer(1)}, Mutability::Mutable));
    EXPECT_FALSE(ArchiveValue::integer(1) == ArchiveValue::boolean(true));
    EXPECT_FALSE(one == ArchiveValue());
    EXPECT_EQ(ArchiveValue(), ArchiveValue::object(nullptr));
}

} // namespace
