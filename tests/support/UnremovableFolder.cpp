// SPDX-License-Identifier: MIT
#include "support/UnremovableFolder.h"

#include <QDir>
#include <QFile>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace test {

UnremovableFolder::UnremovableFolder(const QString& path)
    : m_path(QFile::encodeName(path))
{
    if (!QDir().mkdir(path))
        return;
    m_isMounted = ::mount("tmpfs", m_path.constData(), "tmpfs", 0, nullptr) == 0;
    // No lock keeps the superuser out.
    if (m_isMounted || ::geteuid() == 0)
        return;
    QFile file(path + QStringLiteral("/file"));
    m_isLocked = file.open(QIODevice::WriteOnly) && ::chmod(m_path.constData(), 0) == 0;
}

UnremovableFolder::~UnremovableFolder()
{
    if (m_isMounted)
        ::umount2(m_path.constData(), MNT_DETACH);
    if (m_isLocked)
        ::chmod(m_path.constData(), 0700);
}

} // namespace test
