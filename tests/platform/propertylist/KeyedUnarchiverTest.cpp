// SPDX-License-Identifier: MIT
#include "platform/propertylist/KeyedUnarchiver.h"

#include "platform/propertylist/KeyedArchiver.h"
#include "platform/propertylist/PropertyList.h"
#include "platform/propertylist/PropertyListError.h"

namespace {

using platform::ArchivedClasses;
using platform::ArchivedObject;
using platform::ArchiveValue;
using platform::InvalidArchive;
using platform::KeyedArchiver;
using platform::KeyedCoding;
using platform::KeyedUnarchiver;
using platform::PropertyListUid;
using Kind = ArchiveValue::Kind;
using Mutability = ArchiveValue::Mutability;

class Person : public KeyedCoding {
public:
    [[nodiscard]] QStringList archivedClassNames() const override
    {
        return {QStringLiteral("Person"), QStringLiteral("NSObject")};
    }

    void encodeWithCoder(KeyedArchiver& coder) override
    {
        coder.encodeString(name, QStringLiteral("name"));
        coder.encodeInt64(age, QStringLiteral("age"));
        coder.encodeBool(isMember, QStringLiteral("member"));
        coder.encodeFloat(height, QStringLiteral("height"));
        coder.encodeDouble(weight, QStringLiteral("weight"));
        coder.encodeRect(frame, QStringLiteral("frame"));
        coder.encodeDate(born, QStringLiteral("born"));
        coder.encodeData(picture, QStringLiteral("picture"));
        coder.encodeBytes(key, QStringLiteral("key"));
        coder.encodeObject(friendOf, QStringLiteral("friend"));
    }

    static std::shared_ptr<KeyedCoding> fromCoder(KeyedUnarchiver& coder)
    {
        auto person = std::make_shared<Person>();
        person->name = coder.decodeString(QStringLiteral("name"));
        person->age = coder.decodeInt64(QStringLiteral("age"));
        person->isMember = coder.decodeBool(QStringLiteral("member"));
        person->height = coder.decodeFloat(QStringLiteral("height"));
        person->weight = coder.decodeDouble(QStringLiteral("weight"));
        person->frame = coder.decodeRect(QStringLiteral("frame"));
        person->born = coder.decodeDate(QStringLiteral("born"));
        person->picture = coder.decodeData(QStringLiteral("picture"));
        person->key = coder.decodeBytes(QStringLiteral("key"));
        person->friendOf = coder.decodeObjectAs<Person>(QStringLiteral("friend"));
        return person;
    }

    static ArchivedClasses classes() { return {{QStringLiteral("Person"), fromCoder}}; }

    QString name;
    qint64 age = 0;
    bool isMember = false;
    float height = 0;
    double weight = 0;
    QRectF frame;
    QDateTime born;
    QByteArray picture;
    QByteArray key;
    std::shared_ptr<Person> friendOf;
};

QVariant uid(quint32 value) { return QVariant::fromValue(PropertyListUid{value}); }

QVariantMap arrayRecord(const QVariantList& references)
{
    return {{QStringLiteral("$class"), uid(1)}, {QStringLiteral("NS.objects"), references}};
}

// An archive whose objects follow the class record of arrays, which is number 1; the root is number 2.
QByteArray archiveOf(const QVariantList& objects)
{
    const QVariantMap arrayClass{
        {QStringLiteral("$classname"), QStringLiteral("NSArray")},
        {QStringLiteral("$classes"), QStringList{QStringLiteral("NSArray"), QStringLiteral("NSObject")}}};
    const QVariantMap archive{
        {QStringLiteral("$archiver"), QStringLiteral("NSKeyedArchiver")},
        {QStringLiteral("$version"), 100000},
        {QStringLiteral("$top"), QVariantMap{{QStringLiteral("root"), uid(2)}}},
        {QStringLiteral("$objects"), QVariantList{QStringLiteral("$null"), arrayClass} + objects}};
    return platform::propertyListData(archive, platform::PropertyListFormat::Binary).value_or(QByteArray());
}

ArchiveValue rereadValue(const ArchiveValue& value)
{
    const auto data = KeyedArchiver::archivedDataWithRootObject(value);
    EXPECT_TRUE(data);
    return KeyedUnarchiver::unarchiveObjectWithData(*data);
}

TEST(KeyedUnarchiverTest, ReadsObjectsOfGivenClasses)
{
    const auto person = std::make_shared<Person>();
    person->name = QStringLiteral("Ada \u2611");
    person->age = -36;
    person->isMember = true;
    person->height = 0.1f;
    person->weight = 0.1;
    person->frame = QRectF(0.1, -2, 1e6, 0);
    person->born = QDateTime(QDate(1815, 12, 10), QTime(1, 2, 3, 500), Qt::UTC);
    person->picture = "picture";
    person->key = QByteArray("\0key", 4);
    person->friendOf = std::make_shared<Person>();
    person->friendOf->name = QStringLiteral("Charles");
    const auto data = KeyedArchiver::archivedDataWithRootObject(person);
    ASSERT_TRUE(data);
    const auto read = KeyedUnarchiver::unarchiveObjectWithData(*data, Person::classes()).objectAs<Person>();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->name, person->name);
    EXPECT_EQ(read->age, -36);
    EXPECT_TRUE(read->isMember);
    EXPECT_EQ(read->height, 0.1f);
    EXPECT_EQ(read->weight, 0.1);
    EXPECT_EQ(read->frame, person->frame);
    EXPECT_EQ(read->born, person->born);
    EXPECT_EQ(read->picture, "picture");
    EXPECT_EQ(read->key, person->key);
    ASSERT_TRUE(read->friendOf);
    EXPECT_EQ(read->friendOf->name, QStringLiteral("Charles"));
    EXPECT_FALSE(read->friendOf->friendOf);
}

TEST(KeyedUnarchiverTest, MissingKeysAndOtherTypesAreZero)
{
    KeyedArchiver archiver;
    archiver.encodeString(QStringLiteral("text"), QStringLiteral("text"));
    KeyedUnarchiver coder(archiver.finishEncoding().value_or(QByteArray()));
    for (const char* key : {"none", "text"}) {
        EXPECT_EQ(coder.decodeInt64(QLatin1String(key)), 0);
        EXPECT_FALSE(coder.decodeBool(QLatin1String(key)));
        EXPECT_EQ(coder.decodeFloat(QLatin1String(key)), 0.0f);
        EXPECT_EQ(coder.decodeDouble(QLatin1String(key)), 0.0);
        EXPECT_EQ(coder.decodeRect(QLatin1String(key)), QRectF());
        EXPECT_FALSE(coder.decodeDate(QLatin1String(key)).isValid());
        EXPECT_TRUE(coder.decodeData(QLatin1String(key)).isEmpty());
        EXPECT_TRUE(coder.decodeBytes(QLatin1String(key)).isEmpty());
    }
    EXPECT_TRUE(coder.decodeObject(QStringLiteral("none")).isNull());
    EXPECT_FALSE(coder.containsValueForKey(QStringLiteral("none")));
    EXPECT_TRUE(coder.containsValueForKey(QStringLiteral("text")));
}

TEST(KeyedUnarchiverTest, GenericValuesReadBackEqual)
{
    const auto number = ArchiveValue::integer(-7);
    const auto value = ArchiveValue::dictionary(
        {{ArchiveValue::string(QStringLiteral("list")),
          ArchiveValue::array({number, ArchiveValue::boolean(false), ArchiveValue::floating(0.5f),
                               ArchiveValue::floating(0.5), ArchiveValue(), number},
                              Mutability::Mutable)},
         {ArchiveValue::integer(1), ArchiveValue::string(QStringLiteral("mutable"), Mutability::Mutable)},
         {ArchiveValue::string(QStringLiteral("data")), ArchiveValue::data("d")},
         {ArchiveValue::string(QStringLiteral("mutable data")), ArchiveValue::data("d", Mutability::Mutable)},
         {ArchiveValue::string(QStringLiteral("date")),
          ArchiveValue::date(QDateTime(QDate(1999, 1, 1), QTime(0, 0), Qt::UTC))}},
        Mutability::Mutable);
    const ArchiveValue read = rereadValue(value);
    EXPECT_EQ(read, value);
    EXPECT_EQ(read.valueForKey(QStringLiteral("data")).toData(), "d");
    EXPECT_TRUE(read.valueForKey(QStringLiteral("none")).isNull());
    EXPECT_EQ(rereadValue(ArchiveValue()), ArchiveValue());
}

TEST(KeyedUnarchiverTest, KeepsObjectsOfUnknownClassesAsTheyWere)
{
    using Form = ArchivedObject::Field::Form;
    const ArchivedObject inner{{QStringLiteral("Inner"), QStringLiteral("NSObject")},
                               {{QStringLiteral("$x"), Form::Plain, true, {}}}};
    const auto innerValue = ArchiveValue::unknown(inner);
    const ArchivedObject object{
        {QStringLiteral("Outer"), QStringLiteral("Base"), QStringLiteral("NSObject")},
        {{QStringLiteral("double"), Form::Plain, 0.5, {}},
         {QStringLiteral("float"), Form::Plain, 0.5f, {}},
         {QStringLiteral("list"), Form::References, {}, {innerValue, ArchiveValue(), innerValue}},
         {QStringLiteral("one"), Form::Reference, {}, {innerValue}}}};
    const auto value = ArchiveValue::unknown(object);
    const auto first = KeyedArchiver::archivedDataWithRootObject(value);
    ASSERT_TRUE(first);
    const ArchiveValue read = KeyedUnarchiver::unarchiveObjectWithData(*first);
    ASSERT_TRUE(read.toUnknown());
    EXPECT_EQ(read, value);
    EXPECT_EQ(read.toUnknown()->fieldForKey(QStringLiteral("float"))->plain.typeId(), QMetaType::Float);
    EXPECT_EQ(read.toUnknown()->referenceForKey(QStringLiteral("one")).identity(),
              read.toUnknown()->fieldForKey(QStringLiteral("list"))->references[0].identity());
    EXPECT_EQ(KeyedArchiver::archivedDataWithRootObject(read), first);
}

TEST(KeyedUnarchiverTest, TheFirstKnownClassOfTheChainMakesTheObject)
{
    ArchivedObject object{
        {QStringLiteral("SpecialPerson"), QStringLiteral("Person"), QStringLiteral("NSObject")}, {}};
    object.fields.append({QStringLiteral("age"), ArchivedObject::Field::Form::Plain, 7, {}});
    const auto data = KeyedArchiver::archivedDataWithRootObject(ArchiveValue::unknown(object));
    const auto person = KeyedUnarchiver::unarchiveObjectWithData(*data, Person::classes()).objectAs<Person>();
    ASSERT_TRUE(person);
    EXPECT_EQ(person->age, 7);
}

TEST(KeyedUnarchiverTest, OneObjectIsDecodedOnce)
{
    const auto person = ArchiveValue::object(std::make_shared<Person>());
    const auto data = KeyedArchiver::archivedDataWithRootObject(ArchiveValue::array({person, person}));
    const auto list = KeyedUnarchiver::unarchiveObjectWithData(*data, Person::classes()).elements();
    ASSERT_EQ(list.size(), 2);
    EXPECT_TRUE(list[0].toObject());
    EXPECT_EQ(list[0].toObject(), list[1].toObject());
}

TEST(KeyedUnarchiverTest, AReferenceBackIsNull)
{
    const ArchiveValue self = KeyedUnarchiver::unarchiveObjectWithData(archiveOf({arrayRecord({uid(2)})}));
    ASSERT_EQ(self.elements().size(), 1);
    EXPECT_TRUE(self.elements()[0].isNull());

    const auto first = std::make_shared<Person>();
    first->friendOf = std::make_shared<Person>();
    first->friendOf->friendOf = first;
    const auto data = KeyedArchiver::archivedDataWithRootObject(first);
    first->friendOf->friendOf.reset();
    const auto read = KeyedUnarchiver::unarchiveObjectWithData(*data, Person::classes()).objectAs<Person>();
    ASSERT_TRUE(read && read->friendOf);
    EXPECT_FALSE(read->friendOf->friendOf);
    const std::weak_ptr<Person> other = read->friendOf;
    read->friendOf.reset();
    EXPECT_TRUE(other.expired());
}

TEST(KeyedUnarchiverTest, RaisesForWhatIsNoArchive)
{
    for (const QByteArray& data :
         {QByteArray(), QByteArray("nonsense, surely"), QByteArray("{}"), QByteArray("(a)"),
          QByteArray("{\"$archiver\" = a; \"$objects\" = {}; \"$top\" = {};}")}) {
        EXPECT_THROW((void)KeyedUnarchiver::unarchiveObjectWithData(data), InvalidArchive)
            << data.constData();
        EXPECT_THROW(KeyedUnarchiver unarchiver(data), InvalidArchive);
        platform::Error error;
        EXPECT_FALSE(KeyedUnarchiver::unarchivedRootObject(data, {}, &error));
        EXPECT_EQ(error.code(), qint64(platform::PropertyListErrorCode::UnarchivingCorrupt));
        EXPECT_FALSE(error.localizedDescription().isEmpty());
    }
}

TEST(KeyedUnarchiverTest, TheExceptionHasAMessage)
{
    try {
        (void)KeyedUnarchiver::unarchiveObjectWithData("{}");
        FAIL();
    } catch (const std::exception& exception) {
        EXPECT_STREQ(exception.what(), "This is not a keyed archive.");
    }
}

TEST(KeyedUnarchiverTest, AnArchiveWithoutARootHasNone)
{
    KeyedArchiver archiver;
    EXPECT_TRUE(
        KeyedUnarchiver::unarchiveObjectWithData(archiver.finishEncoding().value_or(QByteArray())).isNull());
}

TEST(KeyedUnarchiverTest, RefusesDamagedRecords)
{
    const QVariantMap noClass{{QStringLiteral("a"), 1}};
    const QVariantMap classIsNone{{QStringLiteral("$class"), uid(0)}};
    const QVariantMap classIsFar{{QStringLiteral("$class"), uid(4'000'000'000)}};
    const QVariantMap nestedReference{{QStringLiteral("$class"), uid(3)},
                                      {QStringLiteral("a"), QVariantMap{{QStringLiteral("b"), uid(1)}}}};
    const QVariantMap otherClass{{QStringLiteral("$classname"), QStringLiteral("Other")}};
    const QVariantMap dictionaryClass{{QStringLiteral("$classname"), QStringLiteral("NSDictionary")}};
    const QVariantMap unequal{{QStringLiteral("$class"), uid(3)},
                              {QStringLiteral("NS.keys"), QVariantList{uid(3)}}};
    for (const QVariantList& objects :
         {QVariantList{noClass}, QVariantList{classIsNone}, QVariantList{classIsFar},
          QVariantList{arrayRecord({uid(99)})}, QVariantList{arrayRecord({1})},
          QVariantList{nestedReference, otherClass}, QVariantList{unequal, dictionaryClass}})
        EXPECT_THROW((void)KeyedUnarchiver::unarchiveObjectWithData(archiveOf(objects)), InvalidArchive);
}

TEST(KeyedUnarchiverTest, RefusesDepthWithoutEnd)
{
    QVariantList objects;
    for (quint32 level = 0; level < 100'000; ++level)
        objects += arrayRecord({uid(level + 3)});
    objects += QStringLiteral("core");
    EXPECT_THROW((void)KeyedUnarchiver::unarchiveObjectWithData(archiveOf(objects)), InvalidArchive);
}

TEST(KeyedUnarchiverTest, RefusesSharingThatUnfoldsWithoutEnd)
{
    QVariantList objects;
    for (quint32 level = 0; level < 60; ++level)
        objects += arrayRecord({uid(level + 3), uid(level + 3)});
    objects += QStringLiteral("core");
    EXPECT_THROW((void)KeyedUnarchiver::unarchiveObjectWithData(archiveOf(objects)), InvalidArchive);
}

TEST(KeyedUnarchiverTest, GoesOnAfterAMakerGaveUpOnAField)
{
    QVariantList objects{QVariantMap{{QStringLiteral("$class"), uid(3)},
                                     {QStringLiteral("bad"), uid(99)},
                                     {QStringLiteral("age"), 5}},
                         QVariantMap{{QStringLiteral("$classname"), QStringLiteral("Person")}}};
    const ArchivedClasses classes{
        {QStringLiteral("Person"), [](KeyedUnarchiver& coder) -> std::shared_ptr<KeyedCoding> {
             auto person = std::make_shared<Person>();
             EXPECT_THROW((void)coder.decodeObject(QStringLiteral("bad")), InvalidArchive);
             person->age = coder.decodeInt64(QStringLiteral("age"));
             return person;
         }}};
    const auto person =
        KeyedUnarchiver::unarchiveObjectWithData(archiveOf(objects), classes).objectAs<Person>();
    ASSERT_TRUE(person);
    EXPECT_EQ(person->age, 5);
}

TEST(KeyedUnarchiverTest, AMakerMayDecline)
{
    const auto data = KeyedArchiver::archivedDataWithRootObject(std::make_shared<Person>());
    const ArchivedClasses classes{{QStringLiteral("Person"), [](KeyedUnarchiver&) {
                                       return std::shared_ptr<KeyedCoding>();
                                   }}};
    EXPECT_TRUE(KeyedUnarchiver::unarchiveObjectWithData(*data, classes).isNull());
}

} // namespace
