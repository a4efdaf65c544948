// SPDX-License-Identifier: MIT
#include "app/EnexFiles.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QSet>

namespace {

bool isEnexName(const QString& name)
{
    return name.endsWith(QLatin1String(".enex"), Qt::CaseInsensitive);
}

QStringList enexFilesInFolder(const QString& folder)
{
    QStringList files;
    QDirIterator entries(folder, QDir::Files, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        if (isEnexName(path))
            files += path;
    }
    files.sort();
    return files;
}

} // namespace

QList<QUrl> enexFilesAmong(const QList<QUrl>& urls)
{
    QList<QUrl> files;
    QSet<QString> known;
    const auto add = [&files, &known](const QString& path) {
        if (known.contains(path))
            return;
        known.insert(path);
        files += QUrl::fromLocalFile(path);
    };
    for (const QUrl& url : urls) {
        if (!url.isLocalFile())
            continue;
        const QString path = QDir::cleanPath(url.toLocalFile());
        if (QFileInfo(path).isDir()) {
            for (const QString& file : enexFilesInFolder(path))
                add(file);
        } else if (isEnexName(path)) {
            add(path);
        }
    }
    return files;
}

bool mayHoldEnexFiles(const QList<QUrl>& urls)
{
    return std::any_of(urls.begin(), urls.end(), [](const QUrl& url) {
        return url.isLocalFile() &&
               (isEnexName(url.path()) || QFileInfo(url.toLocalFile()).isDir());
    });
}

QList<QUrl> urlsOfArguments(const QStringList& arguments)
{
    QList<QUrl> urls;
    for (const QString& argument : arguments)
        urls += QUrl::fromUserInput(argument, QDir::currentPath(), QUrl::AssumeLocalFile);
    return urls;
}
