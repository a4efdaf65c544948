// SPDX-License-Identifier: MIT
#include "platform/scripting/LaidOutFiles.h"

#include "platform/propertylist/PropertyList.h"
#include "platform/scripting/ImportManifest.h"

namespace test {

namespace manifest = platform::manifest;

namespace {

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QByteArray bytesOrNone(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

LaidOutFiles::LaidOutFiles(QString path)
    : m_path(std::move(path))
{
    QDir().mkpath(m_path);
    m_top = {{manifest::exporterVersionKey, manifest::exporterVersion},
             {manifest::removeFileOnCompletionKey, m_path}};
}

void LaidOutFiles::addFolder(const QString& name)
{
    QDir().mkpath(m_path + QLatin1Char('/') + name);
    const QString identifier = QStringLiteral("folder-") + name;
    m_folders.insert(identifier,
                     QVariantMap{{manifest::entityNameKey, manifest::folderEntity},
                                 {manifest::nameKey, name},
                                 {manifest::identifierKey, identifier},
                                 {manifest::groupTypeKey, manifest::importedFolderGroupType},
                                 {manifest::parentKey, manifest::rootFolder},
                                 {manifest::commentsKey, QStringLiteral("Imported from Evernote")},
                                 {manifest::itemsKey, QVariantList()}});
}

void LaidOutFiles::addItem(const QString& folder, const QString& fileName, const QVariantMap& values)
{
    const QString path = m_path + QLatin1Char('/') + folder + QLatin1Char('/') + fileName;
    if (fileName.endsWith(QLatin1String(".rtfd"))) {
        QDir().mkpath(path + QStringLiteral("/images"));
        writeBytes(path + QStringLiteral("/TXT.rtf"), contentsOf(fileName));
        writeBytes(path + QStringLiteral("/images/image.png"), contentsOf(fileName));
    } else {
        writeBytes(path, contentsOf(fileName));
    }
    const QString identifier = QStringLiteral("item-%1/%2").arg(folder, fileName);
    const QString folderIdentifier = QStringLiteral("folder-") + folder;
    QVariantMap record = {{manifest::entityNameKey, manifest::itemEntity},
                          {manifest::identifierKey, identifier},
                          {manifest::itemTypeKey, 1},
                          {manifest::nameKey, fileName.section(QLatin1Char('.'), 0, -2)},
                          {manifest::filenameKey, fileName},
                          {manifest::absoluteFilenameKey, path},
                          {manifest::folderKey, folderIdentifier}};
    record.insert(values);
    m_items.insert(identifier, record);

    QVariantMap folderRecord = m_folders.value(folderIdentifier).toMap();
    folderRecord[manifest::itemsKey] = folderRecord.value(manifest::itemsKey).toList() << identifier;
    m_folders[folderIdentifier] = folderRecord;
}

void LaidOutFiles::setItemValue(const QString& identifier, const QString& key, const QVariant& value)
{
    ASSERT_TRUE(m_items.contains(identifier)) << qPrintable(identifier);
    QVariantMap record = m_items.value(identifier).toMap();
    record[key] = value;
    m_items[identifier] = record;
}

void LaidOutFiles::writeManifest() const
{
    QVariantMap top = m_top;
    if (!top.contains(manifest::entitiesKey)) {
        top.insert(manifest::entitiesKey,
                   QVariantMap{{manifest::folderEntity, m_folders}, {manifest::itemEntity, m_items}});
    }
    platform::Error error;
    const auto bytes = platform::propertyListData(top, platform::PropertyListFormat::Xml, &error);
    ASSERT_TRUE(bytes) << qPrintable(error.description());
    writeBytes(manifestPath(), *bytes);
}

QByteArray LaidOutFiles::contentsOf(const QString& fileName)
{
    return "This is " + fileName.toUtf8() + ".\n" + QByteArray(5000, 'x');
}

bool LaidOutFiles::isWhole(const QString& path, const QString& fileName)
{
    const QByteArray expected = contentsOf(fileName);
    if (!fileName.endsWith(QLatin1String(".rtfd")))
        return bytesOrNone(path) == expected;
    return bytesOrNone(path + QStringLiteral("/TXT.rtf")) == expected
           && bytesOrNone(path + QStringLiteral("/images/image.png")) == expected;
}

} // namespace test
