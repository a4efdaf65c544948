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

quint64 BMXLogManager::redirectStandardErrorToFileAtPath(const QString& path)
{
    const int file = open(QFile::encodeName(path).constData(),
                          O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file < 0)
        return 0;
    const std::lock_guard lock(m_mutex);
    std::fflush(stderr);
    if (m_original < 0)
        m_original = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    // What cannot be given back is not taken: standard error may be closed.
    const bool redirected = m_original >= 0 && dup2(file, STDERR_FILENO) >= 0;
    close(file);
    return redirected ? ++m_number : 0;
}

void BMXLogManager::restoreStandardError()
{
    const std::lock_guard lock(m_mutex);
    restore();
}

void BMXLogManager::endRedirection(quint64 number)
{
    const std::lock_guard lock(m_mutex);
    if (number == m_number)
        restore();
}

void BMXLogManager::restore()
{
    if (m_original < 0)
        return;
    std::fflush(stderr);
    dup2(m_original, STDERR_FILENO);
    close(m_original);
    m_original = -1;
}

bool BMXLogManager::isRedirected() const
{
    const std::lock_guard lock(m_mutex);
    return m_original >= 0;
}
