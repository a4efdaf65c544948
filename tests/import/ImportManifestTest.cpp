// SPDX-License-Identifier: MIT
#include "import/ImportManifest.h"

#include "platform/propertylist/PropertyList.h"
#include "support/ScratchFolder.h"
#include "support/SmallVolume.h"

#include <QDateTime>

namespace {

namespace manifest = platform::manifest;
using manifest::Record;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

Record item(const QString& identifier, const QString& name)
{
    const Record record = manifest::makeRecord();
    record->insert(manifest::entityNameKey, manifest::itemEntity);
    record->insert(manifest::identifierKey, identifier);
    record->insert(manifest::nameKey, name);
    record->insert(manifest::dateCreatedKey, QDateTime(QDate(2019, 3, 4), QTime(5, 6, 7), Qt::UTC));
    record->insert(manifest::extensionHiddenKey, true);
    return record;
}

ItemRecordList items(const QStringList& identifiers)
{
    ItemRecordList list;
    for (const QString& identifier : identifiers)
        list.append(item(identifier, QString(text("Note ") + identifier)));
    return list;
}

QVariantMap entities(const QVariant& list, const QString& entity)
{
    return list.toMap().value(manifest::entitiesKey).toMap().value(entity).toMap();
}

TEST(ImportManifestTest, TheFileIsThePropertyListWrittenWhole)
{
    const test::ScratchFolder scratch;
    ImportManifest list(scratch.path());
    for (const char* name : {"One & <two>", "Three"}) {
        const Record folder = ImportManifest::newFolderRecord(text(name));
        list.addFolder(folder);
        list.addItems(items({text(name) + text("-b"), text(name) + text("-a")}), folder);
    }
    ASSERT_TRUE(list.write());
    const auto whole =
        platform::propertyListData(list.propertyList(), platform::PropertyListFormat::Xml);
    ASSERT_TRUE(whole);
    EXPECT_EQ(test::readFile(list.path()), *whole);
    EXPECT_EQ(scratch.tree(), QStringList{manifest::fileName});
}

TEST(ImportManifestTest, WithoutFoldersAndItemsItIsAListAllTheSame)
{
    const test::ScratchFolder scratch;
    const ImportManifest list(scratch.path());
    ASSERT_TRUE(list.write());
    const auto read = platform::readPropertyList(list.path());
    ASSERT_TRUE(read);
    EXPECT_TRUE(entities(*read, manifest::folderEntity).isEmpty());
    EXPECT_TRUE(entities(*read, manifest::itemEntity).isEmpty());
    EXPECT_EQ(read->toMap().value(manifest::removeFileOnCompletionKey).toString(), scratch.path());
}

TEST(ImportManifestTest, ItemsStandInTheirFolderInTheirOrderAndLearnItInTheList)
{
    ImportManifest list(text("/files"));
    const Record folder = ImportManifest::newFolderRecord(text("One"));
    list.addFolder(folder);
    const ItemRecordList records = items({text("C"), text("A"), text("B")});
    list.addItems(records, folder);
    EXPECT_EQ(folder->value(manifest::itemsKey).toStringList(),
              QStringList({text("C"), text("A"), text("B")}));
    EXPECT_FALSE(records.at(0)->contains(manifest::folderKey));
    const QVariantMap entered = entities(list.propertyList(), manifest::itemEntity);
    EXPECT_EQ(entered.keys(), QStringList({text("A"), text("B"), text("C")}));
    for (const QVariant& record : entered)
        EXPECT_EQ(record.toMap().value(manifest::folderKey),
                  folder->value(manifest::identifierKey));
    EXPECT_EQ(entered.value(text("A")).toMap().value(manifest::nameKey).toString(), text("Note A"));
}

TEST(ImportManifestTest, EachItemNamesTheFolderOfItsOwnNotebook)
{
    ImportManifest list(text("/files"));
    QMap<QString, QVariant> folders;
    for (const char* name : {"One", "Two", "Empty"}) {
        const Record folder = ImportManifest::newFolderRecord(text(name));
        list.addFolder(folder);
        list.addItems(text(name) == text("Empty") ? ItemRecordList()
                                                  : items({text(name) + text(" item")}),
                      folder);
        folders.insert(text(name), folder->value(manifest::identifierKey));
    }
    const QVariantMap entered = entities(list.propertyList(), manifest::itemEntity);
    EXPECT_EQ(entered.keys(), QStringList({text("One item"), text("Two item")}));
    for (const char* name : {"One", "Two"})
        EXPECT_EQ(entered.value(text(name) + text(" item")).toMap().value(manifest::folderKey),
                  folders.value(text(name)));
    const QVariantMap empty = entities(list.propertyList(), manifest::folderEntity)
                                  .value(folders.value(text("Empty")).toString())
                                  .toMap();
    EXPECT_EQ(empty.value(manifest::itemsKey).typeId(), int(QMetaType::QStringList));
    EXPECT_TRUE(empty.value(manifest::itemsKey).toStringList().isEmpty());
}

TEST(ImportManifestTest, OfItemsWithOneIdentifierTheLastIsWritten)
{
    const test::ScratchFolder scratch;
    ImportManifest list(scratch.path());
    const Record folder = ImportManifest::newFolderRecord(text("One"));
    list.addFolder(folder);
    ItemRecordList records;
    for (const char* name : {"first", "second", "third"})
        records.append(item(text("A"), text(name)));
    list.addItems(records, folder);
    ASSERT_TRUE(list.write());
    EXPECT_EQ(test::readFile(list.path()).count("<key>A</key>"), 1);
    const auto read = platform::readPropertyList(list.path());
    ASSERT_TRUE(read);
    EXPECT_EQ(entities(*read, manifest::itemEntity)
                  .value(text("A"))
                  .toMap()
                  .value(manifest::nameKey)
                  .toString(),
              text("third"));
}

TEST(ImportManifestTest, AnItemThatHasNoPlaceInAPropertyListIsAnErrorAndLeavesNoFile)
{
    const test::ScratchFolder scratch;
    ImportManifest list(scratch.path());
    const Record folder = ImportManifest::newFolderRecord(text("One"));
    const Record bad = item(text("A"), text("bad"));
    bad->insert(manifest::dateModifiedKey, QDateTime());
    ItemRecordList records;
    records.append(bad);
    list.addItems(records, folder);
    platform::Error error;
    EXPECT_FALSE(list.write(&error));
    EXPECT_FALSE(error.isNull());
    EXPECT_TRUE(scratch.tree().isEmpty());
}

TEST(ImportManifestTest, AFullDiskIsAnErrorAndLeavesNoFile)
{
    const test::SmallVolume volume(64 * 1024);
    if (!volume.isMounted())
        GTEST_SKIP() << "no volume can be mounted here";
    ImportManifest list(volume.path());
    const Record folder = ImportManifest::newFolderRecord(text("One"));
    list.addFolder(folder);
    QStringList identifiers;
    for (int number = 0; number < 1000; ++number)
        identifiers += QString::number(number);
    list.addItems(items(identifiers), folder);
    platform::Error error;
    EXPECT_FALSE(list.write(&error));
    EXPECT_EQ(error.domain(), text("NSCocoaErrorDomain"));
    EXPECT_FALSE(error.localizedDescription().isEmpty());
    EXPECT_TRUE(volume.folder().tree().isEmpty());
}

} // namespace
