// SPDX-License-Identifier: MIT
#include "exports/RunItems.h"

#include "platform/propertylist/PropertyList.h"
#include "support/ScratchFolder.h"

#include <QDir>
#include <QUrl>

ItemFiles::ItemFiles(const QVariantMap& item)
{
    const QString path = item.value("absoluteFilename").toString();
    if (path.endsWith(".qlnote"))
        readPackage(path);
    else if (item.value("itemType").toInt() == 7 && path.endsWith(".webarchive"))
        readArchive(path);
    else
        m_files.insert(item.value("filename").toString(), test::readFile(path));
}

void ItemFiles::readPackage(const QString& path)
{
    for (const QString& name : QDir(path).entryList(QDir::Files | QDir::Hidden)) {
        if (name != "TXT.rtf" && !name.endsWith("NoteAttributes"))
            m_files.insert(name, test::readFile(path + "/" + name));
    }
}

void ItemFiles::readArchive(const QString& path)
{
    const QVariantMap archive = platform::readPropertyList(path).value_or(QVariant()).toMap();
    for (const QVariant& entry : archive.value("WebSubresources").toList()) {
        const QVariantMap resource = entry.toMap();
        m_files.insert(
            QUrl(resource.value("WebResourceURL").toString()).fileName(QUrl::FullyDecoded),
            resource.value("WebResourceData").toByteArray());
    }
}

QByteArrayList ItemFiles::bytes() const
{
    QByteArrayList all = m_files.values();
    std::sort(all.begin(), all.end());
    return all;
}

QStringList ItemFiles::namesOf(const QByteArray& bytes) const
{
    QStringList names;
    for (auto file = m_files.cbegin(); file != m_files.cend(); ++file) {
        if (file.value() == bytes)
            names += file.key();
    }
    return names;
}

RunItems::RunItems(const QString& filesPath)
{
    const QVariantMap entities = platform::readPropertyList(filesPath + "/Evernote.qllibxml")
                                     .value_or(QVariant())
                                     .toMap()
                                     .value("Entities")
                                     .toMap();
    const QVariantMap items = entities.value("Item").toMap();
    for (const QVariant& entry : entities.value("Folder").toMap()) {
        const QVariantMap folder = entry.toMap();
        const QString name = folder.value("name").toString();
        m_items[name];
        for (const QString& identifier : folder.value("items").toStringList()) {
            const QVariantMap item = items.value(identifier).toMap();
            m_items[name].push_back(item);
            m_files[name].emplace_back(item);
        }
    }
}
