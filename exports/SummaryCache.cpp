// SPDX-License-Identifier: MIT
#include "exports/SummaryCache.h"

#include "platform/core/StandardDirectories.h"
#include "platform/files/FileManager.h"
#include "platform/propertylist/PropertyList.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QSet>

namespace {

// Raised when entries mean something else than before.
constexpr int formatVersion = 1;

const QString formatKey = QStringLiteral("Format");
const QString filesKey = QStringLiteral("Files");
const QString deviceKey = QStringLiteral("device");
const QString inodeKey = QStringLiteral("inode");
const QString sizeKey = QStringLiteral("size");
const QString modifiedKey = QStringLiteral("modified");
const QString changedKey = QStringLiteral("changed");
const QString notesKey = QStringLiteral("notes");
const QString applicationKey = QStringLiteral("application");
const QString versionKey = QStringLiteral("version");

} // namespace

SummaryCache::SummaryCache(QString path)
    : m_path(std::move(path))
{
    load();
}

QString SummaryCache::pathForFolder(const QString& directory)
{
    const QString canonical = QFileInfo(directory).canonicalFilePath();
    // Half of a SHA-256 is more than enough to tell the folders of one user apart.
    const QByteArray hash =
        QCryptographicHash::hash(canonical.toUtf8(), QCryptographicHash::Sha256).toHex().first(32);
    return platform::StandardDirectories::caches() +
           QStringLiteral("/com.brightmoor.Vupuge/Exports-%1.plist").arg(QLatin1String(hash));
}

void SummaryCache::load()
{
    if (!platform::fileExistsAtPath(m_path))
        return;
    const QVariantMap list = platform::readPropertyList(m_path).value_or(QVariant()).toMap();
    if (list.value(formatKey).toInt() != formatVersion)
        return;
    const QVariantMap files = list.value(filesKey).toMap();
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
        const QVariantMap values = file->toMap();
        const FileIdentity identity{
            values.value(deviceKey).toULongLong(), values.value(inodeKey).toULongLong(),
            values.value(sizeKey).toLongLong(), values.value(modifiedKey).toLongLong(),
            values.value(changedKey).toLongLong()};
        const NotebookSummary summary{values.value(notesKey).toULongLong(),
                                      values.value(applicationKey).toString(),
                                      values.value(versionKey).toString(),
                                      {}};
        m_entries.insert(file.key(), {identity, summary});
    }
}

std::optional<NotebookSummary> SummaryCache::summary(const QString& file,
                                                     const FileIdentity& identity) const
{
    const auto entry = m_entries.constFind(file);
    if (entry == m_entries.constEnd() || entry->identity != identity)
        return std::nullopt;
    return entry->summary;
}

void SummaryCache::insert(const QString& file, const FileIdentity& identity,
                          const NotebookSummary& summary)
{
    if (summary.problem)
        return;
    m_entries.insert(file, {identity, summary});
    m_isChanged = true;
}

void SummaryCache::save(const QStringList& files)
{
    const QSet<QString> kept(files.begin(), files.end());
    if (m_entries.removeIf([&kept](const auto& entry) { return !kept.contains(entry.key()); }) > 0)
        m_isChanged = true;
    if (!m_isChanged)
        return;
    QVariantMap entries;
    for (auto entry = m_entries.cbegin(); entry != m_entries.cend(); ++entry) {
        const FileIdentity& identity = entry->identity;
        const NotebookSummary& summary = entry->summary;
        entries.insert(entry.key(), QVariantMap{{deviceKey, identity.device},
                                                {inodeKey, identity.inode},
                                                {sizeKey, identity.size},
                                                {modifiedKey, identity.modified},
                                                {changedKey, identity.changed},
                                                {notesKey, summary.notes},
                                                {applicationKey, summary.application},
                                                {versionKey, summary.version}});
    }
    const QVariantMap list{{formatKey, formatVersion}, {filesKey, entries}};
    const QString folder = QFileInfo(m_path).path();
    m_isChanged =
        !(platform::createDirectory(folder, platform::IntermediateFolders::Create) &&
          platform::writePropertyList(m_path, list, platform::PropertyListFormat::Binary));
}
