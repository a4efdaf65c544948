// SPDX-License-Identifier: MIT
#include "import/ItemRecordList.h"

#include <QDateTime>
#include <QTimeZone>

#include <malloc.h>

namespace {

namespace manifest = platform::manifest;
using manifest::Record;

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

Record recordOf(const QVariantMap& values) { return std::make_shared<QVariantMap>(values); }

QVariantMap throughList(const QVariantMap& values)
{
    ItemRecordList list;
    list.append(recordOf(values));
    return *list.at(0);
}

// What a note with a tag and an address has.
QVariantMap noteValues(int number)
{
    const QString name = QStringLiteral("Note with a usual title %1").arg(number);
    const QDateTime date(QDate(2019, 3, 4), QTime(5, 6, 7), Qt::UTC);
    return {{manifest::entityNameKey, manifest::itemEntity},
            {manifest::nameKey, name},
            {manifest::identifierKey, QStringLiteral("0A1B2C3D-0000-4000-8000-%1").arg(number, 12, 10, QLatin1Char('0'))},
            {manifest::commentsKey, text("https://example.com/a/page/of/usual/length")},
            {manifest::itemTypeKey, 40},
            {manifest::filenameKey, QString(name + text(".qlnote"))},
            {manifest::absoluteFilenameKey, QString(text("/home/somebody/.cache/Evernote/My Notebook/") + name + text(".qlnote"))},
            {manifest::extensionHiddenKey, true},
            {manifest::dateCreatedKey, date},
            {manifest::dateModifiedKey, date.addSecs(1)},
            {manifest::tagsStringKey, text("one,two")}};
}

TEST(ItemRecordListTest, ARecordComesBackAsItWas)
{
    const QVariantMap values = noteValues(1);
    const QVariantMap back = throughList(values);
    EXPECT_EQ(back, values);
    EXPECT_EQ(back.value(manifest::extensionHiddenKey).typeId(), int(QMetaType::Bool));
    EXPECT_EQ(back.value(manifest::itemTypeKey).typeId(), int(QMetaType::LongLong));
    EXPECT_EQ(back.value(manifest::dateCreatedKey).typeId(), int(QMetaType::QDateTime));
}

TEST(ItemRecordListTest, RecordsKeepTheirOrderAndTheirFolders)
{
    ItemRecordList list;
    EXPECT_TRUE(list.isEmpty());
    QList<QVariantMap> all;
    for (const char* folder : {"/a", "/b", "/b", "/a", "/c/d"}) {
        const QString name = QStringLiteral("%1.qlnote").arg(all.size());
        all += {{manifest::filenameKey, name}, {manifest::absoluteFilenameKey, QString(text(folder) + QLatin1Char('/') + name)}};
        list.append(recordOf(all.last()));
    }
    ASSERT_EQ(list.size(), all.size());
    for (qsizetype position = 0; position < all.size(); ++position)
        EXPECT_EQ(*list[position], all[position]);
}

TEST(ItemRecordListTest, PathsThatDoNotEndInTheFileNameAreKept)
{
    for (const QVariantMap& values : {QVariantMap{{manifest::absoluteFilenameKey, text("/a/b")}},
                                      QVariantMap{{manifest::absoluteFilenameKey, text("/a/")}},
                                      QVariantMap{{manifest::absoluteFilenameKey, text("/name")}, {manifest::filenameKey, text("name")}},
                                      QVariantMap{{manifest::absoluteFilenameKey, text("/a/xname")}, {manifest::filenameKey, text("name")}},
                                      QVariantMap{{manifest::absoluteFilenameKey, 7}, {manifest::filenameKey, text("name")}}})
        EXPECT_EQ(throughList(values), values);
}

TEST(ItemRecordListTest, KeysAndValuesOfEveryKindAreKept)
{
    const QVariantMap values = {{text("own key"), text("value")},
                                {text("2"), 2},
                                {text("empty"), QString()},
                                {text("large"), qlonglong(-1) << 40},
                                {text("unsigned"), ~qulonglong(0)},
                                {text("real"), 0.1},
                                {text("bytes"), QByteArray("a\0b", 3)},
                                {text("list"), QStringList{text("a"), text("b")}},
                                {text("map"), QVariantMap{{text("k"), true}}},
                                {text("milliseconds"), QDateTime::fromMSecsSinceEpoch(-1, Qt::UTC)},
                                {manifest::nameKey, text("\xf0\x9f\x97\x92 \xe6\x97\xa5\xe6\x9c\xac")}};
    EXPECT_EQ(throughList(values), values);
}

TEST(ItemRecordListTest, TextThatIsNotValidUtf16IsKept)
{
    const QString unpaired = QString(QChar(0xD83D)) + text("x");
    EXPECT_EQ(throughList({{manifest::nameKey, unpaired}}).value(manifest::nameKey).toString(), unpaired);
}

TEST(ItemRecordListTest, DatesComeBackInUtcAndInvalidOnesInvalid)
{
    const QDateTime date(QDate(2020, 7, 1), QTime(12, 0), QTimeZone("Europe/Berlin"));
    const QVariantMap back = throughList({{manifest::dateCreatedKey, date}, {manifest::dateModifiedKey, QDateTime()}});
    EXPECT_EQ(back.value(manifest::dateCreatedKey).toDateTime(), date);
    EXPECT_EQ(back.value(manifest::dateCreatedKey).toDateTime().timeSpec(), Qt::UTC);
    EXPECT_EQ(back.value(manifest::dateModifiedKey).typeId(), int(QMetaType::QDateTime));
    EXPECT_FALSE(back.value(manifest::dateModifiedKey).toDateTime().isValid());
}

TEST(ItemRecordListTest, WhatIsDoneToARecordDoesNotReachTheList)
{
    const Record record = recordOf({{manifest::nameKey, text("before")}});
    ItemRecordList list;
    list.append(record);
    record->insert(manifest::nameKey, text("after"));
    list.at(0)->insert(manifest::nameKey, text("after"));
    const ItemRecordList copy = list;
    list.append(record);
    EXPECT_EQ(list.at(0)->value(manifest::nameKey).toString(), text("before"));
    EXPECT_EQ(copy.size(), 1);
}

TEST(ItemRecordListTest, ANoteTakesAFewHundredBytes)
{
    constexpr int count = 10000;
    // The sanitizers have an allocator of their own, which does not count.
    const auto used = [] { return mallinfo2().uordblks; };
    const std::size_t before = used();
    ItemRecordList list;
    for (int number = 0; number < count; ++number)
        list.append(recordOf(noteValues(number)));
    const ItemRecordList shared = list;
    if (before == 0)
        GTEST_SKIP() << "the allocator does not tell what is used";
    EXPECT_LT(used() - before, std::size_t(count) * 350);
    EXPECT_EQ(shared.size(), count);
}

} // namespace
