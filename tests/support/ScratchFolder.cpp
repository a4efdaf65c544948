// SPDX-License-Identifier: MIT
#include "support/ScratchFolder.h"

#include <QDirIterator>

namespace test {

QString ScratchFolder::write(const QString& name, const QByteArray& bytes) const
{
    const QString path = filePath(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    EXPECT_EQ(file.write(bytes), bytes.size());
    return path;
}

QByteArray ScratchFolder::read(const QString& name) const { return readFile(filePath(name)); }

QStringList ScratchFolder::tree() const
{
    QStringList entries;
    const QDir root(path());
    QDirIterator iterator(path(), QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                          QDirIterator::Subdirectories);
    while (iterator.hasNext()) {
        const QFileInfo entry(iterator.next());
        const bool isFolder = entry.isDir() && !entry.isSymLink();
        entries += root.relativeFilePath(entry.filePath()) + (isFolder ? QStringLiteral("/") : QString());
    }
    entries.sort();
    return entries;
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}

} // namespace test
