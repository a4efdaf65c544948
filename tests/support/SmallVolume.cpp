// SPDX-License-Identifier: MIT
#include "support/SmallVolume.h"

#include <sys/mount.h>

namespace test {

SmallVolume::SmallVolume(qint64 size)
{
    const QByteArray options = "size=" + QByteArray::number(size);
    m_isMounted = ::mount("tmpfs", qPrintable(path()), "tmpfs", 0, options.constData()) == 0;
}

SmallVolume::~SmallVolume()
{
    if (m_isMounted)
        ::umount2(qPrintable(path()), MNT_DETACH);
}

bool SmallVolume::makeReadOnly()
{
    return ::mount("tmpfs", qPrintable(path()), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr) == 0;
}

} // namespace test
