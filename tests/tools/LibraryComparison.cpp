// SPDX-License-Identifier: MIT
#include "tools/LibraryComparison.h"

#include "platform/propertylist/PropertyList.h"
#include "platform/scripting/ImportManifest.h"
#include "platform/scripting/LibraryCatalogue.h"
#include "support/ScratchFolder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>

#include <sys/xattr.h>

namespace test {

namespace {

QString withoutWhatDiffers(QString text)
{
    static const QRegularExpression identifier(
        QStringLiteral("[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}"));
    static const QRegularExpression laidOut(QStringLiteral("(?:file://)?/[^<>]*/Evernote\\b"));
    static const QRegularExpression imported(QStringLiteral("Imported from Evernote, [^<]*"));
    return text.replace(identifier, QStringLiteral("IDENTIFIER"))
        .replace(laidOut, QStringLiteral("FILES"))
        .replace(imported, QStringLiteral("Imported from Evernote"));
}

QString describedBytes(const QString& path)
{
    const QByteArray bytes = readFile(path);
    const auto list =
        bytes.startsWith("bplist") ? platform::propertyListFromData(bytes) : std::nullopt;
    if (!list)
        return QString::fromLatin1(
            QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
    const auto xml = platform::propertyListData(*list, platform::PropertyListFormat::Xml);
    EXPECT_TRUE(xml) << qPrintable(path);
    return withoutWhatDiffers(QString::fromUtf8(xml.value_or(QByteArray())));
}

QString describedAttributes(const QString& path)
{
    const QByteArray file = QFile::encodeName(path);
    QByteArray names(65536, '\0');
    names.truncate(std::max<ssize_t>(
        0, ::listxattr(file.constData(), names.data(), static_cast<size_t>(names.size()))));
    QStringList lines;
    for (const QByteArray& name : names.split('\0')) {
        QByteArray value(65536, '\0');
        const ssize_t size = name.isEmpty()
                                 ? -1
                                 : ::getxattr(file.constData(), name.constData(), value.data(),
                                              static_cast<size_t>(value.size()));
        if (size < 0)
            continue;
        const QString bytes = QString::fromLatin1(value.first(size).toPercentEncoding(" ,/:"));
        lines += QString::fromUtf8(name) + QLatin1Char('=') + withoutWhatDiffers(bytes);
    }
    lines.sort();
    return lines.join(QLatin1Char('\n'));
}

// Of the items to which the manifest gave a modification date.
QSet<QString> datedItems(const QString& folder)
{
    QSet<QString> paths;
    if (const auto catalogue = platform::LibraryCatalogue::read(folder)) {
        for (const auto& item : catalogue->items) {
            if (item.record.contains(platform::manifest::dateModifiedKey))
                paths.insert(folder + QLatin1Char('/') + item.fileName);
        }
    }
    return paths;
}

} // namespace

QMap<QString, QString> describedFolder(const QString& folder)
{
    const QSet<QString> dated = datedItems(folder);
    QMap<QString, QString> described;
    QDirIterator entries(folder,
                         QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QFileInfo entry(entries.next());
        QStringList lines{entry.isDir() ? QStringLiteral("folder")
                                        : describedBytes(entry.filePath()),
                          describedAttributes(entry.filePath())};
        if (dated.contains(entry.filePath()))
            lines += entry.lastModified().toUTC().toString(Qt::ISODateWithMs);
        described.insert(QDir(folder).relativeFilePath(entry.filePath()),
                         lines.join(QLatin1Char('\n')));
    }
    return described;
}

void expectSameFolder(const QString& folder, const QString& other)
{
    const QMap<QString, QString> left = describedFolder(folder);
    const QMap<QString, QString> right = describedFolder(other);
    EXPECT_EQ(left.keys(), right.keys());
    for (auto entry = left.begin(); entry != left.end(); ++entry)
        EXPECT_EQ(*entry, right.value(entry.key())) << qPrintable(entry.key());
}

} // namespace test
