// SPDX-License-Identifier: MIT
#include "app/RunLock.h"

bool RunLock::acquire(const QString& temporary)
{
    if (temporary.isEmpty())
        return true;
    auto file = std::make_unique<QLockFile>(temporary + QStringLiteral("/Evernote.lock"));
    // Only a process that is gone makes a lock stale, however long an import takes.
    file->setStaleLockTime(0);
    if (!file->tryLock() && file->error() == QLockFile::LockFailedError)
        return false;
    m_file = std::move(file);
    return true;
}

void RunLock::release()
{
    m_file = nullptr;
}
