// SPDX-License-Identifier: MIT
#include "platform/propertylist/PropertyListFile.h"

#include "platform/propertylist/PropertyListError.h"

#include <cerrno>

#include <unistd.h>

namespace platform {

namespace {

// A remote disk may tell only here that it is full. File systems that cannot do it say so.
int reachTheDisk(int descriptor)
{
    const bool isDone =
        ::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
    return isDone ? 0 : errno;
}

} // namespace

PropertyListFile::PropertyListFile(const QString& path)
    : m_file(path)
{
    m_file.open(QIODevice::WriteOnly);
}

void PropertyListFile::write(QByteArrayView bytes)
{
    // A disk that fills up takes a part first, without an error, and refuses the rest.
    while (m_file.isOpen() && !bytes.isEmpty()) {
        const qint64 written = m_file.write(bytes.data(), bytes.size());
        if (written <= 0)
            return;
        bytes = bytes.sliced(written);
    }
}

bool PropertyListFile::commit(Error* error)
{
    QString reason;
    // The commit alone takes a buffer that did not reach the disk for success, and ignores the
    // sync. A write that failed earlier shows in the file's error.
    if (!m_file.isOpen() || m_file.error() != QFileDevice::NoError || !m_file.flush()) {
        reason = m_file.errorString();
    } else if (const int systemError = reachTheDisk(m_file.handle())) {
        reason = qt_error_string(systemError);
    } else if (m_file.commit()) {
        return true;
    } else {
        reason = m_file.errorString();
    }
    m_file.cancelWriting();
    setError(error, propertyListError(PropertyListErrorCode::FileWrite, reason));
    return false;
}

} // namespace platform
