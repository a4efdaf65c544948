// SPDX-License-Identifier: MIT
#include "tools/FilesFolderLock.h"

#include <QFileInfo>

namespace {

QString lockPath(const QString& temporary)
{
    return temporary + QStringLiteral("/Evernote.lock");
}

} // namespace

bool FilesFolderLock::isIn(const QString& temporary)
{
    const QFileInfo lock(lockPath(temporary));
    return lock.isFile() && !lock.isSymLink();
}

bool FilesFolderLock::acquire(const QString& temporary, const QString& into, QString* problem)
{
    m_file = std::make_unique<QLockFile>(lockPath(temporary));
    // Only a process that is gone makes a lock stale, however long an import takes.
    m_file->setStaleLockTime(0);
    if (m_file->tryLock())
        return true;
    *problem = m_file->error() == QLockFile::LockFailedError
                   ? QStringLiteral("Another import into %1 is running.").arg(into)
                   : QStringLiteral("Nothing can be written into %1.").arg(temporary);
    return false;
}
