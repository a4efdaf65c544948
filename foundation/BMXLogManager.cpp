// SPDX-License-Identifier: MIT
#include "foundation/BMXLogManager.h"

#include <QFile>

#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

BMXLogManager& BMXLogManager::sharedManager()
{
    static BMXLogManager manager;
    return manager;
}

bool BMXLogManager::redirectStandardErrorToFileAtPath(const QString& path)
{
    const int file = open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NOFOLLOW,
                          0600);
    if (file < 0)
        return false;
    std::fflush(stderr);
    if (m_original < 0)
        m_original = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    // What cannot be given back is not taken: standard error may be closed.
    const bool redirected = m_original >= 0 && dup2(file, STDERR_FILENO) >= 0;
    close(file);
    return redirected;
}

void BMXLogManager::restoreStandardError()
{
    if (m_original < 0)
        return;
    std::fflush(stderr);
    dup2(m_original, STDERR_FILENO);
    close(m_original);
    m_original = -1;
}
