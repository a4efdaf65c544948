// SPDX-License-Identifier: MIT
#include "foundation/ArrayBMExtensions.h"

#include "support/RandomText.h"

#include <QDate>

namespace {

using namespace Qt::StringLiterals;

TEST(ArrayByRemovingObjectsFromArrayTest, RemovesAllOccurrencesAndKeepsTheOrder)
{
    const QStringList array{u"a"_s, u"b"_s, u"a"_s, u"c"_s};
    EXPECT_EQ(arrayByRemovingObjectsFromArray(array, {u"a"_s}), QStringList({u"b"_s, u"c"_s}));
    EXPECT_EQ(arrayByRemovingObjectsFromArray(array, QStringList()), array);
    EXPECT_EQ(arrayByRemovingObjectsFromArray(array, array), QStringList());
    EXPECT_EQ(arrayByRemovingObjectsFromArray(QStringList(), array), QStringList());
}

TEST(ArrayByRemovingObjectsFromArrayTest, ComparesByEquality)
{
    const QList<QDate> array{QDate(2013, 4, 12), QDate(2018, 3, 9)};
    EXPECT_EQ(arrayByRemovingObjectsFromArray(array, {QDate(2013, 4, 12)}), QList<QDate>({QDate(2018, 3, 9)}));
    EXPECT_EQ(arrayByRemovingObjectsFromArray(QStringList{u"A"_s}, {u"a"_s}), QStringList{u"A"_s});
}

TEST(ArrayByRemovingObjectsFromArrayTest, KeepsExactlyWhatTheOtherArrayDoesNotHave)
{
    test::RandomText random(7);
    for (int count = 0; count < 300; ++count) {
        QStringList array;
        QStringList other;
        for (int index = 0; index < 20; ++index) {
            array += random.next(1);
            other += random.next(1);
        }
        const QStringList rest = arrayByRemovingObjectsFromArray(array, other);
        QStringList expected = array;
        expected.removeIf([&](const QString& element) { return other.contains(element); });
        EXPECT_EQ(rest, expected);
    }
}

struct Shape {
    virtual ~Shape() = default;
};
struct Circle : Shape {};
struct Disc : Circle {};

TEST(ObjectsOfKindOfClassTest, KeepsInstancesOfTheClassAndOfItsSubclassesInOrder)
{
    const auto circle = std::make_shared<Circle>();
    const auto disc = std::make_shared<Disc>();
    const QList<std::shared_ptr<Shape>> shapes{disc, std::make_shared<Shape>(), circle, nullptr};
    EXPECT_EQ(objectsOfKindOfClass<Circle>(shapes), (QList<std::shared_ptr<Circle>>{disc, circle}));
    EXPECT_EQ(objectsOfKindOfClass<Disc>(shapes), QList<std::shared_ptr<Disc>>{disc});
    EXPECT_EQ(objectsOfKindOfClass<Shape>(shapes).size(), 3);
}

TEST(ArrayOfUniqueStringsTest, KeepsEachAtItsFirstPlace)
{
    EXPECT_EQ(arrayOfUniqueStrings({u"b"_s, u"a"_s, u"b"_s, u"c"_s, u"a"_s}),
              QStringList({u"b"_s, u"a"_s, u"c"_s}));
    EXPECT_EQ(arrayOfUniqueStrings({}), QStringList());
}

TEST(ArrayOfUniqueStringsTest, ComparesCodeUnits)
{
    const QStringList different{u"\u00e9"_s, u"e\u0301"_s, u"E"_s, u"e"_s, QString(QChar(0xD800)), QString()};
    EXPECT_EQ(arrayOfUniqueStrings(different), different);
}

TEST(ArrayOfUniqueStringsTest, TwiceIsOnce)
{
    test::RandomText random(8);
    for (int count = 0; count < 300; ++count) {
        QStringList array;
        for (int index = 0; index < 30; ++index)
            array += random.next(1);
        const QStringList unique = arrayOfUniqueStrings(array);
        EXPECT_EQ(arrayOfUniqueStrings(unique), unique);
        EXPECT_EQ(QSet<QString>(unique.begin(), unique.end()), QSet<QString>(array.begin(), array.end()));
    }
}

} // namespace
